// Journals as files of a folder, held by the system's own locks on open files.
#pragma once

#include <string>

#include "store/JournalFolder.h"

namespace corvane {

class PosixJournals : public JournalFolder {
public:
    // The folder need not exist; it is made for its owner alone.
    explicit PosixJournals(std::string folder) : _folder(std::move(folder)) {}

    Status Create(const std::string& name, std::unique_ptr<JournalFile>& file) override;
    std::vector<std::string> Names() override;
    std::unique_ptr<JournalFile> TakeOver(const std::string& name) override;

private:
    std::string _folder;
};

}  // namespace corvane
