// What the clipboard holds, from a copy or cut to the next, through undo and redo of a cut.
//
// A cut leaves its objects unlinked in the pool. As long as an undo can still reach a state with them, they
// stay; they are destroyed when the next command of their window begins, or, for a copy or cut in another
// window, at once, whereupon their window can undo nothing.
#include "edit/Clipboard.h"

#include <utility>

#include "base/Assert.h"
#include "edit/ClipboardState.h"
#include "edit/TarnSelect.h"
#include "edit/ToolState.h"

namespace corvane {
namespace {

// A cut whose lists are not the clipboard's any more, or not now.
struct CutAside {
    enum class State { Completed, Undone };
    State state;
    Clipboard cut;
};
std::vector<CutAside>& CutsAside() {
    static std::vector<CutAside> aside;
    return aside;
}

// The cuts whose objects are in a pool, unlinked.
std::vector<const Clipboard*> CutsIn(const NewMemoryPool& pool) {
    std::vector<const Clipboard*> cuts;
    const auto add = [&](const Clipboard& cut) {
        if (cut.sourceWindow && cut.sourceWindow->Pool() == &pool) cuts.push_back(&cut);
    };
    if (TheClipboard().cutInSourcePending) add(TheClipboard());
    for (const CutAside& aside : CutsAside())
        if (aside.state == CutAside::State::Completed) add(aside.cut);
    return cuts;
}

}  // namespace

Clipboard& ClipboardState() {
    static Clipboard clips;
    return clips;
}
const Clipboard& TheClipboard() { return ClipboardState(); }

void EndLastCut() {
    Clipboard& clips = ClipboardState();
    if (!clips.cutInSourcePending) return;
    WindowTarn* source = clips.sourceWindow;
    CORVANE_ASSERT_AS(source, "sourceWindow");
    CutsAside().push_back({CutAside::State::Completed, std::exchange(clips, {})});
    if (WindowTarn::instance == source) return;
    const PoolScope scope(source->Pool());
    ClipboardCommandBegins(*source);
    source->ForgetUndo();
}

void Copy(WindowTarn& window) {
    window.Activate();
    window.caret.visible = false;
    SetSelectionAnchors(window);
    Clipboard clips = CollectClips(window, Tools().OneVoice());
    ClearSelectionAnchors();
    if (clips.IsEmpty()) return window.Shell().Tell("Nothing that can be copied is selected.");
    EndLastCut();
    ClipboardState() = std::move(clips);
    window.Shell().StateChanged(window);
}

// ---- what windows tell

void ClipboardCommandBegins(WindowTarn& window) {
    // A cut of this window is set in stone by its next command; what it cut is the clipboard's as before.
    std::erase_if(CutsAside(), [&](const CutAside& aside) {
        if (aside.cut.sourceWindow != &window) return false;
        if (aside.state == CutAside::State::Completed) {
            window.Pool()->DisableUndo();
            DestroyCutObjects(aside.cut);
            window.Pool()->EnableUndo();
        }
        return true;
    });
}

void ClipboardUndone(WindowTarn& window) {
    if (!std::exchange(window.cutPending, false)) return;
    for (CutAside& aside : CutsAside())
        if (aside.cut.sourceWindow == &window) aside.state = CutAside::State::Undone;
    const Clipboard& clips = TheClipboard();
    if (clips.cutInSourcePending && clips.sourceWindow == &window)
        CutsAside().push_back({CutAside::State::Undone, std::exchange(ClipboardState(), {})});
}

void ClipboardRedone(WindowTarn& window) {
    std::erase_if(CutsAside(), [&](CutAside& aside) {
        if (aside.cut.sourceWindow != &window || aside.state != CutAside::State::Undone) return false;
        window.cutPending = true;
        // Where something else was copied meanwhile, the objects wait for the next command.
        if (!TheClipboard().sourceWindow) {
            ClipboardState() = std::move(aside.cut);
            return true;
        }
        aside.state = CutAside::State::Completed;
        return false;
    });
}

void ClipboardWindowCloses(WindowTarn& window) {
    if (TheClipboard().sourceWindow == &window) ClipboardState() = {};
    std::erase_if(CutsAside(), [&](const CutAside& aside) { return aside.cut.sourceWindow == &window; });
}

CutKeptOut::CutKeptOut(WindowTarn& window) : _window(window) {
    const std::vector<const Clipboard*> cuts = CutsIn(*window.Pool());
    if (cuts.empty()) return;
    const PoolScope scope(window.Pool());
    window.Pool()->BeginCommand();
    for (const Clipboard* cut : cuts) DestroyCutObjects(*cut);
    window.Pool()->EndCommand();
    _isOut = true;
}

CutKeptOut::~CutKeptOut() {
    if (!_isOut) return;
    _window.Pool()->Undo();
    if (!_window.Pool()->StepBack()) _window.ForgetUndo();
}

std::vector<const void*> ClipboardRoots(const NewMemoryPool& pool) {
    std::vector<const void*> roots;
    for (const Clipboard* cut : CutsIn(pool))
        for (const void* object : ObjectsOf(*cut)) roots.push_back(object);
    return roots;
}

}  // namespace corvane
