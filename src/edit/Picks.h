// Records that presses have selected one by one, beside the region of a rubber band: a head, a rest, a sign,
// a spanner or a beam as a whole. Each once, in the order of the presses.
#pragma once

#include <cstdint>
#include <unordered_set>
#include <vector>

#include "model/Record.h"

namespace corvane {

struct Pick {
    void* record = nullptr;  // its start
    int16_t number = 0;      // of its class

    // As a concrete class, or an abstract one that stands first in all its heirs; null for another class.
    template <class R>
    R* As() const {
        return IsClass<R>(number) ? static_cast<R*>(record) : nullptr;
    }
};

class Picks {
public:
    bool IsEmpty() const { return _list.empty(); }
    bool Has(const void* record) const { return _records.contains(record); }
    const std::vector<Pick>& List() const { return _list; }

    void Add(void* record);
    void Remove(const void* record);
    void Clear();
    // Forgets those that are not among the living, or are of another class by now: an address may be used
    // anew.
    void KeepLiving(const std::unordered_set<const void*>& living);

private:
    std::vector<Pick> _list;
    std::unordered_set<const void*> _records;
};

}  // namespace corvane
