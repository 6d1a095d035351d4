// Everything that a person can do, at random, in two scores at once: tools, palettes, keys, drags, texts,
// commands, clipboard, undo, redo. After each the scores are sound, and their events are those that the
// notation gives.
#include <set>

#include "base/Notify.h"
#include "edit/Clipboard.h"
#include "edit/CommandTable.h"
#include "edit/ControlPoints.h"
#include "edit/KeyWalk.h"
#include "edit/PaletteTable.h"
#include "edit/SessionChoices.h"
#include "edit/TextEntry.h"
#include "edit_fixture.h"
#include "layout/Beaming.h"
#include "layout/NoteGeometry.h"
#include "layout/PageFiling.h"
#include "layout/Spacing.h"
#include "model/FontTable.h"
#include "random_arguments.h"
#include "rebuilt_events.h"

namespace corvane {
namespace {

constexpr int kUndo = 57643, kRedo = 57644, kCrossStaffBeaming = 33029;
constexpr int kMostMeasures = 40;

std::vector<const Command*> AllCommands() {
    std::vector<const Command*> commands;
    for (const CommandFamily family : CommandFamilies())
        for (const Command& command : family)
            if (command.id != kUndo && command.id != kRedo) commands.push_back(&command);
    return commands;
}

std::vector<const PaletteItem*> AllItems() {
    std::vector<const PaletteItem*> items;
    for (int group = 1; group <= 11; ++group)
        for (int item = 1; item <= 40; ++item)
            if (const PaletteItem* each = FindPaletteItem(group, item)) items.push_back(each);
    return items;
}

// What is common to all scores, as it was before.
class SharedSettings {
public:
    ~SharedSettings() {
        Document::pageHeight = _height, Document::pageWidth = _width;
        spacingTable = _table;
        SetAngledBeams(_angled);
        Choices() = _choices;
        UseFontList(_fonts);
        SetUndoLevels(1);
    }

private:
    const int32_t _height = Document::pageHeight, _width = Document::pageWidth;
    const SpacingTable _table = spacingTable;
    const bool _angled = AngledBeams();
    const SessionChoices _choices = Choices();
    const FontList _fonts = TheFontList();
};

class RandomEverything : public EditTest, public ::testing::WithParamInterface<int> {
protected:
    void SetUp() override {
        EditTest::SetUp();
        SetUndoLevels(GetParam() % 2 ? 1 : 3);
        window = Open("D", 5, 4);
        other = Open("SB", 4, 5);
        SetNotifySink([](Severity, std::string_view) {});
    }
    void TearDown() override {
        SetNotifySink(nullptr);
        other.reset();
        window.reset();
    }

    int Pick(int low, int high) { return dice.Pick(low, high); }
    Measure* AnyMeasureHere() {
        Measure* measure = AnyMeasure();
        for (int tries = 0; tries < 5 && PagePar(measure) != window->CurrentPage(); ++tries)
            measure = AnyMeasure();
        return measure;
    }
    Measure* AnyMeasure() { return MeasureNumber(Pick(1, Extent().measures)); }
    ScoreExtent Extent() { return ExtentOf(*window); }

    // ---- Places

