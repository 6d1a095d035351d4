// Settings as one readable file, "settings" in the person's configuration folder.
#pragma once

#include <optional>

#include "platform/files/FileSettingsText.h"
#include "store/FileLayer.h"
#include "store/SettingsStore.h"

namespace corvane {

// $CORVANE_CONFIG_DIR, else "corvane" in $XDG_CONFIG_HOME, else in ~/.config. Need not exist.
std::string ConfigFolder();

// Reads at construction. A missing file is an empty store; a damaged one, or one of another version, is
// renamed to "settings.damaged" (numbered where that is taken) and starts an empty store. A Commit takes over
// what another running program has committed meanwhile and replaces the file in one step.
class FileSettings : public SettingsStore {
public:
    explicit FileSettings(FileLayer& files, std::string folder = ConfigFolder());

    bool Open(std::string_view key) const override;
    void Create(std::string_view key) override;
    bool Read(std::string_view key, std::string_view name, std::vector<uint8_t>& value) const override;
    void Write(std::string_view key, std::string_view name, std::span<const uint8_t> value) override;
    void Remove(std::string_view key, std::string_view name) override;
    Status Commit() override;

    // What the person should be told about a damaged file, once; empty for nothing.
    std::string TakeMessage();

private:
    struct Change {
        std::string key, name;                      // an empty name creates the key
        std::optional<std::vector<uint8_t>> value;  // none removes the name
    };
    bool Load(SettingsKeys& keys);
    static void Apply(const Change& change, SettingsKeys& keys);
    void Record(Change change);

    FileLayer& _files;
    std::string _folder, _path, _message;
    SettingsKeys _keys;
    std::vector<Change> _changes;  // since the last Commit
};

}  // namespace corvane
