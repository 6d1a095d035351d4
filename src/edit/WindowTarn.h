// One score window: its pool, sheet, measuring port, current page, caret and undo state. Headless or not: the
// screen is behind EditorShell. Main thread only.
#pragma once

#include <memory>
#include <string>

#include "edit/EditorShell.h"
#include "edit/Interaction.h"
#include "edit/Selection.h"
#include "edit/TextEntry.h"
#include "graphics/MemoryPort.h"
#include "layout/Sheet.h"
#include "model/TarnCoordinate.h"

namespace corvane {

class ControlPoints;
class NewMemoryPool;

// Where a paste or a play starts: a place in a measure.
struct Caret {
    Measure* measure = nullptr;
    DocStaff* staff = nullptr;
    int32_t x = 0;  // absolute page units
    bool visible = false;
};

class WindowTarn : public ElemT<WindowTarn, 1, kWindows> {
public:
    // Makes pool, sheet and port and joins the window list. The new pool becomes current; the window becomes
    // the active one if there is none.
    explicit WindowTarn(EditorShell& shell);
    // The closing order: leaves the list, drops what others hold of it, gives up the pool with all its
    // objects.
    ~WindowTarn();
    WindowTarn(const WindowTarn&) = delete;

    static inline WindowTarn* instance = nullptr;  // the active window, or null
    static inline int16_t wndCounter = 0;
    // All score windows in creation order.
    static std::vector<WindowTarn*> All();
    static WindowTarn* OfPool(const NewMemoryPool* pool);

    // Makes this the active window and its pool the current one.
    void Activate();
    // Binds the document of the pool and shows its first page.
    void Bind(Document* document);

    Document* GetDocument() const { return _document; }
    NewMemoryPool* Pool() const { return _pool; }
    NewWindowSheet& Sheet() { return *_sheet; }
    const NewWindowSheet& Sheet() const { return *_sheet; }
    // Measures and keeps regions at one device unit for each page unit.
    GraphicPort& Port() { return *_port; }
    const GraphicPort& Port() const { return *_port; }
    EditorShell& Shell() { return _shell; }

    Page* CurrentPage() const { return _page; }
    // Files the page's objects on the sheet and tells the shell. What was selected of another page is no
    // longer.
    void SetCurrentPage(Page* page);
    // Files the current page anew, all tiles dirty.
    void RefilePage();

    // Undo and redo: no-ops where they cannot act. One step, or as many as the session keeps.
    void Undo();
    void Redo();
    bool CanUndo() const;
    bool CanRedo() const;
    void ForgetUndo();
    bool Modified() const;

    const std::string& Title() const { return _title; }
    const std::string& Path() const { return _path; }
    bool ReadOnly() const { return _readOnly; }
    bool NeverSaved() const { return _neverSaved; }
    void SetIdentity(std::string title, std::string path, bool readOnly, bool neverSaved);

    Caret caret;
    Selection& TheSelection() { return _selection; }
    const Selection& TheSelection() const { return _selection; }
    // What has been picked and is no longer there is forgotten. Cost: what is picked.
    void DropDeadPicks();
    // Tells the shell after a change of the selection.
    void SelectionChanged();
    // Over the current page; they are gone when another window becomes the active one.
    ControlPoints& Handles() { return *_handles; }
    const ControlPoints& Handles() const { return *_handles; }
    // What the pressed pointer does; null while it is up.
    std::unique_ptr<Interaction> interaction;
    // What is being typed; null for nothing. It goes when anything else changes the score or the page.
    std::unique_ptr<TextEntry> textEntry;

    bool cutPending = false;  // the last thing done here was a cut
    // What has just been done here was one.
    void MarkCut();

    // Told by the command bracket of this window's pool.
    void CommandBegins();
    void CommandEnds();

private:
    void Exchange(bool redo, bool stepped);
    void DropDeadCaret();
    void DropTextEntry();

    EditorShell& _shell;
    NewMemoryPool* _pool = nullptr;
    std::unique_ptr<NewWindowSheet> _sheet;
    std::unique_ptr<GraphicPort> _port;
    Selection _selection;
    std::unique_ptr<ControlPoints> _handles;
    Document* _document = nullptr;
    Page* _page = nullptr;
    std::string _title, _path;
    bool _hasStep = false, _readOnly = false, _neverSaved = true;
};

// How many steps of undo every window keeps, from the next command on: 1 to 100.
inline constexpr int kMostUndoLevels = 100;
void SetUndoLevels(int levels);

// Installs the observer that tells each window of the commands of its pool. Once at start-up.
void WatchCommands();

// One undoable step in a window's pool; tells the shell when it ends.
class EditStep {
public:
    explicit EditStep(WindowTarn& window);
    ~EditStep();
    EditStep(const EditStep&) = delete;
    // Ends this step and begins the next: what follows is undone on its own.
    void Split();

private:
    WindowTarn& _window;
};

}  // namespace corvane
