#include "edit/PaletteTable.h"

#include "edit/ToolState.h"

namespace corvane {
namespace {

void Enter(const InsertionPlace& place, const PaletteItem&, const std::string& descriptor) {
    NoteInsertion(place, descriptor);
}
void EnterRest(const InsertionPlace& place, const PaletteItem&, const std::string& descriptor) {
    PauseInsertion(place, descriptor);
}
void EnterDots(const InsertionPlace& place, const PaletteItem& item, const std::string&) {
    DotInsertion(place, item.item - 19);
}
void EnterAccidental(const InsertionPlace& place, const PaletteItem&, const std::string& descriptor) {
    AccInsertion(place, descriptor);
}
void EnterTie(const InsertionPlace& place, const PaletteItem&, const std::string&) { TieInsertion(place); }
void EnterClef(const InsertionPlace& place, const PaletteItem&, const std::string& descriptor) {
    ClafInsertion(place, descriptor);
}
void EnterSymbol(const InsertionPlace& place, const PaletteItem&, const std::string& descriptor) {
    SimboliVariInsertion(place, descriptor);
}

using P = PaletteItem;
// clang-format off
constexpr PaletteItem kItems[] = {
    {1, 1, "_DoppioIntero_", "Double whole note", Enter, P::GraceNote},
    {1, 3, "_Intero_", "Whole note", Enter, P::GraceNote},
    {1, 5, "_Meta_", "Half note", Enter, P::GraceNote},
    {1, 7, "_Quarto_", "Quarter note", Enter, P::GraceNote},
    {1, 9, "_Ottavo_", "Eighth note", Enter, P::GraceNote},
    {1, 11, "_Sedicesimo_", "16th note", Enter, P::GraceNote},
    {1, 13, "_Trentaduesimo_", "32nd note", Enter, P::GraceNote},
    {1, 15, "_Sessantaquattresimo_", "64th note", Enter, P::GraceNote},
    {1, 17, "_Centoventottesimo_", "128th note", Enter, P::GraceNote},
    {1, 2, "_PausaDoppioIntero_", "Double whole rest", EnterRest, P::Plain},
    {1, 4, "_PausaIntero_", "Whole rest", EnterRest, P::Plain},
    {1, 6, "_PausaMeta_", "Half rest", EnterRest, P::Plain},
    {1, 8, "_Pausa4_", "Quarter rest", EnterRest, P::Plain},
    {1, 10, "_Pausa8_", "Eighth rest", EnterRest, P::Plain},
    {1, 12, "_Pausa16_", "16th rest", EnterRest, P::Plain},
    {1, 14, "_Pausa32_", "32nd rest", EnterRest, P::Plain},
    {1, 16, "_Pausa64_", "64th rest", EnterRest, P::Plain},
    {1, 18, "_Pausa128_", "128th rest", EnterRest, P::Plain},
    {1, 19, "", "Tie", EnterTie, P::Plain},
    {1, 20, "", "Dot", EnterDots, P::Plain},
    {1, 21, "", "Two dots", EnterDots, P::Plain},
    {1, 22, "", "Three dots", EnterDots, P::Plain},
    {1, 23, "_Diesis_", "Sharp", EnterAccidental, P::Bracketed},
    {1, 24, "_Bemolle_", "Flat", EnterAccidental, P::Bracketed},
    {1, 25, "_DDiesis_", "Double sharp", EnterAccidental, P::Bracketed},
    {1, 26, "_Bequadro_", "Natural", EnterAccidental, P::Bracketed},
    {1, 27, "_DBemolle_", "Double flat", EnterAccidental, P::Bracketed},
    {1, 29, "_Monesis_", "Half sharp", EnterAccidental, P::Bracketed},
    {1, 30, "_MonoBemolle_", "Half flat", EnterAccidental, P::Bracketed},
    {1, 31, "_Triesis_", "Three-quarter sharp", EnterAccidental, P::Bracketed},
    {1, 32, "_TriBemolle_", "Three-quarter flat", EnterAccidental, P::Bracketed},
    {1, 33, "_BequadroSu_", "Natural, arrow up", EnterAccidental, P::Bracketed},
    {1, 34, "_BequadroGiu_", "Natural, arrow down", EnterAccidental, P::Bracketed},
    {2, 1, "_ChiaveSol_", "Treble clef", EnterClef, P::Plain},
    {2, 2, "_ChiaveFa_", "Bass clef", EnterClef, P::Plain},
    {2, 3, "_ChiaveSolSu_", "Treble clef, octave up", EnterClef, P::Plain},
    {2, 4, "_ChiaveSolGiu_", "Treble clef, octave down", EnterClef, P::Plain},
    {2, 5, "_ChiaveFaGiu_", "Bass clef, octave down", EnterClef, P::Plain},
    {2, 6, "_ChiaveDoCont_", "Alto clef", EnterClef, P::Plain},
    {2, 7, "_ChiaveDoCont1_", "Alto clef", EnterClef, P::Plain},
    {2, 8, "_ChiaveScatola_", "Percussion clef, box", EnterClef, P::Plain},
    {2, 9, "_ChiaveLinee_", "Percussion clef, lines", EnterClef, P::Plain},
    {2, 10, "_ChiaveRastrello_", "Percussion clef, rake", EnterClef, P::Plain},
    {2, 11, "_ChiaveDoBar_", "Baritone clef", EnterClef, P::Plain},
    {2, 12, "_ChiaveDoTen_", "Tenor clef", EnterClef, P::Plain},
    {2, 13, "_ChiaveDoMezzSop_", "Mezzo-soprano clef", EnterClef, P::Plain},
    {2, 14, "_ChiaveDoSop_", "Soprano clef", EnterClef, P::Plain},
    {5, 1, "_Trillo_", "Trill", EnterSymbol, P::Plain},
    {6, 11, "_SimboloCoda_", "Coda sign", EnterSymbol, P::Plain},
    {6, 12, "_Pedale_", "Pedal", EnterSymbol, P::Plain},
    {6, 14, "_FinePedale_", "End of pedal", EnterSymbol, P::Plain},
    {6, 16, "_Ripetizione1_", "Repeat of a measure", EnterSymbol, P::Plain},
    {6, 17, "_Ripetizione2_", "Repeat of two measures", EnterSymbol, P::Plain},
    {6, 18, "_FreccaSu_", "Arrow up", EnterSymbol, P::Plain},
    {6, 19, "_FrecciaGiu_", "Arrow down", EnterSymbol, P::Plain},
    {6, 20, "_FrecciaDestra_", "Arrow right", EnterSymbol, P::Plain},
    {6, 21, "_FrecciaSinistra_", "Arrow left", EnterSymbol, P::Plain},
    {6, 22, "_SmorzaCorde_", "Damp the strings", EnterSymbol, P::Plain},
    {7, 15, "_Glissando_", "Glissando", EnterSymbol, P::Plain},
    {7, 16, "_Mazza1_", "Soft beater", EnterSymbol, P::Plain},
    {7, 17, "_Mazza2_", "Medium beater", EnterSymbol, P::Plain},
    {7, 18, "_Mazza3_", "Hard beater", EnterSymbol, P::Plain},
    {7, 19, "_Mazza4_", "Wooden beater", EnterSymbol, P::Plain},
    {7, 20, "_NotaTrillo1_", "Trill note, flat", EnterSymbol, P::Plain},
    {7, 21, "_NotaTrillo2_", "Trill note, natural", EnterSymbol, P::Plain},
    {7, 22, "_NotaTrillo3_", "Trill note, sharp", EnterSymbol, P::Plain},
};
// clang-format on

}  // namespace

const PaletteItem* FindPaletteItem(int group, int item) {
    for (const PaletteItem& each : kItems)
        if (each.group == group && each.item == item) return &each;
    return nullptr;
}

std::string DescriptorOf(const PaletteItem& item) {
    std::string descriptor = item.descriptor;
    if (item.suffix == PaletteItem::GraceNote && Tools().graceMode) descriptor += "_Grace_";
    if (item.suffix == PaletteItem::Bracketed && Tools().accidentParenthesis) descriptor += "(";
    return descriptor;
}

}  // namespace corvane
