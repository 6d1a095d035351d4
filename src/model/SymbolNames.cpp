#include "model/SymbolNames.h"

#include <algorithm>
#include <cstdlib>

namespace corvane {
namespace {

std::string FormAndSize(TimeForm form, const std::string& middle, int size) {
    return " " + std::to_string(static_cast<int>(form)) + middle + " su " + std::to_string(size) + "*";
}

}  // namespace

std::string FlagName(int value, bool up, bool grace) {
    return (grace ? "Grace" : "") + std::to_string(value) + "\xA1" + (up ? "up" : "down");
}

std::string KeySignatureName(int clefCode, int key, int previous) {
    const bool flats = key < 0 || (key == 0 && previous < 0);
    const bool sameWay = key == 0 || (key < 0) == (previous < 0);
    const int own = std::abs(key), before = sameWay ? std::abs(previous) : 0;
    std::string name = "cs" + std::to_string(clefCode) + (flats ? "%" : "$");
    for (int i = 0; i < 7; ++i) name += i < own ? '+' : i < before ? 'b' : '-';
    return name;
}

std::string TimeSignatureName(TimeForm form, int num, int den, int size) {
    return "ts" + FormAndSize(form, " su " + std::to_string(num) + " su " + std::to_string(den), size);
}

std::string TimeSignatureName(TimeForm form, std::span<const TimeFraction> fractions, int size) {
    std::string name;
    const auto fraction = [](const TimeFraction& f) {
        return std::to_string(f.first) + " su " + std::to_string(f.second);
    };
    for (const TimeFraction& each : fractions)
        name +=
            name.empty() ? "ts" + FormAndSize(form, " su " + fraction(each), size) : " + " + fraction(each);
    return name;
}

std::string CommonTimeName(bool cut, int size) {
    return (cut ? "tsCs" : "tsC") + FormAndSize(TimeForm::Stacked, "", size);
}

std::span<const char* const> RepetitionTexts() {
    static constexpr const char* kTexts[] = {"D.C.",         "D.C. al coda", "D.C. al fine", "D.S.",
                                             "D.S. al coda", "D.S. al fine", "Al Coda",      "Coda",
                                             "Segno",        "Fine"};
    return kTexts;
}

}  // namespace corvane
