// Glyphs in the forms that Qt paints: outlines, ready pictures of them, fonts for files that embed them. All
// are kept for the whole run, within bounds. Main thread only.
#pragma once

#include <QImage>
#include <QPainterPath>
#include <QPoint>
#include <QRawFont>
#include <cstdint>

#include "graphics/Device.h"
#include "graphics/GraphicPort.h"
#include "platform/freetype/FontFace.h"

namespace corvane {

// The outline at an em of 1.
const QPainterPath& GlyphPath(FontFace& face, uint32_t glyph);

struct GlyphPicture {
    QImage image;   // premultiplied
    QPoint offset;  // of its corner from the whole pixel that the pen is in
};

// A glyph painted once in one colour, its pen at one of four by four places within a pixel: the one nearest
// to `pen`. `pixel` becomes the whole pixel. Null for a glyph too large to keep.
const GlyphPicture* PictureOf(FontFace& face, uint32_t glyph, double size, Colour colour, DevicePoint pen,
                              QPoint& pixel);

// The file's own font at an em of kRunSize pixels, one object however many sizes are drawn, so that a file
// embeds it once. Not valid for files that Qt cannot read.
inline constexpr int kRunSize = 100;
const QRawFont& RunFont(const FontFace& face);

inline QColor ToQt(Colour colour) {
    return QColor(static_cast<int>(colour & 0xff), static_cast<int>(colour >> 8 & 0xff),
                  static_cast<int>(colour >> 16 & 0xff));
}

}  // namespace corvane
