#include "platform/files/PosixJournals.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

#include "store/FileLayer.h"

namespace corvane {
namespace {

constexpr mode_t kOwnerOnly = 0700, kOwnFile = 0600;

Status DiskFault() {
    if (errno == ENOSPC || errno == EDQUOT || errno == EFBIG) return {Fault::NoSpace, kNoSpaceToSave};
    if (errno == EACCES || errno == EPERM || errno == EROFS) return {Fault::ReadOnly, kFileReadOnly};
    return {Fault::NoSpace, "The disk reports an error"};
}
Status Result(bool good) { return good ? Status::Ok() : DiskFault(); }

// An open file or folder, given back at the end.
class Descriptor {
public:
    explicit Descriptor(int fd) : _fd(fd) {}
    Descriptor(Descriptor&& other) noexcept : _fd(other._fd) { other._fd = -1; }
    Descriptor(const Descriptor&) = delete;
    ~Descriptor() {
        if (_fd >= 0) close(_fd);
    }
    explicit operator bool() const { return _fd >= 0; }
    operator int() const { return _fd; }

private:
    int _fd;
};

int LockFile(int fd, int how) {
    int result;
    do result = flock(fd, how);
    while (result != 0 && errno == EINTR);
    return result;
}

// Keeps other programs from judging a file between its making and its being held.
class FolderHold {
public:
    explicit FolderHold(const std::string& folder)
        : _folder(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
        if (_folder) LockFile(_folder, LOCK_EX);
    }

private:
    Descriptor _folder;
};

class PosixJournal : public JournalFile {
public:
    PosixJournal(Descriptor file, std::string folder, const std::string& name, uint64_t size)
        : _file(std::move(file)), _folder(std::move(folder)), _path(_folder + "/" + name), _size(size) {}

    uint64_t Size() const override { return _size; }

    Status Append(std::span<const uint8_t> bytes) override {
        while (!bytes.empty()) {
            const ssize_t put = pwrite(_file, bytes.data(), bytes.size(), static_cast<off_t>(_size));
            if (put < 0 && errno == EINTR) continue;
            if (put <= 0) return DiskFault();
            _size += static_cast<size_t>(put);
            bytes = bytes.subspan(static_cast<size_t>(put));
        }
        return Status::Ok();
    }

    Status Flush() override { return Result(fdatasync(_file) == 0); }

    Status ReadAt(uint64_t at, std::span<uint8_t> bytes) const override {
        while (!bytes.empty()) {
            const ssize_t got = pread(_file, bytes.data(), bytes.size(), static_cast<off_t>(at));
            if (got < 0 && errno == EINTR) continue;
            if (got <= 0) return {Fault::Damaged, "The disk reports an error"};
            at += static_cast<size_t>(got);
            bytes = bytes.subspan(static_cast<size_t>(got));
        }
        return Status::Ok();
    }

    Status Rename(const std::string& name) override {
        const std::string path = _folder + "/" + name;
        if (rename(_path.c_str(), path.c_str()) != 0) return DiskFault();
        _path = path;
        const Descriptor folder(open(_folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        // Some file systems know no flush of a folder: their names are as safe as they get.
        return Result(folder && (fsync(folder) == 0 || errno == EINVAL));
    }

    void Remove() override {
        struct stat own, named;
        if (fstat(_file, &own) != 0 || stat(_path.c_str(), &named) != 0) return;
        if (own.st_ino == named.st_ino && own.st_dev == named.st_dev) unlink(_path.c_str());
    }

private:
    Descriptor _file;
    std::string _folder, _path;
    uint64_t _size;
};

bool MakeFolders(const std::string& folder) {
    struct stat about;
    if (stat(folder.c_str(), &about) == 0) return S_ISDIR(about.st_mode);
    const size_t slash = folder.rfind('/');
    if (slash != std::string::npos && slash > 0 && !MakeFolders(folder.substr(0, slash))) return false;
    return mkdir(folder.c_str(), kOwnerOnly) == 0 || errno == EEXIST;
}

}  // namespace

Status PosixJournals::Create(const std::string& name, std::unique_ptr<JournalFile>& file) {
    if (!MakeFolders(_folder)) return DiskFault();
    const FolderHold hold(_folder);
    Descriptor made(open((_folder + "/" + name).c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, kOwnFile));
    if (!made) return DiskFault();
    // Where a file system knows no locks, nobody can take the file over either.
    LockFile(made, LOCK_EX | LOCK_NB);
    file = std::make_unique<PosixJournal>(std::move(made), _folder, name, 0);
    return Status::Ok();
}

std::vector<std::string> PosixJournals::Names() {
    std::vector<std::string> names;
    DIR* folder = opendir(_folder.c_str());
    if (!folder) return names;
    while (const dirent* entry = readdir(folder))
        if (entry->d_name[0] != '.') names.emplace_back(entry->d_name);
    closedir(folder);
    std::sort(names.begin(), names.end());
    return names;
}

std::unique_ptr<JournalFile> PosixJournals::TakeOver(const std::string& name) {
    const FolderHold hold(_folder);
    Descriptor file(open((_folder + "/" + name).c_str(), O_RDWR | O_NONBLOCK | O_NOFOLLOW | O_CLOEXEC));
    struct stat about;
    if (!file || LockFile(file, LOCK_EX | LOCK_NB) != 0) return nullptr;
    if (fstat(file, &about) != 0 || !S_ISREG(about.st_mode)) return nullptr;
    // Whoever held it until now may just have taken it out or put another in its place.
    struct stat named;
    if (stat((_folder + "/" + name).c_str(), &named) != 0 || named.st_ino != about.st_ino) return nullptr;
    return std::make_unique<PosixJournal>(std::move(file), _folder, name,
                                          static_cast<uint64_t>(about.st_size));
}

}  // namespace corvane
