// The layout of a page as text, for people and tests.
#pragma once

#include <string>

#include "model/Relations.h"

namespace corvane {

// Lines of absolute page units, S, M and K from 1 on the page, in its systems:
//     page N width height
//     system S left top right bottom
//     measure S M left noteleft right
//     staff S K top linedistance lines
std::string LayoutDump(const Page* page);

}  // namespace corvane
