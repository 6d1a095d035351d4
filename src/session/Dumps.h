// A score as text: what scripts print.
#pragma once

#include <string>
#include <string_view>

#include "base/Status.h"
#include "edit/WindowTarn.h"

namespace corvane {

// Appends the lines of `what`: layout and geometry (of the current page), tree, notes or objects.
Status DumpScore(WindowTarn& window, std::string_view what, std::string& out);

}  // namespace corvane
