#include "layout/MovingClefs.h"

#include <algorithm>

#include "layout/BarlineShapes.h"
#include "layout/Frames.h"
#include "layout/NoteGeometry.h"
#include "layout/SymbolInk.h"
#include "model/Clefs.h"
#include "model/NoteOperations.h"
#include "model/Par.h"

namespace corvane {
namespace {

template <class Visit>
void ForEachEvent(const MeasureStaff* crossing, Visit visit) {
    for (const Voice* voice : measureStaffVoices.Of(crossing))
        for (const VoiceSymbol* symbol : voiceSymbols.Of(voice)) visit(symbol);
}

// The nearest events at or left of a place, and right of it.
struct Neighbours {
    const VoiceSymbol *before = nullptr, *behind = nullptr;
};
Neighbours Around(const MeasureStaff* crossing, int32_t place) {
    Neighbours found;
    ForEachEvent(crossing, [&](const VoiceSymbol* symbol) {
        const int32_t x = XOf(symbol);
        if (x <= place) {
            if (!found.before || x > XOf(found.before)) found.before = symbol;
        } else if (!found.behind || x < XOf(found.behind)) {
            found.behind = symbol;
        }
    });
    return found;
}

Rect InkOf(const VoiceSymbol* symbol) {
    if (const auto* pause = As<Pause>(symbol)) return RectOf(pause);
    const auto* chord = As<Chords>(symbol);
    Rect ink = RectOf(ChordSymbolPar(chord));
    for (const GenericNote* note : chordNotes.Of(chord))
        for (const NoteAttribute* attribute : noteAttributes.Of(note))
            if (const auto* accident = As<Accident>(attribute)) ink = Union(ink, RectOf(accident));
    return ink;
}

// The left edge of all events that begin with the one.
int32_t LeftOfTime(const MeasureStaff* crossing, const VoiceSymbol* first) {
    int32_t left = InkOf(first).left;
    ForEachEvent(crossing, [&](const VoiceSymbol* symbol) {
        if (XOf(symbol) == XOf(first)) left = std::min(left, InkOf(symbol).left);
    });
    return left;
}

// What the clefs take that stand behind one before the same event.
int32_t RoomOfClefsBehind(const MovingClaf* clef, const VoiceSymbol* behind, int32_t lineDistance) {
    int32_t room = 0;
    bool later = false;  // in the list, for clefs at one place
    for (const StaffMeasureSymbol* symbol : staffSymbols.Of(MeasureStaffPar(clef))) {
        const auto* other = As<MovingClaf>(symbol);
        if (other == clef) later = true;
        if (!other || other == clef || (behind && other->_place >= XOf(behind))) continue;
        if (other->_place > clef->_place || (other->_place == clef->_place && later))
            room += RoomOf(other, lineDistance);
    }
    return room;
}

// Left edge of a clef that is so wide.
int32_t LeftEdge(const MovingClaf* clef, int32_t width, int32_t lineDistance) {
    const MeasureStaff* crossing = MeasureStaffPar(clef);
    const MeasureFrame frame = FrameOf(MeasurePar(crossing));
    const Neighbours around = Around(crossing, clef->_place);
    const int32_t others = RoomOfClefsBehind(clef, around.behind, lineDistance);
    const int32_t gap = lineDistance / 2,
                  end = frame.left + frame.width - EndBarlineWidth(MeasurePar(crossing));
    const int32_t right = around.behind ? LeftOfTime(crossing, around.behind) - gap
                                        : end - kClefBeforeBarline * lineDistance / 100;
    const int32_t left = right - width - others;
    if (!around.before) return around.behind ? left : std::min(frame.XOf(clef->_place), left);
    // Where there is no room it stands in the middle of what there is.
    const int32_t room = InkOf(around.before).right;
    return left >= room ? left : (room + left + gap) / 2;
}

}  // namespace

int32_t RoomOf(const MovingClaf* clef, int32_t lineDistance) {
    return InkOf(clef->_symbol, Point{}, lineDistance, kMovingClefPercent).Width() + lineDistance / 2;
}

int32_t InkLeftOfPlace(const VoiceSymbol* symbol) {
    return FrameOf(MeasurePar(symbol)).XOf(XOf(symbol)) - InkOf(symbol).left;
}

Point PlaceOf(const MovingClaf* clef) {
    const StaffFrame frame = FrameOf(MeasureStaffPar(clef)->_staff.Get());
    const Rect ink = InkOf(clef->_symbol, Point{}, frame.lineDistance, kMovingClefPercent);
    const int32_t line = ClefLine(clef->_code, frame.lineCount);
    const Point at{LeftEdge(clef, ink.Width(), frame.lineDistance) - ink.left, frame.YOfLine(line)};
    return at + Point{clef->_x * frame.lineDistance / 100, clef->_y * frame.lineDistance / 100};
}

ClefPlaces::ClefPlaces(const MeasureStaff* crossing) {
    for (StaffMeasureSymbol* symbol : staffSymbols.Of(crossing))
        if (auto* clef = As<MovingClaf>(symbol)) {
            const auto [before, behind] = Around(crossing, clef->_place);
            _clefs.push_back({clef, before, behind, before ? XOf(before) : 0, behind ? XOf(behind) : 1000});
        }
    std::stable_sort(_clefs.begin(), _clefs.end(),
                     [](const Between& a, const Between& b) { return a.clef->_place < b.clef->_place; });
}

void ClefPlaces::Apply() const {
    for (const Between& each : _clefs) {
        const int32_t before = each.before ? XOf(each.before) : 0,
                      behind = each.behind ? XOf(each.behind) : 1000;
        if (before == each.oldBefore && behind == each.oldBehind) continue;
        const int32_t gap = std::max(each.oldBehind - each.oldBefore, 1);
        const int64_t from = each.clef->_place - each.oldBefore;
        const auto place = static_cast<int32_t>(before + from * (behind - before) / gap);
        each.clef->_place = each.behind ? std::min(place, behind - 1) : std::max(place, before);
    }
    KeepOrder();
}

// Events of different voices may pass each other. The last clef stays with its event, for it is the one that
// later measures read.
void ClefPlaces::KeepOrder() const {
    for (size_t i = _clefs.size(); i > 1; --i) {
        MovingClaf *left = _clefs[i - 2].clef, *right = _clefs[i - 1].clef;
        if (left->_place >= right->_place) left->_place = right->_place - 1;
    }
}

}  // namespace corvane
