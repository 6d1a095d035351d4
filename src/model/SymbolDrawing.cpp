// Drawing and measuring of symbols, in integer arithmetic from the stored fields.
#include <algorithm>
#include <limits>

#include "base/Rounding.h"
#include "graphics/GraphicPort.h"
#include "model/FontTable.h"
#include "model/Relations.h"
#include "model/SymbolTable.h"

namespace corvane {
namespace {

constexpr int32_t kLargestPercent = 10000;  // keeps products of damaged fields within 64 bits

int32_t Narrow(int64_t value) {
    return static_cast<int32_t>(
        std::clamp<int64_t>(value, std::numeric_limits<int32_t>::min(), std::numeric_limits<int32_t>::max()));
}

int32_t Offset(int32_t hundredths, int32_t lineDistance, int32_t percent) {
    return Narrow(int64_t{Round(hundredths * 0.01 * percent)} * lineDistance / 100);
}

Rect MetricsOf(const SimpleFont* font, int64_t lineDistance, int32_t percent) {
    const int64_t p = std::clamp(percent, -kLargestPercent, kLargestPercent);
    const auto side = [&](int i) { return Narrow(font->_metrics[i] * lineDistance * p / 10000); };
    return {side(0), side(1), side(2), side(3)};
}

void DrawGlyph(GraphicPort& port, const SimpleFont* font, Point at, int32_t lineDistance, int32_t percent,
               char side) {
    port.SetFont(DrawnFont(TextOf(font->_fontName)));
    port.SetFontSize(Round(0.0001 * lineDistance * font->_fontSize * percent));
    port.SetFontStyle(font->_style);
    port.DrawChar(font->_code, at.x + Offset(font->_dx, lineDistance, percent),
                  at.y + Offset(font->_dy, lineDistance, percent), side);
}

}  // namespace

void DrawSymbol(GraphicPort& port, const FontSymbol* symbol, int32_t x, int32_t y, int32_t lineDistance,
                int32_t percent, char side) {
    if (const auto* font = As<SimpleFont>(symbol))
        return DrawGlyph(port, font, {x, y}, lineDistance, percent, side);
    if (const auto* composite = As<CompositeSymbol>(symbol))
        for (const FontSymbol* part : compositeParts.Of(composite))
            DrawSymbol(port, part, x, y, lineDistance, percent, side);
}

Rect SymbolRect(const FontSymbol* symbol, int32_t lineDistance, int32_t percent) {
    if (const auto* font = As<SimpleFont>(symbol)) return MetricsOf(font, lineDistance, percent);
    Rect ink;
    if (const auto* composite = As<CompositeSymbol>(symbol))
        for (const FontSymbol* part : compositeParts.Of(composite))
            ink = Union(ink, SymbolRect(part, lineDistance, percent));
    return ink;
}

}  // namespace corvane
