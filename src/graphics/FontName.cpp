#include "graphics/FontName.h"

#include <deque>
#include <map>

#include "base/Assert.h"

namespace corvane {
namespace {

constexpr size_t kLongestName = 255;

struct FontNames {
    std::deque<std::string> names;  // keeps its strings where they are
    std::map<std::string_view, FontId> numbers;
};

FontNames& Names() {
    static FontNames names;
    return names;
}

}  // namespace

bool IsMusicFont(std::string_view name) { return name == kMusicFont || name == kSecondMusicFont; }

FontId FontNumber(std::string_view name) {
    name = name.substr(0, kLongestName);
    FontNames& all = Names();
    if (const auto found = all.numbers.find(name); found != all.numbers.end()) return found->second;
    all.names.emplace_back(name);
    const FontId number = static_cast<FontId>(all.names.size());
    all.numbers.emplace(all.names.back(), number);
    return number;
}

const std::string& FontName(FontId font) {
    const FontNames& all = Names();
    CORVANE_ASSERT(font > 0 && static_cast<size_t>(font) <= all.names.size());
    return all.names[static_cast<size_t>(font) - 1];
}

}  // namespace corvane
