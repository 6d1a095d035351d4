// The title of a score, over the first system of its first page.
#include <algorithm>

#include "layout/DrawFamilies.h"
#include "layout/Frames.h"
#include "layout/TextPlaces.h"
#include "model/Preferences.h"

namespace corvane {
namespace {

constexpr int32_t kSize = 504, kLeastSize = 189, kAboveMusic = 750;  // page units

}  // namespace

TitlePicture TitlePictureOf(const Document* document) {
    const Page* page = documentPages.First(document);
    if (!page) return {};
    const auto* preferences = Preferences<PagePref>(document);
    TitlePicture picture{TitleOf(document), LookOf(preferences ? preferences->_font.Get() : nullptr), {}};
    const Rect paper = PageRect(page);
    const int32_t left = page->_leftMargin, right = paper.right - page->_rightMargin;
    picture.look.size = kSize;
    // A long one is set smaller rather than broken.
    const int32_t width = WidthOfText(picture.text, picture.look);
    if (width > right - left) picture.look.size = std::max(kLeastSize, kSize * (right - left) / width);
    picture.place = {{(left + right) / 2, std::max(kSize, page->_topMargin - kAboveMusic)},
                     TextAlign::Centre};
    return picture;
}

Rect InkOf(const Document& document) {
    const TitlePicture picture = TitlePictureOf(&document);
    return picture.text.empty() ? Rect{} : InkOfText(picture.text, picture.look, picture.place);
}

void Paint(GraphicPort& port, const Document& document, const DrawContext&) {
    const TitlePicture picture = TitlePictureOf(&document);
    PaintText(port, picture.text, picture.look, picture.place);
}

}  // namespace corvane
