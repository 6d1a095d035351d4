// docs/file-format.md tells strangers how to read a score: its tables must be the ones that the program goes
// by.
#include <fstream>
#include <sstream>

#include "store/FileForm.h"
#include "store_graph.h"

namespace corvane::test {
namespace {

// The cells of a table's row, without blanks and back quotes around them.
std::vector<std::string> Cells(const std::string& line) {
    std::vector<std::string> cells;
    std::istringstream in(line.substr(1));
    for (std::string cell; std::getline(in, cell, '|');) {
        const size_t first = cell.find_first_not_of(" `"), last = cell.find_last_not_of(" `");
        cells.push_back(first == std::string::npos ? "" : cell.substr(first, last - first + 1));
    }
    return cells;
}

// Rows of tables with as many columns as `count` below a heading.
std::vector<std::vector<std::string>> Rows(const std::string& heading, size_t count) {
    std::ifstream in(CORVANE_SOURCE_DIR "/docs/file-format.md");
    std::vector<std::vector<std::string>> rows;
    bool inside = false;
    for (std::string line; std::getline(in, line);) {
        if (line.starts_with("## ")) inside = line == "## " + heading;
        if (!inside || !line.starts_with("|")) continue;
        rows.push_back(Cells(line));
        EXPECT_EQ(rows.back().size(), count) << line;
    }
    return rows;
}

std::string FieldsOf(const ClassInfo& info) {
    std::string text;
    for (const SwapField& f : info.plan)
        text += std::to_string(f.offset) + "/" + std::to_string(f.width) + " ";
    return text;
}

std::string FieldsOf(const std::string& plan) {
    std::string text;
    std::istringstream in(plan == "-" ? "" : plan);
    int at;
    for (std::string kind; in >> at >> kind;) {
        if (kind.back() == ',') kind.pop_back();
        const int width = kind[0] == 'b' ? 1 : kind[0] == 'w' ? 2 : 4;
        for (int run = kind.size() > 1 ? std::stoi(kind.substr(1)) : 1; run > 0; --run, at += width)
            if (width > 1) text += std::to_string(at) + "/" + std::to_string(width) + " ";
    }
    return text;
}

std::string PointersOf(const ClassInfo& info) {
    const char* roles[] = {"N", "P", "S", "T"};
    const char* aims[] = {"any", "raw", "str", "sym", "font", "docstaff", "time", "staff", "text", "record"};
    std::string text;
    for (const LinkField& link : info.links) {
        text += (text.empty() ? "" : "; ") + std::to_string(link.offset) + " ";
        if (link.role == LinkRole::Whole) {
            text += aims[static_cast<int>(link.aim)];
            continue;
        }
        const std::string role = roles[static_cast<int>(link.role)];
        text += role + std::to_string(link.relation) + (link.family ? std::string(1, link.family) : "");
        if (link.other) text += " or " + role + std::to_string(link.other);
    }
    return text.empty() ? "-" : text;
}

TEST(FormatDocument, TellsEveryClassAsTheProgramHasIt) {
    RegisterClasses();
    const auto rows = Rows("Class table", 5);
    ASSERT_EQ(rows.size(), 2u + 111u);
    for (size_t i = 2; i < rows.size(); ++i) {
        const ClassInfo& info = *InfoOf(static_cast<int16_t>(i - 1));
        SCOPED_TRACE(info.name);
        EXPECT_EQ(rows[i][0], std::to_string(info.number));
        EXPECT_EQ(rows[i][1], info.name);
        EXPECT_EQ(rows[i][2], std::to_string(info.size));
        EXPECT_EQ(FieldsOf(rows[i][3]), FieldsOf(info));
        EXPECT_EQ(rows[i][4], PointersOf(info));
    }
}

TEST(FormatDocument, TellsWhereTheBytesOfEveryClassStand) {
    RegisterClasses();
    std::map<std::pair<int16_t, int>, int> moved;
    int16_t number = 0;
    const auto rows = Rows("A typed object", 3);
    for (size_t i = 2; i < rows.size(); ++i) {
        if (!rows[i][0].empty()) number = NumberOf(rows[i][0]);
        const size_t to = rows[i][1].find(" to ");
        const int first = std::stoi(rows[i][1]);
        const int last = to == std::string::npos ? first : std::stoi(rows[i][1].substr(to + 4));
        for (int place = first; place <= last; ++place)
            moved[{number, place}] = std::stoi(rows[i][2]) + place - first;
    }
    EXPECT_EQ(moved.size(), 22u + 24 + 34 + 4 + 1 + 12 + 14 + 23 + 8);
    for (int16_t n = 1; n <= ClassCount(); ++n)
        for (uint16_t place = 0; place < InfoOf(n)->size; ++place) {
            const uint16_t inFile = FileForm::Of(n).PlaceInFile(place);
            if (inFile == FileForm::kNone) continue;
            const auto it = moved.find({n, place});
            EXPECT_EQ(inFile, it != moved.end() ? it->second
                              : n == 11         ? place
                                                : place - 4)
                << n << " " << place;
        }
}

}  // namespace
}  // namespace corvane::test
