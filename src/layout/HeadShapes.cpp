#include "layout/HeadShapes.h"

#include "model/SymbolTable.h"

namespace corvane {
namespace {

// An oval's ink is widest a little above the middle at its right end, below it at its left end: a stem that
// began in the middle would show a corner outside the ink.
constexpr HeadShape kShapes[] = {
    {"DoppioIntero", -1, -1, -1, false, 0},
    {"Intero", -1, -1, -1, false, 0},
    {"Meta", -1, -1, -1, false, 17},
    {"Quarto", -1, -1, -1, false, 17},
    {"Croce", 0, 0, -2, true, 0},
    {"Linea", 0, 0, -2, true, 0},
    {"LosangaVuota", 0, -1, -1, true, 0},
    {"LosangaPiena", 0, -1, -1, true, 0},
    {"", -2, -1, -1, false, 0},
};

constexpr int kLastOval = 3;

}  // namespace

const HeadShape& ShapeOf(const GenericNote* note) {
    const FontSymbol* symbol = note->_symbol;
    const HeadShape* shape = kShapes;
    while (*shape->name && !NameHolds(symbol, shape->name)) ++shape;
    return *shape;
}

bool ShowsValue(const GenericNote* note) { return &ShapeOf(note) <= &kShapes[kLastOval]; }

std::string HeadNameOf(uint8_t value, bool grace) {
    const int oval = value == kDoubleWhole ? 0 : value == 1 ? 1 : value == 2 ? 2 : kLastOval;
    return std::string(grace ? "Grace" : "") + kShapes[oval].name;
}

}  // namespace corvane
