// What a score chooses of tuplets and ties.
#include "edit/BeamOptions.h"
#include "edit/CommandTable.h"
#include "edit/Spanners.h"
#include "model/Preferences.h"

namespace corvane {
namespace {

constexpr int kMostParts = 99, kMostPercent = 2000, kMostHeight = 10000, kLeastHeight = 100;
constexpr const char* kLowTie = "The minimum value for the height of a tie is 100";

// What new tuplets start with, and how far all figures are moved.
Status TupletOptionsCommand(WindowTarn& window, const CommandArguments& arguments) {
    ArgumentReader reader(arguments);
    const auto& now = *Preferences<IrregPref>(window.GetDocument());
    const TupletValue usual = UsualTuplet(window.GetDocument());
    const int count = reader.Number("count", 2, kMostParts, usual.count);
    const int inTimeOf = reader.Number("in", 1, kMostParts, usual.inTimeOf);
    const int figure =
        reader.Choice("figure", {"usual", "number", "ratio", "none"}, static_cast<int>(usual.figure));
    const int bracket =
        reader.Choice("bracket", {"unbeamed", "always", "none"}, static_cast<int>(usual.bracket));
    const int dx = reader.Number("dx", -kMostPercent, kMostPercent, now._dx);
    const int dy = reader.Number("dy", -kMostPercent, kMostPercent, now._dy);
    if (const Status status = reader.Result(); !status) return status;
    return ChooseLooks(window, [&](Document* document) {
        auto& pref = *Preferences<IrregPref>(document);
        pref._count = static_cast<int16_t>(count);
        pref._inTimeOf = static_cast<int16_t>(inTimeOf);
        pref._figure = static_cast<uint8_t>(figure);
        pref._bracket = static_cast<uint8_t>(bracket);
        pref._dx = dx;
        pref._dy = dy;
    });
}

Status TieOptionsCommand(WindowTarn& window, const CommandArguments& arguments) {
    ArgumentReader reader(arguments);
    const auto& now = *Preferences<TiePref>(window.GetDocument());
    const int above = reader.Number("above", 0, kMostHeight, now._heightAbove);
    const int below = reader.Number("below", 0, kMostHeight, now._heightBelow);
    const int distance = reader.Number("distance", 0, kMostHeight, now._distance);
    if (above < kLeastHeight || below < kLeastHeight) reader.Refuse(kLowTie);
    if (const Status status = reader.Result(); !status) return status;
    return ChooseLooks(window, [&](Document* document) {
        auto& pref = *Preferences<TiePref>(document);
        pref._heightAbove = above;
        pref._heightBelow = below;
        pref._distance = distance;
    });
}

constexpr Command kMarks[] = {
    {32821, "Note-Tie Options", TieOptionsCommand, NotPlaying},
    {32822, "Tuplet Options", TupletOptionsCommand, NotPlaying},
};

}  // namespace

CommandFamily MarkOptionCommands() { return kMarks; }

}  // namespace corvane
