// Random notes, ties, tuplets, grace notes, clipboard and commands: what the edits have kept to be played is
// what the notation gives.
#include <algorithm>
#include <array>
#include <sstream>

#include "edit/CommandTable.h"
#include "play/MIDIUtility.h"
#include "random_steps.h"
#include "spanner_fixture.h"

namespace corvane {
namespace {

class RandomSound : public SpannerTest {
protected:
    int Pick(int low, int high) { return _dice.Pick(low, high); }

    int AnyMeasure() {
        int count = 1;
        for (const Measure* measure = MeasureNumber(1); (measure = NextMeasure(measure));) ++count;
        return Pick(1, count);
    }

    void RandomPress() {
        // Mostly notes and rests of common values; dots, ties and accidentals as often as a person uses them.
        constexpr int kItems[] = {3, 5, 5, 7, 7, 7, 9, 9, 9, 11, 6, 8, 8, 10, 19, 19, 20, 21, 23, 24, 26};
        SetToolMode(Pick(0, 7) ? ModePencil : ModeEraser);
        SetPaletteGroup(Pick(0, 19) ? 1 : 2);
        if (Pick(0, 9) == 0) ToggleGrace();
        SetItem(static_cast<uint16_t>(kItems[Pick(0, static_cast<int>(std::size(kItems)) - 1)]));
        Press(AnyMeasure(), Pick(1, 2), Pick(-50, 1000), Pick(-4, 14));
    }
    void RandomCommand() {
        const struct {
            int id;
            CommandArguments arguments;
        } kCommands[] = {
            {32804, {}},
            {32805, {}},
            {32805, {{"count", "5"}, {"in", "4"}}},
            {32817, {{"by", "half"}}},
            {32817, {{"by", "double"}}},
            {32817, {{"value", "8"}, {"dots", "1"}}},
            {32819, {{"semitones", "3"}}},
            {32819, {{"interval", "M2"}, {"direction", "down"}}},
            {33036, {}},
            {33088, {{"time", "preceding"}}},
            {33088, {{"time", "following"}, {"cut", "30"}}},
            {32780, {{"start", "20"}, {"end", "100"}}},
            {32779, {{"num", "3"}, {"den", "4"}, {"from", "2"}, {"to", "3"}}},
            {32779, {{"num", "6"}, {"den", "8"}, {"from", "3"}}},
            {32779, {{"num", "5"}, {"den", "6"}, {"from", "4"}, {"to", "4"}}},
            {32781, {{"fifths", "-3"}, {"from", "2"}}},
            {32781, {{"fifths", "4"}, {"from", "1"}, {"to", "4"}}},
            {32791, {{"count", "1"}, {"after", "3"}}},
            {32791, {{"count", "1"}, {"after", "1"}}},
            {33153, {}},
            {57634, {}},
            {57637, {}},
            {57637, {}},
            {57635, {}},
            {32774, {}},
        };
        Lasso(AnyMeasure(), Pick(-50, 900), AnyMeasure(), Pick(50, 1000), Pick(1, 2));
        const int measure = AnyMeasure(), staff = Pick(1, 2);
        window->caret = {MeasureNumber(measure), StaffNumber(staff), At(measure, staff, Pick(-50, 1000), 5).x,
                         true};
        const auto& command = kCommands[Pick(0, static_cast<int>(std::size(kCommands)) - 1)];
        _last = std::to_string(command.id);
        (void)RunCommand(*window, command.id, command.arguments);
    }
    void RandomStep() {
        _last = "a press or a key";
        switch (Pick(0, 9)) {
            case 0:
                return window->Undo();
            case 1:
                return SetCurrentVoice(static_cast<uint16_t>(Pick(0, 2)));
            case 2:
            case 3:
            case 4:
                return RandomCommand();
            default:
                return RandomPress();
        }
    }
    // Each shift cuts its clocks off, and a tie that is undone leaves its first note on a grid of 32 clocks.
    static bool SameNotes(const std::string& a, const std::string& b) {
        const std::vector<Row> x = RowsOf(a), y = RowsOf(b);
        constexpr int64_t kRounding = 64;
        return std::equal(x.begin(), x.end(), y.begin(), y.end(), [](const Row& p, const Row& q) {
            return p.what == q.what && std::abs(p.on - q.on) < kRounding &&
                   std::abs(p.off - q.off) < kRounding;
        });
    }
    void RebuildEvents() {
        const EditStep rebuilding(*window);
        for (const DocStaff* staff : documentDocStaffs.Of(Score()))
            for (const MeasureStaff* crossing : docStaffMeasureStaffs.Of(staff))
                for (Voice* voice : measureStaffVoices.Of(crossing)) RebuildVoiceEvents(voice);
    }

    std::string _last;

private:
    struct Row {
        std::array<int, 6> what;  // measures of start and end, staff, voice, key, velocity
        int64_t on, off;          // clocks in their measures
        friend auto operator<=>(const Row&, const Row&) = default;
    };
    static std::vector<Row> RowsOf(const std::string& notes) {
        std::vector<Row> rows;
        std::istringstream words(notes);
        for (std::array<int64_t, 10> x; words >> x[0];) {
            for (size_t i = 1; i < x.size(); ++i) words >> x[i];
            const auto number = [&](size_t i) { return static_cast<int>(x[i]); };
            rows.push_back({{number(0), number(3), number(6), number(7), number(8), number(9)},
                            x[1] * kClocksPerBeat + x[2],
                            x[4] * kClocksPerBeat + x[5]});
        }
        std::sort(rows.begin(), rows.end());
        return rows;
    }

    Dice _dice{RandomSeed(3)};
};

TEST_F(RandomSound, IsWhatTheNotationTells) {
    size_t most = 0;
    const int steps = RandomSteps(400);
    for (int step = 0; step < steps; ++step) {
        const std::string before = Notes();
        RandomStep();
        SCOPED_TRACE("step " + std::to_string(step) + ": " + _last);
        const std::string kept = Notes();
        RebuildEvents();
        const std::string told = Notes();
        ASSERT_TRUE(SameNotes(kept, told)) << "before\n" << before << "kept\n" << kept << "told\n" << told;
        window->Undo();  // the rebuilding
        most = std::max(most, kept.size());
    }
    EXPECT_GT(most, 300u) << "there must be notes to keep";
}

}  // namespace
}  // namespace corvane
