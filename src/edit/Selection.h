// What is selected in a score window: a region of its current page, or the whole score. It lists no objects:
// each command asks, when it runs, what lies there (TarnSelect.h). Lengths are absolute page units; the
// region is one of the window's port, whose device unit is a page unit, so that it stays true at every zoom
// of a view.
#pragma once

#include <vector>

#include "graphics/GraphicPort.h"

namespace corvane {

class WindowTarn;

class Selection {
public:
    // The port must outlive the selection.
    explicit Selection(const GraphicPort& port) : _port(port), _region(port.NewRegion()) {}

    bool IsEmpty() const { return !_wholeScore && _region.IsEmpty(); }
    bool IsWholeScore() const { return _wholeScore; }
    const WRegion& GetSelectionRegion() const { return _region; }
    // What is selected is this region of the current page from now on.
    void SetSelectionRegion(WRegion region);

    void Clear();
    // Selects a further rectangle; an empty one changes nothing.
    void Add(const Rect& rect);
    void SelectAll();

private:
    const GraphicPort& _port;
    WRegion _region;
    bool _wholeScore = false;
};

// What a view shows as selected of the current page; all its systems where the whole score is.
std::vector<Rect> SelectionRects(const WindowTarn& window);

}  // namespace corvane
