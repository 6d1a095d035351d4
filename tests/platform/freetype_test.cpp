// Measures from the installed font files.
#include <gtest/gtest.h>

#include <set>

#include "graphics/MemoryPort.h"
#include "platform/freetype/FreeTypeMeasures.h"
#include "platform/freetype/TextLayout.h"

namespace corvane {
namespace {

TEST(FontFiles, MusicFontsLieBesideTheProgramAndTextFontsInTheSystem) {
    EXPECT_EQ(MissingMusicFont(), "");
    EXPECT_EQ(FontFileOf("Marcelane", kPlainStyle).path, MusicFontFolder() + "/Marcelane.ttf");
    EXPECT_TRUE(FontFileOf("Bellarine", kItalicStyle).slanted) << "it has no italic of its own";
    std::set<FontFile> files;
    for (uint8_t style : {kPlainStyle, kBoldStyle, kItalicStyle})
        files.insert(FontFileOf("Times New Roman", style));
    EXPECT_EQ(files.size(), 3u);
    EXPECT_FALSE(FontFileOf("Times New Roman", kItalicStyle).slanted) << "it has one";
    EXPECT_NE(FontFileOf("No Such Family", kPlainStyle).path, "") << "the system offers its nearest";
}

TEST(FreeType, MeasuresMusicGlyphsFromTheirOutlines) {
    InstallFreeTypeMeasures();
    MemoryPort port;
    port.SetFontName("Marcelane");
    port.SetFontSize(400);  // four line distances of 100
    const Rect head = port.CharRect(207);
    EXPECT_NEAR(head.Height(), 100, 2) << "a black head fills a space";
    EXPECT_NEAR(head.top + head.bottom, 0, 2) << "and is centred on the baseline";
    EXPECT_NEAR(head.Width(), 118, 2);
    EXPECT_NEAR(port.CharRect(183).top, -100, 5) << "a whole rest hangs from the line above";
    EXPECT_NEAR(port.CharRect(183).bottom, -50, 5);
    port.SetFontSize(4000);
    EXPECT_NEAR(port.CharRect(207).Width(), 10 * head.Width(), 10) << "sizes scale without hinting";
    const Rect upright = port.CharRect(103);
    port.SetFontStyle(kItalicStyle);
    const Rect slanted = port.CharRect(103);
    EXPECT_EQ(slanted.top, upright.top);
    EXPECT_GT(slanted.right, upright.right + 100) << "what stands on the baseline leans over";
    EXPECT_TRUE(port.CharRect(1).IsEmpty()) << "a code that the font lacks has no ink";
}

TEST(FreeType, TextIsReadAsUtf8AndLaidOnce) {
    InstallFreeTypeMeasures();
    MemoryPort port;
    port.SetFontName("Times New Roman");
    port.SetFontSize(1000);
    EXPECT_EQ(port.StringWidth(""), 0);
    EXPECT_GT(port.StringRect("").Height(), 900) << "an empty line has the height of the font";
    EXPECT_EQ(port.StringWidth("più"), port.StringWidth("pi\xf9")) << "stray bytes are Latin-1";
    EXPECT_EQ(port.StringWidth("a\tb\n"), port.StringWidth("ab"));
    EXPECT_LT(port.StringWidth("AV"), port.CharAdvance('A') + port.CharAdvance('V')) << "pairs are kerned";
    port.SetFontName("Courier New");
    EXPECT_EQ(port.StringWidth("illi"), port.StringWidth("WMWM"));
    for (std::string_view text : {"\xc3", "\xe2\x82", "\xf0\x9f\x8e", "\xff\xfe", "\xc0\x80", "\xed\xf4"})
        EXPECT_EQ(LayText(port.Font(), 0, text).glyphs.size(), text.size())
            << "a cut sequence is read byte by byte";
}

TEST(FreeType, ACharacterThatAFontLacksComesFromAnother) {
    const FontId font = FontNumber("Marcelane");
    const TextLayout layout = LayText(font, kPlainStyle, "A");
    ASSERT_EQ(layout.glyphs.size(), 1u);
    EXPECT_NE(layout.glyphs[0].face, &FaceOf(font, kPlainStyle));
    EXPECT_NE(layout.glyphs[0].glyph, 0u);
    EXPECT_GT(layout.width, 0.3);
}

}  // namespace
}  // namespace corvane
