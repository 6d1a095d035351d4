// For every stored pointer of every class and every class that it may point at: the place of the target's
// end, and the half offsets that stand for it in a file. Derived once from the class table, the file forms
// and the repair table; it serves saving, loading and verifying alike.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "store/ClassInfo.h"

namespace corvane {

// A raw block's word counts as class 0.
inline constexpr int16_t kRawClass = 0;
inline int16_t TargetClass(int16_t word) { return word < 0 ? kRawClass : word; }

class ObjectFilePlaces {
public:
    static const ObjectFilePlaces& Instance();

    struct End {
        uint8_t place = 0;   // in the memory form; 0 where the target has no such end
        uint8_t saved = 0;   // the half offset that a save writes
        uint8_t inFile = 0;  // the half offset of its true place in the file form
    };

    struct Field {
        LinkField link;
        std::vector<End> ends;  // by target class; empty for a Whole
    };
    // In the order of the class's `links`.
    std::span<const Field> FieldsOf(int16_t classNumber) const {
        return _fields[static_cast<size_t>(classNumber)];
    }

private:
    ObjectFilePlaces();
    std::vector<std::vector<Field>> _fields;
};

// Whether a Whole may aim at a place of an object of that class.
bool AimFits(Aim aim, int16_t target, uint32_t place);

// Where a stored pointer leads: a place of the memory form of an object, which counts from 1.
struct PointerTarget {
    uint32_t number, place;
};

// Whether a field may lead to that place of an object of that class.
bool PointerFits(const ObjectFilePlaces::Field& field, int16_t targetClass, uint32_t place);

// What stands in a file for a pointer to a target of that class; false where the field may not point there.
bool EncodePointer(const ObjectFilePlaces::Field& field, int16_t targetClass, PointerTarget target,
                   uint32_t& value);

// The way back; `classes` holds the class of each object by number. False for a value that is neither what a
// save of such a pointer writes nor the end's true place.
bool DecodePointer(const ObjectFilePlaces::Field& field, uint32_t value, std::span<const uint8_t> classes,
                   PointerTarget& target);

}  // namespace corvane
