// Bytes that an object takes in its block, its word included: the one fact of a class that every walk over a
// pool asks for at each object, so it stands beside the class table in a table of its own.
#pragma once

#include <array>

#include "store/ClassInfo.h"
#include "store/ObjectHeader.h"

namespace corvane {

class ClassSpans {
public:
    // Of what stands behind a word: a registered class's object or a raw block. 0 for an unknown class.
    static uint32_t OfWord(int16_t word) {
        if (word < 0) return RawSpanOfWord(word);
        return static_cast<size_t>(word) < _spans.size() ? _spans[static_cast<size_t>(word)] : 0;
    }

private:
    friend void CreateClassTable(int capacity);
    friend void RegisterClass(const ClassRow& row, Administrator* creator);
    static inline std::array<uint16_t, kClassCapacity + 1> _spans{};
};

}  // namespace corvane
