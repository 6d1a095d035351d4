// Rectangles and glyphs of one colour, gathered to be painted at once: among ink of one colour order is not
// seen, and a file that is told all of a font together is a fraction of the size, and of the time.
#pragma once

#include <QList>
#include <QPointF>
#include <QRectF>
#include <cstdint>
#include <map>
#include <utility>

#include "graphics/Device.h"
#include "graphics/GraphicPort.h"

class QPainter;

namespace corvane {

class FontFace;

class InkBatch {
public:
    bool IsEmpty() const { return _rects.isEmpty() && _runs.empty(); }
    Colour InkColour() const { return _colour; }

    // What is added to a batch that is not empty has its colour.
    void AddRect(Colour colour, const QRectF& rect);
    // Of a face that RunFont can paint.
    void AddGlyph(Colour colour, const FontFace& face, uint32_t glyph, DevicePoint baseline, double size);

    // Paints everything and is empty. The painter's pen and brush are others afterwards.
    void Paint(QPainter& painter);

private:
    struct Run {
        QList<quint32> glyphs;
        QList<QPointF> places;  // in the run's own units: an em is kRunSize
    };
    void PaintRun(QPainter& painter, const FontFace& face, double size, const Run& run) const;

    Colour _colour = 0;
    QList<QRectF> _rects;
    std::map<std::pair<const FontFace*, double>, Run> _runs;
};

}  // namespace corvane
