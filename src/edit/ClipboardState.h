// What the files of the clipboard share.
#pragma once

#include "edit/Clipboard.h"

namespace corvane {

Clipboard& ClipboardState();

// Completes a cut that is pending; its objects go when their window's next command begins, or at once if that
// is not the active window, which can undo nothing then.
void EndLastCut();
// Clips of what is selected; the anchors must be set.
Clipboard CollectClips(WindowTarn& window, int voice);
// Leaves out slurs of which an event is not listed, and finds the first measure and staff. Once the lists are
// made and again when something is taken from them.
void SettleClips(Clipboard& clips);
// Calls visit with each list.
template <class Clips, class Visit>
void ForEachClipList(Clips& clips, Visit visit) {
    visit(clips.ClipVoiceSymbols);
    visit(clips.ClipDinamiche);
    visit(clips.ClipMeasureStaffText);
    visit(clips.ClipHairpins);
    visit(clips.ClipSlurs);
    visit(clips.ClipPageText);
}
// All that is listed.
std::vector<const void*> ObjectsOf(const Clipboard& clips);
// Without what is gone from its score meanwhile.
void DropDeadClips(Clipboard& clips);
// Takes what is no event out of its score, for a cut; nothing is on the sheet.
void CutSigns(const Clipboard& clips);
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
