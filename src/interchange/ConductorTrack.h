// The first track of an exported file: meters and tempos, at the starts of measures.
#pragma once

#include <cstdint>
#include <vector>

#include "model/Relations.h"

namespace corvane {

std::vector<uint8_t> ConductorTrack(const Document* document);

// Microseconds of a quarter that a tempo mark tells, at most FFFFFF; 0 where it tells none.
int32_t MicrosecondsOf(const Time* mark);

}  // namespace corvane
