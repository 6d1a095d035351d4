#include "layout/SymbolInk.h"

#include "base/Rounding.h"
#include "model/Relations.h"
#include "model/SymbolTable.h"

namespace corvane {

Rect InkOf(const FontSymbol* symbol, Point at, int32_t lineDistance, int32_t percent, char side) {
    if (const auto* composite = As<CompositeSymbol>(symbol)) {
        Rect all;
        for (const FontSymbol* part : compositeParts.Of(composite))
            all = Union(all, InkOf(part, at, lineDistance, percent, side));
        return all;
    }
    const auto* simple = As<SimpleFont>(symbol);
    if (!simple) return {};
    const Rect ink = SymbolRect(simple, lineDistance, percent);
    const int32_t x = at.x + Round(simple->_dx * 0.01 * percent) * lineDistance / 100;
    return ink.MovedBy(side == 'r' ? x + 1 - ink.right : x - ink.left, at.y);
}

}  // namespace corvane
