#include "model/Texts.h"

#include <cstring>

#include "model/SymbolTable.h"

namespace corvane {
namespace {

constexpr std::string_view kNoName = "Untitled";

bool Continues(char byte) { return (static_cast<uint8_t>(byte) & 0xC0) == 0x80; }

}  // namespace

TextLook LookOf(const TarnFont* font) {
    if (!font) return {};
    return {std::string(TextOf(font->_name)), font->_size, font->_style};
}

TextLook LookOf(const GenericText* text) { return LookOf(text ? text->_font.Get() : nullptr); }

std::string_view CutText(std::string_view text, size_t mostBytes) {
    if (text.size() <= mostBytes) return text;
    size_t end = mostBytes;
    while (end > 0 && Continues(text[end])) --end;
    return text.substr(0, end);
}

GenericText* MakeGenericText(Document* document, std::string_view text, const TextLook& look) {
    auto* made = Make<GenericText>();
    ChangeGenericText(document, made, text, look);
    return made;
}

void ChangeGenericText(Document* document, GenericText* field, std::string_view text, const TextLook& look) {
    if (!field->_text.Get() || TextOf(field->_text) != text) SetText(field->_text, text);
    TarnFont* old = field->_font;
    if (old && LookOf(old) == look) return;
    field->_font = LookupFont(document, look.font, look.size, look.style);
    if (old) ReleaseFont(document, old);
}

std::string_view TextOf(const GenericText* text) { return text ? TextOf(text->_text) : std::string_view(); }

std::string_view TitleOf(const Document* document) {
    return {document->_text, strnlen(document->_text, sizeof document->_text)};
}

void SetTitle(Document* document, std::string_view title) {
    title = CutText(title, kMostTitleBytes);
    Touch(document->_text, sizeof document->_text);
    std::memset(document->_text, 0, sizeof document->_text);
    std::memcpy(document->_text, title.data(), title.size());
}

std::string_view LongName(std::string_view name) { return name.substr(0, name.find('\n')); }

std::string_view ShortName(std::string_view name) {
    const size_t end = name.find('\n');
    return end == std::string_view::npos ? name : name.substr(end + 1);
}

std::string_view NameOf(const AllStaff* staff) {
    const std::string_view name = staff ? TextOf(staff->_name) : std::string_view();
    return name == kNoName ? std::string_view() : name;
}

}  // namespace corvane
