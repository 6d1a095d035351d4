// Files that grow at their ends, each held by one running program: where unsaved work is kept. The system
// frees a file of a program that ends, however it ends; so a file that can be taken over belonged to one that
// is gone.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "base/Status.h"

namespace corvane {

// Any thread, one at a time.
class JournalFile {
public:
    virtual ~JournalFile() = default;  // lets go of the file, which stays where it is

    virtual uint64_t Size() const = 0;
    virtual Status Append(std::span<const uint8_t> bytes) = 0;
    // Once Ok, all that was appended survives a power cut.
    virtual Status Flush() = 0;
    // All of `bytes`, or a failure.
    virtual Status ReadAt(uint64_t at, std::span<uint8_t> bytes) const = 0;
    // Takes a name in the folder, in one step from whichever file has it. Once Ok, the name survives a power
    // cut.
    virtual Status Rename(const std::string& name) = 0;
    // Takes the file out of the folder. Where another file has its name by now, that one stays.
    virtual void Remove() = 0;
};

// Any thread.
class JournalFolder {
public:
    virtual ~JournalFolder() = default;

    // A new empty file that this program holds; the folder is made where it is missing.
    virtual Status Create(const std::string& name, std::unique_ptr<JournalFile>& file) = 0;
    // Sorted; empty where there is no folder.
    virtual std::vector<std::string> Names() = 0;
    // The file, held by this program from now on; null where a living program holds it, this one counted, or
    // where it cannot be told.
    virtual std::unique_ptr<JournalFile> TakeOver(const std::string& name) = 0;
};

}  // namespace corvane
