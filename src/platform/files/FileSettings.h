// Settings as one readable file, "settings" in the person's configuration folder.
#pragma once

#include <map>
#include <optional>
#include <set>

#include "store/FileLayer.h"
#include "store/SettingsStore.h"

namespace corvane {

// $CORVANE_CONFIG_DIR, else "corvane" in $XDG_CONFIG_HOME, else in ~/.config. Need not exist.
std::string ConfigFolder();

// Reads at construction; a missing file is an empty store, a damaged one is renamed to "settings.damaged" and
// replaced. A Commit takes over what another running program has committed meanwhile and replaces the file in
// one step.
class FileSettings : public SettingsStore {
public:
    using Values = std::map<std::string, std::vector<uint8_t>, std::less<>>;
    using Keys = std::map<std::string, Values, std::less<>>;

    FileSettings(FileLayer& files, std::string folder = ConfigFolder());

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
    void Apply(const Change& change);
    void Record(Change change);
    bool LoadFile(Keys& keys);

    FileLayer& _files;
    std::string _folder, _path, _message;
    Keys _keys;
    std::vector<Change> _changes;
};

}  // namespace corvane
