// Start-up and shut-down order, the score windows, new, open, save, close. All of it runs without a screen.
// Main thread only.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "base/Status.h"
#include "edit/WindowTarn.h"
#include "interchange/ImportOptions.h"
#include "interchange/ImportProgress.h"
#include "layout/ScoreBuilder.h"
#include "model/SessionPreferences.h"
#include "session/Backups.h"
#include "session/RecoveryList.h"
#include "store/FileLayer.h"
#include "store/JournalFolder.h"
#include "store/SettingsStore.h"

namespace corvane {

class Journals;

// What the program lends the session; everything outlives it.
struct SessionParts {
    FileLayer* files = nullptr;
    SettingsStore* settings = nullptr;
    EditorShell* shell = nullptr;       // null for a headless run
    JournalFolder* journals = nullptr;  // null where no unsaved work is kept
    std::string stateFolder;            // of backups and of what an assertion saves; empty for none
};

class Session {
public:
    // The fixed order: memory, class table, settings (missing ones are created with defaults), command
    // observer.
    explicit Session(const SessionParts& parts);
    // Closes all windows. What is still unsaved then was closed by nobody: it is left to the next start.
    ~Session();

    // A new score titled "Untitled" in a window of its own, which becomes active. Staffs: letters of a staff
    // string.
    WindowTarn* NewScore();          // by the preferences
    PageLayout UsualLayout() const;  // that of the preferences
    WindowTarn* NewScore(const PageLayout& layout, const std::string& staffs);
    // A window with the score of a file. Null with "File not found" or "Invalid file"; nothing else has
    // changed then. `healed` gets a line for each thing that was mended on the way in.
    WindowTarn* Open(const std::string& path, Status& status, std::vector<std::string>* healed = nullptr);
    // The same with a score made of a MIDI file, never saved, named after the file.
    WindowTarn* Import(const std::string& path, const ImportOptions& options, ImportProgress& progress,
                       Status& status);
    // Writes the window's score; on success its path, title and modified mark follow. The version that
    // another session wrote is kept as a backup first; when that fails the save goes on and the person is
    // told.
    Status Save(WindowTarn& window, const std::string& path);
    // Unsaved work goes with the window.
    void Close(WindowTarn* window);

    // ---- unsaved work, kept against the end of the program or the machine
    // To be called at least every 100 ms while no event waits: some milliseconds of work at most. True when
    // more is to be done at the next chance.
    bool KeepSafe();
    // Everything, now: before the program is ended from outside.
    void MakeSafe();
    // What programs left that are gone, newest first. It stays on the disk until it is opened or discarded.
    std::vector<RecoveredScore> FindRecovered();
    // In a window of its own, changed, under its path or as never saved. Null with "Invalid file"; the work
    // stays then.
    WindowTarn* OpenRecovered(const RecoveredScore& score, Status& status,
                              std::vector<std::string>* healed = nullptr);
    void DiscardRecovered(const RecoveredScore& score);

    // ---- backups, newest first; of one file or, with an empty path, of all
    std::vector<Backup> FindBackups(const std::string& path = {});
    // In a window of its own, never saved: the file it was stays as it is until the person saves over it.
    WindowTarn* OpenBackup(const Backup& backup, Status& status, std::vector<std::string>* healed = nullptr);

    const std::vector<std::unique_ptr<WindowTarn>>& Windows() const { return _windows; }
    SessionPreferences& Preferences() { return _preferences; }
    // Writes the preferences back; a store that cannot be written is reported.
    Status StorePreferences();
    // The last four files, newest first.
    std::vector<std::string> RecentFiles() const;

private:
    using Load = std::function<Status(NewMemoryPool& pool, LoadReport& report)>;
    WindowTarn* Join(std::unique_ptr<WindowTarn> window);
    WindowTarn* OpenBy(const Load& load, Status& status, std::vector<std::string>* healed);
    void Remember(const std::string& path);

    SessionParts _parts;
    SessionPreferences _preferences;
    std::unique_ptr<Backups> _backups;         // null where none are kept
    std::unique_ptr<Journals> _journals;       // null where no unsaved work is kept
    std::unique_ptr<RecoveryList> _recovered;  // as _journals
    std::vector<std::unique_ptr<WindowTarn>> _windows;
};

}  // namespace corvane
