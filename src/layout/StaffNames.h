// What staves are called, left of their systems: the long name at the first system of a score, the short one
// at all others, where the score keeps room for it. A braced pair with one name shows it in its middle.
#pragma once

#include <string_view>

#include "layout/TextInk.h"
#include "model/Relations.h"

namespace corvane {

// The line of the part list that a staff belongs to; null for none.
AllStaff* AllStaffOf(const Staff* staff);

struct StaffNamePicture {
    std::string_view text;  // empty for none
    TextLook look;
    TextPlace place;
};
StaffNamePicture NamePictureOf(const Staff* staff);
TextLook StaffNameLook(const Document* document);

// The widest name of the part list, with what stands between it and its system; 0 where no staff has one.
int32_t WidthOfNames(const Document* document, std::string_view (*form)(std::string_view));

}  // namespace corvane
