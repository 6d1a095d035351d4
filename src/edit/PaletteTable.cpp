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
