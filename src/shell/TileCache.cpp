#include "shell/TileCache.h"

#include <QPainter>

#include "layout/Sheet.h"
#include "platform/qt/ImagePort.h"
#include "shell/ViewScale.h"

namespace corvane {
namespace {

constexpr int32_t kSide = 1500;  // page units
constexpr int32_t kSpill = 2;    // pixels that ink may stand out of its object's rectangle by rounding
constexpr qsizetype kBudget = 96 << 20;

Rect UnitsOf(const std::pair<int, int>& square, const Rect& page) {
    const Rect whole{square.first * kSide, square.second * kSide, (square.first + 1) * kSide,
                     (square.second + 1) * kSide};
    return Intersection(whole, page);
}

QRect ToQt(const Rect& r) { return QRect(r.left, r.top, r.Width(), r.Height()); }

// Calls visit(square) for the squares of the page that a rectangle of page units meets.
template <class Visit>
void ForEachSquare(const Rect& units, const Rect& page, Visit visit) {
    const Rect part = Intersection(units, page);
    if (part.IsEmpty()) return;
    for (int row = part.top / kSide; row * kSide < part.bottom; ++row)
        for (int column = part.left / kSide; column * kSide < part.right; ++column)
            visit(std::make_pair(column, row));
}

// What a rectangle of pixels may show, rounding included.
Rect UnitsAround(const QRect& pixels, const ViewScale& scale) {
    return {scale.Units(pixels.left() - 1), scale.Units(pixels.top() - 1), scale.Units(pixels.right() + 2),
            scale.Units(pixels.bottom() + 2)};
}

}  // namespace

void TileCache::Clear() {
    _pictures.clear();
    _bytes = 0;
}

// What has changed may have spilt over its rectangle into a neighbour.
void TileCache::DropDirty(NewWindowSheet& sheet, const Rect& page, const ViewScale& scale) {
    for (int tile = 0; tile < sheet.TileCount(); ++tile) {
        if (!sheet.IsDirty(tile)) continue;
        const Rect stale = sheet.StaleRect(tile).GrownBy(scale.Units(kSpill));
        sheet.ClearDirty(tile);
        ForEachSquare(stale, page, [&](const Square& square) {
            const auto found = _pictures.find(square);
            if (found == _pictures.end()) return;
            _bytes -= found->second.sizeInBytes();
            _pictures.erase(found);
        });
    }
}

void TileCache::Paint(QPainter& painter, NewWindowSheet& sheet, const Rect& page, const ViewScale& scale,
                      const DrawContext& context, const QRect& exposed) {
    DropDirty(sheet, page, scale);
    ForEachSquare(UnitsAround(exposed, scale), page, [&](const Square& square) {
        const Rect units = UnitsOf(square, page), pixels = scale.Pixels(units);
        if (pixels.IsEmpty() || !ToQt(pixels).intersects(exposed)) return;
        QImage& picture = _pictures[square];
        if (picture.isNull()) {
            ImagePort port(units, scale.Zoom(), scale.Dpi());
            port.SetTrace(_trace);
            sheet.Draw(port, units.GrownBy(scale.Units(kSpill)), context);
            picture = port.Image();
            _bytes += picture.sizeInBytes();
            ++_made;
        }
        painter.drawImage(QPoint(pixels.left, pixels.top), picture);
    });
    KeepWithinBudget(exposed, page, scale);
}

void TileCache::KeepWithinBudget(const QRect& exposed, const Rect& page, const ViewScale& scale) {
    for (auto it = _pictures.begin(); it != _pictures.end() && _bytes > kBudget;) {
        if (ToQt(scale.Pixels(UnitsOf(it->first, page))).intersects(exposed)) {
            ++it;
        } else {
            _bytes -= it->second.sizeInBytes();
            it = _pictures.erase(it);
        }
    }
}

}  // namespace corvane
