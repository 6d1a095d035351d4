#include "session/Journals.h"

#include <cstdio>
#include <ctime>
#include <limits>
#include <random>

#include "base/Notify.h"
#include "edit/WindowTarn.h"
#include "session/RecoveryList.h"

namespace corvane {
namespace {

constexpr std::chrono::milliseconds kSlice{4};

// Tells no two journals of any two programs the same name.
std::string NewName() {
    std::random_device random;
    char name[64];
    std::snprintf(name, sizeof name, "%llx-%08x%08x", static_cast<unsigned long long>(std::time(nullptr)),
                  random(), random());
    return name + std::string(kJournalEnding);
}

}  // namespace

void Journals::Open(WindowTarn& window) {
    _journals[&window] = std::make_unique<Journal>(_thread, _folder, NewName(), window);
}

void Journals::Close(WindowTarn& window, bool leave) {
    const auto found = _journals.find(&window);
    if (found == _journals.end()) return;
    if (leave) found->second->Leave();
    _journals.erase(found);
}

void Journals::TellFailure(Journal& journal) {
    if (!journal.TakeFailure() || _told) return;
    _told = true;
    Notify(
        Severity::Message,
        "The disk takes no copy of unsaved work: what is not saved would be lost if the program ended now.");
}

bool Journals::Slice(Journal::Time now) {
    JournalBudget budget;
    budget.end = std::chrono::steady_clock::now() + kSlice;
    bool more = false;
    const auto active = _journals.find(WindowTarn::instance);
    if (active != _journals.end()) more = active->second->Slice(now, budget);
    for (auto other = _journals.begin(); other != _journals.end(); ++other)
        if (other != active) more |= other->second->Slice(now, budget);
    for (const auto& [window, journal] : _journals) TellFailure(*journal);
    return more;
}

void Journals::MakeSafe() {
    for (bool more = true; more;) {
        more = false;
        JournalBudget budget{std::numeric_limits<int>::max(), Journal::Time::max()};
        for (const auto& [window, journal] : _journals) {
            journal->Slice(std::chrono::steady_clock::now(), budget, true);
            more |= journal->Behind();
        }
        _thread.Wait();
    }
}

}  // namespace corvane
