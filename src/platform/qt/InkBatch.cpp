#include "platform/qt/InkBatch.h"

#include <QGlyphRun>
#include <QPainter>

#include "platform/freetype/FontFace.h"
#include "platform/qt/GlyphShapes.h"

namespace corvane {
namespace {

// From a run's units to the painter's.
QTransform RunScale(const FontFace& face, double size) {
    const double scale = size / kRunSize;
    return QTransform(scale, 0, face.File().slanted ? -kSlant * scale : 0, scale, 0, 0);
}

}  // namespace

void InkBatch::AddRect(Colour colour, const QRectF& rect) {
    _colour = colour;
    _rects.append(rect);
}

void InkBatch::AddGlyph(Colour colour, const FontFace& face, uint32_t glyph, DevicePoint baseline,
                        double size) {
    _colour = colour;
    Run& run = _runs[{&face, size}];
    run.glyphs.append(glyph);
    run.places.append(RunScale(face, size).inverted().map(QPointF(baseline.x, baseline.y)));
}

void InkBatch::Paint(QPainter& painter) {
    if (!_rects.isEmpty()) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(ToQt(_colour));
        painter.drawRects(_rects.constData(), static_cast<int>(_rects.size()));
        _rects.clear();
    }
    for (const auto& [key, run] : _runs) PaintRun(painter, *key.first, key.second, run);
    _runs.clear();
}

void InkBatch::PaintRun(QPainter& painter, const FontFace& face, double size, const Run& run) const {
    QGlyphRun glyphs;
    glyphs.setRawFont(RunFont(face));
    glyphs.setGlyphIndexes(run.glyphs);
    glyphs.setPositions(run.places);
    painter.save();
    painter.setPen(ToQt(_colour));
    painter.setTransform(RunScale(face, size), true);
    painter.drawGlyphRun(QPointF(0, 0), glyphs);
    painter.restore();
}

}  // namespace corvane
