// The document's symbols and fonts: made on first use, counted, found by name. A symbol is measured when it is made,
// so that neither layout nor painting ever writes one. Names are bytes, not UTF-8: flag names hold the single byte 161.
#pragma once

#include <string_view>

#include "base/Geometry.h"
#include "model/FontRecords.h"
#include "model/HierarchyRecords.h"

namespace corvane {

class GraphicPort;

// The symbol of that name, made if the document has none; its use count is one higher. Never null: an unknown name
// makes a custom symbol.
FontSymbol* LookupSymbol(Document* document, std::string_view name);
// One use less; at zero the symbol leaves the document and is released.
void ReleaseSymbol(Document* document, FontSymbol* symbol);
// Exchanges the symbol of a field: takes the new one, releases the old one (which may be null).
void ChangeSymbol(Document* document, Ptr<FontSymbol>& field, std::string_view name);
// Releases the symbol of a field, which becomes null.
void DropSymbol(Document* document, Ptr<FontSymbol>& field);
// The same symbol in another document, whose pool must be the current one; use count one higher.
FontSymbol* CopySymbol(Document* target, const FontSymbol* symbol);

std::string_view SymbolName(const FontSymbol* symbol);
// Whether the name holds the text; false for null.
bool NameHolds(const FontSymbol* symbol, std::string_view text);

// A font of the document, made if there is none with that name, size and style; its use count is one higher.
TarnFont* LookupFont(Document* document, std::string_view name, int32_t size, uint8_t style);
void ReleaseFont(Document* document, TarnFont* font);

// Draws at line distance L and percent P with the side letter 'l' or 'r'; a composite draws its parts in order.
void DrawSymbol(GraphicPort& port, const FontSymbol* symbol, int32_t x, int32_t y, int32_t lineDistance,
                int32_t percent, char side = 'l');
// The rectangle of the ink around the origin (0, 0), from the stored metrics; empty for an empty composite.
Rect SymbolRect(const FontSymbol* symbol, int32_t lineDistance, int32_t percent);
inline int32_t SymbolWidth(const FontSymbol* symbol, int32_t lineDistance, int32_t percent) {
    return SymbolRect(symbol, lineDistance, percent).Width();
}

// Measures the symbols that were made or loaded without glyph measures; true if there was any. Its writes mark the pool
// modified.
bool MeasureDirtySymbols(Document* document);

// The count has 16 bits: at this many uses it stays where it is, and the symbol stays with the document.
inline constexpr int16_t kCountlessUses = 32767;
inline void CountUse(FontSymbol* symbol) {
    if (symbol->_useCount != kCountlessUses) symbol->_useCount += 1;
}
// A second use of a symbol that is at hand.
inline FontSymbol* ShareSymbol(FontSymbol* symbol) {
    CountUse(symbol);
    return symbol;
}

}  // namespace corvane
