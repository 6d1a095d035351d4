// Beams that the arrow drags: which end goes, how far, and what later edits leave of it.
#include "beams_fixture.h"
#include "layout/BeamMoves.h"

namespace corvane {
namespace {

class BeamDragTest : public BeamsTest {
protected:
    // The line's ends at the first and the last stem.
    std::pair<int32_t, int32_t> Ends(const Beam* beam) {
        const std::vector<BeamPost> posts = PostsOf(beam);
        return {posts.front().y, posts.back().y};
    }
    // Presses the line at a share of its length and pulls it; one step.
    void Pull(const Beam* beam, double share, int32_t dy) {
        const BeamStroke line = StrokesOf(beam).front();
        const Point from{line.from.x + static_cast<int32_t>(share * (line.to.x - line.from.x)),
                         line.from.y + static_cast<int32_t>(share * (line.to.y - line.from.y))};
        const auto before = Ends(beam);
        SetToolMode(ModeArrow);
        Step([&] {
            MouseDown(*window, from.x, from.y, 0);
            MouseMove(*window, from.x + 15, from.y + dy);
            ASSERT_TRUE(window->interaction);
            MemoryPort port(MemoryPort::Tracing::On);
            window->interaction->Draw(port, {});
            EXPECT_FALSE(port.Lines().empty());
            EXPECT_EQ(Ends(beam), before) << "nothing has changed yet";
            MouseUp(*window, from.x + 15, from.y + dy);
        });
        ExpectOnLine(beam);
    }
};

TEST_F(BeamDragTest, TheThirdThatIsPressedGoes) {
    Write(1, 1, "8:3 8:4 8:4 8:5");
    const Beam* beam = BeamAt(1, 1, 1);
    Do(kTogether, In(1));
    beam = BeamAt(1, 1, 1);
    ASSERT_EQ(beam, BeamAt(1, 1, 4));
    for (const auto& [share, first, last] :
         {std::tuple{0.1, -60, 0}, std::tuple{0.9, 0, -90}, std::tuple{0.45, -40, -40}}) {
        const auto before = Ends(beam);
        Pull(beam, share, std::min(first, last));
        EXPECT_NEAR(Ends(beam).first, before.first + first, 1) << share;
        EXPECT_NEAR(Ends(beam).second, before.second + last, 1) << share;
        ExpectSameAfterReload();
    }
    EXPECT_EQ(window->TheSelection().ThePicks().List().size(), 1u) << "it stays selected";
}

TEST_F(BeamDragTest, LaterEditsKeepItAtItsDistanceFromTheNotesAtItsEnds) {
    Write(1, 1, "8:3 8:4 8:4 8:5 4:5");
    Do(kTogether, In(1));
    const Beam* beam = BeamAt(1, 1, 1);
    Pull(beam, 0.1, -80);
    Pull(beam, 0.9, 50);
    const auto ends = Ends(beam);
    Enter(kQuarter, 1, 1, 995, 2);
    ASSERT_EQ(BeamAt(1, 1, 1), beam);
    EXPECT_EQ(Ends(beam), ends) << "the measure is spaced anew";
    Choose(1, 1, 2, 2);
    Do(40040, {});
    EXPECT_EQ(Ends(beam), ends) << "a note between the ends moves under it";
    Choose(1, 1, 4, 4);
    Do(40041, {});
    EXPECT_EQ(Ends(beam).first, ends.first);
    EXPECT_EQ(Ends(beam).second, ends.second + 50) << "the note at its end takes it along";
    ExpectOnLine(beam);

    // A handle of a stem moves it, as tilted as it is.
    const auto tilted = Ends(beam);
    Pull(beam, 0.5, -30);
    EXPECT_EQ(Ends(beam).first - Ends(beam).second, tilted.first - tilted.second);
}

TEST_F(BeamDragTest, ItStopsAtTheHeadsAndSnapsToTheRules) {
    Write(1, 1, "16:3 16:4 16:4 16:8");
    const Beam* beam = BeamAt(1, 1, 1);
    const auto usual = Ends(beam);
    Pull(beam, 0.5, 2000);
    for (const BeamPost& post : PostsOf(beam)) EXPECT_GT(LineOf(post.stem).from - LineOf(post.stem).end, 80);
    EXPECT_NE(Ends(beam), usual);
    Pull(beam, 0.5, usual.first - Ends(beam).first + 6);
    EXPECT_EQ(Ends(beam), usual);
    for (const BeamPost& post : PostsOf(beam)) EXPECT_FALSE(IsLengthTold(post.stem));

    // Level beams only go as a whole.
    Do(kAngled, {});
    const auto level = Ends(beam);
    ASSERT_EQ(level.first, level.second);
    Pull(beam, 0.9, -70);
    EXPECT_EQ(Ends(beam), (std::pair{level.first - 70, level.first - 70}));
}

TEST_F(BeamDragTest, ABeamOverStavesGoesToo) {
    Write(1, 1, "8:3 r8 8:4 r8");
    Write(1, 2, "r8 8:8 r8 8:9");
    Do(kOverStaves, In(1));
    const Beam* beam = BeamAt(1, 1, 1);
    ASSERT_TRUE(As<CrossBeam>(beam));
    for (const auto& [share, first, last] :
         {std::tuple{0.1, -30, 0}, std::tuple{0.9, 0, 40}, std::tuple{0.5, 25, 25}}) {
        const auto before = Ends(beam);
        Pull(beam, share, first ? first : last);
        EXPECT_NEAR(Ends(beam).first, before.first + first, 1) << share;
        EXPECT_NEAR(Ends(beam).second, before.second + last, 1) << share;
        ExpectSameAfterReload();
    }
    const auto ends = Ends(beam);
    Choose(1, 2, 2, 2);
    Do(40040, {});
    EXPECT_EQ(Ends(beam), ends);
    Pull(beam, 0.5, 5000);
    for (const BeamPost& post : PostsOf(beam))
        for (const GenericNote* note : stemNotes.Of(post.stem))
            EXPECT_GT(std::abs(PlaceOf(note).stem.y - post.y), 60) << "it stops at the heads";
}

}  // namespace
}  // namespace corvane
