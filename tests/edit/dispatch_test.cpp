// Tools, keys, places under a point, deletion, undo.
#include <limits>

#include "edit/CommandTable.h"
#include "edit_fixture.h"
#include "layout/NoteGeometry.h"
#include "model/Preferences.h"

namespace corvane {
namespace {

class Dispatch : public EditTest {};

TEST_F(Dispatch, KeysChooseToolAndItem) {
    const struct {
        const char* keys;
        int32_t mode;
        int item;
        const char* why;
    } cases[] = {
        {"3", ModePencil, kQuarter, "3 is a quarter"},
        {"e", ModeEraser, kQuarter, "letters work in both cases"},
        {"1", ModePencil, kWhole, "a digit leaves the eraser"},
        {"r", ModePencil, kWholeRest, "R turns a note into its rest"},
        {"R", ModePencil, kWhole, "and back"},
        {"d", ModePencil, kDot, "dot"},
        {"r", ModePencil, kQuarter, "R on the dot gives a quarter"},
        {"s", ModePencil, kSharp, "sharp"},
        {"f", ModePencil, kFlat, "flat"},
        {"n", ModePencil, kNatural, "natural"},
        {"a", ModeArrow, kNatural, "arrow keeps the item"},
        {"t\x7f!", ModeArrow, kNatural, "other characters do nothing"},
        {"p", ModePencil, kNatural, "pencil keeps the item"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        for (const char* key = c.keys; *key; ++key) KeyChar(*window, *key);
        EXPECT_EQ(Tools().toolMode, c.mode);
        EXPECT_EQ(Tools().NoteItem(), c.item);
    }
    KeyChar(*window, 'g');
    EXPECT_TRUE(Tools().graceMode);
}

TEST_F(Dispatch, GapsAreSharedInProportionToHeights) {
    Page* page = window->CurrentPage();
    System *upper = pageSystems.First(page), *lower = pageSystems.Next(upper);
    upper->_top = 1000, upper->_bottom = 2000;
    lower->_top = 3000, lower->_bottom = 6000;
    EXPECT_EQ(FindSystem(page, 2249), upper);
    EXPECT_EQ(FindSystem(page, 2250), lower)
        << "exactly on the boundary: a quarter of the gap, to the lower one";
    upper->_bottom = 1000, lower->_bottom = 3000;
    EXPECT_EQ(FindSystem(page, 1999), upper) << "without heights the gap is halved";
    EXPECT_EQ(FindSystem(page, 2000), lower);
    EXPECT_EQ(FindSystem(page, 99999), lower);
    Measure* first = systemMeasures.First(upper);
    EXPECT_EQ(FindMeasure(upper, 0), first);
    EXPECT_EQ(FindMeasure(upper, 99999), systemMeasures.Last(upper));
    EXPECT_EQ(FindMeasure(upper, OriginOf(upper).x + first->_right), first)
        << "an edge belongs to the first that has it";
}

TEST_F(Dispatch, EraserLeavesARestOrClosesUp) {
    for (int i = 0; i < 3; ++i) Enter(kQuarter, 1, 1, 900, 3 + i);
    const auto erase = [&](size_t event) {
        SetToolMode(ModeEraser);
        const Rect r = RectOf(chordNotes.First(As<Chords>(Events(1, 1)[event])));
        MouseDown(*window, (r.left + r.right) / 2, (r.top + r.bottom) / 2, 0);
    };
    erase(1);
    ASSERT_EQ(Events(1, 1).size(), 3u);
    EXPECT_TRUE(As<Pause>(Events(1, 1)[1]));
    EXPECT_EQ(Notes(), "1 1 0 1 2 0 1 1 67 64\n1 3 0 1 4 0 1 1 71 64\n");
    ExpectSound();
    Switches().deleteNotesToRests = false;
    erase(0);
    ASSERT_EQ(Events(1, 1).size(), 2u);
    EXPECT_EQ(Notes(), "1 2 0 1 3 0 1 1 71 64\n");
    Tools().currentVoice = 2;
    erase(1);
    EXPECT_EQ(Events(1, 1).size(), 2u) << "another voice's note stays";
    Tools().currentVoice = 0;
    const Rect r = RectOf(As<Pause>(Events(1, 1)[0]));
    MouseDown(*window, (r.left + r.right) / 2, (r.top + r.bottom) / 2, 0);
    ASSERT_EQ(Events(1, 1).size(), 1u);
    EXPECT_EQ(Notes(), "1 1 0 1 2 0 1 1 71 64\n");
    ExpectSound();
}

TEST_F(Dispatch, ErasingUnderABeamLeavesFlags) {
    for (int i = 0; i < 4; ++i) Enter(kSixteenth, 1, 1, 900, 3);
    Switches().deleteNotesToRests = false;
    SetToolMode(ModeEraser);
    const Rect r = RectOf(chordNotes.First(As<Chords>(Events(1, 1)[1])));
    MouseDown(*window, (r.left + r.right) / 2, (r.top + r.bottom) / 2, 0);
    ASSERT_EQ(Events(1, 1).size(), 3u);
    for (VoiceSymbol* event : Events(1, 1)) {
        EXPECT_FALSE(BeamOf(StemOf(As<Chords>(event))));
        EXPECT_TRUE(FlagOf(StemOf(As<Chords>(event))));
    }
    ExpectSound();
}

TEST_F(Dispatch, OneStepOfUndoAndRedo) {
    Enter(kQuarter, 1, 1, 100, 3);
    Enter(kQuarter, 1, 1, 900, 4);
    const std::string two = Notes();
    EXPECT_TRUE(window->Modified());
    window->Undo();
    EXPECT_EQ(Notes(), "1 1 0 1 2 0 1 1 67 64\n");
    window->Undo();
    EXPECT_EQ(Notes(), "1 1 0 1 2 0 1 1 67 64\n") << "there is no second level";
    for (int i = 0; i < 3; ++i) {
        window->Redo();
        EXPECT_EQ(Notes(), two);
        window->Undo();
    }
    ExpectSound();
    EXPECT_TRUE(window->CanRedo());
    Enter(kQuarter, 2, 1, 100, 3);
    EXPECT_FALSE(window->CanRedo());
}

TEST_F(Dispatch, WindowsKeepTheirScoresApart) {
    auto other = Open("S", 2, 1);
    Enter(kQuarter, 1, 1, 100, 3);
    EXPECT_EQ(DumpNotes(other->GetDocument()), "")
        << "a press goes to the window it falls on, not the active one";
    EXPECT_EQ(WindowTarn::instance, window.get());
    EXPECT_FALSE(other->CanUndo());
    other->Activate();
    EXPECT_EQ(WindowTarn::wndCounter, 2);
    other.reset();
    EXPECT_EQ(WindowTarn::instance, window.get());
    window.reset();
    EXPECT_EQ(WindowTarn::instance, nullptr);
    EXPECT_EQ(WindowTarn::wndCounter, 0);
}

TEST_F(Dispatch, APressBeyondAllPagesIsTakenAsFarAway) {
    constexpr int32_t kLeast = std::numeric_limits<int32_t>::min(),
                      kMost = std::numeric_limits<int32_t>::max();
    Item(kQuarter);
    MouseDown(*window, kMost, kMost, 0);
    MouseDown(*window, kLeast, kLeast, 0);
    SetToolMode(ModeArrow);
    MouseDown(*window, kLeast, kMost, 0);
    MouseMove(*window, kMost, kLeast);
    MouseUp(*window, kMost, kLeast);
    EXPECT_FALSE(window->interaction);
    ASSERT_EQ(Events(1, 1).size(), 1u);
    EXPECT_GT(chordNotes.First(As<Chords>(Events(1, 1)[0]))->_line, 1000);
    ASSERT_EQ(Events(6, 2).size(), 1u);
    EXPECT_LT(chordNotes.First(As<Chords>(Events(6, 2)[0]))->_line, -1000);
    ExpectSound();
}

TEST_F(Dispatch, SpacingAndBeamingAreTheScoresOwnAndNoUndoTakesThemBack) {
    Enter(kQuarter, 1, 1, 0, 5);
    ASSERT_TRUE(RunCommand(*window, 32808));
    ASSERT_FALSE(Switches().autoBeam);
    EXPECT_TRUE(window->CanUndo()) << "the note";
    window->Undo();
    EXPECT_TRUE(Events(1, 1).empty());
    EXPECT_FALSE(Switches().autoBeam);
    EXPECT_EQ(Preferences<PowerEditPref>(Score())->_autoBeam, 0);

    {
        const auto other = Open("S", 2, 1);
        EXPECT_TRUE(Switches().autoBeam) << "a new score has it on";
        window->Activate();
        EXPECT_FALSE(Switches().autoBeam);
        other->Activate();
    }
    EXPECT_FALSE(Switches().autoBeam) << "the window that is left is the active one";
    ExpectSound();
}

TEST_F(Dispatch, APressThatDoesNothingTellsWhy) {
    HearingShell shell;
    window = std::make_unique<WindowTarn>(shell);
    window->Activate();
    window->Bind(BuildNewScore({2, 1}, "D"));
    Enter(kQuarter, 1, 1, 5, 3);
    // What is told of a press goes with the next one that does something.
    const auto toldAt = [&](Point p) {
        MouseDown(*window, p.x, p.y, 0);
        MouseUp(*window, p.x, p.y);
        return shell.told;
    };
    const auto* column = ChordSymbolPar(As<Chords>(Events(1, 1).front()));
    const Rect ink = RectOf(column);
    const Point stem{ink.right - 5, ink.top + 20}, head{ink.left + 30, At(1, 1, 0, 3).y};
    SetToolMode(ModeEraser);
    EXPECT_EQ(toldAt(At(2, 1, 500, 12)), "There is nothing to erase here.");
    EXPECT_EQ(toldAt(stem), "Press on the head of the note.");
    SetToolMode(ModePencil);
    SetPaletteGroup(1);
    SetItem(kDot);
    EXPECT_EQ(toldAt(stem), "Press on a note or a rest.");
    EXPECT_EQ(toldAt(head), "");
    EXPECT_EQ(DotCount(Events(1, 1).front()), 1);
    SetToolMode(ModeEraser);
    EXPECT_EQ(toldAt(head), "");
    EXPECT_FALSE(As<Chords>(Events(1, 1).front())) << "a rest is left";

    Enter(kQuarter, 2, 1, 5, 3);
    const Rect other = RectOf(ChordSymbolPar(As<Chords>(Events(2, 1).front())));
    SetCurrentVoice(2);
    SetToolMode(ModeEraser);
    EXPECT_EQ(toldAt({other.left + 30, At(2, 1, 0, 3).y}),
              "This belongs to another voice; voice 2 is edited.");
    EXPECT_EQ(Events(2, 1).size(), 1u);
    EXPECT_EQ(toldAt(At(2, 1, 500, 12)), "There is nothing to erase here.");
    // What a page shows nothing of takes nothing, and leaves the last step to be undone.
    Item(kQuarter);
    const Point hidden = At(2, 1, 700, 5);
    Crossing(2, 1)->_staff = nullptr;
    const uint64_t before = window->Pool()->Changes();
    EXPECT_EQ(toldAt(hidden), "The staff here is not shown, nothing can be entered on it.");
    EXPECT_EQ(window->Pool()->Changes(), before);
    window.reset();
}

}  // namespace
}  // namespace corvane
