// A play on a simulated clock, written down.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "play/TarnPlay.h"

namespace corvane {

// Plays a score from a measure on (null for the first) as fast as it can; `sink` gets each sent message as
// one line, "TICK PORT STATUS DATA1 DATA2\n" in decimal, the preparation at tick 0. No other port and no
// clock may exist.
void DryPlay(const Document* document, const std::function<void(std::string_view)>& sink,
             const Measure* from = nullptr, const PlaySetup& setup = {});
// The same as one text.
std::string DryPlay(const Document* document, const Measure* from = nullptr);

}  // namespace corvane
