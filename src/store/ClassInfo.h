// What the store must know of a persistent class without an instance at hand: one row a class in the class
// table
// `_infoArray`. Filled once at start-up, read-only afterwards; safe on any thread then.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace corvane {

class Administrator;

// What a stored pointer of a record is.
enum class LinkRole : uint8_t {
    Next,
    Prev,
    Source,  // the child end of a relation
    Last,    // its parent end
    Whole,   // an object as a whole, or a raw block
};

// What a Whole may aim at.
enum class Aim : uint8_t {
    Any,   // any object or raw block: the owner decides
    Raw,   // a raw block
    Text,  // a raw block that holds a zero-ended text
    Symbol,
    Font,
    DocStaff,
    Time,
    Staff,
    GenericText,  // an object of that class or an heir
    Record,       // the place of one of the voice records inside a DocStaff
};

struct LinkField {
    uint16_t offset;  // of the memory form
    LinkRole role;
    uint16_t relation;  // number; 0 for Whole
    char family;        // tells the pairs of relations 3 and 4 apart: f, s, p; else 0
    uint16_t other;     // a second relation that the place may serve; 0 for none
    Aim aim;            // for Whole
};

// A field whose bytes a file holds the other way round.
struct SwapField {
    uint16_t offset;
    uint8_t width;  // 2 or 4
};

struct ClassInfo {
    int16_t number;
    const char* name;                // as written in files
    uint16_t size;                   // behaviour words included
    std::vector<uint16_t> pointers;  // stored pointers in the order in which a save visits them
    std::vector<SwapField> plan;
    std::vector<LinkField> links;  // one for each of `pointers`, by offset
    uint16_t secondWord;           // place of a second behaviour word; 0 for none
    Administrator* creator;

    // Null for an offset that holds no stored pointer.
    const LinkField* LinkAt(uint16_t offset) const;
    // The end of a relation that this class has, by role; null if it has none.
    const LinkField* EndOf(LinkRole role, uint16_t relation, char family) const;
};

// The creator of a class: turns bytes into an object of it. One stateless instance a class.
class Administrator {
public:
    virtual ~Administrator() = default;
    // After the object's pointers hold, such as fetching a font handle.
    virtual void AfterLoad(void*) {}
    // Puts the class number into the behaviour words and changes nothing else.
    virtual void Rebind(void* object, const ClassInfo& info);
    // After undo, redo and loads: what caches pool data is read anew.
    virtual void Refresh(void*) {}
    virtual void AfterRelink(void*) {}
    // Reverses the byte order of each field; done twice it cancels out.
    virtual void SwapBytes(void* object, const ClassInfo& info);
};

// A row of the table as it is written down. `pointers` "4,8,12", `plan` "4 p2, 20 w" (p, l: 32 bits, w: 16,
// b: 8; a digit is a run), `links` "4 N1; 8 S1; 12 T2; 16 str" (N, P, S, T and a relation; str, raw, any, or
// sym, font, record, docstaff, time, staff, text for a whole object).
struct ClassRow {
    int16_t number;
    const char* name;
    uint16_t size;
    const char* pointers;
    const char* plan;
    const char* links;
    uint16_t secondWord = 0;
};

inline constexpr int kClassCapacity = 150;

// Makes the empty table. Called once at start-up, before any Register.
void CreateClassTable(int capacity = kClassCapacity);
// Appends a class; its number must be the next one ("next - 1 < size").
void RegisterClass(const ClassRow& row, Administrator* creator = nullptr);
bool ClassTableExists();
// Count of registered classes.
int ClassCount();

// 0 for an unknown name; the lowest number where a name stands twice.
int16_t NumberOf(std::string_view name);
// Null for a number that is not registered; at or above the capacity, or below 1, an assertion.
const ClassInfo* InfoOf(int16_t number);
inline const ClassInfo* InfoOfObject(const void* object);

// The class number in the word before an object; negative for a raw block.
inline int16_t ClassNumberOf(const void* object) {
    const auto* p = static_cast<const uint8_t*>(object) - 2;
    return static_cast<int16_t>(p[0] | p[1] << 8);
}
inline const ClassInfo* InfoOfObject(const void* object) { return InfoOf(ClassNumberOf(object)); }

}  // namespace corvane
