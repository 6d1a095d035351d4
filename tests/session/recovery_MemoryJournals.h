// Journals on a disk that exists only here: it can fail at any call, and its power can be cut.
#pragma once

#include <algorithm>
#include <cstring>
#include <map>
#include <mutex>

#include "store/JournalFolder.h"

namespace corvane {

class MemoryJournals : public JournalFolder {
public:
    struct Contents {
        std::vector<uint8_t> bytes;
        size_t safe = 0;  // bytes that a power cut leaves
        bool held = false;
    };
    using Disk = std::map<std::string, std::shared_ptr<Contents>>;

    MemoryJournals() = default;
    explicit MemoryJournals(Disk disk) : _disk(std::move(disk)) {}

    // So many calls that write go well, then `failing` fail (-1 for all); -1 for no failure. An Append that
    // fails has written a part.
    void FailAfter(int calls, int failing = -1) {
        const std::lock_guard lock(_mutex);
        _callsLeft = calls;
        _failing = failing;
    }

    // The disk as another program finds it: after a kill with all that was written, after a power cut with
    // what is safe and, of the rest, `torn` of a hundred bytes followed by zeros.
    Disk AfterKill() { return Copy(false, 0); }
    Disk AfterCut(int torn) { return Copy(true, torn); }
    Disk Present() {
        const std::lock_guard lock(_mutex);
        return _disk;
    }

    Status Create(const std::string& name, std::unique_ptr<JournalFile>& file) override {
        const std::lock_guard lock(_mutex);
        if (Fails() || _disk.contains(name)) return Fault();
        auto contents = _disk[name] = std::make_shared<Contents>();
        contents->held = true;
        file = std::make_unique<File>(*this, name, contents);
        return Status::Ok();
    }
    std::vector<std::string> Names() override {
        const std::lock_guard lock(_mutex);
        std::vector<std::string> names;
        for (const auto& [name, contents] : _disk) names.push_back(name);
        return names;
    }
    std::unique_ptr<JournalFile> TakeOver(const std::string& name) override {
        const std::lock_guard lock(_mutex);
        const auto found = _disk.find(name);
        if (found == _disk.end() || found->second->held) return nullptr;
        found->second->held = true;
        return std::make_unique<File>(*this, name, found->second);
    }

private:
    class File : public JournalFile {
    public:
        File(MemoryJournals& folder, std::string name, std::shared_ptr<Contents> contents)
            : _folder(folder), _name(std::move(name)), _contents(std::move(contents)) {}
        ~File() override {
            const std::lock_guard lock(_folder._mutex);
            _contents->held = false;
        }
        uint64_t Size() const override {
            const std::lock_guard lock(_folder._mutex);
            return _contents->bytes.size();
        }
        Status Append(std::span<const uint8_t> bytes) override {
            const std::lock_guard lock(_folder._mutex);
            const bool fails = _folder.Fails();
            const auto end =
                bytes.begin() + static_cast<std::ptrdiff_t>(fails ? bytes.size() / 2 : bytes.size());
            _contents->bytes.insert(_contents->bytes.end(), bytes.begin(), end);
            return fails ? Fault() : Status::Ok();
        }
        Status Flush() override {
            const std::lock_guard lock(_folder._mutex);
            if (_folder.Fails()) return Fault();
            _contents->safe = _contents->bytes.size();
            return Status::Ok();
        }
        Status ReadAt(uint64_t at, std::span<uint8_t> bytes) const override {
            const std::lock_guard lock(_folder._mutex);
            if (at + bytes.size() > _contents->bytes.size()) return {corvane::Fault::Damaged, "read"};
            std::copy_n(_contents->bytes.begin() + static_cast<std::ptrdiff_t>(at), bytes.size(),
                        bytes.begin());
            return Status::Ok();
        }
        Status Rename(const std::string& name) override {
            const std::lock_guard lock(_folder._mutex);
            if (_folder.Fails()) return Fault();
            _folder._disk.erase(_name);
            _folder._disk[_name = name] = _contents;
            return Status::Ok();
        }
        void Remove() override {
            const std::lock_guard lock(_folder._mutex);
            const auto named = _folder._disk.find(_name);
            if (named != _folder._disk.end() && named->second == _contents) _folder._disk.erase(named);
        }

    private:
        MemoryJournals& _folder;
        std::string _name;
        std::shared_ptr<Contents> _contents;
    };

    static Status Fault() { return {corvane::Fault::NoSpace, "no space"}; }
    bool Fails() {
        if (_callsLeft > 0) {
            --_callsLeft;
            return false;
        }
        if (_callsLeft < 0 || _failing == 0) return false;
        if (_failing > 0) --_failing;
        return true;
    }
    Disk Copy(bool cut, int torn) {
        const std::lock_guard lock(_mutex);
        Disk copy;
        for (const auto& [name, contents] : _disk) {
            auto left = std::make_shared<Contents>(*contents);
            left->held = false;
            if (cut) {
                const size_t kept = contents->safe + (contents->bytes.size() - contents->safe) *
                                                         static_cast<size_t>(torn) / 100;
                std::fill(left->bytes.begin() + static_cast<std::ptrdiff_t>(kept), left->bytes.end(),
                          uint8_t{0});
            }
            copy[name] = left;
        }
        return copy;
    }

    std::mutex _mutex;
    Disk _disk;
    int _callsLeft = -1, _failing = -1;
};

}  // namespace corvane
