#include "edit/ObjectDrag.h"

#include "base/Rounding.h"
#include "edit/Audition.h"
#include "edit/Drag.h"
#include "edit/MeasureRedraw.h"
#include "edit/NoteChanges.h"
#include "edit/PickPlaces.h"
#include "edit/SelectionPress.h"
#include "layout/AboveStaff.h"
#include "layout/HeadShapes.h"
#include "layout/NoteGeometry.h"
#include "model/NoteOperations.h"
#include "model/Par.h"
#include "model/SymbolTable.h"

namespace corvane {
namespace {

// ---- What a move means for an object of a class: how far it really goes, and what is then written.

Point Anywhere(const DrawPatch&, Point by) { return by; }

template <class R>
void MoveInMeasure(const DrawPatch& patch, Point by) {
    R* record = patch.Record<R>();
    const MeasureStaff* crossing = MeasureStaffPar(record);
    const StaffFrame staff = FrameOf(crossing->_staff.Get());
    record->_x = record->_x + FrameOf(MeasurePar(crossing)).PerMille(by.x);
    if (staff.lineDistance) record->_y = record->_y + by.y * 1000 / staff.lineDistance;
}

void MoveOnPage(const DrawPatch& patch, Point by) {
    auto* text = patch.Record<PageText>();
    text->_x = text->_x + by.x;
    text->_y = text->_y + by.y;
}

template <class R>
void MoveOffNote(const DrawPatch& patch, Point by) {
    R* sign = patch.Record<R>();
    const int32_t distance = FrameOf(StaffPar(noteAttributes.ParentOf(sign))).lineDistance;
    if (!distance) return;
    sign->_dx = sign->_dx + by.x * 1000 / distance;
    sign->_dy = sign->_dy + by.y * 1000 / distance;
}

template <class R>
void MoveOverMeasure(const DrawPatch& patch, Point by) {
    R* sign = patch.Record<R>();
    const Staff* staff = TopStaffOf(MeasurePar(sign));
    const int32_t distance = staff ? staff->_lineDistance.Get() : 0;
    if (!distance) return;
    sign->_x = sign->_x + by.x * 100 / distance;
    sign->_y = sign->_y + by.y * 100 / distance;
}

// Rests that hang from a line or stand on one go from line to line.
Point UpAndDown(const DrawPatch& patch, Point by) {
    const auto* rest = patch.Record<Pause>();
    const int32_t distance = FrameOf(StaffPar(rest)).lineDistance;
    const bool onLines = rest->_value == 1 || rest->_value == 2 || rest->_value == kDoubleWhole;
    if (!onLines || !distance) return {0, by.y};
    return {0, Round(static_cast<double>(by.y) / distance) * distance};
}

void MoveRest(const DrawPatch& patch, Point by) {
    auto* rest = patch.Record<Pause>();
    const StaffFrame staff = FrameOf(StaffPar(rest));
    const int32_t y = PlaceOf(rest).y + by.y - staff.top;
    if (staff.lineDistance) rest->_y = y * 1000 / staff.lineDistance;
}

// Of events and their signs; null for everything else.
const MeasureStaff* CrossingOf(const DrawPatch& patch) {
    if (const auto* rest = patch.Record<Pause>()) return MeasureStaffPar(rest);
    const auto* sign = patch.Record<NoteAttribute>();
    return sign ? MeasureStaffPar(noteAttributes.ParentOf(sign)) : nullptr;
}

struct DragRow {
    bool (*is)(int16_t number);
    Point (*reach)(const DrawPatch& patch, Point by);
    void (*move)(const DrawPatch& patch, Point by);
};
constexpr DragRow kRows[] = {
    {IsClass<Dinamiche>, Anywhere, MoveInMeasure<Dinamiche>},
    {IsClass<SimboliVari>, Anywhere, MoveInMeasure<SimboliVari>},
    {IsClass<MeasureStaffText>, Anywhere, MoveInMeasure<MeasureStaffText>},
    {IsClass<PageText>, Anywhere, MoveOnPage},
    {IsClass<Accident>, Anywhere, MoveOffNote<Accident>},
    {IsClass<SymbolAttribute>, Anywhere, MoveOffNote<SymbolAttribute>},
    {IsClass<Time>, Anywhere, MoveOverMeasure<Time>},
    {IsClass<Coda>, Anywhere, MoveOverMeasure<Coda>},
    {IsClass<Pause>, UpAndDown, MoveRest},
};

// ---- The drags

class SignDrag : public Drag {
public:
    SignDrag(WindowTarn& window, const DrawPatch& patch, Point from, const DragRow& row)
        : Drag(window, patch, from), _row(row) {}
    ~SignDrag() override {
        if (_moving) _window.Sheet().PutDown();
    }

