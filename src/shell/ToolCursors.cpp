#include "shell/ToolCursors.h"

#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>

#include "edit/ToolState.h"

namespace corvane {
namespace {

constexpr int kSide = 24;

// A slanted block, white within black so that it is seen on paper and on notes.
QCursor EraserCursor() {
    QImage image(kSide, kSide, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainterPath block;
    block.addPolygon(QPolygonF({{2, 21}, {2, 15}, {12, 5}, {20, 5}, {20, 11}, {10, 21}, {2, 21}}));
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Qt::black, 1.4));
    painter.fillPath(block, Qt::white);
    painter.drawPath(block);
    painter.drawPolyline(QPolygonF({{2, 15}, {10, 15}, {20, 5}}));
    painter.drawLine(QPointF(10, 15), QPointF(10, 21));
    painter.end();
    return QCursor(QPixmap::fromImage(image), 4, 19);
}

}  // namespace

QCursor ToolCursor(int32_t toolMode) {
    if (toolMode == ModePencil) return QCursor(Qt::CrossCursor);
    if (toolMode != ModeEraser) return QCursor(Qt::ArrowCursor);
    static const QCursor eraser = EraserCursor();
    return eraser;
}

}  // namespace corvane
