// Commands that put ties, tuplets, slurs and lines on the selected notes.
#include "edit/CommandTable.h"
#include "edit/Spanners.h"
#include "edit/TarnSelect.h"
#include "edit/ToolState.h"

namespace corvane {
namespace {

Status TieNotesCommand(WindowTarn& window, const CommandArguments& arguments) {
    ArgumentReader reader(arguments);
    if (const Status status = reader.Result(); !status) return status;
    SetSelectionAnchors(window);
    const std::vector<GenericNote*> notes = SelectedNotes(Tools().OneVoice());
    ClearSelectionAnchors();
    return TieNotesOf(window, notes);
}

std::vector<VoiceSymbol*> SelectedEvents(WindowTarn& window) {
    SetSelectionAnchors(window);
    const std::vector<VoiceSymbol*> events = SelectedVoiceSymbols(Tools().OneVoice());
    ClearSelectionAnchors();
    return events;
}

Status TupletsCommand(WindowTarn& window, const CommandArguments& arguments) {
    ArgumentReader reader(arguments);
    TupletValue value = UsualTuplet(window.GetDocument());
    value.count = reader.Number("count", 2, 99, value.count);
    value.inTimeOf = reader.Number("in", 1, 99, value.inTimeOf);
    value.figure = static_cast<TupletFigure>(
        reader.Choice("figure", {"usual", "number", "ratio", "none"}, static_cast<int>(value.figure)));
    value.bracket = static_cast<TupletBracket>(
        reader.Choice("bracket", {"unbeamed", "always", "none"}, static_cast<int>(value.bracket)));
    if (const Status status = reader.Result(); !status) return status;
    return MakeTuplets(window, SelectedEvents(window), value);
}

Status SlurCommand(WindowTarn& window, const CommandArguments& arguments) {
    ArgumentReader reader(arguments);
    const auto side = static_cast<SlurSide>(reader.Choice("side", {"stems", "above", "below"}, 0));
    if (const Status status = reader.Result(); !status) return status;
    return InsertSlurs(window, SelectedEvents(window), side);
}

// A line over the selected events of one staff.
template <class Insert>
Status LineCommand(WindowTarn& window, ArgumentReader& reader, Insert insert) {
    if (const Status status = reader.Result(); !status) return status;
    const std::vector<LineRange> ranges = RangesOf(SelectedEvents(window));
    if (ranges.empty()) return {Fault::Refused, "Select the notes that the line is for"};
    if (ranges.size() > 1) return {Fault::Refused, "Select notes of one staff"};
    return insert(ranges.front());
}

template <HairpinKind kind>
Status HairpinCommand(WindowTarn& window, const CommandArguments& arguments) {
    ArgumentReader reader(arguments);
    return LineCommand(window, reader,
                       [&](const LineRange& range) { return InsertHairpin(window, range, kind); });
}

Status OctaveCommand(WindowTarn& window, const CommandArguments& arguments) {
    ArgumentReader reader(arguments);
    constexpr const char* kSymbols[] = {"_8vaSu_", "_8vaGiu_", "_15maSu_", "_15maGiu_"};
    const int kind = reader.Choice("kind", {"8up", "8down", "15up", "15down"}, 0);
    return LineCommand(window, reader,
                       [&](const LineRange& range) { return InsertOttava(window, range, kSymbols[kind]); });
}

template <Status (*insert)(WindowTarn&, const LineRange&)>
Status PlainLineCommand(WindowTarn& window, const CommandArguments& arguments) {
    ArgumentReader reader(arguments);
    return LineCommand(window, reader, [&](const LineRange& range) { return insert(window, range); });
}

// From 40020 on ids of this program's own.
constexpr Command kSpanners[] = {
    {32804, "Tie Notes", TieNotesCommand, NotPlaying, Needs::Notes},
    {32805, "Tuplets", TupletsCommand, NotPlaying, Needs::Events},
    {40020, "Slur", SlurCommand, NotPlaying, Needs::Events},
    {40021, "Crescendo", HairpinCommand<HairpinKind::Crescendo>, NotPlaying, Needs::Events},
    {40022, "Diminuendo", HairpinCommand<HairpinKind::Diminuendo>, NotPlaying, Needs::Events},
    {40023, "Octave Line", OctaveCommand, NotPlaying, Needs::Events},
    {40024, "Trill Line", PlainLineCommand<InsertTrillo>, NotPlaying, Needs::Events},
    {40025, "Pedal Line", PlainLineCommand<InsertPedale>, NotPlaying, Needs::Events},
};

}  // namespace

CommandFamily SpannerCommands() { return kSpanners; }

}  // namespace corvane
