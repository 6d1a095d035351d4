// The relation ends of every class, as the walks through rings need them. Derived once from the class table.
#pragma once

#include <cstdint>
#include <vector>

namespace corvane {

// Offsets in the memory form. Of a child end: prev and source count from next, 0 where the kind has none.
struct ChildEnd {
    uint16_t next;
    uint8_t prev, source;
};
struct TopOfRing {
    uint16_t last;
    uint8_t prev, source;  // of its children
};
struct ClassEnds {
    std::vector<ChildEnd> children;
    std::vector<TopOfRing> tops;
};

const ClassEnds& EndsOf(int16_t classNumber);

}  // namespace corvane
