// The floors of src/ and what each may include, read from the sources themselves.
#pragma once

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace corvane::house {

// Paths from src/ to the text of the file: "model/Note.h", "platform/qt/CMakeLists.txt".
using Files = std::map<std::string, std::string>;

// What a floor stands on is what its CMakeLists.txt links to, and what that stands on in turn. A folder of
// platform/ is a floor of its own.
class House {
public:
    explicit House(Files files);

    // One sentence for each link that goes up, each include of something its floor does not stand on, each
    // library out of its place and each file that is too long. Empty for a house in order.
    std::vector<std::string> Faults() const;

private:
    using Faulty = std::vector<std::string>;

    void ReadLinks(const std::string& floor, std::string_view cmake);
    bool StandsOn(const std::string& floor, const std::string& other) const;
    void CheckLinks(Faulty& faults) const;
    void CheckFile(const std::string& path, std::string_view text, Faulty& faults) const;

    Files _files;
    std::map<std::string, std::string> _floorOfTarget;           // "corvane_qt" to "platform/qt"
    std::map<std::string, std::set<std::string>> _linksOfFloor;  // floor to the targets it links to
};

// Every source and CMakeLists.txt below `folder`.
Files ReadFiles(const std::string& folder);

}  // namespace corvane::house
