// The program's window: the open scores as tabs, menus, toolbar, palette, status line. It only translates
// between a person and the session.
#pragma once

#include <QMainWindow>
#include <QTimer>
#include <memory>
#include <string>
#include <vector>

#include "edit/EditorShell.h"
#include "session/Session.h"
#include "shell/FileActions.h"
#include "shell/Notices.h"
#include "shell/PlayControl.h"

namespace corvane {

class ActionSet;
class MixerDock;
class PaletteDock;
class PlayDock;
class ScoreTabs;
class SignDock;
struct SignSheet;
class ScoreView;
class StatusLine;
class ToolStrip;

class MainFrame : public QMainWindow, public EditorShell {
public:
    // What it is given outlives it; the session's shell is the frame.
    MainFrame(SessionParts parts, SettingsStore& settings);
    ~MainFrame() override;

    // Opens the scores, or a new one where there is none, and shows itself; offers what an earlier run left
    // unsaved.
    void Start(const std::vector<std::string>& paths);

    Session& TheSession() { return _session; }
    SettingsStore& Settings() { return _settings; }
    FileActions& Files() { return _files; }
    PlayControl& Player() { return _player; }
    ScoreTabs& Tabs() { return *_tabs; }
    PaletteDock& NotePalette() { return *_palette; }
    const std::vector<SignDock*>& SignPalettes() { return _signs; }
    PlayDock& PlayPalette() { return *_playPalette; }
    MixerDock& Mixer() { return *_mixer; }
    ToolStrip& Toolbar() { return *_toolStrip; }
    ActionSet& Actions() { return *_actions; }
    WindowTarn* CurrentScore();  // null for none
    ScoreView* CurrentView();

    // A tab for a score of the session, which becomes the current one.
    void ShowScore(WindowTarn& window);
    // The score goes, with its tab.
    void DropScore(WindowTarn& window);
    void GoToPage(int number);
    bool ColoursVoices();
    void ColourVoices(bool on);
    bool ShowsMargins();
    void ShowMargins(bool show);
    // Keeps switches of the menus that are preferences.
    void KeepSwitches();
    // Texts, checks and enabled states of everything, as things stand now.
    void RefreshActions();

    void Refresh(WindowTarn& window) override;
    void PageChanged(WindowTarn& window) override;
    void ScrollTo(WindowTarn& window, const Rect& units) override;
    void ToolChanged() override;
    void StateChanged(WindowTarn& window) override;
    void TextEntryChanged(WindowTarn& window) override;
    void Tell(std::string_view text) override;
    void PlayToggled(WindowTarn& window) override;

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void AddSigns(const SignSheet& sheet);
    void TabChanged();
    void ShowWindowTitle();
    void TakeSwitches();
    void OfferRecovered();
    void KeepSafe();
    void RestorePlace();
    void KeepPlace();

    SettingsStore& _settings;
    Notices _notices;
    Session _session;
    FileActions _files;
    PlayControl _player;
    QTimer _safety;  // of unsaved work
    ScoreTabs* _tabs;
    PaletteDock* _palette = nullptr;
    std::vector<SignDock*> _signs;  // of SignSheets, in their order
    std::unique_ptr<ActionSet> _actions;
    ToolStrip* _toolStrip = nullptr;
    StatusLine* _status = nullptr;
    PlayDock* _playPalette = nullptr;
    MixerDock* _mixer = nullptr;
};

}  // namespace corvane
