// The default records of a new score. The constants stand in the order of the fields that they fill.
#include <cstring>

#include "model/Preferences.h"
#include "model/SymbolTable.h"

namespace corvane {
namespace {

constexpr int32_t kFontSize = 189;
constexpr const char *kText = "Times New Roman", *kMusic = "Marcelane", *kFixed = "Courier New";
constexpr uint8_t kFirstField = 24;

// `count` fields of `width` bytes from an offset on; a count of 0 ends a list.
struct Run {
    uint8_t offset, width, count;
};

struct DefaultRecord {
    int16_t number;
    const char* fonts[3];  // in the fields from 24 on; null ends them
    Run runs[8];
    int32_t values[32];
};

// clang-format off
constexpr DefaultRecord kDefaults[] = {
    {13, {kText}, {{28, 1, 2}, {30, 2, 7}, {44, 4, 2}, {54, 2, 5}}, {1, 35, 2, 1, 1, 1, 42, 40, 0, 300, 1, 1, 1, 4, 5, 7}},
    {37, {kFixed}, {{28, 1, 2}, {30, 4, 2}, {38, 1, 2}, {40, 2, 2}}, {0, 0, 0, 0, 2, 1, 3, 2}},
    {40, {}, {{24, 4, 3}}, {100, 100, 60}},
    {66, {kText}, {{28, 4, 9}, {64, 1, 3}}, {15785, 12197, 50, 200, 5, 50, 100, 100, 100, 1, 1, 0}},
    {67, {kMusic}, {{28, 1, 19}, {60, 4, 1}, {68, 4, 5}, {88, 1, 1}},
     {1, 64, 10, 127, 1, 2, 5, 8, 10, 13, 16, 1, 4, 8, 9, 12, 5, 1, 0, 101, 100, 300, 110, 100, 100, 1}},
    {73, {}, {{24, 2, 2}, {28, 4, 2}, {36, 2, 4}, {44, 4, 2}, {52, 2, 2}, {56, 4, 1}, {60, 2, 14}},
     {1, 0, 1, 1, 11, 115, 1, 0, 1, 1, 15, 17, 0, 1, 1, 10, 20, 30, 45, 55, 127, 70, 85, 95, 110, 127, 105}},
    {74, {}, {{24, 1, 10}}, {1, 1, 1, 1, 1, 1, 1, 1, 1, 1}},
    {43, {kFixed, kFixed}, {{32, 1, 2}, {34, 2, 1}}, {1, 1, 1}},
    {68, {}, {{24, 1, 1}, {26, 2, 3}}, {1, 1, 1, 1}},
    {94, {kText, kText}, {{32, 2, 1}}, {17}},
    {95, {kText, kText}, {}, {}},
    {70, {}, {{24, 4, 3}}, {50, 30, 300}},
    {71, {}, {{24, 4, 3}}, {750, 0, 750}},
    {72, {}, {{24, 2, 4}, {32, 4, 2}, {40, 2, 2}}, {20, 10, 3, 22, 80, 50, 19, 17}},
    {69, {kMusic, kText, kMusic}, {{36, 1, 2}, {38, 2, 1}, {40, 1, 2}, {42, 4, 2}, {50, 2, 2}},
     {1, 0, 5, 34, 38, 1, 106, 1, 1}},
    {100, {}, {{24, 2, 8}}, {6002, 6003, 6004, 7024, 8001, 8002, 8004, 9007}},
    {102, {}, {{24, 1, 1}}, {1}},
    {103, {}, {{24, 2, 20}},
     {287, 48, 238, 48, 140, 48, 532, 48, 189, 48, 336, 48, 300, 330, 385, 48, 434, 48, 483, 48}},
    {104, {}, {{24, 2, 2}}, {0, 0}},
};
// clang-format on

template <class T>
void PutField(uint8_t* place, int32_t value) {
    Touch(place, sizeof(T));
    const T narrow = static_cast<T>(value);
    std::memcpy(place, &narrow, sizeof narrow);
}

void PutFields(uint8_t* record, const DefaultRecord& defaults) {
    const int32_t* value = defaults.values;
    for (const Run& run : defaults.runs)
        for (uint8_t i = 0; i < run.count; ++i) {
            uint8_t* place = record + run.offset + i * run.width;
            if (run.width == 1)
                PutField<uint8_t>(place, *value++);
            else if (run.width == 2)
                PutField<int16_t>(place, *value++);
            else
                PutField<int32_t>(place, *value++);
        }
}

ClassPreferences* MakeRecord(Document* document, const DefaultRecord& defaults) {
    auto* record = static_cast<ClassPreferences*>(MemoryManager::Instance().Allocate(defaults.number));
    CORVANE_ASSERT(record);
    record->_className = MakeText(InfoOf(defaults.number)->name);
    auto* bytes = reinterpret_cast<uint8_t*>(record);
    auto* font = reinterpret_cast<Ptr<TarnFont>*>(bytes + kFirstField);
    for (const char* name : defaults.fonts)
        if (name) *font++ = LookupFont(document, name, kFontSize, 0);
    PutFields(bytes, defaults);
    return record;
}

}  // namespace

void MakeDefaultPreferences(Document* document) {
    // Looked up first, so that they come first; the records then hold each of them.
    std::vector<TarnFont*> standard;
    for (const char* name : {kText, kMusic, kFixed})
        standard.push_back(LookupFont(document, name, kFontSize, 0));
    std::vector<ClassPreferences*> records;
    for (const DefaultRecord& defaults : kDefaults) records.push_back(MakeRecord(document, defaults));
    for (ClassPreferences* record : records) documentPreferences.Add(document, record);
    for (TarnFont* font : standard) ReleaseFont(document, font);

    auto* notes = Preferences<NotePref>(document);
    notes->_beamThickness.Put(NotePref::kBeamThickness);
    notes->_beamGap.Put(NotePref::kBeamGap);
    notes->_beamMinDistance.Put(NotePref::kBeamMinDistance);
}

}  // namespace corvane
