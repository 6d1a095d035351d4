// What is deleted, copied and cut of what a press has picked: single heads and signs, and nothing beside
// them.
#include "edit/Clipboard.h"
#include "edit/Lyrics.h"
#include "play/MIDIUtility.h"
#include "spanner_fixture.h"

namespace corvane {
namespace {

class PickParts : public SpannerTest {
protected:
    void Pick(Point p, uint32_t modifiers = 0) {
        SetToolMode(ModeArrow);
        MouseDown(*window, p.x, p.y, modifiers);
        MouseUp(*window, p.x, p.y);
    }
    GenericNote* HeadOn(int measure, int place, int line) {
        for (GenericNote* note : chordNotes.Of(Event(measure, 1, place)))
            if (note->_line == line) return note;
        return nullptr;
    }
    void PickHead(int measure, int place, int line, uint32_t modifiers = 0) {
        Pick(MiddleOf(RectOf(HeadOn(measure, place, line))), modifiers);
    }
    // A further head on the column of an event.
    void AddHead(int item, int measure, int place, int line) {
        Enter(item, measure, 1, XOf(Events(measure, 1)[static_cast<size_t>(place)]) + 10, line);
    }
    void PickPatch(const void* record) { Pick(MiddleOf(PatchOf(const_cast<void*>(record)).Bounds())); }
    void PasteAt(int measure) {
        window->caret = {MeasureNumber(measure), StaffNumber(1), At(measure, 1, 10, 5).x, true};
        ASSERT_TRUE(Paste(*window));
    }
    void ExpectSoundWithClipboard() {
        for (const Finding& finding : CheckScore(*window->Pool(), ClipboardRoots(*window->Pool())))
            ADD_FAILURE() << TextOf(finding);
    }
};

using Numbers = std::vector<int>;

TEST_F(PickParts, AHeadOfAChordIsDeletedAloneAndTheLastLeavesARest) {
    Fill(1, 1, "8:2 8:3 4:5");
    AddHead(kEighth, 1, 0, 6);
    AddHead(kEighth, 1, 0, 4);
    ASSERT_EQ(Lines(1, 1).size(), 5u);
    PickHead(1, 0, 4);
    Step([&] { Do(32774, {}); });
    EXPECT_EQ(Lines(1, 1), (Numbers{2, 6, 3, 5}));
    EXPECT_TRUE(BeamOf(StemOf(Event(1, 1, 0)))) << "the beam holds what stays";
    PickHead(1, 0, 2);
    PickHead(1, 0, 6, kShift);
    Step([&] { Do(32774, {}); });
    EXPECT_EQ(Lines(1, 1), (Numbers{3, 5}));
    EXPECT_TRUE(As<Pause>(Events(1, 1)[0]));
    Switches().deleteNotesToRests = false;
    PickHead(1, 2, 5);
    Step([&] { Do(32774, {}); });
    EXPECT_EQ(Events(1, 1).size(), 2u);

    // A rubber band takes whole chords, whichever head it meets, also beside a picked one.
    AddHead(kEighth, 1, 1, 7);
    PickHead(1, 1, 7);
    window->TheSelection().Add(RectOf(HeadOn(1, 1, 3)));
    Do(32774, {});
    EXPECT_EQ(Lines(1, 1), Numbers{});
    ExpectSound();
}

TEST_F(PickParts, ACopiedHeadIsAChordOfItsOwn) {
    Fill(1, 1, "8:2 8:3 4:5");
    AddHead(kEighth, 1, 0, 6);
    SetVelocities({HeadOn(1, 0, 2)}, 11, 11);
    SetVelocities({HeadOn(1, 0, 6)}, 99, 99);
    const std::string notes = Notes();
    PickHead(1, 0, 6);
    Do(57634, {});
    EXPECT_EQ(Notes(), notes) << "a copy is no edit";
    PasteAt(2);
    EXPECT_EQ(Lines(2, 1), Numbers{6});
    EXPECT_NE(Notes().find(" 99\n"), std::string::npos) << Notes();
    EXPECT_FALSE(BeamOf(StemOf(Event(2, 1, 0)))) << "a flag for one note of a beam";
    ExpectSameAfterReload();
    PickHead(1, 0, 6);
    Do(32774, {});
    window->caret = {MeasureNumber(3), StaffNumber(1), At(3, 1, 10, 5).x, true};
    EXPECT_FALSE(Paste(*window)) << "it is gone, though its chord is there";
}

TEST_F(PickParts, ACutHeadLeavesItsChordAndComesBackByPasteOrUndo) {
    Fill(1, 1, "8:2 8:3 4:5");
    AddHead(kEighth, 1, 0, 6);
    Fill(2, 1, "4:6");
    const std::string notes = Notes();
    const PoolState before = PoolState::Of(*window->Pool());
    PickHead(1, 0, 6);
    PickHead(2, 0, 6, kShift);
    StateKeeper keeper(*window);
    Do(57635, {});
    ExpectSoundWithClipboard();
    EXPECT_EQ(keeper.commands, 1);
    EXPECT_EQ(Lines(1, 1), (Numbers{2, 3, 5}));
    EXPECT_TRUE(Events(2, 1).empty());
    const std::string cut = Notes();
    window->Undo();
    EXPECT_EQ(PoolState::Of(*window->Pool()), keeper.before);
    EXPECT_EQ(Notes(), notes);
    window->Redo();
    EXPECT_EQ(Notes(), cut);
    PasteAt(4);
    EXPECT_EQ(Lines(4, 1), Numbers{6});
    EXPECT_EQ(Lines(5, 1), Numbers{6}) << "a measure further, as it stood";
    ExpectSoundWithClipboard();
}

TEST_F(PickParts, ASignIsDeletedAndItsNoteStays) {
    Fill(1, 1, "4:2 4:2 4:4 4:5");
    const auto put = [&](int group, int item, int place) {
        SetToolMode(ModePencil);
        SetPaletteGroup(static_cast<uint8_t>(group));
        SetItem(static_cast<uint16_t>(item));
        const Point p = MiddleOf(RectOf(Head(1, 1, place)));
        MouseDown(*window, p.x, p.y, 0);
    };
    put(1, kSharp, 0);
    put(1, kNatural, 1);
    put(1, kDot, 2);
    put(4, 1, 2);
    put(6, 7, 3);
    SetSyllable(*window, Event(1, 1, 3), 1, "la", LyricJoint::WordEnd, LyricLook(Score(), 1));
    ASSERT_EQ(Accidentals(1, 1), "dA--");
    const std::string start = Notes();

    PickPatch(AccidentOf(Head(1, 1, 1)));
    Step([&] { Do(32774, {}); });
    EXPECT_EQ(Accidentals(1, 1), "d---");
    EXPECT_EQ(Head(1, 1, 1)->_alteration, Alteration::Sharp) << "as it is read then";
    window->Undo();
    EXPECT_EQ(Notes(), start);
    PickPatch(AccidentOf(Head(1, 1, 0)));
    Step([&] { Do(32774, {}); });
    EXPECT_EQ(Accidentals(1, 1), "----") << "nor does the next one need its natural";
    EXPECT_EQ(Head(1, 1, 0)->_alteration, Alteration::None);
    ExpectHeightsOfNotation();

    for (const int16_t number : {Dot::kClass, Articolazione::kClass, Tremolo::kClass, Liriche::kClass}) {
        SCOPED_TRACE(number);
        ASSERT_EQ(Count(number), 1);
        for (const DrawPatch& patch : window->Sheet().AllPatches())
            if (patch.ClassNumber() == number) {
                Pick(MiddleOf(patch.Bounds()));
                break;
            }
        Step([&] { Do(32774, {}); });
        EXPECT_EQ(Count(number), 0);
        EXPECT_EQ(Lines(1, 1), (Numbers{2, 2, 4, 5}));
    }
    ExpectSameAfterReload();
}

TEST_F(PickParts, TempoMarksAndRepetitionTextsAreDeleted) {
    Fill(1, 1, "4:2");
    Do(32778, {{"measure", "2"}, {"bpm", "90"}});
    Do(32797, {{"measure", "3"}, {"text", "Coda"}});
    for (const int16_t number : {Time::kClass, Coda::kClass}) {
        const int before = Count(number);
        ASSERT_GE(before, 1);
        for (const DrawPatch& patch : window->Sheet().AllPatches())
            if (patch.ClassNumber() == number) Pick(MiddleOf(patch.Bounds()));
        Step([&] { Do(32774, {}); });
        EXPECT_EQ(Count(number), before - 1) << number;
    }
    EXPECT_EQ(Lines(1, 1), Numbers{2});
}

}  // namespace
}  // namespace corvane
