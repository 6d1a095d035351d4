// Random notes, spanners, erasures and structure changes: the score stays sound, the sheet holds what the
// page shows, undo gives back every byte, and what is saved comes back.
#include <random>

#include "edit/Structure.h"
#include "spanner_fixture.h"

namespace corvane {
namespace {

class RandomSpanners : public SpannerTest {
protected:
    int Pick(int low, int high) { return std::uniform_int_distribution<int>(low, high)(_random); }
    Measure* AnyMeasure() { return MeasureNumber(Pick(1, Measures())); }
    int Measures() {
        int count = 1;
        for (const Measure* measure = MeasureNumber(1); (measure = NextMeasure(measure));) ++count;
        return count;
    }
    Point AnyPoint() { return At(Pick(1, Measures()), Pick(1, 2), Pick(-50, 1000), Pick(-6, 16)); }

    void RandomPress() {
        const Point p = AnyPoint();
        SetToolMode(Pick(0, 4) ? ModePencil : ModeEraser);
        SetPaletteGroup(1);
        constexpr int kItems[] = {5, 7, 7, 9, 9, 9, 11, 8, 10, 19, 20, 23, 24};
        SetItem(static_cast<uint16_t>(kItems[Pick(0, 12)]));
        MouseDown(*window, p.x, p.y, 0);
        MouseUp(*window, p.x, p.y);
    }
    void RandomStroke() {
        constexpr int kItems[][2] = {{1, 28}, {3, 18}, {5, 2}, {6, 3}, {6, 4}, {6, 13}};
        const auto& item = kItems[Pick(0, 5)];
        Stroke(item[0], item[1], AnyPoint(), AnyPoint());
    }
    void RandomCommand() {
        constexpr int kCommands[] = {32804, 32804, 32805, 32805, 40020, 40021, 40023, 40024, 40025};
        Lasso(Pick(1, Measures()), Pick(-50, 900), Pick(1, Measures()), Pick(50, 1000), Pick(1, 2));
        (void)RunCommand(*window, kCommands[Pick(0, 8)]);
    }
    void RandomStructure() {
        Measure* measure = AnyMeasure();
        if (Pick(0, 2) == 0)
            (void)FlowMeasures(*window, Pick(1, 4), {MeasureNumber(1), MeasureNumber(Measures())});
        if (Pick(0, 2) == 0) (void)AddMeasures(*window, 1, measure);
        if (Pick(0, 2) == 0 && Measures() > 3) (void)RemoveMeasures(*window, {measure, measure});
    }
    void RandomStep() {
        switch (Pick(0, 15)) {
            case 0:
                return window->Undo();
            case 1:
                return RandomStructure();
            case 2:
            case 3:
                return RandomStroke();
            case 4:
            case 5:
            case 6:
                return RandomCommand();
            case 7:
                return SetCurrentVoice(static_cast<uint16_t>(Pick(0, 2)));
            default:
                return RandomPress();
        }
    }

    std::mt19937 _random{7};
};

TEST_F(RandomSpanners, StaySoundFiledAndUndoable) {
    StateKeeper keeper(*window);
    for (int step = 0; step < 500 && !HasFailure(); ++step) {
        SCOPED_TRACE("step " + std::to_string(step));
        const int commands = keeper.commands;
        RandomStep();
        ExpectSound();
        ExpectFiled();
        ExpectHeightsOfNotation();
        if (keeper.commands == commands) continue;
        const PoolState after = PoolState::Of(*window->Pool());
        window->Undo();
        EXPECT_EQ(PoolState::Of(*window->Pool()), keeper.before);
        window->Redo();
        EXPECT_EQ(PoolState::Of(*window->Pool()), after);
        if (step % 20 == 0) ExpectSameAfterReload();
    }
    EXPECT_GT(Count(Slur::kClass) + Count(Hairpin::kClass) + Count(Irregular::kClass), 0)
        << "they must really come";
}

}  // namespace
}  // namespace corvane
