#include "shell/CommandForms.h"

namespace corvane {
namespace {

constexpr int kMost = 9999;
constexpr unsigned kFirst = 1, kSecond = 2;  // modes
constexpr unsigned kNumbered = 0xf9;         // time signatures that are told by numbers

using O = FieldOption;
using F = FieldRow;

// clang-format off
constexpr O kFigures[] = {
    {"Double whole note", "figure=11"}, {"Whole note", "figure=1"}, {"Half note", "figure=2"}, {"Quarter note", "figure=4"},
    {"Eighth note", "figure=8"}, {"16th note", "figure=16"}, {"32nd note", "figure=32"}, {"64th note", "figure=64"},
    {"128th note", "figure=128"},
};
constexpr O kDots[] = {{"None", "dots=0"}, {"One", "dots=1"}, {"Two", "dots=2"}, {"Three", "dots=3"}};
constexpr O kMeters[] = {
    {"Numbers", "kind=normal"}, {"C", "kind=common"}, {"C with a stroke", "kind=cut"}, {"A sum, as 3+2 over 8", "kind=sum"},
    {"A sum of fractions", "kind=fractions"}, {"A note below", "kind=note"}, {"The numerator alone", "kind=numerator"},
    {"In brackets", "kind=bracketed"},
};
constexpr O kPickups[] = {{"No", ""}, {"Yes, for one measure", "pickup=1"}};
constexpr O kKeys[] = {
    {"Cb maj./Ab min.", "fifths=-7"}, {"Gb maj./Eb min.", "fifths=-6"}, {"Db maj./Bb min.", "fifths=-5"},
    {"Ab maj./F min.", "fifths=-4"}, {"Eb maj./C min.", "fifths=-3"}, {"Bb maj./G min.", "fifths=-2"},
    {"F maj./D min.", "fifths=-1"}, {"C maj./A min.", "fifths=0"}, {"G maj./E min.", "fifths=1"},
    {"D maj./B min.", "fifths=2"}, {"A maj./F# min.", "fifths=3"}, {"E maj./C# min.", "fifths=4"},
    {"B maj./G# min.", "fifths=5"}, {"F# maj./D# min.", "fifths=6"}, {"C# maj./A# min.", "fifths=7"},
};
constexpr O kBarlines[] = {
    {"Single", "type=single"}, {"Double", "type=double"}, {"Final", "type=final"}, {"Dashed", "type=dashed"},
    {"Start of a repeat", "type=repeatstart"}, {"End of a repeat", "type=repeatend"}, {"Hidden", "type=none"},
    {"No start of a repeat", "type=repeatstart;on=0"}, {"No end of a repeat", "type=repeatend;on=0"},
    {"Not hidden", "type=none;on=0"},
};
constexpr O kPhrases[] = {
    {"D.C.", "text=D.C."}, {"D.C. al coda", "text=D.C. al coda"}, {"D.C. al fine", "text=D.C. al fine"},
    {"D.S.", "text=D.S."}, {"D.S. al coda", "text=D.S. al coda"}, {"D.S. al fine", "text=D.S. al fine"},
    {"Al Coda", "text=Al Coda"}, {"Coda", "text=Coda"}, {"Segno", "text=Segno"}, {"Fine", "text=Fine"},
};
constexpr O kStaves[] = {
    {"Single staff", "type=S"}, {"Pair of staves (brace)", "type=D"}, {"Bass staff", "type=B"}, {"Percussion staff", "type=E"},
};
constexpr O kFlowed[] = {{"The whole score", ""}, {"Some measures", ""}};
constexpr O kTransposed[] = {{"An interval", ""}, {"Semitones", ""}};
constexpr O kDirections[] = {{"Up", "direction=up"}, {"Down", "direction=down"}};
constexpr O kIntervals[] = {
    {"Augmented unison", "interval=A1"}, {"Minor second", "interval=m2"}, {"Major second", "interval=M2"},
    {"Augmented second", "interval=A2"}, {"Minor third", "interval=m3"}, {"Major third", "interval=M3"},
    {"Diminished fourth", "interval=d4"}, {"Perfect fourth", "interval=P4"}, {"Augmented fourth", "interval=A4"},
    {"Diminished fifth", "interval=d5"}, {"Perfect fifth", "interval=P5"}, {"Augmented fifth", "interval=A5"},
    {"Minor sixth", "interval=m6"}, {"Major sixth", "interval=M6"}, {"Diminished seventh", "interval=d7"},
    {"Minor seventh", "interval=m7"}, {"Major seventh", "interval=M7"}, {"Octave", "interval=P8"},
    {"Two octaves", "interval=P15"},
};
constexpr O kLengths[] = {{"A note value", ""}, {"Twice as long", "by=double"}, {"Half as long", "by=half"}};
constexpr O kValues[] = {
    {"Double whole note", "value=11"}, {"Whole note", "value=1"}, {"Half note", "value=2"}, {"Quarter note", "value=4"},
    {"Eighth note", "value=8"}, {"16th note", "value=16"}, {"32nd note", "value=32"}, {"64th note", "value=64"},
    {"128th note", "value=128"},
};
constexpr O kVelocities[] = {{"Set all notes to", ""}, {"Crescendo-diminuendo", ""}};

constexpr O kShown[] = {{"Yes", "show=1"}, {"No", "show=0"}};
constexpr O kNumberedAt[] = {{"The first measure of each system", "at=systems"}, {"Every so many measures", "at=every"}};
constexpr O kNumberStaves[] = {
    {"The top staff", "staves=top"}, {"All staves", "staves=all"}, {"The top staff of each connection", "staves=connections"},
};
constexpr O kTupletFigures[] = {
    {"The number, and the ratio where it is unusual", "figure=usual"}, {"The number", "figure=number"},
    {"The ratio", "figure=ratio"}, {"None", "figure=none"},
};
constexpr O kTupletBrackets[] = {
    {"Unless one beam holds the notes", "bracket=unbeamed"}, {"Always", "bracket=always"}, {"None", "bracket=none"},
};
constexpr O kGraceTimes[] = {{"The following note", "time=following"}, {"The preceding note", "time=preceding"}};
constexpr O kSlashes[] = {{"No", "slash=0"}, {"Yes", "slash=1"}};
constexpr O kOctaves[] = {
    {"Octave up", "kind=8up"}, {"Octave down", "kind=8down"}, {"Two octaves up", "kind=15up"},
    {"Two octaves down", "kind=15down"},
};

// ---- fields that several forms have

constexpr F kMeasure{.label = "&Measure:", .name = "measure", .usual = "1", .least = 1, .reach = Reach::Measures};
constexpr F kFrom{.label = "&From measure:", .name = "from", .usual = "1", .least = 1, .reach = Reach::Measures};
constexpr F kTo{.label = "To m&easure:", .name = "to", .usual = "1", .least = 1, .reach = Reach::Measures};
constexpr F kToNext{.label = "To m&easure:", .name = "to", .usual = "0", .least = 0, .reach = Reach::Measures,
                    .words = "the next change", .leastIsSilent = true};
constexpr F kCount{.label = "&Number:", .name = "count", .usual = "1", .least = 1, .most = kMost};

// ---- the forms

constexpr F kTempo[] = {
    kMeasure,
    {.label = "&Beat:", .name = "beat", .usual = "1", .least = 1, .most = 99},
    {.label = "&Note:", .name = "", .usual = "figure=4", .options = kFigures},
    {.label = "&Dots:", .name = "", .options = kDots},
    {.label = "Beats a m&inute:", .name = "bpm", .usual = "106", .least = 1, .most = 999},
};
constexpr F kMeter[] = {
    {.label = "&Written as:", .name = "", .options = kMeters},
    {.label = "&Numerator:", .name = "num", .usual = "4", .modes = kNumbered},
    {.label = "&Denominator:", .name = "den", .usual = "4", .least = 1, .most = 128, .modes = kNumbered},
    {.label = "&Pickup:", .name = "", .options = kPickups, .modes = kNumbered},
    kFrom, kToNext,
};
constexpr F kKey[] = {{.label = "&Key:", .name = "", .usual = "fifths=0", .options = kKeys}, kFrom, kToNext};
constexpr F kBarline[] = {kMeasure, {.label = "&Barline:", .name = "", .options = kBarlines}};
constexpr F kEndings[] = {kFrom, kTo, {.label = "Te&xt:", .name = "text", .usual = "1."}};
constexpr F kPhrase[] = {kMeasure, {.label = "&Phrase:", .name = "", .options = kPhrases}};
constexpr F kAddPages[] = {
    kCount,
    {.label = "&After page:", .name = "after", .least = 0, .reach = Reach::Pages, .words = "none, in front"},
};
constexpr F kAddMeasures[] = {
    kCount,
    {.label = "&After measure:", .name = "after", .least = 0, .reach = Reach::Measures, .words = "none, in front"},
};
constexpr F kAddStaves[] = {
    {.label = "&Kind:", .name = "", .options = kStaves},
    {.label = "&Number:", .name = "count", .usual = "1", .least = 1, .most = 99},
    {.label = "&Below staff:", .name = "after", .least = 0, .reach = Reach::Staves, .words = "none, on top"},
};
constexpr F kRemovePages[] = {
    {.label = "&From page:", .name = "from", .usual = "1", .least = 1, .reach = Reach::Pages},
    {.label = "&To page:", .name = "to", .usual = "1", .least = 1, .reach = Reach::Pages},
};
constexpr F kRemoveMeasures[] = {kFrom, kTo};
constexpr F kRemoveStaves[] = {
    {.label = "&From staff:", .name = "from", .usual = "1", .least = 1, .reach = Reach::Staves},
    {.label = "&To staff:", .name = "to", .usual = "1", .least = 1, .reach = Reach::Staves},
};
constexpr F kFlowMeasures[] = {
    {.label = "&In:", .name = "", .options = kFlowed},
    {.label = "&From measure:", .name = "from", .usual = "1", .least = 1, .reach = Reach::Measures, .modes = kSecond},
    {.label = "To m&easure:", .name = "to", .usual = "1", .least = 1, .reach = Reach::Measures, .modes = kSecond},
    {.label = "&Measures per system:", .name = "count", .usual = "4", .least = 0, .most = 99},
};
constexpr F kFlowSystems[] = {
    {.label = "&From page:", .name = "from", .usual = "1", .least = 1, .reach = Reach::Pages},
    {.label = "&Systems per page:", .name = "count", .usual = "6", .least = 0, .most = 99},
    {.label = "Fill &up to page:", .name = "to", .usual = "0", .reach = Reach::Pages, .words = "the first only", .leastIsSilent = true},
    {.label = "&Measures of a new system:", .name = "measures", .usual = "3", .least = 0, .most = 99, .words = "as in a new score"},
};
constexpr F kTranspose[] = {
    {.label = "&By:", .name = "", .options = kTransposed},
    {.label = "&Direction:", .name = "", .options = kDirections},
    {.label = "&Interval:", .name = "", .usual = "interval=M2", .options = kIntervals, .modes = kFirst},
    {.label = "&Semitones:", .name = "semitones", .usual = "1", .least = 1, .most = 48, .modes = kSecond},
};
constexpr F kDurations[] = {
    {.label = "&To:", .name = "", .options = kLengths},
    {.label = "&Value:", .name = "", .usual = "value=4", .options = kValues, .modes = kFirst},
    {.label = "&Dots:", .name = "", .options = kDots, .modes = kFirst},
};
constexpr F kVelocity[] = {
    {.label = "&Notes:", .name = "", .options = kVelocities},
    {.label = "&Start value:", .name = "start", .usual = "64", .least = 0, .most = 127},
    {.label = "&End value:", .name = "end", .usual = "64", .least = 0, .most = 127, .modes = kSecond},
};

constexpr F kUndoLevels[] = {{.label = "&Steps:", .name = "levels", .usual = "1", .least = 1, .most = 100}};
constexpr F kTitle[] = {{.label = "&Title:", .name = "text", .mayBeEmpty = true}};
constexpr F kStaffName[] = {
    {.label = "&Staff:", .name = "staff", .usual = "1", .least = 1, .reach = Reach::Staves},
    {.label = "&Name:", .name = "name", .mayBeEmpty = true},
    {.label = "S&hort name:", .name = "short", .mayBeEmpty = true},
};
constexpr F kNumbers[] = {
    {.label = "&Shown:", .name = "", .options = kShown},
    {.label = "&At:", .name = "", .options = kNumberedAt},
    {.label = "&Measures between:", .name = "step", .usual = "1", .least = 1, .most = 100},
    {.label = "On s&taves:", .name = "", .options = kNumberStaves},
    {.label = "&First number:", .name = "first", .usual = "1", .least = -kMost, .most = kMost},
};
constexpr F kTuplet[] = {
    {.label = "&Notes:", .name = "count", .usual = "3", .least = 2, .most = 99},
    {.label = "In the &time of:", .name = "in", .usual = "2", .least = 1, .most = 99},
    {.label = "&Figure:", .name = "", .options = kTupletFigures},
    {.label = "&Bracket:", .name = "", .options = kTupletBrackets},
};
constexpr F kGrace[] = {
    {.label = "&Time is taken from:", .name = "", .options = kGraceTimes},
    {.label = "Percent of &assigned duration:", .name = "assigned", .usual = "80", .least = 0, .most = 100},
    {.label = "Percent of &cut note:", .name = "cut", .usual = "50", .least = 0, .most = 100},
    {.label = "New ones have a &slash:", .name = "", .options = kSlashes},
};
constexpr F kOctaveLine[] = {{.label = "&Sounding:", .name = "", .options = kOctaves}};

constexpr const char* kManyMeasures = "Are you sure you want to insert more than 15 measures?";
constexpr const char* kManySystems = "Are you sure you want to insert more than 15 systems?";

constexpr CommandForm kForms[] = {
    {32778, kTempo}, {32779, kMeter}, {32780, kVelocity}, {32781, kKey}, {32783, kBarline}, {32796, kEndings},
    {32797, kPhrase, "The same phrase again takes it away."},
    {32790, kAddPages}, {32791, kAddMeasures, "", kManyMeasures}, {32792, kAddStaves},
    {32793, kRemovePages}, {32794, kRemoveMeasures}, {32795, kRemoveStaves},
    {32788, kFlowMeasures, "", kManyMeasures}, {32789, kFlowSystems, "", kManySystems},
    {32782, kNumbers}, {40011, kTitle}, {40012, kStaffName, "The short name stands at all systems but the first."},
    {32805, kTuplet, "The same tuplet again takes it away."}, {40023, kOctaveLine},
    {33088, kGrace, "For new grace notes and those that are selected."},
    {.id = 40050, .fields = kUndoLevels, .hint = "So many edits can be undone one behind the other.", .ofSession = true},
    {32817, kDurations}, {32819, kTranspose},
};
// clang-format on

}  // namespace

const CommandForm* FindForm(int id) {
    for (const std::span<const CommandForm> forms :
         {std::span<const CommandForm>(kForms), LayoutForms(), NoteForms(), SignForms()})
        for (const CommandForm& form : forms)
            if (form.id == id) return &form;
    return nullptr;
}

}  // namespace corvane
