// The pencil goes from place to place.
#include <algorithm>
#include <cstdlib>

#include "edit/EventStops.h"
#include "edit/KeyWalk.h"
#include "edit/TarnClick.h"
#include "edit/ToolState.h"
#include "layout/Frames.h"
#include "layout/Spacing.h"
#include "model/NoteOperations.h"
#include "model/Par.h"

namespace corvane {
namespace {

constexpr int32_t kBegin = 60, kEnd = 1000;  // per mille: in an empty measure, and its end
constexpr double kEpsilon = 0.0001;          // of a whole note
constexpr int kFarthest = 40;                // staff steps above and below

// A place of a staff in a measure: one of its stops, and a staff step.
struct PenPlace {
    MeasureStaff* crossing;
    size_t stop;
    int line;
};

bool HasRoom(const MeasureStaff* crossing) {
    const Voice* voice = FindVoice(crossing, Tools().OneVoice());
    return !voice || !Switches().autoSpace ||
           VoiceFraction(voice) < MeasureFraction(MeasurePar(crossing)) - kEpsilon;
}

// Absolute, from the left: the events of the voice at hand and, last, where the next one goes.
std::vector<int32_t> StopsOf(const MeasureStaff* crossing) {
    std::vector<int32_t> stops;
    const std::vector<VoiceSymbol*> events = EventsFromLeft(crossing, Tools().OneVoice());
    for (const VoiceSymbol* event : events) stops.push_back(MiddleOf(event));
    const MeasureFrame frame = FrameOf(MeasurePar(crossing));
    if (events.empty())
        stops.push_back(frame.XOf(kBegin));
    else if (HasRoom(crossing))
        stops.push_back(frame.XOf((std::clamp(XOf(events.back()), 0, kEnd) + kEnd) / 2));
    return stops;
}

size_t NearestStop(const MeasureStaff* crossing, int32_t x) {
    const std::vector<int32_t> stops = StopsOf(crossing);
    const auto isNearer = [x](int32_t a, int32_t b) { return std::abs(a - x) < std::abs(b - x); };
    return static_cast<size_t>(std::min_element(stops.begin(), stops.end(), isNearer) - stops.begin());
}

MeasureStaff* CrossingAt(const WindowTarn& window, Point p) {
    System* system = window.CurrentPage() ? FindSystem(window.CurrentPage(), p.y) : nullptr;
    if (!system || systemStaffs.IsEmpty(system) || systemMeasures.IsEmpty(system)) return nullptr;
    MeasureStaff* crossing = FindMeasureStaff(system, p);
    return crossing && crossing->_staff.Get() ? crossing : nullptr;
}

PenPlace PlaceAt(MeasureStaff* crossing, Point p) {
    return {crossing, NearestStop(crossing, p.x), StaffPosition(FrameOf(crossing->_staff.Get()), p.y)};
}

Point PointOf(const PenPlace& place) {
    const std::vector<int32_t> stops = StopsOf(place.crossing);
    return {stops[std::min(place.stop, stops.size() - 1)],
            FrameOf(place.crossing->_staff.Get()).YOfLine(place.line)};
}

void GoAcross(PenPlace& place, bool right) {
    const size_t count = StopsOf(place.crossing).size();
    if (right && place.stop + 1 < count) return void(++place.stop);
    if (!right && place.stop > 0) return void(--place.stop);
    MeasureStaff* beside = ShownBeside(place.crossing, right);
    if (!beside) return;
    place.crossing = beside;
    place.stop = right ? 0 : StopsOf(beside).size() - 1;
}

void GoUp(PenPlace& place, bool up) {
    place.line = std::clamp(place.line + (up ? 1 : -1), -kFarthest, kFarthest);
}

void GoToStaff(PenPlace& place, bool above) {
    const int32_t x = PointOf(place).x;
    MeasureStaff* other = ShownAbove(place.crossing, above);
    if (!other) return;
    place.crossing = other;
    place.stop = NearestStop(other, x);
}

constexpr struct {
    PenMove move;
    void (*go)(PenPlace& place, bool onward);
    bool onward;
} kMoves[] = {
    {PenMove::Left, GoAcross, false},
    {PenMove::Right, GoAcross, true},
    {PenMove::Up, GoUp, true},
    {PenMove::Down, GoUp, false},
    {PenMove::StaffAbove, GoToStaff, true},
    {PenMove::StaffBelow, GoToStaff, false},
};

// Where the caret is, else the page's first place, on the middle line.
Point StartOf(const WindowTarn& window) {
    const Caret& caret = window.caret;
    MeasureStaff* crossing = nullptr;
    if (caret.measure && caret.staff && PagePar(caret.measure) == window.CurrentPage())
        crossing = MeasureStaffAt(caret.measure, caret.staff);
    const bool atCaret = crossing && crossing->_staff.Get();
    if (!atCaret) crossing = window.CurrentPage() ? FirstShown(window.CurrentPage()) : nullptr;
    if (!crossing) return {};
    return PointOf(
        {crossing, atCaret ? NearestStop(crossing, caret.x) : 0, FrameOf(crossing->_staff.Get()).lineCount});
}

void Show(WindowTarn& window, const PenPlace& place) {
    Page* page = PagePar(MeasurePar(place.crossing));
    if (page != window.CurrentPage()) window.SetCurrentPage(page);
    const Point at = PointOf(place);
    const int32_t space = FrameOf(place.crossing->_staff.Get()).lineDistance;
    window.Shell().ScrollTo(window, {at.x - space, at.y - space, at.x + space, at.y + space});
    window.Shell().Refresh(window);
}

}  // namespace

Point MovePen(WindowTarn& window, std::optional<Point> from, PenMove move) {
    MeasureStaff* crossing = from ? CrossingAt(window, *from) : nullptr;
    if (!crossing) return StartOf(window);
    PenPlace place = PlaceAt(crossing, *from);
    const Point before = PointOf(place);
    for (const auto& row : kMoves)
        if (row.move == move) row.go(place, row.onward);
    Show(window, place);
    const Point after = PointOf(place);
    if (after == before) window.Shell().Tell("There is no further place that way.");
    return after;
}

Point PressWithPen(WindowTarn& window, Point at) {
    MouseDown(window, at.x, at.y, 0);
    MouseUp(window, at.x, at.y);
    MeasureStaff* crossing = CrossingAt(window, at);
    if (!crossing) return at;
    // The event that came to be, or the one that was there, under the press: to the left of a place at the
    // end, which the spacing has moved.
    PenPlace place = PlaceAt(crossing, at);
    const size_t events = EventsFromLeft(crossing, Tools().OneVoice()).size();
    if (events && place.stop >= events) place.stop = events - 1;
    return PointOf(place);
}

}  // namespace corvane
