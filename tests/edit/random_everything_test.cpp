// Everything that a person can do, at random, in two scores at once: tools, palettes, commands, clipboard,
// undo, redo. After each the scores are sound, and their events are those that the notation gives.
#include <array>
#include <cstdlib>
#include <map>
#include <random>
#include <sstream>

#include "base/Notify.h"
#include "edit/Clipboard.h"
#include "edit/CommandTable.h"
#include "edit/PaletteTable.h"
#include "edit/TextEntry.h"
#include "edit_fixture.h"
#include "play/MIDIUtility.h"
#include "state_keeper.h"

namespace corvane {
namespace {

int StepCount() {
    const char* asked = std::getenv("CORVANE_RANDOM_STEPS");
    return asked ? std::atoi(asked) : 400;
}
unsigned Seed() {
    const char* asked = std::getenv("CORVANE_RANDOM_SEED");
    return asked ? static_cast<unsigned>(std::atoi(asked)) : 1;
}

constexpr int kBeat = 32000;  // clocks

// A sounding note: what it is, without its velocity, and when it begins and ends.
struct Sound {
    std::array<int, 5> what;  // measures of both ends, staff, voice, key
    std::array<int, 2> when;  // clocks in these measures
    friend auto operator<=>(const Sound&, const Sound&) = default;
};

std::vector<Sound> SoundsOf(const Document* document) {
    std::istringstream in(DumpNotes(document));
    std::vector<Sound> sounds;
    for (int a, b, c, d, e, f, g, h, i, j; in >> a >> b >> c >> d >> e >> f >> g >> h >> i >> j;)
        sounds.push_back({{a, d, g, h, i}, {b * kBeat + c, e * kBeat + f}});
    std::sort(sounds.begin(), sounds.end());
    return sounds;
}

class RandomEverything : public EditTest {
protected:
    void SetUp() override {
        EditTest::SetUp();
        SetUndoLevels(3);
        window = Open("D", 5, 2);
        other = Open("SB", 4, 2);
        SetNotifySink([](Severity, std::string_view) {});
    }
    void TearDown() override {
        SetNotifySink(nullptr);
        other.reset();
        window.reset();
        SetUndoLevels(1);
    }

    int Pick(int low, int high) { return std::uniform_int_distribution<int>(low, high)(_random); }
    template <size_t N>
    std::string Word(const char* const (&words)[N]) {
        return words[Pick(0, static_cast<int>(N) - 1)];
    }
    int Measures() { return LastMeasure(Score())->_number; }
    int Staffs() { return documentDocStaffs.Count(Score()); }
    Point AnyPoint() { return At(Pick(1, Measures()), Pick(1, Staffs()), Pick(-80, 1020), Pick(-8, 18)); }
    void ShowAnyPage() {
        Page* page = PagePar(MeasureNumber(Pick(1, Measures())));
        if (page != window->CurrentPage()) window->SetCurrentPage(page);
    }

    void RandomPress() {
        SetToolMode(Pick(0, 9) ? ModePencil : Pick(0, 1) ? ModeEraser : ModeArrow);
        // Mostly notes, else anything of any palette.
        SetPaletteGroup(static_cast<uint8_t>(Pick(0, 2) ? 1 : Pick(1, 11)));
        SetItem(static_cast<uint16_t>(Pick(0, 1) ? Pick(5, 12) : Pick(1, 34)));
        Tools().graceMode = Pick(0, 15) == 0;
        Tools().accidentParenthesis = Pick(0, 9) == 0;
        did = "press with tool " + std::to_string(Tools().toolMode) + ", palette " +
              std::to_string(Tools().paletteGroup) + ", item " +
              std::to_string(Tools().items[Tools().paletteGroup]);
        const Point from = AnyPoint(), to = Pick(0, 1) ? from : AnyPoint();
        MouseDown(*window, from.x, from.y, Pick(0, 1) ? uint32_t{kShift} : 0);
        MouseMove(*window, to.x, to.y);
        MouseUp(*window, to.x, to.y);
        if (window->textEntry) EndText(*window, Word({"la", "dolce", ""}));
    }

    void RandomSelection() {
        const Point a = AnyPoint(), b = AnyPoint();
        if (Pick(0, 3)) window->TheSelection().Clear();
        window->TheSelection().Add(Rect{a.x, a.y - 600, b.x, b.y + 600}.Normalised());
        if (Pick(0, 20) == 0) window->TheSelection().SelectAll();
        const int measure = Pick(1, Measures()), staff = Pick(1, Staffs());
        if (PagePar(MeasureNumber(measure)) == window->CurrentPage())
            window->caret = {MeasureNumber(measure), StaffNumber(staff),
                             At(measure, staff, Pick(-50, 1050), 5).x, true};
    }

