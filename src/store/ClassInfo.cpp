#include "store/ClassInfo.h"

#include <cstdlib>
#include <cstring>
#include <memory>
#include <unordered_map>

#include "base/Assert.h"
#include "base/BigEndian.h"
#include "store/NamedClasses.h"
#include "store/ClassSpans.h"

namespace corvane {
namespace {

struct InfoArray {
    int capacity;
    std::vector<std::unique_ptr<ClassInfo>> classes;
    std::unordered_map<std::string_view, int16_t> numbers;  // the first number of each name
};
std::unique_ptr<InfoArray> _infoArray;

// Calls take(item) for each piece of text between separators, blanks before it skipped.
template <class Take>
void ForEachItem(const char* text, char separator, Take take) {
    for (const char* p = text; *p;) {
        while (*p == ' ') ++p;
        const char* end = std::strchr(p, separator);
        const size_t length = end ? static_cast<size_t>(end - p) : std::strlen(p);
        if (length) take(std::string_view(p, length));
        p += length + (end ? 1 : 0);
    }
}

// Reads a decimal number off the front of the text.
uint16_t TakeNumber(std::string_view& text) {
    unsigned n = 0;
    while (!text.empty() && text.front() >= '0' && text.front() <= '9') {
        n = n * 10 + static_cast<unsigned>(text.front() - '0');
        text.remove_prefix(1);
    }
    return static_cast<uint16_t>(n);
}

std::vector<uint16_t> ParsePointers(const char* text) {
    std::vector<uint16_t> offsets;
    ForEachItem(text, ',', [&](std::string_view item) { offsets.push_back(TakeNumber(item)); });
    return offsets;
}

std::vector<SwapField> ParsePlan(const char* text) {
    std::vector<SwapField> plan;
    ForEachItem(text, ',', [&](std::string_view item) {
        uint16_t offset = TakeNumber(item);
        item.remove_prefix(1);
        const char kind = item.front();
        item.remove_prefix(1);
        const int run = item.empty() ? 1 : TakeNumber(item);
        const uint8_t width = kind == 'w' ? 2 : kind == 'b' ? 1 : 4;
        for (int i = 0; i < run; ++i, offset = static_cast<uint16_t>(offset + width))
            if (width > 1) plan.push_back({offset, width});
    });
    return plan;
}

constexpr struct {
    const char* word;
    Aim aim;
} kAims[] = {{"str", Aim::Text},         {"raw", Aim::Raw},     {"any", Aim::Any},
             {"sym", Aim::Symbol},       {"font", Aim::Font},   {"record", Aim::Record},
             {"time", Aim::Time},        {"staff", Aim::Staff}, {"text", Aim::GenericText},
             {"docstaff", Aim::DocStaff}};

LinkField ParseLink(std::string_view item) {
    LinkField link{TakeNumber(item), LinkRole::Whole, 0, 0, 0, Aim::Any};
    item.remove_prefix(1);
    for (const auto& a : kAims)
        if (item == a.word) {
            link.aim = a.aim;
            return link;
        }
    const char* roles = "NPST";
    const char* role = std::strchr(roles, item.front());
    CORVANE_ASSERT(role);
    link.role = static_cast<LinkRole>(role - roles);
    item.remove_prefix(1);
    link.relation = TakeNumber(item);
    if (!item.empty() && item.front() != ' ') link.family = item.front();
    const size_t alternative = item.find("or ");
    if (alternative != std::string_view::npos) {
        item.remove_prefix(alternative + 4);
        link.other = TakeNumber(item);
    }
    return link;
}

std::vector<LinkField> ParseLinks(const char* text) {
    std::vector<LinkField> links;
    ForEachItem(text, ';', [&](std::string_view item) { links.push_back(ParseLink(item)); });
    return links;
}

}  // namespace

const LinkField* ClassInfo::LinkAt(uint16_t offset) const {
    for (const LinkField& link : links)
        if (link.offset == offset) return &link;
    return nullptr;
}

const LinkField* ClassInfo::EndOf(LinkRole role, uint16_t relation, char family) const {
    for (const LinkField& link : links)
        if (link.role == role && link.family == family &&
            (link.relation == relation || (link.other && link.other == relation)))
            return &link;
    return nullptr;
}

void Administrator::Rebind(void* object, const ClassInfo& info) {
    if (info.size < 4 || info.number == named::kStringa) return;  // Stringa has no behaviour word
    const auto word = static_cast<uint32_t>(info.number);
    std::memcpy(object, &word, sizeof word);
    if (info.secondWord) std::memcpy(static_cast<uint8_t*>(object) + info.secondWord, &word, sizeof word);
}

void Administrator::SwapBytes(void* object, const ClassInfo& info) {
    for (const SwapField& field : info.plan)
        ReverseBytes(static_cast<uint8_t*>(object) + field.offset, field.width);
}

void CreateClassTable(int capacity) {
    CORVANE_ASSERT_AS(capacity <= kClassCapacity, "next - 1 < size");
    _infoArray = std::make_unique<InfoArray>();
    _infoArray->capacity = capacity;
    ClassSpans::_spans.fill(0);
}

bool ClassTableExists() { return _infoArray != nullptr; }

int ClassCount() { return _infoArray ? static_cast<int>(_infoArray->classes.size()) : 0; }

void RegisterClass(const ClassRow& row, Administrator* creator) {
    static Administrator plain;
    CORVANE_ASSERT_AS(_infoArray, "_infoArray");
    CORVANE_ASSERT_AS(ClassCount() < _infoArray->capacity, "next - 1 < size");
    CORVANE_ASSERT(row.number == ClassCount() + 1);
    auto info = std::make_unique<ClassInfo>(
        ClassInfo{row.number, row.name, row.size, ParsePointers(row.pointers), ParsePlan(row.plan),
                  ParseLinks(row.links), row.secondWord, creator ? creator : &plain});
    ClassSpans::_spans[static_cast<size_t>(row.number)] = static_cast<uint16_t>(TypedSpan(row.size));
    _infoArray->numbers.emplace(row.name, row.number);
    _infoArray->classes.push_back(std::move(info));
}

int16_t NumberOf(std::string_view name) {
    const auto found = _infoArray->numbers.find(name);
    return found == _infoArray->numbers.end() ? int16_t{0} : found->second;
}

const ClassInfo* InfoOf(int16_t number) {
    CORVANE_ASSERT_AS(_infoArray, "_infoArray");
    CORVANE_ASSERT_AS(number > 0 && number <= _infoArray->capacity, "i < size");
    return number <= ClassCount() ? _infoArray->classes[static_cast<size_t>(number - 1)].get() : nullptr;
}

}  // namespace corvane
