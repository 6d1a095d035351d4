// Tempo marks: a note figure, "= " and the beats a minute.
#include <string>
#include <vector>

#include "base/Rounding.h"
#include "graphics/MemoryPort.h"
#include "layout/AboveStaff.h"
#include "layout/DrawFamilies.h"
#include "layout/Frames.h"
#include "layout/Glyphs.h"
#include "layout/PageLayout.h"
#include "model/Meters.h"
#include "model/Par.h"
#include "model/Preferences.h"

namespace corvane {
namespace {

constexpr int32_t kBaseline = 250;  // above the top line, hundredths of a line distance
constexpr int32_t kFigurePercent = 75, kTextSize = 200, kBold = 1;
constexpr uint8_t kAllStaves = 35, kTopOfEach = 36;

// The staves on which a mark is shown, by its placement.
std::vector<const Staff*> StavesOf(const Time& mark) {
    const Measure* measure = MeasurePar(&mark);
    const System* system = SystemPar(measure);
    std::vector<const Staff*> staves;
    if (!system) return staves;
    if (mark._placement == kAllStaves)
        for (const Staff* staff : StaffsFromTop(system)) staves.push_back(staff);
    if (mark._placement == kTopOfEach)
        for (const Connection* connection : systemConnections.Of(system))
            if (const ConnStaff* first = connectionStaffs.First(connection))
                staves.push_back(staffConnections.ParentOf(first));
    if (staves.empty())
        if (const Staff* staff = TopStaffOf(measure)) staves.push_back(staff);
    return staves;
}

// A mark on one staff.
struct MarkPlace {
    NoteFigure figure;
    std::string text;
    Point textAt;
    int32_t textSize;
};

MarkPlace PlaceOn(const Time& mark, const Staff* staff) {
    const StaffFrame frame = FrameOf(staff);
    const int32_t distance = frame.lineDistance;
    const Point at{BeatX(MeasurePar(&mark), mark._beat) + mark._x * distance / 100,
                   frame.top + (mark._y - kBaseline) * distance / 100};
    const auto code = static_cast<unsigned>(mark._figure.Get());
    MarkPlace place;
    place.figure = {kFigureValues[code < std::size(kFigureValues) ? code : 3], mark._dots, at,
                    distance * kFigurePercent / 100};
    place.text = "= " + std::to_string(mark._bpm);
    place.textAt = {InkOf(place.figure).right + distance * 2 / 5, at.y};
    place.textSize = Round(kTextSize * distance / 100.0);
    return place;
}

void UseTextFont(GraphicPort& port, const Time& mark, int32_t size) {
    const auto* preferences = Preferences<TimeMeasurePref>(DocumentPar(MeasurePar(&mark)));
    const TarnFont* font = preferences ? preferences->_tempoFont.Get() : nullptr;
    port.SetFontName(font ? TextOf(font->_name) : "Times New Roman");
    port.SetFontSize(size);
    port.SetFontStyle(font && font->_style ? font->_style.Get() : kBold);
}

Rect InkOn(const Time& mark, const Staff* staff) {
    const MarkPlace place = PlaceOn(mark, staff);
    MemoryPort port;
    UseTextFont(port, mark, place.textSize);
    return Union(InkOf(place.figure), port.StringRect(place.text).MovedBy(place.textAt.x, place.textAt.y));
}

}  // namespace

Rect InkOf(const Time& mark) {
    Rect ink;
    for (const Staff* staff : StavesOf(mark)) ink = Union(ink, InkOn(mark, staff));
    return ink;
}

Rect InkOfMark(const Time* mark) {
    const Staff* staff = TopStaffOf(MeasurePar(mark));
    return staff ? InkOn(*mark, staff) : Rect{};
}

void Paint(GraphicPort& port, const Time& mark, const DrawContext&) {
    for (const Staff* staff : StavesOf(mark)) {
        const MarkPlace place = PlaceOn(mark, staff);
        Paint(port, place.figure);
        UseTextFont(port, mark, place.textSize);
        port.DrawString(place.text, place.textAt.x, place.textAt.y);
    }
}

}  // namespace corvane
