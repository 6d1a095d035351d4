#include "edit/PaletteTable.h"

#include "edit/SpannerSteps.h"
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

template <class Sign>
void EnterNoteSign(const InsertionPlace& place, const PaletteItem&, const std::string& descriptor) {
    NoteSignInsertion(place, Sign::kClass, descriptor);
}
void EnterTremolo(const InsertionPlace& place, const PaletteItem&, const std::string& descriptor) {
    TremoloInsertion(place, descriptor);
}
void EnterArpeggio(const InsertionPlace& place, const PaletteItem&, const std::string& descriptor) {
    ArpeggioInsertion(place, descriptor);
}
void EnterDynamic(const InsertionPlace& place, const PaletteItem&, const std::string& descriptor) {
    DinamicheInsertion(place, descriptor);
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
    {1, 28, "", "Slur", {}, P::Plain, SlurStroke},
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
    {3, 1, "Dpppp", "pppp", EnterDynamic, P::Plain},
    {3, 2, "Dppp", "ppp", EnterDynamic, P::Plain},
    {3, 3, "Dpp", "pp", EnterDynamic, P::Plain},
    {3, 4, "Dp", "p", EnterDynamic, P::Plain},
    {3, 5, "Dmp", "mp", EnterDynamic, P::Plain},
    {3, 6, "Dmf", "mf", EnterDynamic, P::Plain},
    {3, 7, "Df", "f", EnterDynamic, P::Plain},
    {3, 8, "Dff", "ff", EnterDynamic, P::Plain},
    {3, 9, "Dfff", "fff", EnterDynamic, P::Plain},
    {3, 10, "Dffff", "ffff", EnterDynamic, P::Plain},
    {3, 11, "Dfp", "fp", EnterDynamic, P::Plain},
    {3, 12, "Dfpp", "fpp", EnterDynamic, P::Plain},
    {3, 13, "Dsf", "sf", EnterDynamic, P::Plain},
    {3, 14, "Dsfz", "sfz", EnterDynamic, P::Plain},
    {3, 15, "Dsffz", "sffz", EnterDynamic, P::Plain},
    {3, 16, "Dsfp", "sfp", EnterDynamic, P::Plain},
    {3, 17, "Dsfpp", "sfpp", EnterDynamic, P::Plain},
    {3, 18, "", "Hairpin", {}, P::Plain, HairpinStroke},
    {4, 1, "_Accento_", "Accent", EnterNoteSign<Articolazione>, P::Plain},
    {4, 2, "_DoppioAccento_", "Double accent", EnterNoteSign<Articolazione>, P::Plain},
    {4, 3, "_Portato_", "Tenuto", EnterNoteSign<Articolazione>, P::Plain},
    {4, 4, "_Staccato_", "Staccato", EnterNoteSign<Articolazione>, P::Plain},
    {4, 5, "_ScampanatoSu_", "Marcato above", EnterNoteSign<Articolazione>, P::Plain},
    {4, 6, "_ScampanatoGiu_", "Marcato below", EnterNoteSign<Articolazione>, P::Plain},
    {4, 7, "_ScampanatoPiccoloSu_", "Small marcato above", EnterNoteSign<Articolazione>, P::Plain},
    {4, 8, "_ScampanatoPiccoloGiu_", "Small marcato below", EnterNoteSign<Articolazione>, P::Plain},
    {4, 9, "_AccentoPortato_", "Accent over tenuto", EnterNoteSign<Articolazione>, P::Plain},
    {4, 10, "_PortatoAccentato_", "Tenuto over accent", EnterNoteSign<Articolazione>, P::Plain},
    {4, 11, "_AccentoStaccato_", "Accent over staccato", EnterNoteSign<Articolazione>, P::Plain},
    {4, 12, "_StaccatoAccentato_", "Staccato over accent", EnterNoteSign<Articolazione>, P::Plain},
    {4, 13, "_PortatoStaccato_", "Tenuto over staccato", EnterNoteSign<Articolazione>, P::Plain},
    {4, 14, "_StaccatoPortato_", "Staccato over tenuto", EnterNoteSign<Articolazione>, P::Plain},
    {5, 1, "_Trillo_", "Trill", EnterSymbol, P::Plain},
    {5, 2, "_Trillo_", "Trill line", {}, P::Plain, TrilloStroke},
    {5, 3, "_MordenteSup_", "Upper mordent", EnterNoteSign<Mordente>, P::Plain},
    {5, 4, "_MordenteInf_", "Lower mordent", EnterNoteSign<Mordente>, P::Plain},
    {5, 5, "_MordenteDoppioSup_", "Long upper mordent", EnterNoteSign<Mordente>, P::Plain},
    {5, 6, "_MordenteDoppioInf_", "Long lower mordent", EnterNoteSign<Mordente>, P::Plain},
    {5, 7, "_GruppettoSup_", "Turn", EnterNoteSign<Gruppetto>, P::Plain},
    {5, 8, "_GruppettoInf_", "Inverted turn", EnterNoteSign<Gruppetto>, P::Plain},
    {5, 9, "_Diesis_", "Sharp over an ornament", EnterNoteSign<Ornamenti>, P::OrnamentBracketed},
    {5, 10, "_Bemolle_", "Flat over an ornament", EnterNoteSign<Ornamenti>, P::OrnamentBracketed},
    {5, 11, "_Bequadro_", "Natural over an ornament", EnterNoteSign<Ornamenti>, P::OrnamentBracketed},
    {5, 13, "_Zero_", "Fingering 0", EnterNoteSign<Diteggiatura>, P::Plain},
    {5, 14, "_Uno_", "Fingering 1", EnterNoteSign<Diteggiatura>, P::Plain},
    {5, 15, "_Due_", "Fingering 2", EnterNoteSign<Diteggiatura>, P::Plain},
    {5, 16, "_Tre_", "Fingering 3", EnterNoteSign<Diteggiatura>, P::Plain},
    {5, 17, "_Quattro_", "Fingering 4", EnterNoteSign<Diteggiatura>, P::Plain},
    {5, 18, "_Cinque_", "Fingering 5", EnterNoteSign<Diteggiatura>, P::Plain},
    {5, 19, "_Sei_", "Fingering 6", EnterNoteSign<Diteggiatura>, P::Plain},
    {5, 20, "_Sette_", "Fingering 7", EnterNoteSign<Diteggiatura>, P::Plain},
    {5, 21, "_Otto_", "Fingering 8", EnterNoteSign<Diteggiatura>, P::Plain},
    {5, 22, "_Nove_", "Fingering 9", EnterNoteSign<Diteggiatura>, P::Plain},
    {6, 1, "_Arpeggio_", "Arpeggio", EnterArpeggio, P::Plain},
    {6, 2, "", "Ending", {}, P::Plain, EndingsStroke},
    {6, 3, "_8vaSu_", "Octave up", {}, P::Plain, OttavaStroke},
    {6, 4, "_8vaGiu_", "Octave down", {}, P::Plain, OttavaStroke},
    {6, 5, "_15maSu_", "Two octaves up", {}, P::Plain, OttavaStroke},
    {6, 6, "_15maGiu_", "Two octaves down", {}, P::Plain, OttavaStroke},
    {6, 7, "_TremoloUno_", "Tremolo, one stroke", EnterTremolo, P::Plain},
    {6, 8, "_TremoloDue_", "Tremolo, two strokes", EnterTremolo, P::Plain},
    {6, 9, "_TremoloTre_", "Tremolo, three strokes", EnterTremolo, P::Plain},
    {6, 10, "_TremoloQuattro_", "Tremolo, four strokes", EnterTremolo, P::Plain},
    {6, 11, "_SimboloCoda_", "Coda sign", EnterSymbol, P::Plain},
    {6, 12, "_Pedale_", "Pedal", EnterSymbol, P::Plain},
    {6, 13, "", "Pedal line", {}, P::Plain, PedaleStroke},
    {6, 14, "_FinePedale_", "End of pedal", EnterSymbol, P::Plain},
    {6, 15, "_Tilde_", "Wave", EnterNoteSign<Tilde>, P::Plain},
    {6, 16, "_Ripetizione1_", "Repeat of a measure", EnterSymbol, P::Plain},
    {6, 17, "_Ripetizione2_", "Repeat of two measures", EnterSymbol, P::Plain},
    {6, 18, "_FreccaSu_", "Arrow up", EnterSymbol, P::Plain},
    {6, 19, "_FrecciaGiu_", "Arrow down", EnterSymbol, P::Plain},
    {6, 20, "_FrecciaDestra_", "Arrow right", EnterSymbol, P::Plain},
    {6, 21, "_FrecciaSinistra_", "Arrow left", EnterSymbol, P::Plain},
    {6, 22, "_SmorzaCorde_", "Damp the strings", EnterSymbol, P::Plain},
    {7, 1, "_ArcoGiu_", "Down bow", EnterNoteSign<ArcoGiu>, P::Plain},
    {7, 2, "_ArcoSu_", "Up bow", EnterNoteSign<ArcoSu>, P::Plain},
    {7, 3, "_SuonoAperto_", "Open", EnterNoteSign<SuonoAperto>, P::Plain},
    {7, 4, "_SuonoChiuso_", "Stopped", EnterNoteSign<SuonoChiuso>, P::Plain},
    {7, 5, "_Pizzicato_", "Left-hand pizzicato", EnterNoteSign<Pizzicato>, P::Plain},
    {7, 6, "_Armonico_", "Harmonic", EnterNoteSign<Armonico>, P::Plain},
    {7, 7, "_Circonflesso_", "Strong accent", EnterNoteSign<Circonflesso>, P::Plain},
    {7, 8, "_Respiro_", "Breath", EnterNoteSign<Respiro>, P::Plain},
    {7, 9, "_LungaSuperiore_", "Long fermata", EnterNoteSign<Corona>, P::Plain},
    {7, 10, "_LungaInferiore_", "Long fermata below", EnterNoteSign<Corona>, P::Plain},
    {7, 11, "_BreveSuperiore_", "Short fermata", EnterNoteSign<Corona>, P::Plain},
    {7, 12, "_BreveInferiore_", "Short fermata below", EnterNoteSign<Corona>, P::Plain},
    {7, 13, "_MediaSuperiore_", "Fermata", EnterNoteSign<Corona>, P::Plain},
    {7, 14, "_MediaInferiore_", "Fermata below", EnterNoteSign<Corona>, P::Plain},
    {7, 15, "_Glissando_", "Glissando", EnterSymbol, P::Plain},
    {7, 16, "_Mazza1_", "Soft beater", EnterSymbol, P::Plain},
    {7, 17, "_Mazza2_", "Medium beater", EnterSymbol, P::Plain},
    {7, 18, "_Mazza3_", "Hard beater", EnterSymbol, P::Plain},
    {7, 19, "_Mazza4_", "Wooden beater", EnterSymbol, P::Plain},
    {7, 20, "_NotaTrillo1_", "Trill note, flat", EnterSymbol, P::Plain},
    {7, 21, "_NotaTrillo2_", "Trill note, natural", EnterSymbol, P::Plain},
    {7, 22, "_NotaTrillo3_", "Trill note, sharp", EnterSymbol, P::Plain},
    {7, 23, "_BartokSup_", "Snap pizzicato", EnterNoteSign<BartokSup>, P::Plain},
    {7, 24, "_BartokInf_", "Snap pizzicato below", EnterNoteSign<BartokInf>, P::Plain},
    {8, 1, "", "Text at a staff", nullptr, P::Plain},
    {8, 2, "", "Lyrics", nullptr, P::Plain},
    {8, 3, "", "Text on the page", nullptr, P::Plain},
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
    if (item.suffix == PaletteItem::OrnamentBracketed && Tools().ornamentParenthesis) descriptor += "(";
    return descriptor;
}

}  // namespace corvane
