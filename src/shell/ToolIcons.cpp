#include "shell/ToolIcons.h"

#include <QByteArray>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QSvgRenderer>
#include <iterator>

namespace corvane {
namespace {

// Strokes and areas on a square of 24 by 24.
struct Shape {
    ToolPicture picture;
    const char* strokes;
    const char* areas;
};

constexpr Shape kShapes[] = {
    {ToolPicture::Arrow, "", "M6 2.5 V19 L10 15.4 L12.6 21.5 L15.3 20.4 L12.8 14.4 H18 Z"},
    {ToolPicture::Pencil, "M4 20 L5.2 15.2 L15.7 4.7 L19.3 8.3 L8.8 18.8 Z M13.4 7 L17 10.6",
     "M4 20 L4.8 16.8 L7.2 19.2 Z"},
    {ToolPicture::Eraser, "M8.6 19.5 L3.8 14.7 L13.5 5 L20 11.5 L12 19.5 Z M8.7 9.8 L15.2 16.3 M8 19.5 H20",
     ""},
    {ToolPicture::Undo, "M9 4.5 L4.5 9 L9 13.5 M4.5 9 H14.5 A5 5 0 0 1 14.5 19 H10", ""},
    {ToolPicture::Redo, "M15 4.5 L19.5 9 L15 13.5 M19.5 9 H9.5 A5 5 0 0 0 9.5 19 H14", ""},
    {ToolPicture::Cut,
     "M6.3 3.5 L15.6 15.9 M17.7 3.5 L8.4 15.9 M9.7 18 A2.7 2.7 0 1 1 4.3 18 A2.7 2.7 0 1 1 9.7 18 "
     "M19.7 18 A2.7 2.7 0 1 1 14.3 18 A2.7 2.7 0 1 1 19.7 18",
     ""},
    {ToolPicture::Copy, "M8.5 7.5 H19.5 V20.5 H8.5 Z M15.5 7.5 V3.5 H4.5 V16.5 H8.5", ""},
    {ToolPicture::Paste, "M8.5 5 H5.5 V20.5 H18.5 V5 H15.5 M8.5 3.5 H15.5 V7 H8.5 Z M9 11.5 H15 M9 15.5 H15",
     ""},
    {ToolPicture::Clear,
     "M4.5 6.5 H19.5 M9.5 6.5 V3.5 H14.5 V6.5 M6.5 6.5 L7.5 20.5 H16.5 L17.5 6.5 M10.3 10.5 V16.5 M13.7 10.5 "
     "V16.5",
     ""},
    {ToolPicture::Play, "", "M7 4.5 L19 12 L7 19.5 Z"},
    {ToolPicture::Stop, "", "M6.5 6.5 H17.5 V17.5 H6.5 Z"},
    {ToolPicture::ZoomIn,
     "M10.5 4 A6.5 6.5 0 1 0 10.5 17 A6.5 6.5 0 1 0 10.5 4 M15.2 15.2 L20 20 M7.5 10.5 H13.5 M10.5 7.5 V13.5",
     ""},
    {ToolPicture::ZoomOut,
     "M10.5 4 A6.5 6.5 0 1 0 10.5 17 A6.5 6.5 0 1 0 10.5 4 M15.2 15.2 L20 20 M7.5 10.5 H13.5", ""},
    {ToolPicture::Previous, "M14.5 5.5 L8 12 L14.5 18.5", ""},
    {ToolPicture::Next, "M9.5 5.5 L16 12 L9.5 18.5", ""},
    {ToolPicture::New, "M6 3.5 H14 L18.5 8 V20.5 H6 Z M14 3.5 V8 H18.5", ""},
    {ToolPicture::Open, "M3.5 19 V5.5 H9 L11 8 H20.5 V19 Z M3.5 11 H20.5", ""},
    {ToolPicture::Save,
     "M4.5 4.5 H16.5 L19.5 7.5 V19.5 H4.5 Z M8 4.5 V9 H15 V4.5 M7.5 19.5 V13.5 H16.5 V19.5", ""},
    {ToolPicture::Program, "M9 17 V5 L19 3 V15 M9 8.2 L19 6.2",
     "M9.6 17.3 A3.3 2.5 -20 1 1 3.2 18.9 A3.3 2.5 -20 1 1 9.6 17.3 M19.6 15.3 A3.3 2.5 -20 1 1 13.2 16.9 "
     "A3.3 2.5 -20 1 1 19.6 15.3"},
};

QByteArray Svg(const Shape& shape, const QColor& colour) {
    const QByteArray name = colour.name().toLatin1();
    return "<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 24 24'><path d='" +
           QByteArray(shape.strokes) + "' fill='none' stroke='" + name +
           "' stroke-width='1.7' stroke-linejoin='round' stroke-linecap='round'/>"
           "<path d='" +
           QByteArray(shape.areas) + "' fill='" + name + "' stroke='none'/></svg>";
}

class ShapeEngine : public QIconEngine {
public:
    explicit ShapeEngine(const Shape& shape) : _shape(shape) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        QSvgRenderer(Svg(_shape, QGuiApplication::palette().color(group, QPalette::ButtonText)))
            .render(painter, rect);
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(0, 0), size), mode, state);
        return pixmap;
    }
    QIconEngine* clone() const override { return new ShapeEngine(_shape); }

private:
    const Shape& _shape;
};

}  // namespace

QIcon ToolIcon(ToolPicture picture) {
    for (const Shape& shape : kShapes)
        if (shape.picture == picture) return QIcon(new ShapeEngine(shape));
    return {};
}

}  // namespace corvane
