// The numbers of measures, as a score's preferences ask for them.
#pragma once

#include <string>
#include <vector>

#include "layout/TextInk.h"
#include "model/Relations.h"

namespace corvane {

struct NumberPicture {
    std::string text;
    TextLook look;
    std::vector<TextPlace> places;  // a staff each; none where the measure shows no number
};
NumberPicture NumberPictureOf(const Measure* measure);

// Codes of MeasurePreferences: where numbers stand, and which measures have one.
enum class NumberStaves : uint8_t { All = 34, Top = 35, TopOfEach = 36 };
enum class Numbering : int16_t { EverySoMany = 1, EachSystem = 2 };

}  // namespace corvane
