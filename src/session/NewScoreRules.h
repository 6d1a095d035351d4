// Which new scores can be made.
#pragma once

#include <string_view>

#include "base/Status.h"
#include "layout/ScoreBuilder.h"

namespace corvane {

// Of the measures of a system, and of the systems of a page.
inline constexpr int kMostInNewScore = 99;

// Whether a score of that layout and staff string can be made: Refused with the sentence otherwise.
Status CheckNewScore(const PageLayout& layout, std::string_view staffs);

}  // namespace corvane
