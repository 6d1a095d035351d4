#include "platform/files/FileSettingsText.h"

#include <algorithm>
#include <string_view>

namespace corvane {
namespace {

constexpr std::string_view kFirstLine = "# Corvane settings 1";
constexpr std::string_view kDigits = "0123456789abcdef";

bool IsText(const std::vector<uint8_t>& value) {
    return std::all_of(value.begin(), value.end(), [](uint8_t c) { return c >= 0x20 && c != 0x7F; });
}

void AppendValue(std::string& text, const std::vector<uint8_t>& value) {
    if (IsText(value)) {
        text += '"';
        for (const uint8_t c : value) {
            if (c == '"' || c == '\\') text += '\\';
            text += static_cast<char>(c);
        }
        text += '"';
        return;
    }
    text += '<';
    for (const uint8_t c : value) {
        text += kDigits[c >> 4];
        text += kDigits[c & 15];
    }
    text += '>';
}

bool ParseQuoted(std::string_view text, std::vector<uint8_t>& value) {
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '"') return false;
        if (text[i] == '\\' && ++i == text.size()) return false;
        value.push_back(static_cast<uint8_t>(text[i]));
    }
    return IsText(value);
}

bool ParseHex(std::string_view text, std::vector<uint8_t>& value) {
    if (text.size() % 2) return false;
    for (size_t i = 0; i < text.size(); i += 2) {
        const size_t high = kDigits.find(text[i]), low = kDigits.find(text[i + 1]);
        if (high == std::string_view::npos || low == std::string_view::npos) return false;
        value.push_back(static_cast<uint8_t>(high << 4 | low));
    }
    return true;
}

// "name = value" into the values of the key under way.
bool ParseValue(std::string_view line, SettingsValues& values) {
    const size_t equals = line.find(" = ");
    if (equals == std::string_view::npos) return false;
    const std::string_view name = line.substr(0, equals), written = line.substr(equals + 3);
    if (!IsSettingsName(name) || written.size() < 2) return false;
    std::vector<uint8_t> value;
    const std::string_view inner = written.substr(1, written.size() - 2);
    const char open = written.front(), close = written.back();
    if (!(open == '"' && close == '"' ? ParseQuoted(inner, value)
                                      : open == '<' && close == '>' && ParseHex(inner, value)))
        return false;
    return values.emplace(name, std::move(value)).second;
}

bool ParseLine(std::string_view line, SettingsKeys& keys, SettingsValues*& values) {
    if (line.empty()) return true;
    if (line.front() != '[') return values && ParseValue(line, *values);
    if (line.back() != ']') return false;
    const std::string_view key = line.substr(1, line.size() - 2);
    if (!IsSettingsName(key)) return false;
    values = &keys[std::string(key)];
    return true;
}

}  // namespace

bool IsSettingsName(std::string_view name) {
    return !name.empty() && std::all_of(name.begin(), name.end(), [](char c) {
        return static_cast<unsigned char>(c) >= 0x20 && c != 0x7F &&
               std::string_view("=[]\"").find(c) == std::string_view::npos;
    });
}

std::vector<uint8_t> SettingsText(const SettingsKeys& keys) {
    std::string text(kFirstLine);
    text += '\n';
    for (const auto& [key, values] : keys) {
        text += "\n[" + key + "]\n";
        for (const auto& [name, value] : values) {
            text += name + " = ";
            AppendValue(text, value);
            text += '\n';
        }
    }
    return {text.begin(), text.end()};
}

bool ParseSettings(std::span<const uint8_t> text, SettingsKeys& keys) {
    keys.clear();
    std::string_view rest(reinterpret_cast<const char*>(text.data()), text.size());
    SettingsValues* values = nullptr;
    for (bool first = true; !rest.empty(); first = false) {
        const size_t end = rest.find('\n');
        const std::string_view line = rest.substr(0, end);
        if (end == std::string_view::npos || !(first ? line == kFirstLine : ParseLine(line, keys, values))) {
            keys.clear();
            return false;
        }
        rest.remove_prefix(end + 1);
    }
    return !text.empty();
}

}  // namespace corvane
