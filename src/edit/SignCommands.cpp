// Commands that change the signs of measures.
#include <array>

#include "edit/CommandTable.h"
#include "edit/Signs.h"
#include "model/Preferences.h"
#include "model/SymbolNames.h"

namespace corvane {
namespace {

// "3" or, of a sum, "3+2+2".
std::vector<int> ReadNumerator(ArgumentReader& reader, int fallback) {
    const std::string text = reader.Text("num", std::to_string(fallback));
    std::vector<int> summands;
    for (size_t from = 0; from <= text.size();) {
        const size_t to = std::min(text.find('+', from), text.size());
        const CommandArguments part{{"num", text.substr(from, to - from)}};
        ArgumentReader number(part);
        summands.push_back(number.Number("num", 1, kMostBeats));
        if (const Status status = number.Result(); !status) reader.Refuse(status.message());
        from = to + 1;
    }
    return summands;
}

Status TimeSignatureCommand(WindowTarn& window, const CommandArguments& arguments) {
    ArgumentReader reader(arguments);
    Meter meter;
    meter.kind = static_cast<MeterKind>(reader.Choice(
        "kind", {"normal", "common", "cut", "sum", "fractions", "note", "numerator", "bracketed"}, 0));
    const int usual = meter.kind == MeterKind::Cut ? 2 : 4;
    const bool told = meter.kind == MeterKind::Common || meter.kind == MeterKind::Cut;
    meter.summands = told || reader.Has("num") ? ReadNumerator(reader, usual)
                                               : std::vector<int>{reader.Number("num", 1, kMostBeats)};
    meter.den = told ? reader.Number("den", 1, kMostParts, usual) : reader.Number("den", 1, kMostParts);
    if (meter.kind == MeterKind::Normal && meter.summands.size() > 1) meter.kind = MeterKind::Sum;
    meter.pickup = reader.Number("pickup", 0, 1, 0) != 0;
    MeasureRange range = ReadRange(reader, window);
    if (meter.pickup && !range.last) range.last = range.first;  // no second one follows
    if (const Status status = reader.Result(); !status) return status;
    return ChangeMeter(window, range, meter);
}

Status KeySignatureCommand(WindowTarn& window, const CommandArguments& arguments) {
    ArgumentReader reader(arguments);
    const int fifths = reader.Number("fifths", -7, 7);
    const MeasureRange range = ReadRange(reader, window);
    if (const Status status = reader.Result(); !status) return status;
    return ChangeKey(window, range, fifths);
}

Status BarlinesCommand(WindowTarn& window, const CommandArguments& arguments) {
    ArgumentReader reader(arguments);
    Measure* measure = ReadMeasure(reader, window, "measure");
    const int type =
        reader.Choice("type", {"single", "double", "final", "repeatstart", "repeatend", "dashed", "none"}, 0);
    if (!reader.Has("type")) reader.Refuse("type is missing");
    const bool on = reader.Number("on", 0, 1, 1) != 0;
    if (const Status status = reader.Result(); !status) return status;
    return ChangeBarline(window, measure, static_cast<BarlineChange>(type), on);
}

Status EndingsCommand(WindowTarn& window, const CommandArguments& arguments) {
    ArgumentReader reader(arguments);
    MeasureRange range = ReadRange(reader, window);
    const std::string text = reader.Text("text", "1.");
    if (const Status status = reader.Result(); !status) return status;
    if (!range.last) range.last = range.first;
    return InsertEndings(window, range, text);
}

Status TempoCommand(WindowTarn& window, const CommandArguments& arguments) {
    ArgumentReader reader(arguments);
    const auto* preferences = Preferences<TimeMeasurePref>(window.GetDocument());
    Measure* measure = ReadMeasure(reader, window, "measure");
    TempoValue value;
    value.beat = reader.Number("beat", 1, kMostBeats, 1);
    value.figure = reader.Number("figure", 1, kMostParts, 4);
    value.dots = reader.Number("dots", 0, TempoValue::kMostDots, 0);
    value.bpm =
        reader.Number("bpm", 1, TempoValue::kMostBpm, preferences ? preferences->_bpm.Get() : value.bpm);
    if (const Status status = reader.Result(); !status) return status;
    return InsertTempo(window, measure, value);
}

Status CodaCommand(WindowTarn& window, const CommandArguments& arguments) {
    ArgumentReader reader(arguments);
    Measure* measure = ReadMeasure(reader, window, "measure");
    const std::string text = reader.Text("text");
    if (const Status status = reader.Result(); !status) return status;
    return InsertCoda(window, measure, text);
}

constexpr Command kSigns[] = {
    {32778, "Tempo", TempoCommand, NotPlaying},
    {32779, "Time Signature", TimeSignatureCommand, NotPlaying},
    {32781, "Key Signature", KeySignatureCommand, NotPlaying},
    {32783, "Barlines", BarlinesCommand, NotPlaying},
    {32796, "Endings", EndingsCommand, NotPlaying},
    {32797, "Coda Phrases", CodaCommand, NotPlaying},
};

}  // namespace

CommandFamily SignCommands() { return kSigns; }

}  // namespace corvane
