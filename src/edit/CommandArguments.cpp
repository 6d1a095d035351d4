#include "edit/CommandArguments.h"

#include <charconv>

namespace corvane {
namespace {

std::string Plain(double value) {
    char text[32];
    const auto end = std::to_chars(text, text + sizeof text, value, std::chars_format::fixed);
    return {text, end.ptr};
}

}  // namespace

void ArgumentReader::Refuse(std::string why) {
    if (_status) _status = {Fault::Refused, std::move(why)};
}

int ArgumentReader::Number(const char* name, int least, int most, int fallback) {
    _asked[name] = true;
    const auto found = _arguments.find(name);
    if (found == _arguments.end()) return fallback;
    const std::string& text = found->second;
    int value = 0;
    const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error == std::errc() && stop == text.data() + text.size() && value >= least && value <= most)
        return value;
    Refuse(std::string(name) + " is a whole number from " + std::to_string(least) + " to " +
           std::to_string(most));
    return fallback;
}

int ArgumentReader::Number(const char* name, int least, int most) {
    if (!Has(name)) Refuse(std::string(name) + " is missing");
    return Number(name, least, most, least);
}

double ArgumentReader::Decimal(const char* name, double least, double most, double fallback) {
    _asked[name] = true;
    const auto found = _arguments.find(name);
    if (found == _arguments.end()) return fallback;
    const std::string& text = found->second;
    double value = 0;
    const auto [stop, error] =
        std::from_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed);
    if (error == std::errc() && stop == text.data() + text.size() && value >= least && value <= most)
        return value;
    Refuse(std::string(name) + " is a number from " + Plain(least) + " to " + Plain(most));
    return fallback;
}

std::string ArgumentReader::Text(const char* name, const std::string& fallback) {
    _asked[name] = true;
    const auto found = _arguments.find(name);
    return found == _arguments.end() ? fallback : found->second;
}

int ArgumentReader::Choice(const char* name, std::initializer_list<const char*> words, int fallback) {
    _asked[name] = true;
    const auto found = _arguments.find(name);
    if (found == _arguments.end()) return fallback;
    int place = 0;
    std::string known;
    for (const char* word : words) {
        if (found->second == word) return place;
        known += (place++ ? ", " : "") + std::string(word);
    }
    Refuse(std::string(name) + " is one of " + known);
    return fallback;
}

Status ArgumentReader::Result() {
    for (const auto& argument : _arguments)
        if (!_asked.count(argument.first)) Refuse("there is no argument \"" + argument.first + "\"");
    return _status;
}

}  // namespace corvane
