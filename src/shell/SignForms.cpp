// Dialogs of accidentals, articulations and what is hidden.
#include "shell/CommandForms.h"

namespace corvane {
namespace {

using O = FieldOption;
using F = FieldRow;

// clang-format off
constexpr O kAccidentals[] = {
    {"Where they are needed", "show=needed"},
    {"Also reminders in brackets, after other ones", "show=reminders"},
    {"In brackets on every other note", "show=always"},
};
constexpr O kArticulations[] = {
    {"None", "sign=None"}, {"Accent", "sign=Accent"}, {"Double accent", "sign=Double accent"},
    {"Tenuto", "sign=Tenuto"}, {"Staccato", "sign=Staccato"}, {"Marcato above", "sign=Marcato above"},
    {"Marcato below", "sign=Marcato below"}, {"Small marcato above", "sign=Small marcato above"},
    {"Small marcato below", "sign=Small marcato below"}, {"Accent over tenuto", "sign=Accent over tenuto"},
    {"Tenuto over accent", "sign=Tenuto over accent"}, {"Accent over staccato", "sign=Accent over staccato"},
    {"Staccato over accent", "sign=Staccato over accent"}, {"Tenuto over staccato", "sign=Tenuto over staccato"},
    {"Staccato over tenuto", "sign=Staccato over tenuto"},
};
constexpr O kRests[] = {{"Not shown", "rests=0"}, {"Shown in grey", "rests=1"}};
constexpr O kStems[] = {{"Not shown", "stems=0"}, {"Shown in grey", "stems=1"}};
constexpr O kNotes[] = {{"Not shown", "notes=0"}, {"Shown in grey", "notes=1"}};
constexpr O kRestsInPrint[] = {{"Left out", "printrests=0"}, {"Printed", "printrests=1"}};
constexpr O kStemsInPrint[] = {{"Left out", "printstems=0"}, {"Printed", "printstems=1"}};
constexpr O kNotesInPrint[] = {{"Left out", "printnotes=0"}, {"Printed", "printnotes=1"}};

constexpr F kShown[] = {{.label = "&Accidentals:", .name = "", .usual = "show=reminders", .options = kAccidentals}};
constexpr F kSign[] = {{.label = "&Articulation:", .name = "", .usual = "sign=Staccato", .options = kArticulations}};
constexpr F kHidden[] = {
    {.label = "Hidden &rests on the screen:", .name = "", .options = kRests},
    {.label = "Hidden rests in &print:", .name = "", .options = kRestsInPrint},
    {.label = "Hidden &stems on the screen:", .name = "", .options = kStems},
    {.label = "Hidden stems in pr&int:", .name = "", .options = kStemsInPrint},
    {.label = "Hidden &notes on the screen:", .name = "", .options = kNotes},
    {.label = "Hidden notes in prin&t:", .name = "", .options = kNotesInPrint},
};

constexpr CommandForm kForms[] = {
    {32814, kShown}, {32818, kSign, "Instead of the one that a chord has."},
    {33082, kHidden, "For every score. Hidden tuplets go with the notes.", "", true},
};
// clang-format on

}  // namespace

std::span<const CommandForm> SignForms() { return kForms; }

}  // namespace corvane
