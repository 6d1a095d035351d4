// Texts on a page and at a staff, a staff's text repeated at the staves that its marks name, and the title.
#include <algorithm>
#include <vector>

#include "layout/DrawFamilies.h"
#include "layout/Frames.h"
#include "layout/PageLayout.h"
#include "layout/StaffNames.h"
#include "layout/TextInk.h"
#include "layout/TextPlaces.h"
#include "model/Par.h"

namespace corvane {
namespace {

// Every place of one staff text: at its own staff first.
std::vector<TextPlace> PlacesOf(const MeasureStaffText& text) {
    const MeasureStaff* crossing = MeasureStaffPar(&text);
    const Staff* own = crossing ? crossing->_staff.Get() : nullptr;
    if (!own) return {};
    const MeasureFrame measure = FrameOf(MeasurePar(crossing));
    std::vector<TextPlace> places;
    const auto add = [&](const Staff* staff) {
        const StaffFrame frame = FrameOf(staff);
        places.push_back({{measure.XOf(text._x), frame.top + text._y * frame.lineDistance / 1000}});
    };
    add(own);
    if (textMarks.IsEmpty(&text)) return places;
    for (const Staff* staff : StaffsFromTop(SystemPar(own)))
        if (staff != own && IsShownAt(&text, staff)) add(staff);
    return places;
}

Rect InkAt(const GenericText* text, const TextPlace& place) {
    return InkOfText(TextOf(text), LookOf(text), place);
}

TextPlace PlaceOf(const PageText& text) { return {{text._x, text._y}}; }

}  // namespace

Point BaselineOf(const MeasureStaffText* text) {
    const std::vector<TextPlace> places = PlacesOf(*text);
    return places.empty() ? Point{} : places.front().at;
}

bool IsShownAt(const MeasureStaffText* text, const Staff* staff) {
    const AllStaff* line = AllStaffOf(staff);
    for (const MarkText* mark : textMarks.Of(text))
        if (line && allStaffTextMarks.ParentOf(mark) == line) return true;
    return false;
}

Rect InkOf(const PageText& text) { return InkAt(text._text, PlaceOf(text)); }
void Paint(GraphicPort& port, const PageText& text, const DrawContext&) {
    PaintText(port, TextOf(text._text), LookOf(text._text), PlaceOf(text));
}

Rect InkOf(const MeasureStaffText& text) {
    Rect ink;
    for (const TextPlace& place : PlacesOf(text)) ink = Union(ink, InkAt(text._text, place));
    return ink;
}
bool Touches(const MeasureStaffText& text, Point p) {
    for (const TextPlace& place : PlacesOf(text))
        if (InkAt(text._text, place).EnclosesStrictly(p)) return true;
    return false;
}
void Paint(GraphicPort& port, const MeasureStaffText& text, const DrawContext&) {
    for (const TextPlace& place : PlacesOf(text))
        PaintText(port, TextOf(text._text), LookOf(text._text), place);
}

}  // namespace corvane
