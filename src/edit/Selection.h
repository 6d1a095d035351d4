// What is selected in a score window: a region of its current page with what presses have picked there one by
// one, or the whole score. The region lists no objects: each command asks, when it runs, what lies in it
// (TarnSelect.h). Lengths are absolute page units; the
// region is one of the window's port, whose device unit is a page unit, so that it stays true at every zoom
// of a view.
#pragma once

#include <vector>

#include "edit/Picks.h"
#include "graphics/GraphicPort.h"

namespace corvane {

class WindowTarn;

class Selection {
public:
    // The port must outlive the selection.
    explicit Selection(const GraphicPort& port) : _port(port), _region(port.NewRegion()) {}

    bool IsEmpty() const { return !_wholeScore && _region.IsEmpty() && _picks.IsEmpty(); }
    bool IsWholeScore() const { return _wholeScore; }
    const WRegion& GetSelectionRegion() const { return _region; }
    // What is selected is this region of the current page from now on, and nothing else.
    void SetSelectionRegion(WRegion region);

    void Clear();
    // Selects a further rectangle; an empty one changes nothing.
    void Add(const Rect& rect);
    void SelectAll();

    const Picks& ThePicks() const { return _picks; }
    // One record of the current page, in addition; nothing changes where the whole score is selected.
    void Pick(void* record);
    void Unpick(const void* record) { _picks.Remove(record); }
    void KeepLivingPicks(const std::unordered_set<const void*>& living) { _picks.KeepLiving(living); }

private:
    const GraphicPort& _port;
    WRegion _region;
    Picks _picks;
    bool _wholeScore = false;
};

// What a view shows as selected of the current page; all its systems where the whole score is.
std::vector<Rect> SelectionRects(const WindowTarn& window);

}  // namespace corvane
