#include "session/Backups.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <filesystem>

#include "session/JournalFormat.h"

namespace corvane {
namespace {

constexpr size_t kKeyLength = 16, kWhenLength = 23, kToldLength = 19, kLongestStem = 120;
constexpr const char* kOriginalEnding = ".path";

// The parts of a backup's name: "Sonata 2026-11-21 04.30.42.137 0123456789abcdef.cvm".
struct BackupName {
    std::string stem, when, key, ending;
    std::string Text() const { return stem + " " + when + " " + key + ending; }
};

std::string NameOf(const std::string& path) { return std::filesystem::path(path).filename().string(); }

// Tells files of one name in several folders apart. DO NOT CHANGE: backups are found by it.
std::string KeyOf(const std::string& original) {
    uint64_t sum = 0xCBF29CE484222325;
    for (const char c : original) sum = (sum ^ static_cast<uint8_t>(c)) * 0x100000001B3;
    char text[kKeyLength + 1];
    std::snprintf(text, sizeof text, "%016llx", static_cast<unsigned long long>(sum));
    return text;
}

using Clock = std::chrono::system_clock;

std::string WhenOf(Clock::time_point moment) {
    const std::time_t seconds = Clock::to_time_t(moment);
    const auto thousandths = moment.time_since_epoch() / std::chrono::milliseconds(1) % 1000;
    std::tm local{};
    char text[48];
    localtime_r(&seconds, &local);
    const size_t length = std::strftime(text, sizeof text, "%Y-%m-%d %H.%M.%S", &local);
    std::snprintf(text + length, sizeof text - length, ".%03d", static_cast<int>(thousandths));
    return text;
}

// No more than `most` bytes, and no character cut.
std::string Shortened(std::string text, size_t most) {
    if (text.size() <= most) return text;
    while (most > 0 && (static_cast<uint8_t>(text[most]) & 0xC0) == 0x80) --most;
    text.resize(most);
    return text;
}

bool IsDigits(std::string_view text, const char* pattern) {
    for (size_t i = 0; i < text.size(); ++i)
        if (pattern[i] == '0' ? text[i] < '0' || text[i] > '9' : text[i] != pattern[i]) return false;
    return true;
}

bool ParseName(const std::string& name, BackupName& parts) {
    const size_t dot = name.rfind('.');
    const size_t end = dot == std::string::npos || name.size() - dot > kKeyLength ? name.size() : dot;
    constexpr size_t kTail = 1 + kWhenLength + 1 + kKeyLength;
    if (end < kTail) return false;
    const size_t when = end - kTail + 1, key = end - kKeyLength;
    parts = {name.substr(0, when - 1), name.substr(when, kWhenLength), name.substr(key, kKeyLength),
             name.substr(end)};
    return IsDigits(parts.when, "0000-00-00 00.00.00.000") &&
           parts.key.find_first_not_of("0123456789abcdef") == std::string::npos && parts.Text() == name;
}

uint64_t SumOf(std::span<const uint8_t> bytes) { return JournalChecksum(0, bytes); }

}  // namespace

// One path for one file, however it is named.
std::string Backups::Whole(const std::string& path) const {
    std::string target;
    if (!_files.Resolve(path, target)) target = path;
    std::error_code error;
    const std::filesystem::path whole = std::filesystem::absolute(target, error);
    return error ? target : whole.lexically_normal().string();
}

bool Backups::Stands(const std::string& path) {
    std::vector<std::string> names;
    const std::filesystem::path folder = std::filesystem::path(path).parent_path();
    if (!_files.List(folder.string(), names)) return false;
    return std::find(names.begin(), names.end(), NameOf(path)) != names.end();
}

Status Backups::Keep(const std::string& path) {
    const std::string original = Whole(path);
    std::vector<uint8_t> bytes;
    Status status = _files.Read(original, bytes);
    if (!status && !Stands(original)) return Status::Ok();
    if (status) {
        const auto known = _known.find(original);
        if (known != _known.end() && known->second.written && known->second.sum == SumOf(bytes))
            return status;
        status = Copy(original, bytes);
    }
    if (status) return status;
    return {status.fault(),
            "The former version of " + NameOf(path) + " could not be kept as a backup: " + status.message()};
}

void Backups::Know(const std::string& path, std::span<const uint8_t> bytes, bool written) {
    _known[Whole(path)] = {SumOf(bytes), written};
}

bool Backups::IsForeign(const std::string& path) {
    const auto known = _known.find(Whole(path));
    std::vector<uint8_t> bytes;
    return known != _known.end() && _files.Read(path, bytes) && known->second.sum != SumOf(bytes);
}

Status Backups::Copy(const std::string& original, std::span<const uint8_t> bytes) {
    const std::vector<Backup> kept = Of(original);
    std::vector<uint8_t> newest;
    if (!kept.empty() && _files.Read(kept.front().path, newest) &&
        std::equal(newest.begin(), newest.end(), bytes.begin(), bytes.end()))
        return Status::Ok();
    const std::filesystem::path name(NameOf(original));
    const std::string key = KeyOf(original);
    BackupName parts{Shortened(name.stem().string(), kLongestStem), "", key,
                     Shortened(name.extension().string(), kKeyLength)};
    if (Status status = _files.MakeFolder(_folder); !status) return status;
    if (Status status = TellOriginal(key, original); !status) return status;
    std::string copy;
    auto moment = Clock::now();
    do {
        parts.when = WhenOf(moment);
        copy = _folder + "/" + parts.Text();
        moment += std::chrono::milliseconds(1);
    } while (Stands(copy));
    if (Status status = ReplaceFile(_files, copy, bytes); !status) return status;
    Prune(original, copy);
    return Status::Ok();
}

Status Backups::TellOriginal(const std::string& key, const std::string& original) {
    const std::string path = _folder + "/" + key + kOriginalEnding;
    const std::vector<uint8_t> text(original.begin(), original.end());
    std::vector<uint8_t> told;
    if (_files.Read(path, told) && told == text) return Status::Ok();
    return ReplaceFile(_files, path, text);
}

// A backup that cannot be taken away stays; the next time it is tried again.
void Backups::Prune(const std::string& original, const std::string& newest) {
    std::vector<Backup> kept = Of(original);
    std::erase_if(kept, [&](const Backup& backup) { return backup.path == newest; });
    for (size_t i = kKept - 1; i < kept.size(); ++i) static_cast<void>(_files.Remove(kept[i].path));
}

std::vector<Backup> Backups::Of(const std::string& path) {
    const std::string key = KeyOf(Whole(path)) + ".";
    std::vector<Backup> backups = All();
    std::erase_if(backups,
                  [&](const Backup& b) { return (b.path + ".").find(" " + key) == std::string::npos; });
    return backups;
}

std::vector<Backup> Backups::All() {
    std::vector<std::string> names;
    std::vector<Backup> backups;
    if (!_files.List(_folder, names)) return backups;
    std::map<std::string, std::string> originals;
    for (const std::string& name : names) {
        BackupName parts;
        if (!ParseName(name, parts)) continue;
        const auto [original, isNew] = originals.try_emplace(parts.key);
        std::vector<uint8_t> told;
        if (isNew && _files.Read(_folder + "/" + parts.key + kOriginalEnding, told))
            original->second.assign(told.begin(), told.end());
        Backup backup{_folder + "/" + name, original->second, parts.stem + parts.ending, parts.when};
        if (backup.original.empty())
            backup.original = backup.title;
        else
            backup.title = NameOf(backup.original);
        backups.push_back(std::move(backup));
    }
    std::stable_sort(backups.begin(), backups.end(),
                     [](const Backup& a, const Backup& b) { return a.when > b.when; });
    for (Backup& backup : backups) {
        backup.when.resize(kToldLength);
        std::replace(backup.when.begin(), backup.when.end(), '.', ':');
    }
    return backups;
}

bool Backups::Holds(const std::string& path) const {
    std::error_code error;
    const std::filesystem::path folder = std::filesystem::absolute(_folder, error).lexically_normal();
    return std::filesystem::path(Whole(path)).parent_path() == folder;
}

}  // namespace corvane