    Point PlaceOnStaff() {
        const ScoreExtent extent = Extent();
        // Mostly on few lines, so that there is something to tie.
        const int line = Pick(0, 1) ? Pick(5, 6) : Pick(-8, 18);
        return At(Pick(1, extent.measures), Pick(1, extent.staves), Pick(-80, 1020), line);
    }
    // On something that stands there: of a chord a head.
    Point PlaceOnSymbol(bool chordsOnly) {
        std::vector<DrawPatch> patches = window->Sheet().AllPatches();
        if (chordsOnly)
            std::erase_if(patches, [](const DrawPatch& patch) { return !patch.Record<ChordSymbol>(); });
        if (patches.empty()) return PlaceOnStaff();
        const DrawPatch& patch = dice.AnyOf(patches);
        Rect rect = patch.Bounds();
        if (const auto* column = patch.Record<ChordSymbol>()) {
            std::vector<const GenericNote*> notes;
            for (const Stem* stem : chordSymbolStems.Of(column))
                for (const GenericNote* note : stemNotes.Of(stem)) notes.push_back(note);
            if (!notes.empty()) rect = RectOf(dice.AnyOf(notes));
        }
        return {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
    }
    Point AnyPlace() { return Pick(0, 2) ? PlaceOnStaff() : PlaceOnSymbol(false); }
    void ShowAnyPage() {
        Page* page = PagePar(AnyMeasure());
        if (page != window->CurrentPage()) window->SetCurrentPage(page);
    }

    // ---- Steps

    void TakeAnyTool() {
        SetToolMode(Pick(0, 9) ? ModePencil : Pick(0, 2) ? ModeEraser : ModeArrow);
        // Mostly notes, else anything of any palette.
        const PaletteItem& item = *dice.AnyOf(Pick(0, 1) ? noteItems : items);
        SetPaletteGroup(item.group);
        SetItem(item.item);
        Tools().graceMode = dice.OneIn(16);
        Tools().accidentParenthesis = dice.OneIn(10);
        Tools().ornamentParenthesis = dice.OneIn(10);
    }
    void EndAnyText() {
        static const std::vector<const char*> kTexts = {"la", "dolce", "", "al-le-lu-ia __ ", "two\nlines"};
        static const std::vector<TextKey> kKeys = {TextKey::Up, TextKey::Down, TextKey::Back};
        switch (Pick(0, 3)) {
            case 0:
                return CancelText(*window);
            case 1:
                (void)TypeTextKey(*window, "so", dice.AnyOf(kKeys));
                return EndText(*window, dice.AnyOf(kTexts));
            case 2:
                return EndText(*window, dice.AnyOf(kTexts));
            default:
                return (void)TypeText(*window, dice.AnyOf(kTexts));
        }
    }
    void PressAnywhere() {
        if (Pick(0, 3)) TakeAnyTool();
        const ToolState& tools = Tools();
        const PaletteItem* item = FindPaletteItem(tools.paletteGroup, tools.items[tools.paletteGroup]);
        const bool enters = tools.toolMode == ModePencil && item;
        did = "press with tool " + std::to_string(tools.toolMode) + ", " + (item ? item->name : "nothing");
        const uint64_t before = window->Pool()->Changes();
        // What is no note of its own mostly goes to one.
        const bool sign = enters && item->item + 100 * item->group > 118;
        const Point from = sign && Pick(0, 3) ? PlaceOnSymbol(true) : AnyPlace();
        const Point to = Pick(0, 1) ? from : AnyPlace();
        const uint32_t modifiers = Pick(0, 1) ? uint32_t{kShift} : 0;
        if (dice.OneIn(10))
            MouseDoubleClick(*window, from.x, from.y, modifiers);
        else
            MouseDown(*window, from.x, from.y, modifiers);
        MouseMove(*window, to.x, to.y);
        MouseUp(*window, to.x, to.y);
        if (window->textEntry) EndAnyText();
        if (enters && window->Pool()->Changes() != before) acted.insert(item->name);
    }
    // Some notes in a row: what beams, ties and tuplets are made of.
    void EnterPhrase() {
        did = "phrase";
        Item(dice.AnyOf(std::vector<int>{kQuarter, kEighth, kEighth, kSixteenth}));
        SetCurrentVoice(static_cast<uint16_t>(Pick(1, 2)));
        const int measure = AnyMeasureHere()->_number, staff = Pick(1, Extent().staves), line = Pick(2, 8);
        const bool level = Pick(0, 1), crosses = dice.OneIn(4) && staff < Extent().staves;
        for (int note = Pick(0, 1) ? 3 : Pick(2, 5), x = Pick(0, 300); note > 0; --note, x += 150) {
            const Point p = At(measure, staff + (crosses && note % 2), x, level ? line : line + Pick(-2, 2));
            MouseDown(*window, p.x, p.y, 0);
        }
        if (Pick(0, 1)) return;
        static const std::vector<int> kOnNotes = {32804, 32804, 32805, 32805, 32805, 33027, 33028, 33030,
                                                  33031, 40020, 40021, 40022, 40023, 40024, 40025, 40026};
        window->TheSelection().Clear();
        window->TheSelection().Add(RectOver(measure, staff, staff + crosses));
        RunOnSelection(*FindCommand(crosses ? kCrossStaffBeaming : dice.AnyOf(kOnNotes)));
    }
    void TypeAnything() {
        const auto character = static_cast<char>(Pick(32, 115));
        did = std::string("key ") + character;
        KeyChar(*window, character);
    }
    void MoveThePen() {
        did = "pen";
        for (int times = Pick(1, 6); times > 0; --times)
            pen = MovePen(*window, pen, static_cast<PenMove>(Pick(0, 5)));
        if (Pick(0, 2)) pen = PressWithPen(*window, *pen);
        if (window->textEntry) EndAnyText();
    }

    // From a place on, or a measure of a staff or two.
    Rect AnyRect() {
        if (Pick(0, 1)) {
            const Point a = dice.OneIn(3) ? AnyPlace() : PlaceOnSymbol(true);
            const Point b = dice.OneIn(15) ? AnyPlace() : Point{a.x + Pick(100, 2500), a.y + Pick(-300, 300)};
            return Rect{a.x - 100, a.y - 600, b.x, b.y + 600}.Normalised();
        }
        const int measure = AnyMeasureHere()->_number, staff = Pick(1, Extent().staves);
        return RectOver(measure, staff, std::min(staff + Pick(0, 1), Extent().staves));
    }
    Rect RectOver(int measure, int fromStaff, int toStaff) {
        const Point a = At(measure, fromStaff, -50, 15), b = At(measure, toStaff, 1000, -5);
        return Rect{a.x, a.y, b.x, b.y}.Normalised();
    }
    void SelectAnything() {
        if (Pick(0, 3)) window->TheSelection().Clear();
        window->TheSelection().Add(AnyRect());
        if (dice.OneIn(3)) PickAnything();
        if (dice.OneIn(150)) window->TheSelection().SelectAll();
        const int staff = Pick(1, Extent().staves);
        Measure* measure = AnyMeasure();
        if (PagePar(measure) == window->CurrentPage())
            window->caret = {measure, StaffNumber(staff), At(measure->_number, staff, Pick(-50, 1050), 5).x,
                             true};
    }
    // One thing or more, alone or beside a region.
    void PickAnything() {
        if (Pick(0, 2)) window->TheSelection().Clear();
        const int32_t tool = Tools().toolMode;
        SetToolMode(ModeArrow);
        for (int times = Pick(1, 3); times > 0; --times) {
            const Point p = PlaceOnSymbol(Pick(0, 1));
            MouseDown(*window, p.x, p.y, kShift);
            MouseUp(*window, p.x, p.y);
        }
        SetToolMode(tool);
    }
    // The scores stay small.
    static bool HasRoomFor(int command, const ScoreExtent& extent) {
        constexpr int kAddPages = 32790, kAddMeasures = 32791, kAddStaves = 32792, kFlowSystems = 32789;
        const std::map<int, bool> room = {{kAddPages, extent.measures <= kMostMeasures / 2},
                                          {kAddMeasures, extent.measures <= kMostMeasures - 5},
                                          {kAddStaves, extent.staves <= 4},
                                          {kFlowSystems, extent.measures <= kMostMeasures - 16}};
        const auto found = room.find(command);
        return found == room.end() || found->second;
    }
    void Run(const Command& command) {
        SelectAnything();
        RunOnSelection(command);
    }
    void RunOnSelection(const Command& command) {
        did = command.name;
        const ScoreExtent extent = Extent();
        if (!HasRoomFor(command.id, extent)) return;
        const CommandArguments arguments = AnyArguments(dice, command.id, extent);
        for (const auto& [name, value] : arguments) did += " " + name + "=" + value;
        if (RunCommand(*window, command.id, arguments)) acted.insert(command.name);
    }
    // Of a kind that is shown or turned on, mostly alone; sometimes something comes between.
    void DragAHandle() {
        static const std::vector<int> kKinds = {33045, 33046, 33047, 33048, 33049, 33055};
        did = "handle";
        SetToolMode(ModeArrow);
        ControlPoints& handles = window->Handles();
        if (!handles.IsAnyOn() || dice.OneIn(3)) RunOnSelection(*FindCommand(dice.AnyOf(kKinds)));
        if (handles.All().empty()) return;
        if (dice.OneIn(4)) handles.SelectIn(AnyRect());
        if (dice.OneIn(5)) (void)WalkHandles(*window, Pick(0, 1));
        if (dice.OneIn(5)) (void)NudgeHandles(*window, {Pick(-100, 100), Pick(-100, 100)});
        if (handles.All().empty()) return;
        const Handle handle = dice.AnyOf(handles.All());
        did = "handle of kind " + std::to_string(static_cast<int>(handle.kind));
        const Point by{Pick(-700, 700), Pick(-700, 700)}, to = handle.place + by;
        MouseDown(*window, handle.place.x, handle.place.y, 0);
        MouseMove(*window, to.x, to.y);
        if (window->interaction && dice.OneIn(3)) {
            MemoryPort port;
            window->interaction->Draw(port, {});
        }
        if (dice.OneIn(10)) window->Undo();
        MouseUp(*window, to.x, to.y);
    }
    // Mostly something that spans, at its line or near an end of it; then perhaps a command for just that.
    void DragAThing() {
        std::vector<DrawPatch> patches = window->Sheet().AllPatches();
        std::erase_if(patches, [&](const DrawPatch& patch) {
            return patch.Bounds().IsEmpty() ||
                   (!dice.OneIn(20) && patch.Behaviour().Outline(patch.Object()).empty());
        });
        if (patches.empty()) return;
        const DrawPatch patch = dice.AnyOf(patches);
        did = "drag of class " + std::to_string(patch.ClassNumber());
        const std::vector<Point> line = patch.Behaviour().Outline(patch.Object());
        Point from = PlaceOnSymbol(false);
        if (line.size() > 1) {
            const int at = Pick(1, static_cast<int>(line.size()) - 1), share = 10 * Pick(0, 10);
            const Point a = line[static_cast<size_t>(at - 1)], b = line[static_cast<size_t>(at)];
            from = {a.x + (b.x - a.x) * share / 100, a.y + (b.y - a.y) * share / 100};
        }
        SetToolMode(ModeArrow);
        MouseDown(*window, from.x, from.y, dice.OneIn(4) ? uint32_t{kShift} : 0);
        const Point to = dice.OneIn(3) ? AnyPlace() : from + Point{Pick(-900, 900), Pick(-300, 300)};
        MouseMove(*window, to.x, to.y);
        if (window->interaction && dice.OneIn(3)) {
            MemoryPort port;
            window->interaction->Draw(port, {});
        }
        if (dice.OneIn(10)) window->Undo();
        MouseUp(*window, to.x, to.y);
        static const std::vector<int> kOnPicks = {57635, 57634, 32774, 32774, 33031};
        if (dice.OneIn(4)) RunOnSelection(*FindCommand(dice.AnyOf(kOnPicks)));
    }
    void UseTheClipboard() {
        static const std::vector<int> kClipboard = {57635, 57634, 57637, 57637, 57637, 32774};
        Run(*FindCommand(dice.AnyOf(kClipboard)));
    }
    void ChangeTheWindow() {
        if (dice.OneIn(30)) std::swap(window, other);
        if (dice.OneIn(500)) other.reset(), other = Open("S", 3, 3);
        window->Activate();
        if (dice.OneIn(10)) ShowAnyPage();
    }

    void RandomStep() {
        switch (Pick(0, 19)) {
            case 0:
                did = "undo";
                return window->Undo();
            case 1:
                did = "redo";
                return window->Redo();
            case 2:
                did = "voice";
                return SetCurrentVoice(static_cast<uint16_t>(Pick(0, Pick(0, 3) ? 2 : 8)));
            case 3:
            case 4:
                return UseTheClipboard();
            case 5:
            case 6:
                return Run(*dice.AnyOf(commands));
            case 7:
                return TypeAnything();
            case 8:
                return MoveThePen();
            case 9:
                return EnterPhrase();
            case 10:
                return DragAHandle();
            case 11:
            case 12:
                return DragAThing();
            default:
                return PressAnywhere();
        }
    }

    // The sheet holds what the page shows, and nothing that is gone.
    void ExpectFiled() {
        size_t shown = 0;
        ForEachPatch(window->CurrentPage(), [&](const DrawPatch& patch, int) {
            ++shown;
            EXPECT_TRUE(window->Sheet().IsFiled(patch)) << patch.ClassNumber();
        });
        EXPECT_EQ(window->Sheet().AllPatches().size(), shown);
    }
    void ExpectAllSound() {
        for (WindowTarn* of : {window.get(), other.get()})
            for (const Finding& finding : CheckScore(*of->Pool(), ClipboardRoots(*of->Pool())))
                ADD_FAILURE() << TextOf(finding);
        ExpectFiled();
        EXPECT_LE(Extent().measures, kMostMeasures);
        EXPECT_GT(Extent().staves, 0);
    }

    const SharedSettings shared;
    const std::vector<const Command*> commands = AllCommands();
    const std::vector<const PaletteItem*> items = AllItems();
    // Notes, rests, the tie and a dot: they are its first ones.
    const std::vector<const PaletteItem*> noteItems{items.begin(), items.begin() + 20};
    Dice dice{GetParam()};
    std::unique_ptr<WindowTarn> other;
    std::optional<Point> pen;
    RoundedVoices rounded;
    std::set<std::string> acted;  // commands and palette items that have done something
    std::string did;              // last
};

TEST_P(RandomEverything, StaysSoundAndSoundsAsItIsWritten) {
    const int steps = RandomSteps(500);
    int changes = 0;
    for (int step = 0; step < steps; ++step) {
        SCOPED_TRACE("step " + std::to_string(step));
        ChangeTheWindow();
        const uint64_t before = window->Pool()->Changes();
        RandomStep();
        changes += window->Pool()->Changes() != before;
        ExpectAllSound();
        const bool isEdit = did != "undo" && did != "redo" && window->Pool()->Changes() != before;
        rounded.Watch(Score(), isEdit);
        ExpectTheEventsOfTheNotation(*window, rounded);
        if (HasFailure()) FAIL() << "behind " << did;
    }
    EXPECT_GT(changes, steps / 4) << "the steps must really edit";
    const size_t all = commands.size() + items.size();
    RecordProperty("acted", static_cast<int>(acted.size()));
    EXPECT_GE(acted.size(), steps >= 5000 ? all * 4 / 5 : 0) << "of the commands and items";
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomEverything,
                         RandomSeed(0) ? ::testing::Range(RandomSeed(0), RandomSeed(0) + 1)
                                       : ::testing::Range(1, 5));

}  // namespace
}  // namespace corvane
