#include "model/FontTable.h"

#include <algorithm>

#include "model/Relations.h"

namespace corvane {
namespace {

FontList theList;

auto PlaceOf(auto& pairs, std::string_view docFont) {
    return std::lower_bound(
        pairs.begin(), pairs.end(), docFont,
        [](const FontList::Pair& pair, std::string_view name) { return pair.docFont.compare(name) < 0; });
}

void AddFontsOf(const FontSymbol* symbol, FontList& list) {
    if (const auto* font = As<SimpleFont>(symbol)) {
        const std::string_view name = TextOf(font->_fontName);
        if (!name.empty()) list.Set(name, name);
    } else if (const auto* composite = As<CompositeSymbol>(symbol)) {
        for (const FontSymbol* part : compositeParts.Of(composite)) AddFontsOf(part, list);
    }
}

}  // namespace

void FontList::Set(std::string_view docFont, std::string_view sysFont) {
    CORVANE_ASSERT_AS(!docFont.empty() && !sysFont.empty(), "fontDoc && fontSys");
    const auto place = PlaceOf(_pairs, docFont);
    if (place != _pairs.end() && place->docFont == docFont)
        place->sysFont = sysFont;
    else
        _pairs.insert(place, Pair{std::string(docFont), std::string(sysFont)});
}

void FontList::Remove(std::string_view docFont) {
    const auto place = PlaceOf(_pairs, docFont);
    if (place != _pairs.end() && place->docFont == docFont) _pairs.erase(place);
}

std::string_view FontList::SystemFont(std::string_view docFont) const {
    const auto place = PlaceOf(_pairs, docFont);
    return place != _pairs.end() && place->docFont == docFont ? std::string_view(place->sysFont) : docFont;
}

std::vector<std::string> FontList::ToNames() const {
    std::vector<std::string> names;
    for (const Pair& pair : _pairs) names.insert(names.end(), {pair.docFont, pair.sysFont});
    return names;
}

FontList FontList::FromNames(const std::vector<std::string>& names) {
    FontList list;
    for (size_t i = 0; i + 1 < names.size(); i += 2)
        if (!names[i].empty() && !names[i + 1].empty()) list.Set(names[i], names[i + 1]);
    return list;
}

FontList FontsOf(const Document* document) {
    FontList list;
    for (const TarnFont* font : documentFonts.Of(document)) {
        const std::string_view name = TextOf(font->_name);
        if (!name.empty()) list.Set(name, name);
    }
    for (const FontSymbol* symbol : documentFontSymbols.Of(document)) AddFontsOf(symbol, list);
    return list;
}

const FontList& TheFontList() { return theList; }
void UseFontList(FontList list) { theList = std::move(list); }
FontId DrawnFont(std::string_view docFont) { return FontNumber(theList.SystemFont(docFont)); }

}  // namespace corvane
