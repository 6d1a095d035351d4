#include "shell/MainFrame.h"

#include <QAction>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QUrl>
#include <algorithm>

#include "edit/ToolState.h"
#include "edit/WindowTarn.h"
#include "layout/Beaming.h"
#include "shell/ActionSet.h"
#include "shell/AuditionPlayer.h"
#include "shell/MenuTable.h"
#include "shell/MixerDock.h"
#include "shell/PaletteDock.h"
#include "shell/PlayDock.h"
#include "shell/ScoreTabs.h"
#include "shell/ScoreView.h"
#include "shell/SignDock.h"
#include "shell/StatusLine.h"
#include "shell/ToolIcons.h"
#include "shell/ToolStrip.h"

namespace corvane {
namespace {

constexpr const char* kPlaceKey = "Settings/Window";
constexpr int kWidth = 1280, kHeight = 860;
constexpr int kSafetyMilliseconds = 80;

constexpr int kContextMenu[] = {kCutId, kCopyId, kPasteId, kClearId, 0, kSelectAllId, kSelectNothingId};

QAction* ParterOf(QWidget& menu) {
    auto* parter = new QAction(&menu);
    parter->setSeparator(true);
    return parter;
}

QByteArray ReadBytes(const SettingsStore& settings, const char* name) {
    std::vector<uint8_t> bytes;
    if (!settings.Read(kPlaceKey, name, bytes)) return {};
    return QByteArray(reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(bytes.size()));
}

void WriteBytes(SettingsStore& settings, const char* name, const QByteArray& bytes) {
    const auto* data = reinterpret_cast<const uint8_t*>(bytes.constData());
    settings.Write(kPlaceKey, name, {data, static_cast<size_t>(bytes.size())});
}

SessionParts WithShell(SessionParts parts, EditorShell& shell) {
    parts.shell = &shell;
    return parts;
}

}  // namespace

MainFrame::MainFrame(SessionParts parts, SettingsStore& settings)
    : _settings(settings),
      _notices(*this, [this](std::string_view text) { Tell(text); }),
      _session(WithShell(std::move(parts), *this)),
      _files(*this),
      _player(*this),
      _tabs(new ScoreTabs) {
    TakeSwitches();
    setWindowIcon(ToolIcon(ToolPicture::Program));
    setAcceptDrops(true);
    setCentralWidget(_tabs);
    _tabs->OnClosing([this](WindowTarn& window) { _files.Close(window); });
    connect(_tabs, &QTabWidget::currentChanged, this, [this] { TabChanged(); });
    _palette = new PaletteDock;
    addDockWidget(Qt::LeftDockWidgetArea, _palette);
    for (const SignSheet& sheet : SignSheets()) AddSigns(sheet);
    _actions = std::make_unique<ActionSet>(*this);
    _toolStrip = new ToolStrip(*this);
    addToolBar(_toolStrip);
    _status = new StatusLine;
    setStatusBar(_status);
    _playPalette = new PlayDock(*this);
    addDockWidget(Qt::BottomDockWidgetArea, _playPalette);
    _mixer = new MixerDock(*this);
    addDockWidget(Qt::BottomDockWidgetArea, _mixer);
    splitDockWidget(_playPalette, _mixer, Qt::Vertical);
    for (QDockWidget* dock : {static_cast<QDockWidget*>(_playPalette), static_cast<QDockWidget*>(_mixer)})
        connect(dock, &QDockWidget::visibilityChanged, this, [this] { RefreshActions(); });
    connect(_palette, &QDockWidget::visibilityChanged, this, [this] { RefreshActions(); });
    connect(_toolStrip, &QToolBar::visibilityChanged, this, [this] { RefreshActions(); });
    BeginAuditions();
    RestorePlace();
    RefreshActions();
}

void MainFrame::AddSigns(const SignSheet& sheet) {
    auto* dock = new SignDock(sheet);
    addDockWidget(Qt::LeftDockWidgetArea, dock);
    // One place for all of them: side by side they would push the window over the screen's edge.
    if (!_signs.empty()) tabifyDockWidget(_signs.front(), dock);
    dock->hide();
    connect(dock, &QDockWidget::visibilityChanged, this, [this] { RefreshActions(); });
    _signs.push_back(dock);
}

MainFrame::~MainFrame() {
    EndAuditions();
    for (SignDock* dock : _signs) dock->disconnect(this);
    _safety.stop();
    for (QObject* part : std::initializer_list<QObject*>{_palette, _playPalette, _mixer, _toolStrip, _tabs})
        part->disconnect(this);
    delete _tabs;  // the views before the scores that they show
}

void MainFrame::Start(const std::vector<std::string>& paths) {
    if (paths.empty()) _files.NewDefault();
    show();
    QTimer::singleShot(0, this, [this, paths] {
        _notices.FrameIsShown();
        for (const std::string& path : paths) _files.OpenPath(path);
        OfferRecovered();
    });
    _safety.setSingleShot(true);
    connect(&_safety, &QTimer::timeout, this, [this] { KeepSafe(); });
    _safety.start(kSafetyMilliseconds);
}

void MainFrame::OfferRecovered() {
    const std::vector<RecoveredScore> found = _session.FindRecovered();
    if (!found.empty()) _files.OfferRecovered(found);
}

void MainFrame::KeepSafe() { _safety.start(_session.KeepSafe() ? 0 : kSafetyMilliseconds); }

// ---- scores

WindowTarn* MainFrame::CurrentScore() { return _tabs->CurrentWindow(); }
ScoreView* MainFrame::CurrentView() { return _tabs->Current(); }

void MainFrame::ShowScore(WindowTarn& window) {
    window.Sheet().SetColouring({ColoursVoices(), _session.Preferences().voiceColours});
    window.Sheet().SetEditVoice(Tools().currentVoice);
    ScoreView* view = _tabs->Add(window);
    view->ShowMargins(ShowsMargins());
    view->setContextMenuPolicy(Qt::ActionsContextMenu);
    for (const int id : kContextMenu) view->addAction(id ? _actions->Of(id) : ParterOf(*view));
    view->OnZoomed([this] { _toolStrip->Refresh(); });
    TabChanged();
}

void MainFrame::DropScore(WindowTarn& window) {
    _player.Leave(window);
    _tabs->Remove(window);
    _session.Close(&window);
    TabChanged();
}

void MainFrame::TabChanged() {
    if (ScoreView* view = CurrentView()) {
        view->Window().Activate();
        view->setFocus();
    }
    RefreshActions();
}

void MainFrame::GoToPage(int number) {
    WindowTarn* window = CurrentScore();
    if (!window) return;
    for (Page* page : documentPages.Of(window->GetDocument()))
        if (page->_pageNumber == number && page != window->CurrentPage()) return window->SetCurrentPage(page);
}

// ---- preferences

void MainFrame::TakeSwitches() {
    const SessionPreferences& preferences = _session.Preferences();
    Switches().playbackNotes = IsOn(preferences, SessionWord::PlaybackNotes);
    Switches().deleteNotesToRests = IsOn(preferences, SessionWord::DeleteNotesToRests);
    SetUndoLevels(GetWord(preferences, SessionWord::UndoLevels));
    SetAngledBeams(IsOn(preferences, SessionWord::AngledBeam));
}

void MainFrame::KeepSwitches() {
    SessionPreferences& preferences = _session.Preferences();
    SetWord(preferences, SessionWord::PlaybackNotes, Switches().playbackNotes);
    SetWord(preferences, SessionWord::DeleteNotesToRests, Switches().deleteNotesToRests);
    SetWord(preferences, SessionWord::UndoLevels, Switches().undoLevels);
    SetWord(preferences, SessionWord::AngledBeam, AngledBeams());
    if (const Status status = _session.StorePreferences(); !status) Tell(status.message());
}

bool MainFrame::ColoursVoices() { return IsOn(_session.Preferences(), SessionWord::VoiceColouring); }

void MainFrame::ColourVoices(bool on) {
    SetWord(_session.Preferences(), SessionWord::VoiceColouring, on);
    KeepSwitches();
    for (const auto& window : _session.Windows()) {
        window->Sheet().SetColouring({on, _session.Preferences().voiceColours});
        window->Sheet().MarkAllDirty();
        Refresh(*window);
    }
}

bool MainFrame::ShowsMargins() { return IsOn(_session.Preferences(), SessionWord::ShowMargins); }

void MainFrame::ShowMargins(bool show) {
    SetWord(_session.Preferences(), SessionWord::ShowMargins, show);
    KeepSwitches();
    for (const auto& window : _session.Windows())
        if (ScoreView* view = _tabs->ViewOf(*window)) view->ShowMargins(show);
}

// ---- what editing asks for

void MainFrame::Refresh(WindowTarn& window) {
    if (ScoreView* view = _tabs->ViewOf(window)) view->viewport()->update();
}

void MainFrame::PageChanged(WindowTarn& window) {
    if (ScoreView* view = _tabs->ViewOf(window)) view->PageChanged();
    if (_toolStrip) _toolStrip->Refresh();
}

void MainFrame::ScrollTo(WindowTarn& window, const Rect& units) {
    if (ScoreView* view = _tabs->ViewOf(window)) view->ScrollTo(units);
}

void MainFrame::ToolChanged() {
    _palette->ToolChanged();
    if (Tools().toolMode == ModePencil && Tools().paletteGroup == kNoteGroup) _palette->raise();
    for (SignDock* dock : _signs) dock->ToolChanged();
    _toolStrip->Refresh();
    _actions->Refresh();  // what is selected counts for the voice at hand
    _status->ToolChanged();
    if (ScoreView* view = CurrentView()) view->ToolChanged();
}

void MainFrame::TextEntryChanged(WindowTarn& window) {
    if (ScoreView* view = _tabs->ViewOf(window)) view->TextEntryChanged();
}

void MainFrame::StateChanged(WindowTarn& window) {
    _tabs->ShowTitle(window);
    if (&window == CurrentScore()) RefreshActions();
}

void MainFrame::Tell(std::string_view text) {
    if (_status) _status->Tell(text);
}

void MainFrame::PlayToggled(WindowTarn& window) { _player.Toggle(window); }

void MainFrame::RefreshActions() {
    if (!_status) return;  // still being built
    ShowWindowTitle();
    _actions->Refresh();
    _toolStrip->Refresh();
    _palette->setEnabled(CurrentScore() && !IsPlaying());
    for (SignDock* dock : _signs) dock->setEnabled(CurrentScore() && !IsPlaying());
    _playPalette->Refresh();
    _mixer->Refresh();
    _player.RefreshThru();
}

void MainFrame::ShowWindowTitle() {
    const WindowTarn* window = CurrentScore();
    const QString title = window ? QString::fromStdString(window->Title()) + "[*] - Corvane" : "Corvane";
    if (windowTitle() != title) setWindowTitle(title);
    setWindowModified(window && window->Modified());
}

// ---- the window's own events

void MainFrame::closeEvent(QCloseEvent* event) {
    _player.Stop();
    if (!_files.CloseAll()) return event->ignore();
    KeepPlace();
    event->accept();
}

// Keys that the focused part of the window has no use for belong to the score.
void MainFrame::keyPressEvent(QKeyEvent* event) {
    ScoreView* view = CurrentView();
    if (view && view->TakeKey(*event)) return;
    if (!_actions->TellWhyNot(*event)) QMainWindow::keyPressEvent(event);
}

void MainFrame::dragEnterEvent(QDragEnterEvent* event) {
    if (event->mimeData()->hasUrls()) event->acceptProposedAction();
}

void MainFrame::dropEvent(QDropEvent* event) {
    for (const QUrl& url : event->mimeData()->urls())
        if (url.isLocalFile()) _files.OpenPath(url.toLocalFile().toStdString());
}

void MainFrame::RestorePlace() {
    resize(kWidth, kHeight);
    restoreGeometry(ReadBytes(_settings, "Geometry"));
    restoreState(ReadBytes(_settings, "State"));
}

void MainFrame::KeepPlace() {
    WriteBytes(_settings, "Geometry", saveGeometry());
    WriteBytes(_settings, "State", saveState());
    (void)_settings.Commit();
}

}  // namespace corvane
