// What the descriptors of the note palette enter.
#include "base/Assert.h"
#include "edit/Insertion.h"

namespace corvane {
namespace {

constexpr struct {
    const char* descriptor;
    const char* head;
    uint8_t value;
} kNotes[] = {
    {"_DoppioIntero_", "DoppioIntero", kDoubleWhole}, {"_Intero_", "Intero", 1},
    {"_Meta_", "Meta", 2},                            {"_Quarto_", "Quarto", 4},
    {"_Ottavo_", "Quarto", 8},                        {"_Sedicesimo_", "Quarto", 16},
    {"_Trentaduesimo_", "Quarto", 32},                {"_Sessantaquattresimo_", "Quarto", 64},
    {"_Centoventottesimo_", "Quarto", 128},
};

constexpr struct {
    const char* descriptor;
    RestKind kind;
} kRests[] = {
    {"_PausaDoppioIntero_", {kDoubleWhole, "PausaDoppioIntero"}},
    {"_PausaIntero_", {1, "PausaIntero"}},
    {"_PausaMeta_", {2, "PausaMeta"}},
    {"_Pausa4_", {4, "Pausa4"}},
    {"_Pausa8_", {8, "Pausa8"}},
    {"_Pausa16_", {16, "Pausa16"}},
    {"_Pausa32_", {32, "Pausa32"}},
    {"_Pausa64_", {64, "Pausa64"}},
    {"_Pausa128_", {128, "Pausa128"}},
};

}  // namespace

NoteKind NoteKindOf(std::string_view descriptor) {
    const bool grace = descriptor.find("_Grace_") != std::string_view::npos;
    for (const auto& note : kNotes)
        if (descriptor.find(note.descriptor) != std::string_view::npos)
            return {note.value, std::string(grace ? "Grace" : "") + note.head, grace};
    CORVANE_ASSERT_AS(false, "headName");
    return {};
}

RestKind RestKindOf(std::string_view descriptor) {
    for (const auto& rest : kRests)
        if (descriptor.find(rest.descriptor) != std::string_view::npos) return rest.kind;
    CORVANE_ASSERT_AS(false, "pause");
    return {};
}

RestKind RestKindOf(uint8_t value) {
    for (const auto& rest : kRests)
        if (rest.kind.value == value) return rest.kind;
    CORVANE_ASSERT_AS(false, "pause");
    return {};
}

}  // namespace corvane
