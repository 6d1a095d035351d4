// Beams of which a part is copied, and what becomes of their stems.
#include "base/Notify.h"
#include "beams_fixture.h"
#include "edit/Clipboard.h"

namespace corvane {
namespace {

std::string told;

class ClipBeamsTest : public BeamsTest {
protected:
    void SetUp() override {
        BeamsTest::SetUp();
        told.clear();
        SetNotifySink([](Severity, std::string_view text) { told = text; });
        Tools().currentVoice = 0;
    }
    void TearDown() override {
        SetNotifySink(nullptr);
        BeamsTest::TearDown();
    }
    // One step that pastes what is chosen; its undo brings every byte back.
    void Paste(int measure, int staff) {
        Do(57634, {});
        const Point p = At(measure, staff, 0, 5);
        window->caret = {MeasureNumber(measure), StaffNumber(staff), p.x, true};
        Step([&] { Do(57637, {}); });
    }
};

TEST_F(ClipBeamsTest, APartOfABeamIsABeamOverWhatCameAlong) {
    Write(1, 1, "8:3 16:4 16:5 8:6 8:7");
    On(kTogether, 1, 1, 1, 5);
    ASSERT_EQ(Picture(1, 1), "aaaaa");
    const struct {
        const char* why;
        int first, last, alsoAt;
        const char* picture;
    } cases[] = {
        {"the start, whose last note connects to nothing more", 1, 2, 0, "aa"},
        {"the middle", 2, 4, 0, "aaa"},
        {"notes apart follow each other now", 1, 1, 4, "aa"},
        {"one note gets its flag", 3, 3, 0, "f"},
    };
    for (int measure = 2; const auto& c : cases) {
        SCOPED_TRACE(c.why);
        Choose(1, 1, c.first, c.last);
        if (c.alsoAt) ChooseMore(1, 1, c.alsoAt, c.alsoAt);
        Paste(measure, 1);
        EXPECT_EQ(Picture(measure, 1), c.picture);
        if (const Beam* beam = BeamAt(measure, 1, 1)) {
            EXPECT_EQ(beamMarkers.Last(beam)->_rightValue, kNotCut);
            EXPECT_EQ(beamMarkers.Last(beam)->_level, kNotConnected);
            ExpectOnLine(beam);
        }
        ++measure;
    }
    EXPECT_EQ(Picture(1, 1), "aaaaa") << "the source keeps its own";
    ExpectSameAfterReload();
}

TEST_F(ClipBeamsTest, RestsAtTheEndsOfAPartStandOutside) {
    Write(1, 1, "16:4 r16 16:5 r16 16:6 16:7");
    On(kTogether, 1, 1, 1, 6);
    ASSERT_EQ(Picture(1, 1), "aaaaaa");
    Choose(1, 1, 2, 5);
    Paste(2, 1);
    EXPECT_EQ(Picture(2, 1), ".aaa");
    Choose(1, 1, 2, 4);
    Paste(3, 1);
    EXPECT_EQ(Picture(3, 1), ".f.");
}

TEST_F(ClipBeamsTest, OfABeamOverStavesOneStaffsNotesGetABeamOfTheirOwn) {
    Write(1, 1, "8:3 r8 16:4 16:3 r8");
    Write(1, 2, "r8 8:8 r8 16:9 16:8");
    Do(kOverStaves, In(1));
    ASSERT_TRUE(As<CrossBeam>(BeamAt(1, 1, 1)));
    Choose(1, 1, 1, 4);
    Paste(2, 1);
    EXPECT_EQ(Picture(2, 1), "a.aa");
    EXPECT_FALSE(As<CrossBeam>(BeamAt(2, 1, 1)));
    EXPECT_TRUE(told.empty()) << told;

    // All of it comes to two staves as it was, but not to the last one and a staff that is none.
    Choose(1, 1, 1, 5);
    ChooseMore(1, 2, 1, 5);
    Paste(3, 1);
    EXPECT_EQ(BeamAt(3, 1, 1), BeamAt(3, 2, 2));
    EXPECT_TRUE(told.empty()) << told;
    const std::string before = Notes();
    window->caret = {MeasureNumber(4), StaffNumber(2), At(4, 2, 0, 5).x, true};
    EXPECT_TRUE(RunCommand(*window, 57637)) << "told in a box";
    EXPECT_EQ(told, "Illegal paste");
    EXPECT_EQ(Notes(), before);
    EXPECT_TRUE(Events(4, 2).empty());
    ExpectSound();
}

}  // namespace
}  // namespace corvane
