#include "platform/files/PosixFiles.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdlib>

namespace corvane {
namespace {

constexpr mode_t kAnyWrite = S_IWUSR | S_IWGRP | S_IWOTH, kPermissions = 07777, kNewFile = 0666;
constexpr int kMostLinks = 40;

class Descriptor {
public:
    Descriptor(const std::string& path, int flags, mode_t mode = 0)
        : _fd(open(path.c_str(), flags | O_CLOEXEC, mode)) {}
    ~Descriptor() {
        if (_fd >= 0) close(_fd);
    }
    Descriptor(const Descriptor&) = delete;
    explicit operator bool() const { return _fd >= 0; }
    operator int() const { return _fd; }
    // Ends it now; some systems tell only here that a write was lost.
    bool Close() {
        const int fd = _fd;
        _fd = -1;
        return close(fd) == 0;
    }

private:
    int _fd;
};

// What errno means for somebody who saves.
Status SaveFault() {
    if (errno == ENOSPC || errno == EDQUOT || errno == EFBIG) return {Fault::NoSpace, kNoSpaceToSave};
    if (errno == EACCES || errno == EPERM || errno == EROFS || errno == ENOENT || errno == EISDIR ||
        errno == ENOTDIR)
        return {Fault::ReadOnly, kFileReadOnly};
    return {Fault::NoSpace, "Can't save, the disk reports an error"};
}
Status SaveResult(bool good) { return good ? Status::Ok() : SaveFault(); }

Status NotFound() { return {Fault::NotFound, kFileNotFound}; }

std::string FolderOf(const std::string& path) {
    const size_t slash = path.rfind('/');
    if (slash == std::string::npos) return ".";
    return slash ? path.substr(0, slash) : "/";
}

bool ReadAll(int fd, std::vector<uint8_t>& bytes) {
    size_t used = 0;
    while (used < bytes.size()) {
        const ssize_t got = read(fd, bytes.data() + used, bytes.size() - used);
        if (got < 0 && errno == EINTR) continue;
        if (got <= 0) break;
        used += static_cast<size_t>(got);
    }
    const bool whole = used == bytes.size();
    bytes.resize(used);
    return whole;
}

bool WriteAll(int fd, std::span<const uint8_t> bytes) {
    while (!bytes.empty()) {
        const ssize_t put = write(fd, bytes.data(), bytes.size());
        if (put < 0 && errno == EINTR) continue;
        if (put <= 0) return false;
        bytes = bytes.subspan(static_cast<size_t>(put));
    }
    return true;
}

}  // namespace

Status PosixFiles::Read(const std::string& path, std::vector<uint8_t>& bytes) {
    bytes.clear();
    // Not to hang on a pipe that nobody writes to.
    const Descriptor file(path, O_RDONLY | O_NONBLOCK);
    struct stat about;
    if (!file || fstat(file, &about) != 0 || !S_ISREG(about.st_mode)) return NotFound();
    bytes.resize(static_cast<size_t>(about.st_size));
    return ReadAll(file, bytes) ? Status::Ok() : NotFound();
}

Status PosixFiles::Resolve(const std::string& path, std::string& target) {
    target = path;
    char link[PATH_MAX];
    for (int i = 0; i < kMostLinks; ++i) {
        const ssize_t length = readlink(target.c_str(), link, sizeof link);
        if (length < 0) return Status::Ok();  // no link: a file, or nothing yet
        const std::string to(link, static_cast<size_t>(length));
        target = to.starts_with('/') ? to : FolderOf(target) + "/" + to;
    }
    return {Fault::ReadOnly, kFileReadOnly};
}

Status PosixFiles::CheckWritable(const std::string& path) {
    std::string target;
    if (Status status = Resolve(path, target); !status) return status;
    struct stat about;
    // Write permission that nobody has counts, even for one whom no permission stops.
    if (stat(target.c_str(), &about) == 0) {
        if (!S_ISREG(about.st_mode) || !(about.st_mode & kAnyWrite) || access(target.c_str(), W_OK) != 0)
            return {Fault::ReadOnly, kFileReadOnly};
    }
    const std::string folder = FolderOf(target);
    if (stat(folder.c_str(), &about) != 0 || !S_ISDIR(about.st_mode) || !(about.st_mode & kAnyWrite) ||
        access(folder.c_str(), W_OK | X_OK) != 0)
        return {Fault::ReadOnly, kFileReadOnly};
    return Status::Ok();
}

Status PosixFiles::CreateBeside(const std::string& target, std::string& temporary) {
    struct stat about;
    const bool replaces = stat(target.c_str(), &about) == 0;
    for (int i = 0; i < 1000; ++i) {
        const std::string name = target + ".saving" + std::to_string(getpid()) + "-" + std::to_string(i);
        const Descriptor file(name, O_WRONLY | O_CREAT | O_EXCL, replaces ? S_IRUSR | S_IWUSR : kNewFile);
        if (!file && errno == EEXIST) continue;
        if (!file) return SaveFault();
        temporary = name;
        if (!replaces) return Status::Ok();
        // The owner is kept where we may; the permissions come after it, for a new owner clears some.
        if (fchown(file, about.st_uid, about.st_gid) != 0 &&
            fchown(file, static_cast<uid_t>(-1), about.st_gid) != 0) {
        }
        return SaveResult(fchmod(file, about.st_mode & kPermissions) == 0);
    }
    return {Fault::ReadOnly, kFileReadOnly};
}

Status PosixFiles::Write(const std::string& path, std::span<const uint8_t> bytes) {
    Descriptor file(path, O_WRONLY | O_TRUNC);
    return SaveResult(file && WriteAll(file, bytes) && file.Close());
}

Status PosixFiles::Flush(const std::string& path) {
    Descriptor file(path, O_RDONLY);
    return SaveResult(file && fsync(file) == 0);
}

Status PosixFiles::Rename(const std::string& from, const std::string& to) {
    return SaveResult(rename(from.c_str(), to.c_str()) == 0);
}

Status PosixFiles::FlushFolder(const std::string& path) {
    const Descriptor folder(FolderOf(path), O_RDONLY | O_DIRECTORY);
    // Some file systems know no flush of a folder: their names are as safe as they get.
    return SaveResult(folder && (fsync(folder) == 0 || errno == EINVAL));
}

Status PosixFiles::Remove(const std::string& path) { return SaveResult(unlink(path.c_str()) == 0); }

Status PosixFiles::List(const std::string& folder, std::vector<std::string>& names) {
    names.clear();
    DIR* open = opendir(folder.c_str());
    if (!open) return NotFound();
    while (const dirent* entry = readdir(open)) {
        struct stat about;
        if (fstatat(dirfd(open), entry->d_name, &about, 0) == 0 && !S_ISDIR(about.st_mode))
            names.emplace_back(entry->d_name);
    }
    closedir(open);
    std::sort(names.begin(), names.end());
    return Status::Ok();
}

Status PosixFiles::MakeFolder(const std::string& folder) {
    struct stat about;
    if (stat(folder.c_str(), &about) == 0) {
        errno = ENOTDIR;
        return SaveResult(S_ISDIR(about.st_mode));
    }
    const std::string above = FolderOf(folder);
    if (above != folder && above != ".")
        if (Status status = MakeFolder(above); !status) return status;
    return SaveResult(mkdir(folder.c_str(), 0777) == 0 || errno == EEXIST);
}

}  // namespace corvane
