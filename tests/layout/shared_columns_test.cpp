// Columns that voices of several staves share, and what stands between them.
#include "draw_score.h"
#include "layout/SharedColumns.h"
#include "model/NoteOperations.h"

namespace corvane::draw {
namespace {

class SharedColumnsTest : public DrawTest {
protected:
    // A chord of another voice on the stem of a column.
    void Share(ChordSymbol* column, Voice* voice) {
        auto* chord = Make<Chords>();
        voiceSymbols.Add(voice, chord);
        chordSymbolChords.Add(column, chord);
        AddHead(chord, StemOf(column), 3, "Quarto");
    }
    static std::vector<int32_t> Xs(const Voice* voice) {
        std::vector<int32_t> xs;
        for (const VoiceSymbol* symbol : voiceSymbols.Of(voice)) xs.push_back(XOf(symbol));
        return xs;
    }
};

TEST_F(SharedColumnsTest, APlaceGoesThroughAsManyStavesAsShareColumns) {
    constexpr int kStaves = 16;
    New(std::string(kStaves, 'S'), 2, 1);
    // Each staff shares its first column with the one below and its second with the one above, so a column
    // that stands too far right on the lowest staves pushes one after the other, against the order of staves.
    for (int staff = kStaves - 1; staff > 0; --staff) {
        const bool lowest = staff == kStaves - 1;
        ChordSymbol* column = AddChord(VoiceOfStaff(0, staff), {4, {5}, lowest ? 900 : 100});
        Share(column, VoiceOfStaff(0, staff - 1));
    }
    for (int staff = 1; staff + 1 < kStaves; ++staff)
        ASSERT_EQ(Xs(VoiceOfStaff(0, staff)), (std::vector<int32_t>{staff + 2 == kStaves ? 900 : 100, 100}));
    AddRest(VoiceOfStaff(0, 0), 4, 150);
    FollowSharedColumns(MeasureAt(SystemAt(0), 0));
    for (int staff = 1; staff + 1 < kStaves; ++staff)
        EXPECT_EQ(Xs(VoiceOfStaff(0, staff)), (std::vector<int32_t>{900, 900})) << staff;
    const std::vector<int32_t> top = Xs(VoiceOfStaff(0, 0));
    EXPECT_EQ(top.front(), 900);
    EXPECT_GT(top.back(), 900) << "what stands behind follows";
}

}  // namespace
}  // namespace corvane::draw