    void Draw(GraphicPort& port, const DrawContext& context) const override {
        if (IsLifted()) _window.Sheet().DrawLifted(port, _row.reach(_patch, _by), context);
    }
    void Release(Point at) override {
        Move(at);
        if (!IsLifted()) return;
        const Point by = _row.reach(_patch, _by);
        _window.Sheet().PutDown();
        if (by == Point{}) return;
        const EditStep step(_window);
        Apply(by);
        _window.TheSelection().Clear();
        _window.TheSelection().Pick(RecordAt(_patch, _from));
        _window.SelectionChanged();
    }

private:
    void Begin() override { _window.Sheet().Lift({_patch}); }
    // What hangs on notes or stands among them moves spanners around it too.
    void Apply(Point by) {
        if (const MeasureStaff* crossing = CrossingOf(_patch)) {
            const MeasureRedraw redraw(_window, crossing);
            return _row.move(_patch, by);
        }
        const int voice = _patch.Behaviour().VoiceOf(_patch.Object());
        _window.Sheet().RemoveObject(_patch);
        _row.move(_patch, by);
        _window.Sheet().AddObject(_patch, voice);
    }
    bool IsLifted() const { return !_window.Sheet().Lifted().empty(); }
    bool IsThere() const override { return _moving ? IsLifted() : Drag::IsThere(); }

    const DragRow& _row;
};

// A head that goes from step to step; the one that it comes from stays in the picture.
class HeadDrag : public Drag {
public:
    using Drag::Drag;

    void Draw(GraphicPort& port, const DrawContext& context) const override {
        const GenericNote* note = Note();
        const int steps = note ? Steps(note) : 0;
        if (!steps) return;
        const StaffFrame staff = FrameOf(StaffPar(note));
        const int32_t up = steps * staff.lineDistance / 2;
        const Point place = DrawnPlaceOf(note, Column(StemPar(note)));
        port.SetColor(context.ColourOf(_patch.Behaviour().VoiceOf(_patch.Object())));
        DrawSymbol(port, note->_symbol, place.x, place.y - up, staff.lineDistance, note->_size,
                   SideLetterOf(note));
        const Rect ink = RectOf(note);
        DrawLedgerLines(port, staff, note->_line + steps, (ink.left + ink.right) / 2);
    }
    void Release(Point at) override {
        Move(at);
        GenericNote* note = Note();
        const int steps = note ? Steps(note) : 0;
        if (!steps) return;
        const SelectionFollower follower(_window);
        if (const Status status = MoveBySteps(_window, {note}, steps); !status)
            _window.Shell().Tell(status.message());
        else
            AuditionNote(note);
    }

private:
    GenericNote* Note() const {
        return _moving && IsThere() ? HeadAt(_patch.Record<ChordSymbol>(), _from) : nullptr;
    }
    int Steps(const GenericNote* note) const {
        const int32_t distance = FrameOf(StaffPar(note)).lineDistance;
        return distance ? Round(-2.0 * _by.y / distance) : 0;
    }
    static void DrawLedgerLines(GraphicPort& port, const StaffFrame& staff, int line, int32_t x) {
        const int32_t reach = staff.lineDistance * 4 / 5;
        const auto draw = [&](int each) {
            port.DrawLine(x - reach, staff.YOfLine(each), x + reach, staff.YOfLine(each));
        };
        port.SetPenSize(staff.lineDistance / 7, staff.lineDistance / 7);
        for (int each = 2 * staff.lineCount + 1; each <= line; each += 2) draw(each);
        for (int each = -1; each >= line; each -= 2) draw(each);
    }
};

}  // namespace

std::unique_ptr<Interaction> MakeDrag(WindowTarn& window, const DrawPatch& patch, Point from) {
    if (const auto* column = patch.Record<ChordSymbol>())
        return HeadAt(column, from) ? std::make_unique<HeadDrag>(window, patch, from) : nullptr;
    const auto* rest = patch.Record<Pause>();
    if (rest && MarkerOf(rest)) return nullptr;  // its beam says how high it stands
    for (const DragRow& row : kRows)
        if (row.is(patch.ClassNumber())) return std::make_unique<SignDrag>(window, patch, from, row);
    return nullptr;
}

}  // namespace corvane
