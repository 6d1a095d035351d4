// Commands that beam notes, and the choices behind them.
#include <array>

#include "edit/BeamChanges.h"
#include "edit/BeamOptions.h"
#include "edit/CommandTable.h"
#include "edit/NoteChoice.h"
#include "layout/BeamGroups.h"
#include "layout/Beaming.h"
#include "model/Preferences.h"

namespace corvane {
namespace {

constexpr int kMostPercent = 2000, kLeastStem = 20;
constexpr uint8_t kToMeasureEnd = 1, kOneNote = 2;  // how far an accidental reaches
constexpr const char* kShortStem = "The minimum value of reduction for a note head or a stem is 20";

template <Status (*Change)(WindowTarn&, const ChosenSymbols&)>
Status BeamCommand(WindowTarn& window, const CommandArguments& arguments) {
    ArgumentReader reader(arguments);
    const ChosenSymbols events = ReadEvents(reader, window);
    if (const Status status = reader.Result(); !status) return status;
    return Change(window, events);
}

Status InnerBeamsCommand(WindowTarn& window, const CommandArguments& arguments) {
    ArgumentReader reader(arguments);
    const ChosenSymbols events = ReadEvents(reader, window);
    const int connection = reader.Choice("connect", {"all", "eighth", "larger"}, 1);
    if (const Status status = reader.Result(); !status) return status;
    constexpr int kCodes[] = {kFullConnection, kEighthLevel, kLargerValue};
    return ModifyBeam(window, events, kCodes[connection]);
}

Status TurnStemsCommand(WindowTarn& window, const CommandArguments& arguments) {
    ArgumentReader reader(arguments);
    const std::vector<Chords*> chords = ReadChords(reader, window);
    if (const Status status = reader.Result(); !status) return status;
    return InvertDirection(window, chords);
}

Status AngledBeamCommand(WindowTarn& window, const CommandArguments&) {
    SetAngledBeams(!AngledBeams());
    RefitAllBeams(window);
    window.Shell().StateChanged(window);
    return Status::Ok();
}

// A choice whose words stand for codes in a row.
template <class Code>
Code ReadCode(ArgumentReader& reader, const char* name, std::initializer_list<const char*> words, Code first,
              Code now) {
    const int at = reader.Choice(name, words, static_cast<int>(now) - static_cast<int>(first));
    return static_cast<Code>(static_cast<int>(first) + at);
}

bool ReadAnew(ArgumentReader& reader) { return reader.Choice("apply", {"new", "score"}, 0) == 1; }

Status AutoBeamingOptionsCommand(WindowTarn& window, const CommandArguments& arguments) {
    ArgumentReader reader(arguments);
    const auto& now = *Preferences<NotePref>(window.GetDocument());
    const auto binary =
        ReadCode<BinaryGroups>(reader, "binary", {"beat", "two", "all"}, BinaryGroups::EachBeat, now._binary);
    const auto ternary =
        ReadCode<TernaryGroups>(reader, "ternary", {"beat", "all"}, TernaryGroups::EachBeat, now._ternary);
    const auto composite = ReadCode<CompositeGroups>(reader, "composite", {"two", "three", "all"},
                                                     CompositeGroups::TwoBeats, now._composite);
    const auto five =
        ReadCode<FiveGroups>(reader, "five", {"2+3", "3+2", "all"}, FiveGroups::TwoThree, now._five);
    const auto seven =
        ReadCode<SevenGroups>(reader, "seven", {"4+3", "3+4", "all"}, SevenGroups::FourThree, now._seven);
    const auto single =
        ReadCode<SingleNote>(reader, "single", {"beam", "flag"}, SingleNote::Beam, now._singleNote);
    const bool anew = ReadAnew(reader);
    if (const Status status = reader.Result(); !status) return status;
    return ChooseBeams(window, anew, [&](NotePref& pref) {
        pref._binary = binary;
        pref._ternary = ternary;
        pref._composite = composite;
        pref._five = five;
        pref._seven = seven;
        pref._singleNote = single;
    });
}

Status SubGroupsOptionsCommand(WindowTarn& window, const CommandArguments& arguments) {
    ArgumentReader reader(arguments);
    const auto& now = *Preferences<NotePref>(window.GetDocument());
    const auto connect = ReadCode<SubGroups>(reader, "connect", {"none", "eighth", "larger"},
                                             SubGroups::NotConnected, now._subGroups);
    const auto completion =
        ReadCode<Completion>(reader, "complete", {"yes", "no"}, Completion::Complete, now._completion);
    const auto by =
        ReadCode<CompletedBy>(reader, "by", {"beam", "stems"}, CompletedBy::LongerBeam, now._completedBy);
    const bool anew = ReadAnew(reader);
    if (const Status status = reader.Result(); !status) return status;
    return ChooseBeams(window, anew, [&](NotePref& pref) {
        pref._subGroups = connect;
        pref._completion = completion;
        pref._completedBy = by;
    });
}

Status DistancesCommand(WindowTarn& window, const CommandArguments& arguments) {
    ArgumentReader reader(arguments);
    const auto& notes = *Preferences<NotePref>(window.GetDocument());
    const auto read = [&](const char* name, int least, int now) {
        return reader.Number(name, least, kMostPercent, now);
    };
    const auto word = [&](const char* name, int now) { return static_cast<uint16_t>(read(name, 1, now)); };
    const uint16_t thickness = word("thickness", notes.BeamThickness()), gap = word("gap", notes.BeamGap());
    const uint16_t distance = word("distance", notes.BeamMinDistance());
    const int accidental = read("accidental", 0, notes._accidentalGap);
    const int columns = read("columns", 0, notes._accidentalSpacing), dot = read("dot", 0, notes._dotGap);
    const int stem = read("stem", 0, Preferences<StangPref>(window.GetDocument())->_stemLength);
    if (stem < kLeastStem) reader.Refuse(kShortStem);
    const int scope = reader.Choice("holds", {"note", "measure"}, notes._accidentalScope == kToMeasureEnd);
    if (const Status status = reader.Result(); !status) return status;
    return ChooseDistances(window, [&](NotePref& pref, StangPref& stems) {
        pref._beamThickness.Put(thickness);
        pref._beamGap.Put(gap);
        pref._beamMinDistance.Put(distance);
        pref._accidentalGap = accidental;
        pref._accidentalSpacing = columns;
        pref._dotGap = dot;
        if (scope != (pref._accidentalScope == kToMeasureEnd))
            pref._accidentalScope = scope ? kToMeasureEnd : kOneNote;
        stems._stemLength = stem;
    });
}

Status VoiceOptionsCommand(WindowTarn& window, const CommandArguments& arguments) {
    ArgumentReader reader(arguments);
    const auto& now = *Preferences<VoicePref>(window.GetDocument());
    const int automatic = reader.Number("automatic", 0, 1, now._automaticStems != 0);
    std::array<ForcedStems, DocStaff::kVoices> forced{};
    for (size_t i = 0; i < forced.size(); ++i) {
        const std::string name = "voice" + std::to_string(i + 1);
        forced[i] = ReadCode<ForcedStems>(reader, name.c_str(), {"number", "up", "down"},
                                          ForcedStems::ByNumber, now._forced[i]);
    }
    if (const Status status = reader.Result(); !status) return status;
    return ChooseStems(window, [&](VoicePref& pref) {
        pref._automaticStems = static_cast<uint8_t>(automatic);
        for (size_t i = 0; i < forced.size(); ++i) pref._forced[i] = forced[i];
    });
}

// 40026 and 40027 are of this program's own.
constexpr Command kBeams[] = {
    {33027, "Beam on Beat", BeamCommand<BeamOnBeat>, NotPlaying, Needs::Notes},
    {33028, "Beam Selection", BeamCommand<BeamSelection>, NotPlaying, Needs::Notes},
    {33029, "Cross-Staff Beaming", BeamCommand<BeamOverStaves>, NotPlaying, Needs::Notes},
    {33030, "Add Beam", BeamCommand<AddBeam>, NotPlaying, Needs::Notes},
    {33031, "Remove Beam", BeamCommand<RemoveBeam>, NotPlaying, Needs::Notes},
    {33032, "Flip Flag", BeamCommand<FlipFlag>, NotPlaying, Needs::Notes},
    {40026, "Inner Beams", InnerBeamsCommand, NotPlaying, Needs::Notes},
    {40027, "Turn Stems", TurnStemsCommand, NotPlaying, Needs::Notes},
    {33087, "Angled Beam", AngledBeamCommand, NotPlaying},
    {32784, "Voice Options", VoiceOptionsCommand, NotPlaying},
    {32810, "Auto Beaming Options", AutoBeamingOptionsCommand, NotPlaying},
    {32811, "Sub-Groups Options", SubGroupsOptionsCommand, NotPlaying},
    {32820, "Note-Beam-Accidental Options", DistancesCommand, NotPlaying},
};

}  // namespace

CommandFamily BeamCommands() { return kBeams; }

}  // namespace corvane
