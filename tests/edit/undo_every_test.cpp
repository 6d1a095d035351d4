// Whatever is done once, undo gives back every byte, counter and block, and redo brings all of it again: each
// command of the table, each item of the palettes, the eraser at each object, each handle, on a score with
// some of everything.
#include "base/Notify.h"
#include "edit/Clipboard.h"
#include "edit/CommandTable.h"
#include "edit/ControlPoints.h"
#include "edit/PaletteTable.h"
#include "edit/TextEntry.h"
#include "edit/Texts.h"
#include "layout/PageFiling.h"
#include "spanner_fixture.h"
#include "state_keeper.h"

namespace corvane {
namespace {

class UndoEvery : public SpannerTest {
protected:
    void SetUp() override {
        SpannerTest::SetUp();
        SetNotifySink([](Severity, std::string_view) {});
        Fill(1, 1, "8:3 8:4 8:5 8:6 4:7 r4");
        Fill(2, 1, "4:7 4:7 2:5");
        Fill(3, 2, "1:4");
        Fill(4, 1, "4:2 4:3 4:4");
        SetCurrentVoice(2);
        Enter(kHalf, 2, 1, 10, 0);
        SetCurrentVoice(1);
        ASSERT_TRUE(TieNotesOf(*window, {Head(2, 1, 0)}));
        ASSERT_TRUE(InsertSlur(*window, Event<>(1, 1, 0), Event<>(1, 1, 3)));
        ASSERT_TRUE(MakeTuplets(*window, Events(4, 1), {}));
        const LineRange range{Crossing(1, 1), Crossing(4, 1), 100, 600, {}};
        ASSERT_TRUE(InsertHairpin(*window, range, HairpinKind::Crescendo));
        ASSERT_TRUE(InsertOttava(*window, range, "_8vaSu_"));
        ASSERT_TRUE(InsertTrillo(*window, range));
        ASSERT_TRUE(InsertPedale(*window, range));
        ASSERT_TRUE(RunCommand(*window, 32796, {{"from", "5"}, {"to", "6"}}));
        ASSERT_TRUE(RunCommand(*window, 32778, {{"measure", "4"}, {"bpm", "90"}}));
        ASSERT_TRUE(RunCommand(*window, 32797, {{"measure", "5"}, {"text", "Fine"}}));
        InsertMeasureStaffText(*window, Crossing(2, 1), At(2, 1, 300, 14), "dolce", {});
        InsertPageText(*window, window->CurrentPage(), {900, 700}, "Chorus", {});
        PressItem(2, 2, At(4, 1, 500, 5));
        PressItem(3, 4, At(1, 1, 250, -4));
        PressItem(4, 4, MiddleOf(RectOf(Head(1, 1, 0))));
        PressItem(6, 7, MiddleOf(RectOf(Head(2, 1, 2))));
        PressItem(6, 12, At(3, 1, 500, -3));
        Enter(kEighth, 1, 1, XOf(Events(1, 1)[1]) + 10, 6);
        Enter(kEighth, 1, 1, XOf(Events(1, 1)[1]) + 10, 8);
        PressItem(1, kSharp, MiddleOf(RectOf(Head(1, 1, 2))));
        ExpectSound();
    }
    void TearDown() override {
        SetNotifySink(nullptr);
        SpannerTest::TearDown();
    }

    PoolState Now() { return PoolState::Of(*window->Pool()); }
    void PressItem(int group, int item, Point at) {
        SetToolMode(ModePencil);
        SetPaletteGroup(static_cast<uint8_t>(group));
        SetItem(static_cast<uint16_t>(item));
        MouseDown(*window, at.x, at.y, 0);
        MouseUp(*window, at.x + 700, at.y);
        if (window->textEntry) EndText(*window, "la");
    }

    void ExpectSoundWithClipboard() {
        for (const Finding& finding : CheckScore(*window->Pool(), ClipboardRoots(*window->Pool())))
            ADD_FAILURE() << TextOf(finding);
    }

