#include "edit/WindowTarn.h"

#include <algorithm>
#include <utility>

#include "base/Assert.h"
#include "edit/Clipboard.h"
#include "edit/ControlPoints.h"
#include "edit/ToolState.h"
#include "layout/PageFit.h"
#include "model/Preferences.h"
#include "store/CommandObserver.h"
#include "store/MemoryManager.h"

namespace corvane {
namespace {

using WindowKit = relation::Kit<relation::CollectionChild<kWindows>, kWindows>;

// The ring of all score windows, in creation order.
SingleRingT<WindowTarn, 1, kWindows> windowRing{};

std::unique_ptr<GraphicPort> UnitPort() {
    auto port = std::make_unique<MemoryPort>(GraphicPort::kUnitsPerInch, GraphicPort::kUnitsPerInch);
    port->SetZoomRatio(100);
    return port;
}

class Observer : public CommandObserver {
public:
    void CommandBegins(NewMemoryPool& pool) override {
        if (WindowTarn* window = WindowTarn::OfPool(&pool)) window->CommandBegins();
    }
    void CommandEnds(NewMemoryPool& pool) override {
        if (WindowTarn* window = WindowTarn::OfPool(&pool)) window->CommandEnds();
    }
};

}  // namespace

void WatchCommands() {
    static Observer observer;
    MemoryManager::Instance().SetObserver(&observer);
}

WindowTarn::WindowTarn(EditorShell& shell)
    : ElemT{},
      _shell(shell),
      _sheet(std::make_unique<NewWindowSheet>()),
      _port(UnitPort()),
      _selection(*_port),
      _handles(std::make_unique<ControlPoints>(*this)) {
    _pool = MemoryManager::Instance().NewPool();
    WindowKit::Add(&windowRing, this);
    ++wndCounter;
    if (!instance) instance = this;
}

WindowTarn::~WindowTarn() {
    WindowKit::Remove(&windowRing, this);
    --wndCounter;
    CORVANE_ASSERT(wndCounter >= 0);
    NewMemoryPool* before = MemoryManager::Instance().GetCurrentPool();
    if (instance == this) {
        instance = nullptr;
        for (WindowTarn* other : All()) instance = other;
        if (instance) TakeScoreSwitches(instance->_document);
    }
    _pool->DisableUndo();
    ClipboardWindowCloses(*this);
    interaction.reset();
    textEntry.reset();
    _port.reset();
    _sheet.reset();
    MemoryManager::Instance().DeletePool(_pool);
    MemoryManager::Instance().SetCurrentPool(before == _pool ? (instance ? instance->_pool : nullptr)
                                                             : before);
}

std::vector<WindowTarn*> WindowTarn::All() {
    std::vector<WindowTarn*> all;
    relation::Cursor<relation::CollectionChild<kWindows>, kWindows> cursor(&windowRing);
    while (auto* end = cursor.NextOnly()) all.push_back(static_cast<WindowTarn*>(end));
    return all;
}

WindowTarn* WindowTarn::OfPool(const NewMemoryPool* pool) {
    relation::Cursor<relation::CollectionChild<kWindows>, kWindows> cursor(&windowRing);
    while (auto* end = cursor.NextOnly())
        if (auto* window = static_cast<WindowTarn*>(end); window->_pool == pool) return window;
    return nullptr;
}

void WindowTarn::Activate() {
    WindowTarn* before = std::exchange(instance, this);
    if (before != this) TakeScoreSwitches(_document);
    if (before && before != this) before->_handles->End();
    MemoryManager::Instance().SetCurrentPool(_pool);
    TakePageSize(_document);
}

void WindowTarn::Bind(Document* document) {
    _document = document;
    if (instance == this) TakeScoreSwitches(document);
    SetCurrentPage(documentPages.First(document));
    _pool->EnableUndo();
    _pool->SetUndoLevels(static_cast<size_t>(Switches().undoLevels));
}

void WindowTarn::SetCurrentPage(Page* page) {
    if (page != _page) {
        interaction.reset();
        _handles->End();
        DropTextEntry();
        if (!_selection.IsWholeScore()) _selection.Clear();
    }
    _page = page;
    RefilePage();
    _shell.PageChanged(*this);
}

void WindowTarn::RefilePage() {
    if (_page) _sheet->FilePage(_page);
    _handles->Renew();
    _shell.Refresh(*this);
}

void WindowTarn::SelectionChanged() {
    _shell.StateChanged(*this);
    _shell.Refresh(*this);
}

bool WindowTarn::Modified() const { return _pool->Modified(); }

void WindowTarn::SetIdentity(std::string title, std::string path, bool readOnly, bool neverSaved) {
    _title = std::move(title);
    _path = std::move(path);
    _readOnly = readOnly;
    _neverSaved = neverSaved;
    _shell.StateChanged(*this);
}

// ---- undo

void SetUndoLevels(int levels) {
    Switches().undoLevels = std::clamp(levels, 1, kMostUndoLevels);
    for (WindowTarn* window : WindowTarn::All()) {
        window->Pool()->SetUndoLevels(static_cast<size_t>(Switches().undoLevels));
        window->Shell().StateChanged(*window);
    }
}

void WindowTarn::CommandBegins() {
    interaction.reset();
    DropTextEntry();
    _shell.Tell({});  // what was said of the command before
    _handles->Renew();
    _pool->Memo().before = _page;
    cutPending = false;
}

void WindowTarn::CommandEnds() {
    _pool->Memo().after = _page;
    _handles->Renew();
    _hasStep = true;
    DropDeadPicks();
}

void WindowTarn::MarkCut() { _pool->Memo().mark = cutPending = true; }

bool WindowTarn::CanUndo() const { return _hasStep && (!_pool->IsUndone() || _pool->HasOlderStep()); }
bool WindowTarn::CanRedo() const { return _hasStep && (_pool->IsUndone() || _pool->HasNewerStep()); }

void WindowTarn::ForgetUndo() {
    _hasStep = false;
    _pool->ForgetSteps();
}

void WindowTarn::Undo() {
    if (CanUndo()) Exchange(false, _pool->StepBack());
}

void WindowTarn::Redo() {
    if (CanRedo()) Exchange(true, _pool->StepOn());
}

void WindowTarn::DropTextEntry() {
    if (!textEntry) return;
    textEntry.reset();
    _shell.TextEntryChanged(*this);
}

// A caret stays where its measure and staff are still there.
void WindowTarn::DropDeadCaret() {
    const void* const held[] = {caret.measure, caret.staff};
    const auto living = _pool->Living(held);
    const auto stands = [&](const void* object, auto is) {
        return living.contains(object) && is(ClassNumberOf(object));
    };
    if (!stands(caret.measure, IsClass<Measure>) || !stands(caret.staff, IsClass<DocStaff>))
        caret.measure = nullptr;
}

void WindowTarn::DropDeadPicks() {
    if (_selection.ThePicks().IsEmpty()) return;
    std::vector<const void*> records;
    for (const Pick& pick : _selection.ThePicks().List()) records.push_back(pick.record);
    _selection.KeepLivingPicks(_pool->Living(records));
}

// `stepped`: it is another step than the one before.
void WindowTarn::Exchange(bool redo, bool stepped) {
    interaction.reset();
    DropTextEntry();
    const PoolScope scope(_pool);
    const StepMemo memo = _pool->Memo();
    if (stepped) cutPending = memo.mark && !redo;
    if (!redo) ClipboardUndone(*this);
    redo ? _pool->Redo() : _pool->Undo();
    caret.visible = false;
    DropDeadCaret();
    DropDeadPicks();
    RefreshPreferences(_document);
    if (instance == this) KeepScoreSwitches(_document);
    if (redo && memo.mark) ClipboardRedone(*this);
    TakePageSize(_document);
    SetCurrentPage(static_cast<Page*>(redo ? memo.after : memo.before));
    _shell.StateChanged(*this);
}

EditStep::EditStep(WindowTarn& window) : _window(window) {
    window.Activate();
    ClipboardCommandBegins(window);
    MemoryManager::Instance().BeginCommand();
}

EditStep::~EditStep() {
    MemoryManager::Instance().EndCommand();
    _window.Shell().StateChanged(_window);
    _window.Shell().Refresh(_window);
}

void EditStep::Split() {
    MemoryManager::Instance().EndCommand();
    MemoryManager::Instance().BeginCommand();
}

}  // namespace corvane
