// Dialogs of beams, stems and the distances around notes.
#include "shell/CommandForms.h"

namespace corvane {
namespace {

constexpr int kMostPercent = 2000;

using O = FieldOption;
using F = FieldRow;

// clang-format off
constexpr O kBinary[] = {{"1  2  3  4", "binary=beat"}, {"1+2  3+4", "binary=two"}, {"1+2+3+4", "binary=all"}};
constexpr O kTernary[] = {{"1  2  3", "ternary=beat"}, {"1+2+3", "ternary=all"}};
constexpr O kComposite[] = {
    {"1+2  3+4  5+6", "composite=two"}, {"1+2+3  4+5+6", "composite=three"}, {"1+2+3+4+5+6", "composite=all"},
};
constexpr O kFive[] = {{"1+2  3+4+5", "five=2+3"}, {"1+2+3  4+5", "five=3+2"}, {"1+2+3+4+5", "five=all"}};
constexpr O kSeven[] = {
    {"1+2+3+4  5+6+7", "seven=4+3"}, {"1+2+3  4+5+6+7", "seven=3+4"}, {"1+2+3+4+5+6+7", "seven=all"},
};
constexpr O kSingle[] = {{"Flag", "single=flag"}, {"Beam", "single=beam"}};
constexpr O kApply[] = {{"The whole score", "apply=score"}, {"What is entered from now on", "apply=new"}};
constexpr O kConnect[] = {
    {"No beam", "connect=none"}, {"Eighth-note beam", "connect=eighth"}, {"Bigger value beam", "connect=larger"},
};
constexpr O kComplete[] = {{"Don't complete sub-groups", "complete=no"}, {"Complete sub-groups", "complete=yes"}};
constexpr O kBy[] = {{"Lengthening beam", "by=beam"}, {"Placing stems on rests", "by=stems"}};
constexpr O kInner[] = {
    {"Eighth-note beam", "connect=eighth"}, {"Bigger value beam", "connect=larger"}, {"All beams", "connect=all"},
};
constexpr O kHolds[] = {{"To the end of the measure", "holds=measure"}, {"For its note alone", "holds=note"}};
constexpr O kFigures[] = {
    {"The number, and the ratio where it is unusual", "figure=usual"}, {"The number", "figure=number"},
    {"The ratio", "figure=ratio"}, {"None", "figure=none"},
};
constexpr O kBrackets[] = {
    {"Unless one beam holds the notes", "bracket=unbeamed"}, {"Always", "bracket=always"}, {"None", "bracket=none"},
};
constexpr O kStems[] = {
    {"By the notes, while a voice is alone", "automatic=1"}, {"By the number of their voice", "automatic=0"},
};
constexpr O kVoice1[] = {{"By number: up", "voice1=number"}, {"Up", "voice1=up"}, {"Down", "voice1=down"}};
constexpr O kVoice2[] = {{"By number: down", "voice2=number"}, {"Up", "voice2=up"}, {"Down", "voice2=down"}};
constexpr O kVoice3[] = {{"By number: up", "voice3=number"}, {"Up", "voice3=up"}, {"Down", "voice3=down"}};
constexpr O kVoice4[] = {{"By number: down", "voice4=number"}, {"Up", "voice4=up"}, {"Down", "voice4=down"}};
constexpr O kVoice5[] = {{"By number: up", "voice5=number"}, {"Up", "voice5=up"}, {"Down", "voice5=down"}};
constexpr O kVoice6[] = {{"By number: down", "voice6=number"}, {"Up", "voice6=up"}, {"Down", "voice6=down"}};
constexpr O kVoice7[] = {{"By number: up", "voice7=number"}, {"Up", "voice7=up"}, {"Down", "voice7=down"}};
constexpr O kVoice8[] = {{"By number: down", "voice8=number"}, {"Up", "voice8=up"}, {"Down", "voice8=down"}};

constexpr F kGrouping[] = {
    {.label = "&Binary (4/4, 4/8, 2/4, 2/8 etc.):", .name = "", .options = kBinary},
    {.label = "&Ternary (3/4, 3/8 etc.):", .name = "", .options = kTernary},
    {.label = "&Composite (6/8 etc.):", .name = "", .options = kComposite},
    {.label = "&5/8:", .name = "", .options = kFive},
    {.label = "&7/8:", .name = "", .options = kSeven},
    {.label = "Set &single-note beam:", .name = "", .options = kSingle},
    {.label = "&Apply to:", .name = "", .options = kApply},
};
constexpr F kSubGroups[] = {
    {.label = "&Connect sub-groups:", .name = "", .options = kConnect},
    {.label = "&Rests:", .name = "", .options = kComplete},
    {.label = "Completed &by:", .name = "", .options = kBy},
    {.label = "&Apply to:", .name = "", .options = kApply},
};
constexpr F kInnerBeams[] = {{.label = "&Connect to the note before by:", .name = "", .options = kInner}};
constexpr F kDistances[] = {
    {.label = "&Beam thickness:", .name = "thickness", .least = 1, .most = kMostPercent},
    {.label = "&Space between beams:", .name = "gap", .least = 1, .most = kMostPercent},
    {.label = "&Minimum distance from note:", .name = "distance", .least = 1, .most = kMostPercent},
    {.label = "S&tem length:", .name = "stem", .least = 0, .most = kMostPercent},
    {.label = "&Accidental - note spacing:", .name = "accidental", .least = 0, .most = kMostPercent},
    {.label = "Accidental &columns:", .name = "columns", .least = 0, .most = kMostPercent},
    {.label = "&Dot - note spacing:", .name = "dot", .least = 0, .most = kMostPercent},
    {.label = "Accidentals &hold:", .name = "", .options = kHolds},
};
constexpr F kTuplets[] = {
    {.label = "&Notes:", .name = "count", .least = 2, .most = 99},
    {.label = "In the &time of:", .name = "in", .least = 1, .most = 99},
    {.label = "&Figure:", .name = "", .options = kFigures},
    {.label = "&Bracket:", .name = "", .options = kBrackets},
    {.label = "Figure to the &right:", .name = "dx", .least = -kMostPercent, .most = kMostPercent},
    {.label = "Figure &down:", .name = "dy", .least = -kMostPercent, .most = kMostPercent},
};
constexpr F kTies[] = {
    {.label = "Height &above:", .name = "above", .least = 0, .most = 10000},
    {.label = "Height &below:", .name = "below", .least = 0, .most = 10000},
    {.label = "&Distance from note:", .name = "distance", .least = 0, .most = 10000},
};
constexpr F kVoices[] = {
    {.label = "&Stems:", .name = "", .options = kStems},
    {.label = "Voice &1:", .name = "", .options = kVoice1}, {.label = "Voice &2:", .name = "", .options = kVoice2},
    {.label = "Voice &3:", .name = "", .options = kVoice3}, {.label = "Voice &4:", .name = "", .options = kVoice4},
    {.label = "Voice &5:", .name = "", .options = kVoice5}, {.label = "Voice &6:", .name = "", .options = kVoice6},
    {.label = "Voice &7:", .name = "", .options = kVoice7}, {.label = "Voice &8:", .name = "", .options = kVoice8},
};

constexpr CommandForm kForms[] = {
    {32810, kGrouping, "Beams that were made by hand stay as they are."}, {32811, kSubGroups},
    {40026, kInnerBeams},
    {32820, kDistances, "Hundredths of a line distance."},
    {32821, kTies, "Thousandths of a line distance."},
    {32822, kTuplets, "Of new tuplets; the figures' places, hundredths of a line distance, of all."},
    {32784, kVoices, "Stems that were turned by hand stay as they are."},
};
// clang-format on

}  // namespace

std::span<const CommandForm> NoteForms() { return kForms; }

}  // namespace corvane
