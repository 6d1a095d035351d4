// Syllables with the hyphens and lines behind them.
#include "layout/DrawFamilies.h"
#include "layout/Lyrics.h"

namespace corvane {
namespace {

constexpr std::string_view kHyphen = "-";

Rect InkOfSyllable(const Liriche& syllable, const LyricPicture& picture) {
    const std::string_view text = TextOf(syllable._text.Get());
    return text.empty() ? Rect{} : InkOfText(text, LookOf(syllable._text.Get()), picture.text);
}

}  // namespace

Rect InkOf(const Liriche& syllable) {
    const LyricPicture picture = PictureOf(&syllable);
    const TextLook look = LookOf(syllable._text.Get());
    Rect ink = InkOfSyllable(syllable, picture);
    for (const Point hyphen : picture.hyphens) ink = Union(ink, InkOfText(kHyphen, look, {hyphen}));
    for (const auto& line : {picture.extender, picture.lead})
        if (line) ink = Union(ink, *line);
    return ink;
}

// A press on a hyphen is meant for nothing.
bool Touches(const Liriche& syllable, Point p) {
    return InkOfSyllable(syllable, PictureOf(&syllable)).EnclosesStrictly(p);
}

void Paint(GraphicPort& port, const Liriche& syllable, const DrawContext&) {
    const LyricPicture picture = PictureOf(&syllable);
    const TextLook look = LookOf(syllable._text.Get());
    PaintText(port, TextOf(syllable._text.Get()), look, picture.text);
    for (const Point hyphen : picture.hyphens) PaintText(port, kHyphen, look, {hyphen});
    for (const auto& line : {picture.extender, picture.lead})
        if (line) port.FillRect(*line);
}

}  // namespace corvane
