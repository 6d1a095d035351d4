// The text of a settings file: a first line that tells the version, keys in brackets, values of names below
// them, quoted where they are text, else in hexadecimal.
#pragma once

#include <cstdint>
#include <map>
#include <span>
#include <string>
#include <vector>

namespace corvane {

using SettingsValues = std::map<std::string, std::vector<uint8_t>, std::less<>>;
using SettingsKeys = std::map<std::string, SettingsValues, std::less<>>;

// Whether a key or a name can stand in the file.
bool IsSettingsName(std::string_view name);
std::vector<uint8_t> SettingsText(const SettingsKeys& keys);
// False, and `keys` empty, for anything that SettingsText does not write.
bool ParseSettings(std::span<const uint8_t> text, SettingsKeys& keys);

}  // namespace corvane
