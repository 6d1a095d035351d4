#include "store/SettingsStore.h"

namespace corvane {

std::string SettingsStore::ReadText(std::string_view key, std::string_view name,
                                    std::string_view fallback) const {
    std::vector<uint8_t> value;
    return Read(key, name, value) ? std::string(value.begin(), value.end()) : std::string(fallback);
}

void SettingsStore::WriteText(std::string_view key, std::string_view name, std::string_view text) {
    Write(key, name, {reinterpret_cast<const uint8_t*>(text.data()), text.size()});
}

}  // namespace corvane
