#include "edit/TarnClick.h"

#include <algorithm>
#include <string>

#include "edit/ControlPoints.h"
#include "edit/Deletion.h"
#include "edit/Insertion.h"
#include "edit/Lyrics.h"
#include "edit/MeasureRedraw.h"
#include "edit/PaletteTable.h"
#include "edit/PencilStroke.h"
#include "edit/SelectionPress.h"
#include "edit/Signs.h"
#include "edit/Spanners.h"
#include "edit/TarnSelect.h"
#include "edit/Texts.h"
#include "edit/ToolState.h"
#include "layout/Frames.h"
#include "layout/NoteGeometry.h"
#include "layout/SpannerMarks.h"
#include "model/NoteOperations.h"
#include "model/Par.h"

namespace corvane {
namespace {

// What a tool does with a press; a row a tool.
struct Press {
    WindowTarn& window;
    System* system;
    Point point;
    uint32_t modifiers;
};

void MoveCaret(const Press& press) {
    const MeasureStaff* crossing = FindMeasureStaff(press.system, press.point);
    if (!crossing) return;
    press.window.caret.measure = MeasurePar(crossing);
    press.window.caret.staff = DocStaffPar(crossing);
    press.window.caret.x = press.point.x;
}

void UsePencil(const Press& press) {
    const ToolState& tools = Tools();
    const PaletteItem* item = FindPaletteItem(tools.paletteGroup, tools.items[tools.paletteGroup]);
    if (!item) return;
    press.window.caret.visible = false;
    const MeasureStaff* crossing = FindMeasureStaff(press.system, press.point);
    const Staff* staff = crossing ? crossing->_staff.Get() : nullptr;
    const bool isShown = staff && staff->_lineDistance > 0;
    if (!isShown && (item->stroke || item->handler))
        return press.window.Shell().Tell("The staff here is not shown, nothing can be entered on it.");
    if (item->stroke) {
        press.window.interaction =
            std::make_unique<PencilStroke>(press.window, *item, press.point, tools.OneVoice());
        return;
    }
    if (!item->handler) return BeginTextAt(press.window, press.system, press.point, item->item);
    EditStep step(press.window);
    item->handler({press.window, step, press.system, press.point, tools.OneVoice(), tools.AllVoices()}, *item,
                  DescriptorOf(*item));
}

DeletionChoice ErasersChoice() {
    return {Tools().OneVoice(), Tools().AllVoices(), Switches().deleteNotesToRests, Switches().autoSpace};
}

void TellOfOtherVoice(const Press& press) {
    press.window.Shell().Tell("This belongs to another voice; voice " + std::to_string(Tools().OneVoice()) +
                              " is edited.");
}

// A column may hold chords of other voices than the one that is edited.
bool IsErasable(const Press& press, const VoiceSymbol* event) {
    const bool ours = Tools().AllVoices() || VoicePar(event)->_number == Tools().OneVoice();
    if (!ours) TellOfOtherVoice(press);
    return ours;
}

// Nothing of the edited voice is under the press, but something of another one.
bool IsOnOtherVoice(const Press& press) {
    NewWindowSheet& sheet = press.window.Sheet();
    const int edited = sheet.EditVoice();
    sheet.SetEditVoice(0);
    const DrawPatch patch = sheet.HitSymbol(press.point);
    sheet.SetEditVoice(edited);
    return static_cast<bool>(patch);
}

// What the eraser does with a hit object, in the fixed order of the classes.
bool EraseRest(const Press& press, const DrawPatch& patch) {
    auto* pause = patch.Record<Pause>();
    if (pause && IsErasable(press, pause)) DeletePause(press.window, pause, ErasersChoice());
    return pause != nullptr;
}
bool EraseTremolo(const Press& press, const DrawPatch& patch) {
    auto* tremolo = patch.Record<Tremolo>();
    if (tremolo) DeleteTremolo(press.window, tremolo);
    return tremolo != nullptr;
}
bool EraseNote(const Press& press, const DrawPatch& patch) {
    auto* chordSymbol = patch.Record<ChordSymbol>();
    GenericNote* note = chordSymbol ? HeadAt(chordSymbol, press.point) : nullptr;
    if (note && IsErasable(press, ChordPar(note))) DeleteNote(press.window, note, ErasersChoice());
    if (note || !chordSymbol) return chordSymbol != nullptr;
    const DrawPatch behind = press.window.Sheet().HitSymbol(press.point, patch);
    if (!EraseTremolo(press, behind)) press.window.Shell().Tell("Press on the head of the note.");
    return true;
}
bool EraseNoteAttribute(const Press& press, const DrawPatch& patch) {
    auto* attribute = patch.Record<NoteAttribute>();
    if (!attribute) return false;
    if (As<Accident>(attribute))
        return press.window.Shell().Tell("Take accidentals away with the palette, not with the eraser."),
               true;
    if (auto* syllable = As<Liriche>(attribute)) return EraseSyllable(press.window, syllable), true;
    const MeasureRedraw redraw(press.window, MeasureStaffPar(noteAttributes.ParentOf(attribute)));
    DeleteNoteAttribute(press.window, attribute);
    return true;
}
bool EraseDots(const Press& press, const DrawPatch& patch) {
    const auto* dot = patch.Record<Dot>();
    if (!dot) return false;
    DropDots(press.window, voiceSymbolAttributes.ParentOf(dot));
    return true;
}
bool EraseTuplet(const Press& press, const DrawPatch& patch) {
    auto* mark = patch.Record<MarkIrreg>();
    if (mark) DeleteIrregular(press.window, irregularMarks.ParentOf(mark));
    return mark != nullptr;
}
bool EraseSpanner(const Press& press, const DrawPatch& patch) {
    auto* mark = patch.Record<StaffMeasureSymbol>();
    const bool isMark = mark && IsSpannerMark(mark);
    if (isMark) DeleteSpanner(press.window, mark);
    return isMark;
}
template <class R, void (*Delete)(WindowTarn&, R*)>
bool Erase(const Press& press, const DrawPatch& patch) {
    R* record = patch.Record<R>();
    if (record) Delete(press.window, record);
    return record != nullptr;
}
bool EraseEndings(const Press& press, const DrawPatch& patch) {
    auto* mark = patch.Record<MarkEndings>();
    if (mark) DeleteEndings(press.window, endingsMarks.ParentOf(mark));
    return mark != nullptr;
}
bool KeepHead(const Press& press, const DrawPatch& patch) {
    const bool isHead =
        patch.Record<StaticClaf>() || patch.Record<ClafSignature>() || patch.Record<TimeSignature>();
    if (isHead) press.window.Shell().Tell("What a system begins with is changed, not erased.");
    return isHead;
}
constexpr bool (*kEraserRows[])(const Press&, const DrawPatch&) = {
    Erase<Dinamiche, DeleteDinamiche>,
    EraseNoteAttribute,
    EraseTremolo,
    EraseDots,
    EraseTuplet,
    EraseSpanner,
    Erase<SimboliVari, DeleteSimboliVari>,
    Erase<Arpeggio, DeleteArpeggio>,
    EraseRest,
    Erase<Coda, DeleteCoda>,
    Erase<MeasureStaffText, DeleteMeasureStaffText>,
    Erase<PageText, DeletePageText>,
    EraseNote,
    Erase<MovingClaf, DeleteClaf>,
    EraseEndings,
    Erase<Time, DeleteTempo>,
    KeepHead,
};

void UseEraser(const Press& press) {
    press.window.caret.visible = false;
    EditStep step(press.window);
    ClearSelectionAnchors();
    const DrawPatch patch = press.window.Sheet().HitSymbol(press.point);
    if (patch)
        for (const auto row : kEraserRows)
            if (row(press, patch)) return;
    if (!patch && IsOnOtherVoice(press)) return TellOfOtherVoice(press);
    press.window.Shell().Tell("There is nothing to erase here.");
}

void UseArrow(const Press& press) {
    press.window.caret.visible = true;
    ClearSelectionAnchors();
    press.window.Shell().StateChanged(press.window);
    press.window.Shell().Refresh(press.window);
    PressWithArrow(press.window, press.point, press.modifiers);
}

// Beyond every page, and short of where sums of places overflow: a script may name any number.
Point OnPlane(int32_t x, int32_t y) {
    constexpr int32_t kFarthest = 1 << 18;
    return {std::clamp(x, -kFarthest, kFarthest), std::clamp(y, -kFarthest, kFarthest)};
}

constexpr struct {
    int32_t mode;
    void (*use)(const Press&);
} kTools[] = {{ModePencil, UsePencil}, {ModeEraser, UseEraser}, {ModeArrow, UseArrow}};

}  // namespace

void MouseDown(WindowTarn& window, int32_t x, int32_t y, uint32_t modifiers) {
    if (!window.CurrentPage()) return;
    if (IsPlaying()) return window.Shell().Tell("Stop the play to edit.");
    window.Activate();
    window.interaction.reset();
    const Point point = OnPlane(x, y);
    System* system = FindSystem(window.CurrentPage(), point.y);
    if (!system || systemStaffs.IsEmpty(system) || systemMeasures.IsEmpty(system))
        return window.Shell().Tell("There is no measure here: add staves and measures first.");
    const Press press{window, system, point, modifiers};
    MoveCaret(press);
    for (const auto& tool : kTools)
        if (tool.mode == Tools().toolMode) return tool.use(press);
}

void MouseDoubleClick(WindowTarn& window, int32_t x, int32_t y, uint32_t modifiers) {
    const bool arrow = Tools().toolMode == ModeArrow && !IsPlaying() && window.CurrentPage();
    const bool isText = arrow && !window.Handles().At({x, y}) && BeginTextUnder(window, {x, y});
    if (!isText) MouseDown(window, x, y, modifiers);
}

void MouseMove(WindowTarn& window, int32_t x, int32_t y) {
    if (window.interaction) window.interaction->Move(OnPlane(x, y));
}

void MouseUp(WindowTarn& window, int32_t x, int32_t y) {
    if (!window.interaction) return;
    window.Activate();
    const std::unique_ptr<Interaction> ended = std::move(window.interaction);
    if (IsPlaying()) return;
    ended->Release(OnPlane(x, y));
    window.Shell().Refresh(window);
}

}  // namespace corvane
