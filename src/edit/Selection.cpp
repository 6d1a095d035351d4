#include "edit/Selection.h"

#include <utility>

#include "edit/PickPlaces.h"
#include "layout/Frames.h"

namespace corvane {

void Selection::SetSelectionRegion(WRegion region) {
    _region = std::move(region);
    _picks.Clear();
    _wholeScore = false;
}

void Selection::Clear() { SetSelectionRegion(_port.NewRegion()); }

void Selection::Add(const Rect& rect) {
    if (rect.IsEmpty() || _wholeScore) return;
    _port.AddRectToRegion(_region, rect);
}

void Selection::SelectAll() {
    _region.Clear();
    _picks.Clear();
    _wholeScore = true;
}

void Selection::Pick(void* record) {
    if (record && !_wholeScore) _picks.Add(record);
}

std::vector<Rect> SelectionRects(const WindowTarn& window) {
    std::vector<Rect> rects;
    if (window.TheSelection().IsWholeScore() && window.CurrentPage()) {
        for (const System* system : pageSystems.Of(window.CurrentPage())) {
            const Point origin = OriginOf(system);
            rects.push_back({origin.x, origin.y, origin.x + system->_right - system->_left,
                             origin.y + system->_bottom - system->_top});
        }
        return rects;
    }
    for (const Rect& scaled : window.TheSelection().GetSelectionRegion().Rects())
        rects.push_back({window.Port().Unscale(scaled.left), window.Port().Unscale(scaled.top),
                         window.Port().Unscale(scaled.right), window.Port().Unscale(scaled.bottom)});
    for (const Pick& pick : window.TheSelection().ThePicks().List())
        for (const Rect& area : AreasOf(window, pick)) rects.push_back(area);
    return rects;
}

}  // namespace corvane
