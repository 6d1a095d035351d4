#include "model/SymbolTable.h"

#include <cstring>

#include "model/Relations.h"
#include "model/SymbolMaker.h"

namespace corvane {
namespace {

// Whether a stored text is `name`, without a look at more of it than differs.
bool Equals(const TextBlock& stored, std::string_view name) {
    const char* text = stored;
    if (!text) return name.empty();
    return std::strncmp(text, name.data(), name.size()) == 0 && text[name.size()] == '\0';
}

FontSymbol* FindSymbol(const Document* document, std::string_view name) {
    for (FontSymbol* symbol : documentFontSymbols.Of(document))
        if (Equals(symbol->_name, name)) return symbol;
    return nullptr;
}

void Destroy(FontSymbol* symbol) {
    if (auto* composite = As<CompositeSymbol>(symbol)) {
        while (FontSymbol* part = compositeParts.First(composite)) {
            compositeParts.Remove(composite, part);
            Destroy(part);
        }
        ReleaseText(composite->_name);
        Release(composite);
        return;
    }
    auto* font = As<SimpleFont>(symbol);
    CORVANE_ASSERT(font);
    ReleaseText(font->_name);
    ReleaseText(font->_fontName);
    Release(font);
}

FontSymbol* Clone(const FontSymbol* symbol) {
    if (const auto* composite = As<CompositeSymbol>(symbol)) {
        auto* copy = Make<CompositeSymbol>();
        copy->_name = MakeText(TextOf(composite->_name));
        for (const FontSymbol* part : compositeParts.Of(composite)) compositeParts.Add(copy, Clone(part));
        return copy;
    }
    const auto* font = As<SimpleFont>(symbol);
    CORVANE_ASSERT(font);
    auto* copy = Make<SimpleFont>();
    copy->_name = MakeText(TextOf(font->_name));
    copy->_fontName = MakeText(TextOf(font->_fontName));
    copy->_dirty = font->_dirty;
    for (int i = 0; i < 4; ++i) copy->_metrics[i] = font->_metrics[i];
    copy->_fontSize = font->_fontSize;
    copy->_style = font->_style;
    copy->_dx = font->_dx;
    copy->_dy = font->_dy;
    copy->_code = font->_code;
    return copy;
}

}  // namespace

FontSymbol* LookupSymbol(Document* document, std::string_view name) {
    name = name.substr(0, name.find('\0'));
    if (FontSymbol* symbol = FindSymbol(document, name)) return ShareSymbol(symbol);
    const std::string canonical = CanonicalSymbolName(name);
    if (canonical != name)
        if (FontSymbol* symbol = FindSymbol(document, canonical)) return ShareSymbol(symbol);
    FontSymbol* symbol = MakeSymbol(document, canonical);
    documentFontSymbols.Add(document, symbol);
    return ShareSymbol(symbol);
}

void ReleaseSymbol(Document* document, FontSymbol* symbol) {
    CORVANE_ASSERT(symbol);
    if (symbol->_useCount == kCountlessUses) return;
    symbol->_useCount -= 1;
    if (symbol->_useCount > 0) return;
    documentFontSymbols.Remove(document, symbol);
    Destroy(symbol);
}

void ChangeSymbol(Document* document, Ptr<FontSymbol>& field, std::string_view name) {
    FontSymbol* old = field;
    field = LookupSymbol(document, name);
    if (old) ReleaseSymbol(document, old);
}

void DropSymbol(Document* document, Ptr<FontSymbol>& field) {
    FontSymbol* symbol = field;
    field = nullptr;
    if (symbol) ReleaseSymbol(document, symbol);
}

FontSymbol* CopySymbol(Document* target, const FontSymbol* symbol) {
    CORVANE_ASSERT(symbol);
    FontSymbol* copy = FindSymbol(target, TextOf(symbol->_name));
    if (!copy) {
        copy = Clone(symbol);
        documentFontSymbols.Add(target, copy);
    }
    return ShareSymbol(copy);
}

std::string_view SymbolName(const FontSymbol* symbol) {
    return symbol ? TextOf(symbol->_name) : std::string_view();
}

bool NameHolds(const FontSymbol* symbol, std::string_view text) {
    return symbol && SymbolName(symbol).find(text) != std::string_view::npos;
}

TarnFont* LookupFont(Document* document, std::string_view name, int32_t size, uint8_t style) {
    for (TarnFont* font : documentFonts.Of(document)) {
        if (font->_size != size || font->_style != style || !Equals(font->_name, name)) continue;
        font->_useCount += 1;
        return font;
    }
    auto* font = Make<TarnFont>();
    font->_name = MakeText(name);
    font->_size = size;
    font->_style = style;
    font->_useCount = 1;
    documentFonts.Add(document, font);
    return font;
}

void ReleaseFont(Document* document, TarnFont* font) {
    CORVANE_ASSERT(document && font);
    font->_useCount -= 1;
    if (font->_useCount > 0) return;
    documentFonts.Remove(font);
    ReleaseText(font->_name);
    Release(font);
}

}  // namespace corvane