    template <class Act>
    void Try(const std::string& what, Act act) {
        SCOPED_TRACE(what);
        const PoolState start = Now();
        StateKeeper keeper(*window);
        act();
        ExpectSoundWithClipboard();
        const PoolState after = Now();
        if (keeper.commands == 0) {
            EXPECT_EQ(after, start) << "what is no step changes nothing";
            return;
        }
        window->Undo();
        EXPECT_EQ(Now(), keeper.before);
        ExpectSound();
        window->Redo();
        EXPECT_EQ(Now(), after);
        ExpectSoundWithClipboard();
        window->Undo();
        EXPECT_EQ(Now(), keeper.before);
        edits += !(after == keeper.before);
    }

    // The middle of each object, and each head of a chord with several.
    std::vector<Point> PlacesOfObjects() {
        std::vector<Point> places;
        ForEachPatch(window->CurrentPage(), [&](const DrawPatch& patch, int) {
            if (!patch.Bounds().IsEmpty()) places.push_back(MiddleOf(patch.Bounds()));
            const auto* column = patch.Record<ChordSymbol>();
            const Stem* stem = column ? chordSymbolStems.First(column) : nullptr;
            if (stem)
                for (const GenericNote* note : stemNotes.Of(stem)) places.push_back(MiddleOf(RectOf(note)));
        });
        EXPECT_GE(places.size(), 50u);
        return places;
    }

