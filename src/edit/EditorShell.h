// What editing asks of the window around a score. Without a window the requests go nowhere.
#pragma once

#include <string_view>

#include "base/Geometry.h"

namespace corvane {

class WindowTarn;

class EditorShell {
public:
    virtual ~EditorShell() = default;
    virtual void Refresh(WindowTarn&) {}      // some tiles are dirty: paint when there is time
    virtual void PageChanged(WindowTarn&) {}  // another page is current, or the pages were counted anew
    virtual void ScrollTo(WindowTarn&, const Rect&) {}
    virtual void ToolChanged() {}                  // tool, palette group, item or voice
    virtual void StateChanged(WindowTarn&) {}      // undo, redo, title, modified mark, selection
    virtual void Tell(std::string_view) {}         // a word for the status line; none takes the last one away
    virtual void TextEntryChanged(WindowTarn&) {}  // a text is being typed, another one than before, or none
    virtual void PlayToggled(WindowTarn&) {}       // the space bar: start or stop
};

}  // namespace corvane
