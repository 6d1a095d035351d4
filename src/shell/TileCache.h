// Pictures of the current page's pieces, so that a paint costs the objects of what changed.
#pragma once

#include <QImage>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "layout/DrawPatch.h"

class QPainter;
class QRect;

namespace corvane {

class NewWindowSheet;
class ViewScale;

// The page is cut into squares as wide as the sheet's tiles, so that also the part of a large page that
// belongs to the outermost tiles comes in pieces. Main thread only.
class TileCache {
public:
    // Paints what `exposed` shows of the page, on whole pixels: the page's corner is at 0, 0 of both. Takes
    // the sheet's dirty tiles and clears them.
    void Paint(QPainter& painter, NewWindowSheet& sheet, const Rect& page, const ViewScale& scale,
               const DrawContext& context, const QRect& exposed);
    // Another scale or other looks: all pictures are stale.
    void Clear();

    // Pictures made so far.
    int MadeCount() const { return _made; }
    // As a port's: what the pictures made from now on are told; null ends it.
    void SetTrace(std::vector<std::string>* lines) { _trace = lines; }

private:
    using Square = std::pair<int, int>;  // column, row
    void DropDirty(NewWindowSheet& sheet, const Rect& page, const ViewScale& scale);
    void KeepWithinBudget(const QRect& exposed, const Rect& page, const ViewScale& scale);

    std::map<Square, QImage> _pictures;
    qsizetype _bytes = 0;
    int _made = 0;
    std::vector<std::string>* _trace = nullptr;
};

}  // namespace corvane
