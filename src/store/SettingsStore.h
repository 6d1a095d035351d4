// The person's settings outside any score: values of names under keys. Keys are paths such as
// "Settings/TarnPref" or "Recent File List". Numbers in values are big-endian words. Main thread only.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/Status.h"

namespace corvane {

class SettingsStore {
public:
    virtual ~SettingsStore() = default;

    // Whether the key exists.
    virtual bool Open(std::string_view key) const = 0;
    virtual void Create(std::string_view key) = 0;
    // False, and `value` untouched, when the key or the name is missing.
    virtual bool Read(std::string_view key, std::string_view name, std::vector<uint8_t>& value) const = 0;
    // The key is created where it is missing.
    virtual void Write(std::string_view key, std::string_view name, std::span<const uint8_t> value) = 0;
    virtual void Remove(std::string_view key, std::string_view name) = 0;
    // Puts everything written since the last Commit into the store for good, in one step. On failure it stays
    // pending.
    virtual Status Commit() = 0;

    // Texts, zero not included. `fallback` for a missing value.
    std::string ReadText(std::string_view key, std::string_view name, std::string_view fallback = {}) const;
    void WriteText(std::string_view key, std::string_view name, std::string_view text);
};

inline constexpr const char* kSettingsKey = "Settings";
inline constexpr const char* kRecentFilesKey = "Recent File List";  // "File1" to "File4"
inline constexpr const char* kTarnPrefKey = "Settings/TarnPref";
inline constexpr const char* kUserPrefKey = "UserPref";

}  // namespace corvane
