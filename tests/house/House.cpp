#include "house/House.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>

namespace corvane::house {
namespace {

constexpr int kMostLines = 400;

constexpr std::string_view kOrder[] = {"base", "store",       "graphics", "model",    "layout", "play",
                                       "edit", "interchange", "session",  "platform", "shell",  "cli"};

// The headers of the system that the engine may use beside the standard library's.
constexpr std::string_view kSystemHeaders[] = {"fcntl.h", "sys/mman.h", "sys/stat.h", "unistd.h"};

struct Library {
    std::string_view headers;  // how the names of its headers begin
    std::set<std::string_view> floors;
};
const Library kLibraries[] = {
    {"Q", {"platform/qt", "shell", "cli"}}, {"rtmidi", {"platform/rtmidi"}},
    {"RtMidi", {"platform/rtmidi"}},        {"fluidsynth", {"platform/fluidsynth"}},
    {"ft2build", {"platform/freetype"}},    {"freetype", {"platform/freetype"}},
    {"fontconfig", {"platform/freetype"}},  {"CLI", {"cli"}},
};

std::string_view TopFolder(std::string_view path) { return path.substr(0, path.find('/')); }

// Place in the order, -1 for no floor.
int Rank(std::string_view path) {
    const auto* found = std::find(std::begin(kOrder), std::end(kOrder), TopFolder(path));
    return found == std::end(kOrder) ? -1 : static_cast<int>(found - std::begin(kOrder));
}

// "platform/qt" of "platform/qt/Painter.h", "model" of "model/Note.h"; empty for no floor.
std::string FloorOf(std::string_view path) {
    if (Rank(path) < 0) return {};
    const std::string_view top = TopFolder(path);
    if (top != "platform") return std::string(top);
    return std::string(path.substr(0, path.find('/', top.size() + 1)));
}

bool IsEngine(std::string_view floor) { return Rank(floor) < Rank("platform"); }

bool IsStandardHeader(std::string_view name) {
    return std::all_of(name.begin(), name.end(),
                       [](unsigned char c) { return std::islower(c) || c == '_'; }) ||
           std::find(std::begin(kSystemHeaders), std::end(kSystemHeaders), name) != std::end(kSystemHeaders);
}

bool MayUseHeader(const std::string& floor, std::string_view name) {
    for (const Library& library : kLibraries) {
        if (name.starts_with(library.headers)) return library.floors.contains(floor);
    }
    return !IsEngine(floor) || IsStandardHeader(name);
}

std::string_view Trimmed(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
    return text;
}

struct Include {
    bool isAngled = false;
    std::string name;  // empty where the line includes nothing
};

Include ReadInclude(std::string_view line) {
    line = Trimmed(line);
    if (!line.starts_with('#')) return {};
    line = Trimmed(line.substr(1));
    if (!line.starts_with("include")) return {};
    line = Trimmed(line.substr(7));
    if (!line.starts_with('<') && !line.starts_with('"')) return {};
    const bool isAngled = line.starts_with('<');
    const size_t end = line.find(isAngled ? '>' : '"', 1);
    if (end == std::string_view::npos) return {};
    return {isAngled, std::string(line.substr(1, end - 1))};
}

std::string WithoutComments(std::string_view cmake) {
    std::istringstream lines{std::string(cmake)};
    std::string result;
    for (std::string line; std::getline(lines, line);) result += line.substr(0, line.find('#')) + '\n';
    return result;
}

}  // namespace

House::House(Files files) : _files(std::move(files)) {
    for (const auto& [path, text] : _files) {
        const std::string floor = FloorOf(path);
        if (!floor.empty() && path == floor + "/CMakeLists.txt") ReadLinks(floor, WithoutComments(text));
    }
}

void House::ReadLinks(const std::string& floor, std::string_view cmake) {
    for (const std::string_view command : {"corvane_floor(", "target_link_libraries("}) {
        for (size_t at = 0; (at = cmake.find(command, at)) != std::string_view::npos;) {
            at += command.size();
            std::istringstream words{std::string(cmake.substr(at, cmake.find(')', at) - at))};
            std::string target;
            words >> target;
            if (command == "corvane_floor(") _floorOfTarget["corvane_" + target] = floor;
            for (std::string word; words >> word;) _linksOfFloor[floor].insert(word);
        }
    }
}

bool House::StandsOn(const std::string& floor, const std::string& other) const {
    std::set<std::string> seen{floor};
    std::vector<std::string> open{floor};
    while (!open.empty()) {
        const auto links = _linksOfFloor.find(open.back());
        open.pop_back();
        if (links == _linksOfFloor.end()) continue;
        for (const std::string& target : links->second) {
            const auto below = _floorOfTarget.find(target);
            if (below != _floorOfTarget.end() && seen.insert(below->second).second)
                open.push_back(below->second);
        }
    }
    return seen.contains(other);
}

void House::CheckLinks(Faulty& faults) const {
    for (const auto& [floor, targets] : _linksOfFloor) {
        for (const std::string& target : targets) {
            const auto below = _floorOfTarget.find(target);
            if (below == _floorOfTarget.end()) continue;
            const bool isSibling = TopFolder(floor) == "platform" && TopFolder(below->second) == "platform";
            if (Rank(below->second) >= Rank(floor) && !isSibling)
                faults.push_back(floor + " links up to " + below->second);
        }
    }
}

void House::CheckFile(const std::string& path, std::string_view text, Faulty& faults) const {
    const std::string floor = FloorOf(path);
    std::istringstream lines{std::string(text)};
    int number = 0;
    for (std::string line; std::getline(lines, line);) {
        ++number;
        const Include include = ReadInclude(line);
        if (include.name.empty()) continue;
        const std::string where = path + ":" + std::to_string(number) + " includes " + include.name;
        if (include.isAngled) {
            if (!MayUseHeader(floor, include.name)) faults.push_back(where + ", a library out of its place");
        } else if (include.name.ends_with(".moc") && !IsEngine(floor)) {
            continue;
        } else if (const std::string other = FloorOf(include.name); other.empty()) {
            faults.push_back(where + ", which is no path from src/");
        } else if (!StandsOn(floor, other)) {
            faults.push_back(where + ", but " + floor + " does not stand on " + other);
        }
    }
    if (number > kMostLines) faults.push_back(path + " has " + std::to_string(number) + " lines");
}

std::vector<std::string> House::Faults() const {
    Faulty faults;
    CheckLinks(faults);
    for (const auto& [path, text] : _files) {
        if (path.ends_with("CMakeLists.txt")) continue;
        if (FloorOf(path).empty()) {
            faults.push_back(path + " stands on no floor");
        } else {
            CheckFile(path, text, faults);
        }
    }
    return faults;
}

Files ReadFiles(const std::string& folder) {
    Files files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        const std::filesystem::path& path = entry.path();
        if (!entry.is_regular_file() || path.extension() == ".md") continue;
        std::ifstream in(path, std::ios::binary);
        files[path.lexically_relative(folder).generic_string()] = {std::istreambuf_iterator<char>(in), {}};
    }
    return files;
}

}  // namespace corvane::house
