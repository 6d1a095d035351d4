#include "layout/SignRoom.h"

#include <algorithm>
#include <map>

#include "layout/EventSymbols.h"
#include "model/Par.h"

namespace corvane {
namespace {

constexpr int32_t kAirPercent = 15;  // of a line distance, before a sign

using OfStaffs = std::map<const MeasureStaff*, EventSymbol::Extents>;

OfStaffs ExtentsOf(const ListaEventi& list, const Event& event) {
    OfStaffs staffs;
    for (const auto& each : event.symbols) {
        const auto& symbol = static_cast<const MusicSymbol&>(*each);
        const EventSymbol::Extents needs = symbol.Needs(list);
        EventSymbol::Extents& all = staffs[MeasureStaffPar(symbol.Symbol())];
        all.left = std::max(all.left, needs.left);
        all.right = std::max(all.right, needs.right);
    }
    return staffs;
}

}  // namespace

std::vector<EventNeed> SignNeedsOf(const ListaEventi& list) {
    struct Before {
        size_t event;
        int32_t right;
    };
    std::vector<EventNeed> needs;
    std::map<const MeasureStaff*, Before> before;
    for (size_t i = 0; i < list.events.size(); ++i)
        for (const auto& [staff, extents] : ExtentsOf(list, list.events[i])) {
            const auto last = before.find(staff);
            const int32_t air = kAirPercent * list.lineDistance / 100;
            if (last != before.end() && extents.left > 0)
                needs.push_back(
                    {last->second.event, i, list.InNoteArea(last->second.right + extents.left + air)});
            before[staff] = {i, extents.right};
        }
    return needs;
}

bool HaveRoom(const std::vector<Event>& events, const std::vector<EventNeed>& needs) {
    return std::all_of(needs.begin(), needs.end(), [&](const EventNeed& need) {
        return events[need.to].x - events[need.from].x >= need.room;
    });
}

}  // namespace corvane
