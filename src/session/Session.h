// Start-up and shut-down order, the score windows, new, open, save, close. All of it runs without a screen. Main thread
// only.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "base/Status.h"
#include "edit/WindowTarn.h"
#include "layout/ScoreBuilder.h"
#include "model/SessionPreferences.h"
#include "store/FileLayer.h"
#include "store/SettingsStore.h"

namespace corvane {

// What the program lends the session; everything outlives it.
struct SessionParts {
    FileLayer* files = nullptr;
    SettingsStore* settings = nullptr;
    EditorShell* shell = nullptr;          // null for a headless run
};

class Session {
public:
    // The fixed order: memory, class table, settings (missing ones are created with defaults), command observer.
    explicit Session(const SessionParts& parts);
    ~Session();  // closes all windows

    // A new score titled "Untitled" in a window of its own, which becomes active. Staffs: letters of a staff string.
    WindowTarn* NewScore();  // by the preferences
    WindowTarn* NewScore(const PageLayout& layout, const std::string& staffs);
    // A window with the score of a file. Null with "File not found" or "Invalid file"; nothing else has changed then.
    // `healed` gets a line for each thing that was mended on the way in.
    WindowTarn* Open(const std::string& path, Status& status, std::vector<std::string>* healed = nullptr);
    // Writes the window's score; on success its path, title and modified mark follow.
    Status Save(WindowTarn& window, const std::string& path);
    void Close(WindowTarn* window);

    const std::vector<std::unique_ptr<WindowTarn>>& Windows() const { return _windows; }
    SessionPreferences& Preferences() { return _preferences; }
    // Writes the preferences back; a store that cannot be written is reported.
    Status StorePreferences();
    // The last four files, newest first.
    std::vector<std::string> RecentFiles() const;

private:
    void Remember(const std::string& path);

    SessionParts _parts;
    SessionPreferences _preferences;
    std::vector<std::unique_ptr<WindowTarn>> _windows;
};

}  // namespace corvane
