// Texts on a page and in a measure: one line in their font, starting at their place on the baseline.
#include "graphics/MemoryPort.h"
#include "layout/DrawFamilies.h"
#include "layout/Frames.h"
#include "model/Par.h"

namespace corvane {
namespace {

struct TextPlace {
    const GenericText* text = nullptr;
    Point at;
};

TextPlace PlaceOf(const PageText& text) {
    const Page* page = pageTexts.ParentOf(&text);
    return page ? TextPlace{text._text, {text._x, text._y}} : TextPlace{};
}

TextPlace PlaceOf(const MeasureStaffText& text) {
    const MeasureStaff* crossing = MeasureStaffPar(&text);
    const Staff* staff = crossing ? crossing->_staff.Get() : nullptr;
    if (!staff) return {};
    const StaffFrame frame = FrameOf(staff);
    const MeasureFrame measure = FrameOf(MeasurePar(crossing));
    return {text._text,
            {measure.XOf(0) + text._x * frame.lineDistance / 100,
             frame.top + text._y * frame.lineDistance / 100}};
}

void UseFont(GraphicPort& port, const GenericText* text) {
    const TarnFont* font = text->_font;
    if (!font) return;
    port.SetFontName(TextOf(font->_name));
    port.SetFontSize(font->_size);
    port.SetFontStyle(font->_style);
}

Rect InkOf(const TextPlace& place) {
    if (!place.text) return {};
    MemoryPort port;
    UseFont(port, place.text);
    return port.StringRect(TextOf(place.text->_text)).MovedBy(place.at.x, place.at.y);
}

void Paint(GraphicPort& port, const TextPlace& place) {
    if (!place.text) return;
    UseFont(port, place.text);
    port.DrawString(TextOf(place.text->_text), place.at.x, place.at.y);
}

}  // namespace

Rect InkOf(const PageText& text) { return InkOf(PlaceOf(text)); }
void Paint(GraphicPort& port, const PageText& text, const DrawContext&) { Paint(port, PlaceOf(text)); }
Rect InkOf(const MeasureStaffText& text) { return InkOf(PlaceOf(text)); }
void Paint(GraphicPort& port, const MeasureStaffText& text, const DrawContext&) {
    Paint(port, PlaceOf(text));
}

}  // namespace corvane
