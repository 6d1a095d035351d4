#include "model/GlyphTable.h"

#include "base/Rounding.h"

namespace corvane {
namespace {

// How a grace form differs from the plain one.
enum GraceForm : uint8_t { None, Head, Flag, Articulation, Digit };

// Sizes and offsets of a grace form as fractions of the plain ones.
struct GraceScale {
    double size, offset;
};
constexpr GraceScale kGraceScales[] = {
    {1, 1}, {285.0 / 385, 285.0 / 385}, {285.0 / 385, 230.0 / 330}, {300.0 / 400, 300.0 / 400}, {0.5, 0.5}};

enum Font : bool { kMain = false, kSecond = true };
constexpr int kMostParts = 4;

struct Row {
    const char* name;
    const char* descriptor;  // empty where no palette has it, or calls it by its name
    GraceForm graceForm;
    Font font;
    GlyphPart parts[kMostParts];  // code 0 ends them
};

// clang-format off
constexpr Row kRows[] = {
    // Clefs.
    {"ChiaveSol", "_ChiaveSol_", None, kMain, {{38, 400, 0, 100}}},
    {"ChiaveSolSu", "_ChiaveSolSu_", None, kMain, {{38, 400, 0, 100}, {56, 250, 120, -500, 2}}},
    {"ChiaveSolGiu", "_ChiaveSolGiu_", None, kMain, {{38, 400, 0, 100}, {56, 250, 60, 310, 2}}},
    {"ChiaveFa", "_ChiaveFa_", None, kMain, {{63, 400, 0, 300}}},
    {"ChiaveFaGiu", "_ChiaveFaGiu_", None, kMain, {{63, 400, 0, 300}, {56, 250, -100, 300, 2}}},
    {"ChiaveDoCont", "_ChiaveDoCont_", None, kMain, {{66, 400, 0, 200}}},
    {"ChiaveDoBar", "_ChiaveDoBar_", None, kMain, {{66, 400, 0, 200}}},
    {"ChiaveDoTen", "_ChiaveDoTen_", None, kMain, {{66, 400, 0, 200}}},
    {"ChiaveDoSop", "_ChiaveDoSop_", None, kMain, {{66, 400, 0, 200}}},
    {"ChiaveDoMezzSop", "_ChiaveDoMezzSop_", None, kMain, {{66, 400, 0, 200}}},
    {"ChiaveScatola", "_ChiaveScatola_", None, kMain, {{214, 400, 0, 200}}},
    {"ChiaveLinee", "_ChiaveLinee_", None, kMain, {{47, 400, 0, 200}}},
    {"ChiaveRastrello", "_ChiaveRastrello_", None, kMain, {{47, 400, 0, 200}}},
    // Heads.
    {"DoppioIntero", "_DoppioIntero_", Head, kMain, {{87, 385}}},
    {"Intero", "_Intero_", Head, kMain, {{119, 385}}},
    {"Meta", "_Meta_", Head, kMain, {{250, 385}}},
    {"Quarto", "_Quarto_", Head, kMain, {{207, 385}}},
    {"Croce", "", Head, kMain, {{192, 385, 0, 50}}},
    {"Linea", "", Head, kMain, {{140, 385, 0, 220}}},
    {"LosangaVuota", "", Head, kMain, {{225, 385}}},
    {"LosangaPiena", "", Head, kMain, {{226, 385}}},
    // Flags.
    {"8\xA1" "down", "", Flag, kMain, {{74, 385, 0, -330}}},
    {"16\xA1" "down", "", Flag, kMain, {{75, 385, 0, -330}}},
    {"32\xA1" "down", "", Flag, kMain, {{240, 385, 0, -10}, {75, 385, 0, -360}}},
    {"64\xA1" "down", "", Flag, kMain, {{240, 385, 0, -10}, {240, 385, 0, -80}, {75, 385, 0, -420}}},
    {"128\xA1" "down", "", Flag, kMain, {{240, 385, 0, -10}, {240, 385, 0, -80}, {240, 385, 0, -150}, {75, 385, 0, -490}}},
    {"8\xA1" "up", "", Flag, kMain, {{106, 385, 0, 330}}},
    {"16\xA1" "up", "", Flag, kMain, {{107, 385, 0, 330}}},
    {"32\xA1" "up", "", Flag, kMain, {{251, 385, 0, 10}, {107, 385, 0, 340}}},
    {"64\xA1" "up", "", Flag, kMain, {{251, 385, 0, 10}, {251, 385, 0, 80}, {107, 385, 0, 410}}},
    {"128\xA1" "up", "", Flag, kMain, {{251, 385, 0, 10}, {251, 385, 0, 80}, {251, 385, 0, 150}, {107, 385, 0, 480}}},
    // Rests.
    {"PausaDoppioIntero", "_PausaDoppioIntero_", None, kMain, {{227}}},
    {"PausaIntero", "_PausaIntero_", None, kMain, {{183}}},
    {"PausaMeta", "_PausaMeta_", None, kMain, {{183, 400, 0, 50}}},
    {"Pausa4", "_Pausa4_", None, kMain, {{206, 400, 0, 20}}},
    {"Pausa8", "_Pausa8_", None, kMain, {{228, 400, 0, -40}}},
    {"Pausa16", "_Pausa16_", None, kMain, {{197, 400, 0, 60}}},
    {"Pausa32", "_Pausa32_", None, kMain, {{168, 400, 0, 60}}},
    {"Pausa64", "_Pausa64_", None, kMain, {{244, 400, 0, 160}}},
    {"Pausa128", "_Pausa128_", None, kMain, {{229, 400, 0, 250}}},
    // Dots and connections.
    {"Punto", "", None, kMain, {{46}}},
    {"Brace", "", None, kMain, {{167, 100, 0, -300}, {234, 100, 0, -100}}},
    {"Bracket", "", None, kMain, {{194, 100, 0, -400}, {76, 100}}},
    // Signs of a note.
    {"MordenteSup", "_MordenteSup_", Articulation, kMain, {{109}}},
    {"MordenteInf", "_MordenteInf_", Articulation, kMain, {{77}}},
    {"MordenteDoppioSup", "_MordenteDoppioSup_", Articulation, kMain, {{181}}},
    {"MordenteDoppioInf", "_MordenteDoppioInf_", Articulation, kMain, {{181}, {91, 100, 200}}},
    {"gruppettoSup", "_GruppettoSup_", Articulation, kMain, {{84}}},
    {"gruppettoInf", "_GruppettoInf_", Articulation, kMain, {{86}}},
    {"TremoloUno", "_TremoloUno_", Articulation, kMain, {{230}}},
    {"TremoloDue", "_TremoloDue_", Articulation, kMain, {{231}}},
    {"TremoloTre", "_TremoloTre_", Articulation, kMain, {{190}}},
    {"TremoloQuattro", "_TremoloQuattro_", Articulation, kMain, {{191}}},
    {"arcoGiu", "_ArcoGiu_", Articulation, kMain, {{179}}},
    {"arcoSu", "_ArcoSu_", Articulation, kMain, {{178}}},
    {"suonoAperto", "_SuonoAperto_", Articulation, kMain, {{111}}},
    {"suonoChiuso", "_SuonoChiuso_", Articulation, kMain, {{43}}},
    {"armonico", "_Armonico_", Articulation, kMain, {{79}}},
    {"circonflesso", "_Circonflesso_", Articulation, kMain, {{94}}},
    {"respiro", "_Respiro_", Articulation, kMain, {{44}}},
    {"pizzicato", "_Pizzicato_", Articulation, kSecond, {{182}}},
    {"bartokSup", "_BartokSup_", Articulation, kMain, {{249}}},
    {"bartokInf", "_BartokInf_", Articulation, kMain, {{254}}},
    {"accento", "_Accento_", Articulation, kMain, {{62}}},
    {"doppioaccento", "_DoppioAccento_", Articulation, kMain, {{62}, {62, 400, 100}}},
    {"portato", "_Portato_", Articulation, kMain, {{45}}},
    {"staccato", "_Staccato_", Articulation, kMain, {{46}}},
    {"scampanatosu", "_ScampanatoSu_", Articulation, kMain, {{94}}},
    {"scampanatogiu", "_ScampanatoGiu_", Articulation, kMain, {{118}}},
    {"scampanatopiccolosu", "_ScampanatoPiccoloSu_", Articulation, kMain, {{94, 300}}},
    {"scampanatopiccologiu", "_ScampanatoPiccoloGiu_", Articulation, kMain, {{118, 300}}},
    {"accentoportato", "_AccentoPortato_", Articulation, kMain, {{62, 400, 0, -50}, {45}}},
    {"portatoaccentato", "_PortatoAccentato_", Articulation, kMain, {{62}, {45, 400, 0, -150}}},
    {"accentostaccato", "_AccentoStaccato_", Articulation, kMain, {{62, 400, 0, -50}, {46, 400, 50}}},
    {"staccatoaccentato", "_StaccatoAccentato_", Articulation, kMain, {{62}, {46, 400, 50, -150}}},
    {"portatostaccato", "_PortatoStaccato_", Articulation, kMain, {{45, 400, 0, -50}, {46, 400, 50}}},
    {"staccatoportato", "_StaccatoPortato_", Articulation, kMain, {{45}, {46, 400, 50, -50}}},
    {"lungasup", "_LungaSuperiore_", Articulation, kSecond, {{85}}},
    {"lungainf", "_LungaInferiore_", Articulation, kSecond, {{86}}},
    {"mediasup", "_MediaSuperiore_", Articulation, kSecond, {{87}}},
    {"mediainf", "_MediaInferiore_", Articulation, kSecond, {{88}}},
    {"brevesup", "_BreveSuperiore_", Articulation, kMain, {{85}}},
    {"breveinf", "_BreveInferiore_", Articulation, kMain, {{117}}},
    // Fingerings.
    {"zero", "_Zero_", Digit, kMain, {{48, 200}}},
    {"uno", "_Uno_", Digit, kMain, {{49, 200}}},
    {"due", "_Due_", Digit, kMain, {{50, 200}}},
    {"tre", "_Tre_", Digit, kMain, {{51, 200}}},
    {"quattro", "_Quattro_", Digit, kMain, {{52, 200}}},
    {"cinque", "_Cinque_", Digit, kMain, {{53, 200}}},
    {"sei", "_Sei_", Digit, kMain, {{54, 200}}},
    {"sette", "_Sette_", Digit, kMain, {{55, 200}}},
    {"otto", "_Otto_", Digit, kMain, {{56, 200}}},
    {"nove", "_Nove_", Digit, kMain, {{57, 200}}},
    // Signs of a staff.
    {"_8vaSu_", "", None, kMain, {{195, 500}}},
    {"_8vaGiu_", "", None, kMain, {{195, 500}}},
    {"_15maSu_", "", None, kMain, {{36, 500}}},
    {"_15maGiu_", "", None, kMain, {{36, 500}}},
    {"_Trillo_", "", None, kMain, {{96, 450}}},
    {"_TrilloBracket_", "", None, kMain, {{126, 380}}},
    {"_Arpeggio_", "", None, kMain, {{103, 450}}},
    {"_Pedale_", "", None, kMain, {{161, 450}}},
    {"_FinePedale_", "", None, kMain, {{42, 450}}},
    {"_SimboloCoda_", "", None, kMain, {{222, 450}}},
    {"_Tilde_", "", None, kMain, {{126, 450}}},
    {"_Ripetizione1_", "", None, kMain, {{212, 450}}},
    {"_Ripetizione2_", "", None, kMain, {{237, 450}}},
    {"_FreccaSu_", "", None, kSecond, {{104, 450}}},
    {"_FrecciaGiu_", "", None, kSecond, {{108, 450}}},
    {"_FrecciaDestra_", "", None, kSecond, {{106, 450}}},
    {"_FrecciaSinistra_", "", None, kSecond, {{102, 450}}},
    {"_SmorzaCorde_", "", None, kMain, {{65, 450}}},
    {"_Glissando_", "", None, kSecond, {{183, 450}}},
    {"_Mazza1_", "", None, kSecond, {{38, 600}}},
    {"_Mazza2_", "", None, kSecond, {{39, 600}}},
    {"_Mazza3_", "", None, kSecond, {{40, 600}}},
    {"_Mazza4_", "", None, kSecond, {{33, 600}}},
    {"_NotaTrillo1_", "", None, kSecond, {{34, 450}}},
    {"_NotaTrillo2_", "", None, kSecond, {{35, 450}}},
    {"_NotaTrillo3_", "", None, kSecond, {{36, 450}}},
};
// clang-format on

// The one grace form that is no scaled plain form.
constexpr std::string_view kOddRow = "MordenteDoppioInf";
constexpr GlyphPart kOddParts[] = {{181, 300}, {77, 300, 350}};

struct Alias {
    const char* descriptor;
    const char* name;
};
constexpr Alias kAliases[] = {
    {"_ChiaveDoCont1_", "ChiaveDoCont"}, {"_Ottavo_", "Quarto"},
    {"_Sedicesimo_", "Quarto"},          {"_Trentaduesimo_", "Quarto"},
    {"_Sessantaquattresimo_", "Quarto"}, {"_Centoventottesimo_", "Quarto"},
};

constexpr AccidentalGlyph kAccidentals[] = {
    {'A', "Bequadro", 110, false},   {'b', "Bemolle", 98, false},    {'B', "DBemolle", 186, false},
    {'d', "Diesis", 35, false},      {'D', "DDiesis", 220, false},   {'m', "Monesis", 'm', true},
    {'M', "MonoBemolle", 'M', true}, {'s', "BequadroSu", 's', true}, {'S', "BequadroGiu", 'S', true},
    {'t', "Triesis", 't', true},     {'T', "TriBemolle", 'T', true},
};

const Row* FindRow(std::string_view name) {
    for (const Row& row : kRows)
        if (name == row.name) return &row;
    return nullptr;
}

bool TakePrefix(std::string_view& text, std::string_view prefix) {
    if (!text.starts_with(prefix)) return false;
    text.remove_prefix(prefix.size());
    return true;
}

bool TakeSuffix(std::string_view& text, std::string_view suffix) {
    if (!text.ends_with(suffix)) return false;
    text.remove_suffix(suffix.size());
    return true;
}

GlyphPart Graced(const GlyphPart& part, const GraceScale& scale) {
    GlyphPart graced = part;
    graced.size = Round(part.size * scale.size);
    graced.dx = Round(part.dx * scale.offset);
    graced.dy = Round(part.dy * scale.offset);
    return graced;
}

std::vector<GlyphPart> PlainGlyphs(const Row& row) {
    std::vector<GlyphPart> glyphs;
    for (const GlyphPart& part : row.parts)
        if (part.code) glyphs.push_back(part), glyphs.back().second = row.font == kSecond;
    return glyphs;
}

std::vector<GlyphPart> GraceGlyphs(const Row& row) {
    if (row.graceForm == None) return {};
    if (row.name == kOddRow) return {std::begin(kOddParts), std::end(kOddParts)};
    std::vector<GlyphPart> glyphs = PlainGlyphs(row);
    for (GlyphPart& glyph : glyphs) glyph = Graced(glyph, kGraceScales[row.graceForm]);
    return glyphs;
}

// The name of an accidental's symbol for "_Diesis_", "_Diesis_(", "Diesis", "DiesisP", "GraceDiesis" and
// their kin; empty for anything else.
std::string AccidentalName(std::string_view name) {
    bool grace = false, bracketed = false;
    if (TakePrefix(name, "_")) {
        bracketed = TakeSuffix(name, "(");
        if (!TakeSuffix(name, "_")) return {};
    } else {
        grace = TakePrefix(name, "Grace");
        bracketed = TakeSuffix(name, "P");
    }
    for (const AccidentalGlyph& accidental : kAccidentals) {
        if (name != accidental.longName) continue;
        std::string symbol = grace ? "#G" : "#";
        symbol += accidental.letter;
        return bracketed ? symbol + "(" : symbol;
    }
    return {};
}

}  // namespace

std::vector<GlyphPart> GlyphsOf(std::string_view name) {
    if (const Row* row = FindRow(name)) return PlainGlyphs(*row);
    if (TakePrefix(name, "Grace") || TakePrefix(name, "grace"))
        if (const Row* row = FindRow(name)) return GraceGlyphs(*row);
    return {};
}

std::string CanonicalSymbolName(std::string_view name) {
    if (name.starts_with('_')) {
        for (const Row& row : kRows)
            if (name == row.descriptor) return row.name;
        for (const Alias& alias : kAliases)
            if (name == alias.descriptor) return alias.name;
    }
    const std::string accidental = AccidentalName(name);
    return accidental.empty() ? std::string(name) : accidental;
}

std::span<const AccidentalGlyph> AccidentalGlyphs() { return kAccidentals; }

std::vector<std::string> FixedSymbolNames() {
    std::vector<std::string> names;
    for (const Row& row : kRows) names.emplace_back(row.name);
    return names;
}

std::vector<std::string> PaletteDescriptors() {
    std::vector<std::string> descriptors;
    for (const Row& row : kRows)
        if (*row.descriptor) descriptors.emplace_back(row.descriptor);
    for (const Alias& alias : kAliases) descriptors.emplace_back(alias.descriptor);
    for (const AccidentalGlyph& accidental : kAccidentals)
        descriptors.push_back("_" + std::string(accidental.longName) + "_");
    return descriptors;
}

}  // namespace corvane
