// Commands that change notes and rests.
#include "edit/CommandTable.h"
#include "edit/NoteChanges.h"
#include "edit/NoteChoice.h"
#include "edit/SelectionPress.h"
#include "play/MIDIUtility.h"

namespace corvane {
namespace {

constexpr int kMostSemitones = 48, kMostDots = 3, kMostVelocity = 127;
constexpr const char* kNotFilled = "Please fill in all the fields";

template <bool Up>
Status PointStemsCommand(WindowTarn& window, const CommandArguments& arguments) {
    ArgumentReader reader(arguments);
    const std::vector<Chords*> chords = ReadChords(reader, window);
    if (const Status status = reader.Result(); !status) return status;
    return PointStems(window, chords, Up);
}

// `interval`, with `direction=down` for one downward.
Interval ReadInterval(ArgumentReader& reader) {
    const std::string name = reader.Text("interval");
    const std::optional<Interval> interval = IntervalOf(name);
    if (!interval) reader.Refuse("\"" + name + "\" is no interval; write M3, -m2, P5, A4, d5");
    return interval.value_or(Interval{});
}

Status TransposeCommand(WindowTarn& window, const CommandArguments& arguments) {
    ArgumentReader reader(arguments);
    const std::vector<GenericNote*> notes = ReadNotes(reader, window);
    const int sign = reader.Choice("direction", {"up", "down"}, 0) ? -1 : 1;
    const SelectionFollower follower(window);
    if (reader.Has("semitones") == reader.Has("interval")) reader.Refuse("Tell semitones or an interval");
    if (reader.Has("interval")) {
        const Interval interval = ReadInterval(reader);
        if (const Status status = reader.Result(); !status) return status;
        return Transpose(window, notes, {sign * interval.steps, sign * interval.semitones});
    }
    const int semitones = sign * reader.Number("semitones", -kMostSemitones, kMostSemitones);
    if (const Status status = reader.Result(); !status) return status;
    return TransposeBySemitones(window, notes, semitones);
}

Status ChangeDurationsCommand(WindowTarn& window, const CommandArguments& arguments) {
    ArgumentReader reader(arguments);
    const std::vector<VoiceSymbol*> events = ReadEvents(reader, window);
    DurationChange change;
    const int value = reader.Choice("value", {"1", "2", "4", "8", "16", "32", "64", "128", "11"}, -1);
    if (value >= 0) change.value = value == 8 ? kDoubleWhole : static_cast<uint8_t>(1 << value);
    if (reader.Has("dots")) change.dots = reader.Number("dots", 0, kMostDots);
    const int by = reader.Choice("by", {"double", "half"}, -1);
    if (by >= 0) change.doublings = by ? -1 : 1;
    if (!change.value && !change.dots && by < 0) reader.Refuse(kNotFilled);
    if (change.value && by >= 0) reader.Refuse("Tell a value, or by=double or by=half");
    if (const Status status = reader.Result(); !status) return status;
    return ChangeDurations(window, events, change);
}

Status EnharmonicCommand(WindowTarn& window, const CommandArguments& arguments) {
    ArgumentReader reader(arguments);
    const std::vector<GenericNote*> notes = ReadNotes(reader, window);
    if (const Status status = reader.Result(); !status) return status;
    return ChangeSpelling(window, notes);
}

template <int steps>
Status StepCommand(WindowTarn& window, const CommandArguments& arguments) {
    ArgumentReader reader(arguments);
    const std::vector<GenericNote*> notes = ReadNotes(reader, window);
    if (const Status status = reader.Result(); !status) return status;
    const SelectionFollower follower(window);
    return MoveBySteps(window, notes, steps);
}

template <int octaves>
Status OctavesCommand(WindowTarn& window, const CommandArguments& arguments) {
    ArgumentReader reader(arguments);
    const std::vector<GenericNote*> notes = ReadNotes(reader, window);
    if (const Status status = reader.Result(); !status) return status;
    const SelectionFollower follower(window);
    return Transpose(window, notes, {7 * octaves, 12 * octaves});
}

template <Alteration alteration>
Status AlterCommand(WindowTarn& window, const CommandArguments& arguments) {
    ArgumentReader reader(arguments);
    const std::vector<GenericNote*> notes = ReadNotes(reader, window);
    if (const Status status = reader.Result(); !status) return status;
    return AlterNotes(window, notes, alteration);
}

// One value for all notes without `end`.
Status SetVelocityCommand(WindowTarn& window, const CommandArguments& arguments) {
    ArgumentReader reader(arguments);
    const std::vector<GenericNote*> notes = ReadNotes(reader, window);
    const int start = reader.Number("start", 0, kMostVelocity);
    const int end = reader.Number("end", 0, kMostVelocity, start);
    if (const Status status = reader.Result(); !status) return status;
    return ChangeVelocities(window, notes, start, end);
}

constexpr Command kNotes[] = {
    {32780, "Set Velocity", SetVelocityCommand, NotPlaying, Needs::Notes},
    {32815, "Up", PointStemsCommand<true>, NotPlaying, Needs::Notes},
    {32816, "Down", PointStemsCommand<false>, NotPlaying, Needs::Notes},
    {32817, "Change Durations", ChangeDurationsCommand, NotPlaying, Needs::Events},
    {32819, "Transpose", TransposeCommand, NotPlaying, Needs::Notes},
    {32900, "Sharp", AlterCommand<Alteration::Sharp>, NotPlaying, Needs::Notes},
    {32901, "Flat", AlterCommand<Alteration::Flat>, NotPlaying, Needs::Notes},
    {33035, "Natural", AlterCommand<Alteration::None>, NotPlaying, Needs::Notes},
    {33036, "Enharmonic", EnharmonicCommand, NotPlaying, Needs::Notes},
    // Ids of this program's own.
    {40040, "Step Up", StepCommand<1>, NotPlaying, Needs::Notes},
    {40041, "Step Down", StepCommand<-1>, NotPlaying, Needs::Notes},
    {40042, "Octave Up", OctavesCommand<1>, NotPlaying, Needs::Notes},
    {40043, "Octave Down", OctavesCommand<-1>, NotPlaying, Needs::Notes},
};

}  // namespace

CommandFamily NoteCommands() { return kNotes; }

Status ChangeVelocities(WindowTarn& window, const std::vector<GenericNote*>& notes, int start, int end) {
    const EditStep step(window);
    SetVelocities(notes, start, end);
    return Status::Ok();
}

}  // namespace corvane
