// Texts that a record owns, each with its font.
#pragma once

#include <string>
#include <string_view>

#include "model/FontRecords.h"
#include "model/HierarchyRecords.h"

namespace corvane {

// How a text looks: size is the em in page units, style the sum of style bits.
struct TextLook {
    std::string font = "Times New Roman";
    int32_t size = 189;
    uint8_t style = 0;
    friend bool operator==(const TextLook&, const TextLook&) = default;
};
// Of a font of the document; null gives the usual one.
TextLook LookOf(const TarnFont* font);
TextLook LookOf(const GenericText* text);

// Most bytes of the kinds of text, without an ending zero.
inline constexpr size_t kMostTextBytes = 1000, kMostSyllableBytes = 255, kMostNameBytes = 127,
                        kMostTitleBytes = 119;

// The longest beginning of a UTF-8 text that has at most so many bytes and ends between two characters.
std::string_view CutText(std::string_view text, size_t mostBytes);

// A new text in the current pool, one use of its font counted. DropRecord gives both back with its owner.
GenericText* MakeGenericText(Document* document, std::string_view text, const TextLook& look);
void ChangeGenericText(Document* document, GenericText* field, std::string_view text, const TextLook& look);

std::string_view TextOf(const GenericText* text);  // empty for null

// The title of a score, at most kMostTitleBytes.
std::string_view TitleOf(const Document* document);
void SetTitle(Document* document, std::string_view title);

// A name has a long and, behind a line end, a short form, which is the long one where there is none.
std::string_view LongName(std::string_view name);
std::string_view ShortName(std::string_view name);
// Empty where a staff has no name or still the one that new staves have.
std::string_view NameOf(const AllStaff* staff);

}  // namespace corvane
