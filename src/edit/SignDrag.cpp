// Signs and texts, rests, endings and clefs: what is dragged as it is.
#include <cstdlib>

#include "base/Rounding.h"
#include "edit/Drag.h"
#include "edit/Drags.h"
#include "edit/MeasureRedraw.h"
#include "edit/Signs.h"
#include "layout/AboveStaff.h"
#include "layout/NoteGeometry.h"
#include "layout/SymbolInk.h"
#include "model/NoteOperations.h"
#include "model/Par.h"

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

// All dots of the event that this one stands for.
void MoveDots(const DrawPatch& patch, Point by) {
    auto* dot = patch.Record<Dot>();
    const int32_t distance =
        FrameOf(MeasureStaffPar(voiceSymbolAttributes.ParentOf(dot))->_staff.Get()).lineDistance;
    if (!distance) return;
    dot->_dx = dot->_dx + by.x * 1000 / distance;
    dot->_dy = dot->_dy + by.y * 1000 / distance;
}

// The bracket of all its measures.
void MoveEndings(const DrawPatch& patch, Point by) {
    const auto* mark = patch.Record<MarkEndings>();
    const Staff* staff = TopStaffOf(MeasurePar(mark));
    const int32_t distance = staff ? staff->_lineDistance.Get() : 0;
    Endings* endings = endingsMarks.ParentOf(mark);
    if (distance) endings->_long[0] = endings->_long[0] + by.y * 100 / distance;
}

Point OneWay(const DrawPatch&, Point by) {
    return std::abs(by.x) >= std::abs(by.y) ? Point{by.x, 0} : Point{0, by.y};
}
Point UpOrDown(const DrawPatch&, Point by) { return {0, by.y}; }
Point Sideways(const DrawPatch&, Point by) { return {by.x, 0}; }

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
Point FromLineToLine(const DrawPatch& patch, Point by) {
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

// ---- How the picture follows.

// One step of its own.
struct Moved {
    WindowTarn& window;
    const DrawPatch& pressed;
    const std::vector<DrawPatch>& patches;  // all that draws it
    Point by;
};
using Apply = void (*)(const Moved& moved);
using Move = void (*)(const DrawPatch& patch, Point by);

// What stands for itself is filed anew.
template <Move move>
void Alone(const Moved& moved) {
    const EditStep step(moved.window);
    NewWindowSheet& sheet = moved.window.Sheet();
    const int voice = moved.pressed.Behaviour().VoiceOf(moved.pressed.Object());
    for (const DrawPatch& patch : moved.patches) sheet.RemoveObject(patch);
    move(moved.pressed, moved.by);
    for (const DrawPatch& patch : moved.patches) sheet.AddObject(patch, voice);
}

// What hangs on notes or stands among them moves spanners around it too.
const MeasureStaff* CrossingOf(const DrawPatch& patch) {
    if (const auto* rest = patch.Record<Pause>()) return MeasureStaffPar(rest);
    if (const auto* dot = patch.Record<Dot>()) return MeasureStaffPar(voiceSymbolAttributes.ParentOf(dot));
    return MeasureStaffPar(noteAttributes.ParentOf(patch.Record<NoteAttribute>()));
}
template <Move move>
void AmongNotes(const Moved& moved) {
    const EditStep step(moved.window);
    const MeasureRedraw redraw(moved.window, CrossingOf(moved.pressed));
    move(moved.pressed, moved.by);
}

// A clef governs what begins right of where it is let go.
void MoveClef(const Moved& moved) {
    auto* clef = moved.pressed.Record<MovingClaf>();
    const MeasureFrame frame = FrameOf(MeasurePar(MeasureStaffPar(clef)));
    const Status status =
        ChangeClafPlace(moved.window, clef, frame.PerMilleOfX(moved.pressed.Bounds().right + moved.by.x));
    if (!status) moved.window.Shell().Tell(status.message());
}

struct Row {
    bool (*is)(int16_t number);
    Point (*reach)(const DrawPatch& patch, Point by);
    Apply apply;
};
constexpr Row kRows[] = {
    {IsClass<Dinamiche>, Anywhere, Alone<MoveInMeasure<Dinamiche>>},
    {IsClass<SimboliVari>, Anywhere, Alone<MoveInMeasure<SimboliVari>>},
    {IsClass<MeasureStaffText>, Anywhere, Alone<MoveInMeasure<MeasureStaffText>>},
    {IsClass<PageText>, Anywhere, Alone<MoveOnPage>},
    {IsClass<Accident>, Anywhere, AmongNotes<MoveOffNote<Accident>>},
    {IsClass<SymbolAttribute>, Anywhere, AmongNotes<MoveOffNote<SymbolAttribute>>},
    {IsClass<Liriche>, Anywhere, AmongNotes<MoveOffNote<Liriche>>},
    {IsClass<Dot>, OneWay, AmongNotes<MoveDots>},
    {IsClass<Time>, Anywhere, Alone<MoveOverMeasure<Time>>},
    {IsClass<Coda>, Anywhere, Alone<MoveOverMeasure<Coda>>},
    {IsClass<MarkEndings>, UpOrDown, Alone<MoveEndings>},
    {IsClass<Pause>, FromLineToLine, AmongNotes<MoveRest>},
    {IsClass<MovingClaf>, Sideways, MoveClef},
};

class SignDrag : public LiftedDrag {
public:
    SignDrag(WindowTarn& window, const DrawPatch& patch, Point from, const Row& row)
        : LiftedDrag(window, patch, from), _row(row) {}

    void Draw(GraphicPort& port, const DrawContext& context) const override {
        if (IsLifted()) _window.Sheet().DrawLifted(port, Reach(), context);
    }

private:
    Point Reach() const { return _row.reach(_patch, _by); }
    bool Changes() const override { return Reach() != Point{}; }
    void Apply() override { _row.apply({_window, _patch, Patches(), Reach()}); }

    const Row& _row;
};

}  // namespace

std::unique_ptr<Interaction> DragSign(WindowTarn& window, const DrawPatch& patch, Point from) {
    const auto* rest = patch.Record<Pause>();
    if (rest && MarkerOf(rest)) return nullptr;  // its beam says how high it stands
    for (const Row& row : kRows)
        if (row.is(patch.ClassNumber())) return std::make_unique<SignDrag>(window, patch, from, row);
    return nullptr;
}

}  // namespace corvane
