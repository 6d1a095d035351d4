// Fonts by number: a name is looked up once and then carried as a small number that lives as long as the
// program.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace corvane {

// 0 is no font; 1 and up are names in the order of their first use. Never stored in a file.
using FontId = int32_t;

// Style bits of a font.
enum : uint8_t { kPlainStyle = 0, kBoldStyle = 1, kItalicStyle = 2 };

// The two music fonts. Their glyph of code c is the character U+F000 + c.
inline constexpr std::string_view kMusicFont = "Marcelane";
inline constexpr std::string_view kSecondMusicFont = "Bellarine";
inline constexpr char32_t kGlyphBase = 0xF000;
bool IsMusicFont(std::string_view name);

// The number of a family name; the same name gives the same number. Only its first 255 bytes count. Main
// thread only.
FontId FontNumber(std::string_view name);

// The name of a number that FontNumber gave; the reference stays valid.
const std::string& FontName(FontId font);

}  // namespace corvane
