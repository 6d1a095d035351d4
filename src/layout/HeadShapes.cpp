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

}  // namespace

const HeadShape& ShapeOf(const GenericNote* note) {
    const FontSymbol* symbol = note->_symbol;
    const HeadShape* shape = kShapes;
    while (*shape->name && !NameHolds(symbol, shape->name)) ++shape;
    return *shape;
}

}  // namespace corvane
