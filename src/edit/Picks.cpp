#include "edit/Picks.h"

#include "store/ClassInfo.h"

namespace corvane {

void Picks::Add(void* record) {
    if (_records.insert(record).second) _list.push_back({record, ClassNumberOf(record)});
}

void Picks::Remove(const void* record) {
    if (_records.erase(record))
        std::erase_if(_list, [record](const Pick& pick) { return pick.record == record; });
}

void Picks::Clear() {
    _list.clear();
    _records.clear();
}

void Picks::KeepLiving(const std::unordered_set<const void*>& living) {
    std::erase_if(_list, [&](const Pick& pick) {
        const bool lives = living.contains(pick.record) && ClassNumberOf(pick.record) == pick.number;
        if (!lives) _records.erase(pick.record);
        return !lives;
    });
}

}  // namespace corvane
