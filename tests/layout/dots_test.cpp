// Setting the dots of an event.
#include "engraving_score.h"

namespace corvane::draw {
namespace {

class DotsTest : public EngravingTest {};

TEST_F(DotsTest, AnEventHasOneDotRecordWhoseCountChanges) {
    for (VoiceSymbol* symbol : Add("4:8,7,3 r8 g8")) {
        const int32_t uses = UsesOf("Punto");
        for (const int count : {1, 3, 2, 0, 0, 1}) {
            SetDots(symbol, count);
            EXPECT_EQ(DotCount(symbol), count);
            EXPECT_EQ(UsesOf("Punto"), uses + (count ? 1 : 0)) << "no use is lost or kept";
            EXPECT_EQ(Faults(), "");
        }
    }
}

TEST_F(DotsTest, WhereEachHeadHasItsDotAllFollow) {
    VoiceSymbol* chord = Add("4.:8,3")[0];
    AddDot(chord, 1);
    SetDots(chord, 2);
    for (const VoiceSymbolAttribute* dot : voiceSymbolAttributes.Of(chord))
        EXPECT_EQ(As<Dot>(dot)->_count, 2);
    SetDots(chord, 0);
    EXPECT_TRUE(voiceSymbolAttributes.IsEmpty(chord));
    EXPECT_EQ(UsesOf("Punto"), 0);
    EXPECT_EQ(Faults(), "");
}

}  // namespace
}  // namespace corvane::draw
