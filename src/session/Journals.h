// The journals of all windows. Main thread only.
#pragma once

#include <map>
#include <memory>

#include "session/Journal.h"

namespace corvane {

class Journals {
public:
    explicit Journals(JournalFolder& folder) : _folder(folder) {}

    void Open(WindowTarn& window);
    // Before the window goes. With `leave` its unsaved work stays for the next program.
    void Close(WindowTarn& window, bool leave);
    Journal& Of(WindowTarn& window) { return *_journals.at(&window); }

    // A few milliseconds of work, the active window's first. True while there is more to do at once.
    bool Slice(Journal::Time now);
    // Everything, now; returns when it is safe or cannot be made so.
    void MakeSafe();

private:
    void TellFailure(Journal& journal);

    JournalFolder& _folder;
    JournalThread _thread;
    std::map<WindowTarn*, std::unique_ptr<Journal>> _journals;
    bool _told = false;
};

}  // namespace corvane
