// The steps in which a file is read and replaced, each of which can fail, and the one protocol built of them.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "base/Status.h"

namespace corvane {

inline constexpr const char* kFileNotFound = "File not found";
inline constexpr const char* kFileReadOnly = "Can't save, the file is read-only";
inline constexpr const char* kNoSpaceToSave = "Not enough space on disk to save";

// Paths are UTF-8 as the system takes them. Every operation tells a failure by NotFound, ReadOnly or NoSpace
// with the sentence for the person. Any thread, one at a time for one path.
class FileLayer {
public:
    virtual ~FileLayer() = default;

    // Does not follow into a pipe or a device: only a regular file has contents here.
    virtual Status Read(const std::string& path, std::vector<uint8_t>& bytes) = 0;
    // Where a write to `path` ends up, symbolic links followed; the file itself need not exist.
    virtual Status Resolve(const std::string& path, std::string& target) = 0;
    // ReadOnly for an existing file without the right to write, and for a folder in which no file can be
    // made.
    virtual Status CheckWritable(const std::string& target) = 0;
    // An empty file beside `target` under a name of its own, with the permissions of `target` if that exists.
    virtual Status CreateBeside(const std::string& target, std::string& temporary) = 0;
    // Replaces the contents of a file made by CreateBeside.
    virtual Status Write(const std::string& path, std::span<const uint8_t> bytes) = 0;
    // Once Ok, the contents survive a power cut.
    virtual Status Flush(const std::string& path) = 0;
    // In one step: whoever opens `to` finds the old or the new file, whole.
    virtual Status Rename(const std::string& from, const std::string& to) = 0;
    // Once Ok, names made and taken in the folder of `path` survive a power cut.
    virtual Status FlushFolder(const std::string& path) = 0;
    virtual Status Remove(const std::string& path) = 0;
    // Names in a folder, sorted, without its sub-folders.
    virtual Status List(const std::string& folder, std::vector<std::string>& names) = 0;
    // The folder and all above it; Ok where it exists.
    virtual Status MakeFolder(const std::string& folder) = 0;
};

// Temporary file beside the target, flushed, read back and compared, then put in the target's place in one
// step. A failure at any point leaves the old file whole and no temporary file that could be removed. The one
// exception: where only the last flush of the folder fails, the new file stands already and the answer still
// tells the failure.
Status ReplaceFile(FileLayer& files, const std::string& path, std::span<const uint8_t> bytes);

}  // namespace corvane
