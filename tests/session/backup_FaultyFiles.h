// Files on a disk that exists only here: it fails at any call as it is told, ends the program there, or loses
// what was not flushed.
#pragma once

#include <functional>
#include <map>
#include <random>
#include <set>

#include "store/FileLayer.h"

namespace corvane {

class FaultyFiles : public FileLayer {
public:
    enum class How { NoSpace, Error, ShortWrite, Killed };
    struct Killed {};  // thrown where the program ends
    using Disk = std::map<std::string, std::vector<uint8_t>>;

    // So many calls go well, then one fails, or with `always` all after it.
    void FailAfter(int calls, How how, bool always) {
        _callsLeft = calls;
        _how = how;
        _always = always;
    }
    void FailNever() { _callsLeft = -1; }
    int Calls() const { return _calls; }

    // What another program finds after a kill; after a power cut: of bytes not flushed any part, of names not
    // flushed either the old or the new.
    const Disk& AfterKill() const { return _now; }
    Disk AfterCut(std::mt19937& random) const {
        Disk disk;
        std::map<std::string, bool> names;
        for (const auto& [name, bytes] : _now) names[name] = true;
        for (const auto& [name, bytes] : _safeNames) names[name] = true;
        for (const auto& [name, known] : names) {
            const bool settled =
                _now.contains(name) && _safeNames.contains(name) && _now.at(name) == _safeNames.at(name);
            const Disk& from = settled || random() % 2 ? _now : _safeNames;
            if (!from.contains(name)) continue;
            std::vector<uint8_t> bytes = from.at(name);
            if (!_flushed.contains(Key(bytes))) {
                const size_t kept = bytes.empty() ? 0 : random() % bytes.size();
                for (size_t i = kept; i < bytes.size(); ++i) bytes[i] = 0;
            }
            disk[name] = bytes;
        }
        return disk;
    }
    Disk& Contents() { return _now; }
    // All that is there now counts as written long ago.
    void Settle() {
        _safeNames = _now;
        for (const auto& [name, bytes] : _now) _flushed.insert(Key(bytes));
    }

    Status Read(const std::string& path, std::vector<uint8_t>& bytes) override {
        bytes.clear();
        if (Fails() || !_now.contains(path)) return {Fault::NotFound, kFileNotFound};
        bytes = _now.at(path);
        return Status::Ok();
    }
    Status Resolve(const std::string& path, std::string& target) override {
        target = path;
        return Fails() ? Failure() : Status::Ok();
    }
    Status CheckWritable(const std::string&) override { return Fails() ? Failure() : Status::Ok(); }
    Status CreateBeside(const std::string& target, std::string& temporary) override {
        if (Fails()) return Failure();
        temporary = target + ".saving" + std::to_string(++_made);
        _now[temporary] = {};
        return Status::Ok();
    }
    Status Write(const std::string& path, std::span<const uint8_t> bytes) override {
        const bool fails = Fails([&] {
            _now[path].assign(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(bytes.size() / 2));
        });
        if (!fails) _now[path].assign(bytes.begin(), bytes.end());
        if (!fails) return Status::Ok();
        _now[path].assign(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(bytes.size() / 2));
        // A disk may tell nothing of it.
        return _how == How::ShortWrite ? Status::Ok() : Failure();
    }
    Status Flush(const std::string& path) override {
        if (Fails()) return Failure();
        _flushed.insert(Key(_now.at(path)));
        return Status::Ok();
    }
    Status Rename(const std::string& from, const std::string& to) override {
        if (Fails()) return Failure();
        _now[to] = _now.at(from);
        _now.erase(from);
        return Status::Ok();
    }
    Status FlushFolder(const std::string&) override {
        if (Fails()) return Failure();
        _safeNames = _now;
        return Status::Ok();
    }
    Status Remove(const std::string& path) override {
        if (Fails() || !_now.erase(path)) return Failure();
        return Status::Ok();
    }
    Status List(const std::string& folder, std::vector<std::string>& names) override {
        names.clear();
        if (Fails()) return {Fault::NotFound, kFileNotFound};
        for (const auto& [path, bytes] : _now)
            if (const size_t slash = path.rfind('/'); path.substr(0, slash) == folder)
                names.push_back(path.substr(slash + 1));
        return Status::Ok();
    }
    Status MakeFolder(const std::string&) override { return Fails() ? Failure() : Status::Ok(); }

private:
    static std::string Key(const std::vector<uint8_t>& bytes) { return {bytes.begin(), bytes.end()}; }
    Status Failure() const {
        return _how == How::NoSpace ? Status{Fault::NoSpace, kNoSpaceToSave}
                                    : Status{Fault::NoSpace, "The disk reports an error"};
    }
    // `partly`: what a call that ends the program has done by then.
    bool Fails(const std::function<void()>& partly = [] {}) {
        ++_calls;
        if (_callsLeft < 0) return false;
        if (_callsLeft > 0) {
            --_callsLeft;
            return false;
        }
        if (!_always) _callsLeft = -1;
        if (_how != How::Killed) return true;
        partly();
        throw Killed();
    }

    Disk _now, _safeNames;
    std::set<std::string> _flushed;  // contents that were flushed once, under any name
    int _callsLeft = -1, _calls = 0, _made = 0;
    How _how = How::Error;
    bool _always = false;
};

}  // namespace corvane
