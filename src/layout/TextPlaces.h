// Where a text at a staff and the title of a score stand, and which other staves show a text.
#pragma once

#include "base/Geometry.h"
#include "layout/TextInk.h"
#include "model/Relations.h"

namespace corvane {

// The left end of its first baseline at its own staff; the origin where it stands on none.
Point BaselineOf(const MeasureStaffText* text);
// Whether a mark of the text names the staff; its own staff shows it without.
bool IsShownAt(const MeasureStaffText* text, const Staff* staff);

struct TitlePicture {
    std::string_view text;
    TextLook look;
    TextPlace place;
};
TitlePicture TitlePictureOf(const Document* document);

}  // namespace corvane
