// Dialogs of spacing, page, staves and gaps.
#include "shell/CommandForms.h"

namespace corvane {
namespace {

constexpr int kMost = 99999, kMostGap = 32767;
constexpr unsigned kFirst = 1, kSecond = 2;  // modes

using O = FieldOption;
using F = FieldRow;

// clang-format off
constexpr O kRules[] = {{"Engraver", "mode=engraver"}, {"Mathematical", "mode=mathematical"}};
constexpr O kDotRoom[] = {{"Yes", "dots=1"}, {"No", "dots=0"}};
constexpr O kClefRoom[] = {{"Yes", "clefs=1"}, {"No", "clefs=0"}};
constexpr O kAccidentRoom[] = {{"Yes", "accidentals=1"}, {"No", "accidentals=0"}};
constexpr O kLyricRoom[] = {{"Yes", "lyrics=1"}, {"No", "lyrics=0"}};
constexpr O kSpaced[] = {{"All staves", "all=1"}, {"What is selected", "all=0"}};
constexpr O kPapers[] = {
    {"Custom", ""}, {"Letter", "height=15785;width=12197"}, {"Letter, landscape", "height=12197;width=15785"},
    {"A4", "height=16779;width=11864"}, {"A4, landscape", "height=11864;width=16779"},
    {"A5", "height=11864;width=8361"}, {"A3", "height=23728;width=16779"}, {"Legal", "height=20090;width=12197"},
};

constexpr F kSpacing[] = {
    {.label = "&Spacing:", .name = "", .options = kRules},
    {.label = "&From measure:", .name = "from", .usual = "1", .least = 1, .reach = Reach::Measures},
    {.label = "&To measure:", .name = "to", .usual = "1", .least = 1, .reach = Reach::Measures},
    {.label = "Use &Dots Width:", .name = "", .options = kDotRoom, .modes = kFirst},
    {.label = "Use &Clefs Width:", .name = "", .options = kClefRoom, .modes = kFirst},
    {.label = "Use &Accident Width:", .name = "", .options = kAccidentRoom, .modes = kFirst},
    {.label = "Use &Lyrics Width:", .name = "", .options = kLyricRoom, .modes = kFirst},
    {.label = "S&pace:", .name = "", .options = kSpaced, .modes = kSecond},
};
constexpr F kTable[] = {
    {.label = "&2/1", .name = "2/1"}, {.label = "&1/1", .name = "1/1"}, {.label = "1/&2", .name = "1/2"},
    {.label = "1/&4", .name = "1/4"}, {.label = "1/&8", .name = "1/8"}, {.label = "1/1&6", .name = "1/16"},
    {.label = "1/&32", .name = "1/32"}, {.label = "&Min.", .name = "min"},
};
constexpr F kGaps[] = {
    {.label = "&Time sign. - first note spacing:", .name = "first", .least = 0, .most = kMostGap},
    {.label = "&Last note - barline spacing:", .name = "last", .least = 0, .most = 999},
    {.label = "&Barline - clef spacing:", .name = "clef", .least = 0, .most = kMostGap},
    {.label = "&Clef - accidental spacing:", .name = "key", .least = 0, .most = kMostGap},
    {.label = "&Key sign. - time sign. spacing:", .name = "time", .least = 0, .most = kMostGap},
};
constexpr F kPaper[] = {
    {.label = "&Paper:", .name = "", .options = kPapers},
    {.label = "&Height:", .name = "height", .least = 0, .most = kMost, .modes = kFirst},
    {.label = "&Width:", .name = "width", .least = 0, .most = kMost, .modes = kFirst},
};
constexpr F kMargins[] = {
    {.label = "&From page:", .name = "from", .usual = "1", .least = 1, .reach = Reach::Pages},
    {.label = "To pa&ge:", .name = "to", .usual = "1", .least = 1, .reach = Reach::Pages},
    {.label = "&Left margin:", .name = "left", .least = 0, .most = kMost},
    {.label = "&Right margin:", .name = "right", .least = 0, .most = kMost},
    {.label = "&Top margin:", .name = "top", .least = 0, .most = kMost},
    {.label = "&Bottom margin:", .name = "bottom", .least = 0, .most = kMost},
};
constexpr F kStaves[] = {
    {.label = "&From staff:", .name = "from", .usual = "1", .least = 1, .reach = Reach::Staves},
    {.label = "&To staff:", .name = "to", .usual = "1", .least = 1, .reach = Reach::Staves},
    {.label = "&Size:", .name = "size", .usual = "100", .least = 0, .most = kMost},
    {.label = "&Lines:", .name = "lines", .usual = "5", .least = 1, .most = 15},
    {.label = "&Distance from the staff below:", .name = "distance", .least = 0, .most = kMost},
};
constexpr F kNames[] = {{.label = "&Room before the first system:", .name = "indent", .least = 0, .most = kMostGap}};

constexpr O kShown[] = {{"Yes", "show=1"}, {"No", "show=0"}};
constexpr F kTimes[] = {{.label = "&Show time signatures:", .name = "", .options = kShown}};
constexpr F kFonts[] = {
    {.label = "&Font of the score:", .name = "doc"},
    {.label = "&Drawn with:", .name = "sys"},
};

constexpr const char* kUnits = "1435 units are an inch.";

constexpr CommandForm kForms[] = {
    {32807, kSpacing}, {33177, kTable, "Widths in line distances; they hold for every score.", "", true},
    {32786, kGaps, "Units of the page, 1435 to the inch; the last note's is thousandths of the measure."},
    {57606, kPaper, kUnits}, {32776, kMargins, kUnits}, {32777, kStaves, kUnits}, {32787, kNames, kUnits},
    {32798, kTimes}, {33090, kFonts, "The same name twice draws with the font itself.", "", true},
};
// clang-format on

}  // namespace

std::span<const CommandForm> LayoutForms() { return kForms; }

}  // namespace corvane