    int edits = 0;
};

// What commands are told that need it, by their ids.
const std::map<int, CommandArguments> kArguments = {
    {32776, {{"left", "1000"}}},
    {32777, {{"from", "1"}, {"size", "80"}}},
    {32778, {{"measure", "1"}, {"bpm", "96"}}},
    {32779, {{"num", "3"}, {"den", "4"}, {"from", "5"}}},
    {32780, {{"start", "50"}}},
    {32781, {{"fifths", "2"}, {"from", "1"}}},
    {32782, {{"step", "2"}}},
    {32783, {{"measure", "2"}, {"type", "double"}}},
    {32786, {{"first", "300"}}},
    {32787, {{"indent", "900"}}},
    {32788, {{"count", "2"}, {"from", "1"}, {"to", "6"}}},
    {32789, {{"count", "1"}}},
    {32791, {{"count", "2"}, {"after", "1"}}},
    {32792, {{"type", "S"}, {"after", "1"}}},
    {32793, {{"from", "1"}, {"to", "1"}}},
    {32794, {{"from", "2"}, {"to", "3"}}},
    {32795, {{"from", "2"}, {"to", "2"}}},
    {32796, {{"from", "1"}, {"to", "2"}}},
    {32797, {{"measure", "3"}, {"text", "D.C."}}},
    {32807, {{"mode", "mathematical"}}},
    {32814, {{"show", "always"}}},
    {32817, {{"by", "half"}}},
    {32818, {{"sign", "Accent"}}},
    {32819, {{"interval", "M2"}}},
    {40011, {{"text", "Title"}}},
    {40012, {{"name", "Violin"}}},
    {57606, {{"height", "16779"}, {"width", "11864"}}},
};
// Toggles of how the score is edited: they write at once, without a step.
constexpr int kSwitches[] = {32808, 32809};
// They, and undo and redo themselves.
const std::set<int> kNoSteps = {57643, 57644, kSwitches[0], kSwitches[1]};

TEST_F(UndoEvery, CommandOfTheTable) {
    for (const CommandFamily family : CommandFamilies())
        for (const Command& command : family) {
            if (kNoSteps.count(command.id)) continue;
            const auto arguments = kArguments.find(command.id);
            SetToolMode(ModeArrow);
            for (const bool all : {false, true}) {
                Try(command.name, [&] {
                    if (all)
                        window->TheSelection().SelectAll();
                    else
                        Lasso(1, -50, 2, 300);
                    Tools().currentVoice = all ? 0 : 1;
                    window->caret = {MeasureNumber(6), StaffNumber(1), At(6, 1, 0, 5).x, true};
                    (void)RunCommand(*window, command.id,
                                     arguments == kArguments.end() ? CommandArguments{} : arguments->second);
                });
                if (HasFailure()) return;
            }
        }
    EXPECT_GE(edits, 70);
}

// A setting shall not take the place of the edit that can be undone: what is undone is the edit, and the
// switch stays as it was put.
TEST_F(UndoEvery, SwitchesOfTheScoreLeaveItsStepAlone) {
    for (const int id : kSwitches) {
        SCOPED_TRACE(id);
        StateKeeper keeper(*window);
        Enter(kQuarter, 6, 1, 10, 4);
        const PoolState edited = Now();
        ASSERT_TRUE(RunCommand(*window, id));
        EXPECT_EQ(keeper.commands, 1);
        EXPECT_NE(Now(), edited) << "the score keeps it";
        window->Undo();
        EXPECT_NE(Now(), keeper.before);
        ASSERT_TRUE(RunCommand(*window, id));
        EXPECT_EQ(Now(), keeper.before) << "put back, nothing is left of either";
        window->Redo();
        EXPECT_EQ(Now(), edited);
        window->Undo();
    }
}

TEST_F(UndoEvery, PaletteItemWhereverItIsPressed) {
    for (int group = 1; group <= 11; ++group)
        for (int item = 1; item <= 34; ++item) {
            if (!FindPaletteItem(group, item)) continue;
            for (const Point at : {MiddleOf(RectOf(Head(2, 1, 1))), At(1, 1, 900, 5), At(4, 2, 300, 8)}) {
                Try(std::to_string(group) + "/" + std::to_string(item), [&] { PressItem(group, item, at); });
                if (HasFailure()) return;
            }
        }
    EXPECT_GE(edits, 250);
}

TEST_F(UndoEvery, ObjectTheEraserHits) {
    for (const Point at : PlacesOfObjects()) {
        Try("at " + std::to_string(at.x) + " " + std::to_string(at.y), [&] { EraseAt(at); });
        if (HasFailure()) return;
    }
    EXPECT_GE(edits, 15);
}

TEST_F(UndoEvery, CommandOnWhatAPressHasPicked) {
    constexpr int kClear = 32774, kCut = 57635, kStepUp = 40040;
    for (const Point at : PlacesOfObjects())
        for (const int id : {kClear, kCut, kStepUp}) {
            Try(std::to_string(id) + " at " + std::to_string(at.x) + " " + std::to_string(at.y), [&] {
                SetToolMode(ModeArrow);
                MouseDown(*window, at.x, at.y, 0);
                MouseUp(*window, at.x, at.y);
                (void)RunCommand(*window, id);
            });
            if (HasFailure()) return;
        }
    EXPECT_GE(edits, 60);
}

TEST_F(UndoEvery, HandleThatIsDragged) {
    for (const int kind : {33045, 33046, 33047, 33048, 33049, 33055}) {
        ASSERT_TRUE(RunCommand(*window, kind));
        const std::vector<Handle> handles = window->Handles().All();
        EXPECT_FALSE(handles.empty()) << kind;
        for (const Handle& handle : handles) {
            const Point from = handle.place, to = from + Point{110, -90};
            Try(std::to_string(kind) + " at " + std::to_string(from.x) + " " + std::to_string(from.y), [&] {
                MouseDown(*window, from.x, from.y, 0);
                MouseMove(*window, to.x, to.y);
                MouseUp(*window, to.x, to.y);
            });
            if (HasFailure()) return;
        }
        ASSERT_TRUE(RunCommand(*window, 33041));
    }
    EXPECT_GE(edits, 25);
}

}  // namespace
}  // namespace corvane
