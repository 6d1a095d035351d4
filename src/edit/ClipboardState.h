// What the files of the clipboard share.
#pragma once

#include "edit/Clipboard.h"

namespace corvane {

Clipboard& ClipboardState();

// Completes a cut that is pending; its objects go when their window's next command begins, or at once if that
// is not the active window, which can undo nothing then.
void EndLastCut();
// Clips of what is selected, with the first measure and staff; the anchors must be set.
Clipboard CollectClips(WindowTarn& window, int voice);
// Without what is gone from its score meanwhile.
void DropDeadClips(Clipboard& clips);
// Destroys the unlinked objects of a cut. They are the current pool's.
void DestroyCutObjects(const Clipboard& cut);

// While this lives nothing is on the sheet; at its end the current page is filed as it stands then. For edits
// that may reach anywhere: it costs a page.
class PageRedraw {
public:
    explicit PageRedraw(WindowTarn& window) : _window(window) { window.Sheet().FilePage(nullptr); }
    ~PageRedraw() { _window.RefilePage(); }
    PageRedraw(const PageRedraw&) = delete;

private:
    WindowTarn& _window;
};

}  // namespace corvane
