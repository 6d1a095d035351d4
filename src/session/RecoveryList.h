// The unsaved work that programs left that are gone: found, brought back, given up. Main thread only.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "base/Status.h"
#include "store/FileLayer.h"
#include "store/JournalFolder.h"
#include "store/ObjectFile.h"

namespace corvane {

// How the name of a whole journal ends.
inline constexpr const char* kJournalEnding = ".journal";

// What can be offered to the person, a score each.
struct RecoveredScore {
    std::string title, path;  // as the window had them
    bool neverSaved = true;   // `path` is no file then
    int64_t time = 0;         // of its last state, in seconds since 1970; 0 where it is not known
    std::string source;       // tells it from the others
};

class RecoveryList {
public:
    // `rescued`: the folder of what an assertion wrote.
    RecoveryList(JournalFolder& journals, FileLayer& files, std::string rescued)
        : _journals(journals), _files(files), _rescued(std::move(rescued)) {}

    // Takes over all that no living program holds and answers the whole list. What holds no unsaved work is
    // taken away.
    const std::vector<RecoveredScore>& Find();
    // Brings the last sound state back into an empty pool, as a score file is read; the answers are
    // ReadScore's. States that had to be passed over are told in the report.
    Status Load(const RecoveredScore& score, NewMemoryPool& pool, LoadReport& report);
    // Takes the score off the list. What is answered takes it off the disk; until then it stays there, held.
    std::function<void()> Take(const RecoveredScore& score);

private:
    void FindJournals();
    void FindRescued();
    Status LoadJournal(const JournalFile& file, NewMemoryPool& pool, LoadReport& report);

    JournalFolder& _journals;
    FileLayer& _files;
    std::string _rescued;
    std::vector<RecoveredScore> _scores;
    std::map<std::string, std::shared_ptr<JournalFile>> _held;  // by source
};

}  // namespace corvane