    // Any command but Undo and Redo, with what it may be told; the scores stay small.
    void RandomCommand() {
        std::vector<const Command*> commands;
        for (const CommandFamily family : CommandFamilies())
            for (const Command& command : family)
                if (command.id != 57643 && command.id != 57644 && command.id != 40050)
                    commands.push_back(&command);
        const Command& command =
            *commands[static_cast<size_t>(Pick(0, static_cast<int>(commands.size()) - 1))];
        RandomSelection();
        did = command.name;
        const CommandArguments arguments = ArgumentsOf(command.id);
        for (const auto& [name, value] : arguments) did += " " + name + "=" + value;
        (void)RunCommand(*window, command.id, arguments);
    }
    // A number from a to b, or one of the words; M stands for the last measure.
    struct Choice {
        const char* name;
        int low, high;
        std::vector<const char*> words = {};
    };
    CommandArguments ArgumentsOf(int id) {
        constexpr int M = 0;
        const bool small = Measures() < 36;
        const std::map<int, std::vector<Choice>> table = {
            {32778, {{"measure", 1, M}, {"bpm", 40, 200}}},
            {32779, {{"num", 2, 7}, {"den", 0, 0, {"2", "4", "8"}}, {"from", 1, M}}},
            {32781, {{"fifths", -7, 7}, {"from", 1, M}}},
            {32783,
             {{"measure", 1, M}, {"type", 0, 0, {"double", "final", "repeatstart", "repeatend", "none"}}}},
            {32788, {{"count", 1, 6}, {"from", 1, M}, {"to", 1, M}}},
            {32789, {{"count", 1, 4}}},
            {32790, {{"count", -1, small ? 1 : -1}}},
            {32791, {{"count", -1, small ? 3 : -1}, {"after", 1, M}}},
            {32792, {{"count", -1, Staffs() < 4 ? 1 : -1}}},
            {32793, {{"from", 1, 1}}},
            {32794, {{"from", 1, M}, {"to", 1, M}}},
            {32795, {{"from", 1, 1}}},
            {32796, {{"from", 1, M}, {"to", 1, M}}},
            {32797, {{"measure", 1, M}, {"text", 0, 0, {"D.C.", "Fine", "Coda", "Segno"}}}},
            {32807, {{"mode", 0, 0, {"mathematical", "engraver"}}}},
            {32817, {{"by", 0, 0, {"half", "double"}}}},
            {32819, {{"interval", 0, 0, {"M2", "-m3", "P5", "-P8", "A4"}}}},
        };
        CommandArguments arguments;
        const auto row = table.find(id);
        if (row == table.end()) return arguments;
        for (const Choice& choice : row->second)
            arguments[choice.name] =
                choice.words.empty()
                    ? std::to_string(Pick(choice.low, choice.high == M ? Measures() : choice.high))
                    : choice.words[static_cast<size_t>(Pick(0, static_cast<int>(choice.words.size()) - 1))];
        return arguments;
    }

    void RandomStep() {
        const int kind = Pick(0, 11);
        did = "kind " + std::to_string(kind);
        switch (kind) {
            case 0:
                return window->Undo();
            case 1:
                return window->Redo();
            case 2:
                return SetCurrentVoice(static_cast<uint16_t>(Pick(0, 4)));
            case 3:
            case 4: {
                static constexpr int kClipboard[] = {57635, 57634, 57637, 57637, 57637, 32774};
                RandomSelection();
                const int id = kClipboard[Pick(0, 5)];
                did = FindCommand(id)->name;
                return (void)RunCommand(*window, id);
            }
            case 5:
            case 6:
                return RandomCommand();
            default:
                return RandomPress();
        }
    }

    void ExpectAllSound() {
        for (WindowTarn* of : {window.get(), other.get()})
            for (const Finding& finding : CheckScore(*of->Pool(), ClipboardRoots(*of->Pool())))
                ADD_FAILURE() << TextOf(finding);
    }

    bool HasTuplets() {
        for (const DocStaff* staff : documentDocStaffs.Of(Score()))
            for (const MeasureStaff* crossing : docStaffMeasureStaffs.Of(staff))
                for (const Voice* voice : measureStaffVoices.Of(crossing))
                    for (const VoiceSymbol* symbol : voiceSymbols.Of(voice))
                        for (const VoiceSymbolAttribute* attribute : voiceSymbolAttributes.Of(symbol))
                            if (As<MarkIrreg>(attribute)) return true;
        return false;
    }

    // Rebuilds all events from the notation, compares, and takes that back.
    void ExpectTheEventsOfTheNotation() {
        const std::vector<Sound> kept = SoundsOf(Score());
        {
            const EditStep rebuilding(*window);
            for (const DocStaff* staff : documentDocStaffs.Of(Score()))
                for (const MeasureStaff* crossing : docStaffMeasureStaffs.Of(staff))
                    for (Voice* voice : measureStaffVoices.Of(crossing)) RebuildVoiceEvents(voice);
        }
        const std::vector<Sound> told = SoundsOf(Score());
        window->Undo();
        if (kept == told) return;
        ASSERT_EQ(kept.size(), told.size());
        // Where spans have been rounded, a place may be two clocks off for each symbol before it, and what
        // ties have joined and left by its coarser grid.
        constexpr int kMostOff = 2 * 64 + 2 * 32;
        const bool rounded = HasTuplets();
        for (size_t i = 0; i < kept.size(); ++i) {
            ASSERT_EQ(kept[i].what, told[i].what);
            for (const size_t end : {0u, 1u})
                ASSERT_NEAR(kept[i].when[end], told[i].when[end], rounded ? kMostOff : 0);
        }
    }

    std::unique_ptr<WindowTarn> other;
    std::string did;  // last
    std::mt19937 _random{Seed()};
};

TEST_F(RandomEverything, StaysSoundAndSoundsAsItIsWritten) {
    for (int step = 0; step < StepCount(); ++step) {
        SCOPED_TRACE("step " + std::to_string(step));
        if (Pick(0, 30) == 0) std::swap(window, other);
        window->Activate();
        if (Pick(0, 10) == 0) ShowAnyPage();
        RandomStep();
        ExpectAllSound();
        ExpectTheEventsOfTheNotation();
        if (HasFailure()) FAIL() << "behind " << did;
    }
}

}  // namespace
}  // namespace corvane
