#include "platform/files/FileSettings.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cstdlib>
#include <utility>

#include "base/Assert.h"

namespace corvane {
namespace {

// Holds other programs off a folder while it lives. Where a file system knows no locks, nobody is held off.
class FolderLock {
public:
    explicit FolderLock(const std::string& folder)
        : _fd(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
        if (_fd >= 0) flock(_fd, LOCK_EX);
    }
    ~FolderLock() {
        if (_fd >= 0) close(_fd);
    }
    FolderLock(const FolderLock&) = delete;

private:
    int _fd;
};

std::string Environment(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

}  // namespace

std::string ConfigFolder() {
    if (const std::string own = Environment("CORVANE_CONFIG_DIR"); !own.empty()) return own;
    // A relative one is to be ignored.
    if (const std::string xdg = Environment("XDG_CONFIG_HOME"); xdg.starts_with('/')) return xdg + "/corvane";
    return Environment("HOME") + "/.config/corvane";
}

FileSettings::FileSettings(FileLayer& files, std::string folder)
    : _files(files), _folder(std::move(folder)), _path(_folder + "/settings") {
    std::vector<uint8_t> text;
    if (!_files.Read(_path, text) || ParseSettings(text, _keys)) return;
    // Looked at once more behind the lock: another program may have put a sound one in its place.
    const FolderLock lock(_folder);
    Load(_keys);
}

// False where there is no sound file; a damaged one is out of the way then.
bool FileSettings::Load(SettingsKeys& keys) {
    std::vector<uint8_t> text;
    if (!_files.Read(_path, text)) return false;
    if (ParseSettings(text, keys)) return true;
    std::string aside = _path + ".damaged";
    for (int n = 2; _files.Read(aside, text); ++n) aside = _path + ".damaged" + std::to_string(n);
    const bool kept = _files.Rename(_path, aside).ok();
    _message = "The settings could not be read, the program starts with its own." +
               (kept ? " The former ones are kept in " + aside : std::string());
    return false;
}

std::string FileSettings::TakeMessage() { return std::exchange(_message, {}); }

bool FileSettings::Open(std::string_view key) const { return _keys.find(key) != _keys.end(); }

bool FileSettings::Read(std::string_view key, std::string_view name, std::vector<uint8_t>& value) const {
    const auto values = _keys.find(key);
    if (values == _keys.end()) return false;
    const auto found = values->second.find(name);
    if (found == values->second.end()) return false;
    value = found->second;
    return true;
}

void FileSettings::Create(std::string_view key) { Record({std::string(key), {}, {}}); }

void FileSettings::Write(std::string_view key, std::string_view name, std::span<const uint8_t> value) {
    CORVANE_ASSERT(IsSettingsName(name));
    Record({std::string(key), std::string(name), std::vector<uint8_t>(value.begin(), value.end())});
}

void FileSettings::Remove(std::string_view key, std::string_view name) {
    Record({std::string(key), std::string(name), {}});
}

void FileSettings::Record(Change change) {
    CORVANE_ASSERT(IsSettingsName(change.key));
    Apply(change, _keys);
    _changes.push_back(std::move(change));
}

void FileSettings::Apply(const Change& change, SettingsKeys& keys) {
    SettingsValues& values = keys[change.key];
    if (change.name.empty()) return;
    if (change.value)
        values[change.name] = *change.value;
    else
        values.erase(change.name);
}

Status FileSettings::Commit() {
    if (_changes.empty()) return Status::Ok();
    if (Status made = _files.MakeFolder(_folder); !made) return made;
    const FolderLock lock(_folder);
    // Where the file is gone or damaged, what this program knows stands in for it.
    SettingsKeys keys;
    if (!Load(keys)) keys = _keys;
    for (const Change& change : _changes) Apply(change, keys);
    if (Status status = ReplaceFile(_files, _path, SettingsText(keys)); !status) return status;
    _keys = std::move(keys);
    _changes.clear();
    return Status::Ok();
}

}  // namespace corvane
