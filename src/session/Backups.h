// The versions of files that saves have replaced. Copies of their own, never links: nothing that happens to a
// file happens to its backups. Main thread only.
#pragma once

#include <cstdint>
#include <map>
#include <span>
#include <string>
#include <vector>

#include "base/Status.h"
#include "store/FileLayer.h"

namespace corvane {

struct Backup {
    std::string path;      // of the copy
    std::string original;  // the file it was; only its name where the path is not known any more
    std::string title;     // "Sonata.cvm"
    std::string when;      // "2026-11-21 04:30:42", local time
};

class Backups {
public:
    static constexpr size_t kKept = 5;  // versions of a file

    Backups(FileLayer& files, std::string folder) : _files(files), _folder(std::move(folder)) {}

    // Before `path` is overwritten: a copy of what stands there, unless this session wrote it or the newest
    // backup is the same. The oldest beyond the last five go. The failure says what was not kept; the file
    // itself is never touched.
    Status Keep(const std::string& path);
    // What this session has read from `path`, or written to it.
    void Read(const std::string& path, std::span<const uint8_t> bytes) { Know(path, bytes, false); }
    void Wrote(const std::string& path, std::span<const uint8_t> bytes) { Know(path, bytes, true); }
    // Whether another program has changed the file since.
    bool IsForeign(const std::string& path);

    // Newest first: the versions of one file, or of all files.
    std::vector<Backup> Of(const std::string& path);
    std::vector<Backup> All();
    // Whether a path lies among the backups, where nothing is saved to.
    bool Holds(const std::string& path) const;

private:
    struct Known {
        uint64_t sum;
        bool written;
    };
    void Know(const std::string& path, std::span<const uint8_t> bytes, bool written);
    Status Copy(const std::string& original, std::span<const uint8_t> bytes);
    Status TellOriginal(const std::string& key, const std::string& original);
    void Prune(const std::string& original, const std::string& newest);
    std::string Whole(const std::string& path) const;
    bool Stands(const std::string& path);

    FileLayer& _files;
    std::string _folder;
    std::map<std::string, Known> _known;  // what stood there last, by whole path
};

}  // namespace corvane
