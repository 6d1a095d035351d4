#include "shell/GlyphButton.h"

#include <QStyleOptionToolButton>
#include <QStylePainter>
#include <algorithm>

#include "base/Rounding.h"
#include "platform/qt/QtPort.h"

namespace corvane {
namespace {

constexpr int kSide = 34;  // points
constexpr int kBorder = 3;
constexpr double kSpace = 5.8;  // points of a line distance, less where a picture is too wide for that
constexpr int32_t kUnitsOfSpace = 100;
constexpr int32_t kFineness = 1000;  // units to the port's inch, so that its resolution is fine enough

double SpaceFor(const Rect& ink) {
    const int32_t extent = std::max({ink.Width(), ink.Height(), 1});
    return std::min(kSpace, 1.0 * (kSide - 2 * kBorder) * kUnitsOfSpace / extent);
}

}  // namespace

GlyphButton::GlyphButton(ItemPicture picture, QWidget* parent)
    : QToolButton(parent), _picture(std::move(picture)), _ink(InkOf(_picture)) {
    setAutoRaise(true);
    setCheckable(true);
    setFocusPolicy(Qt::TabFocus);
}

QSize GlyphButton::sizeHint() const { return {kSide, kSide}; }

void GlyphButton::paintEvent(QPaintEvent*) {
    QStylePainter painter(this);
    QStyleOptionToolButton option;
    initStyleOption(&option);
    painter.drawComplexControl(QStyle::CC_ToolButton, option);

    const double ratio = devicePixelRatioF();
    const double pixels = SpaceFor(_ink) * ratio;  // of a line distance
    QtPort port(painter, Round(pixels / kUnitsOfSpace * kFineness), kFineness);
    port.SetZoomRatio(100);
    const QColor colour =
        palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::ButtonText);
    port.SetColor(MakeColour(static_cast<uint8_t>(colour.red()), static_cast<uint8_t>(colour.green()),
                             static_cast<uint8_t>(colour.blue())));
    const Point middle{(_ink.left + _ink.right) / 2, (_ink.top + _ink.bottom) / 2};
    port.SetDeviceOffset(Round(width() * ratio / 2) - port.Scale(middle.x),
                         Round(height() * ratio / 2) - port.Scale(middle.y));
    DrawPicture(port, _picture, {0, 0}, kUnitsOfSpace);
}

}  // namespace corvane
