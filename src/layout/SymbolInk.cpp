#include "layout/SymbolInk.h"

#include "base/Rounding.h"
#include "model/SymbolTable.h"

namespace corvane {
namespace {

// The symbol's own offset to the right, as it is added before its character is drawn.
int32_t OffsetX(const FontSymbol* symbol, int32_t lineDistance, int32_t percent) {
    const auto* simple = As<SimpleFont>(symbol);
    return simple ? Truncate(Round(simple->_dx * percent * 0.01) * lineDistance * 0.01) : 0;
}

}  // namespace

Rect InkOf(const FontSymbol* symbol, Point at, int32_t lineDistance, int32_t percent, char side) {
    if (!symbol) return {at.x, at.y, at.x, at.y};
    const Rect ink = SymbolRect(symbol, lineDistance, percent);
    const int32_t x = at.x + OffsetX(symbol, lineDistance, percent);
    // The characters of a composite are set one by one; their ink begins where they are measured.
    if (side == 'r') return ink.MovedBy(x + 1 - ink.right, at.y);
    return ink.MovedBy(As<SimpleFont>(symbol) ? x - ink.left : x, at.y);
}

}  // namespace corvane
