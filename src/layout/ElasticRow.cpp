#include "layout/ElasticRow.h"

#include <algorithm>

#include "base/Rounding.h"

namespace corvane {
namespace {

constexpr int32_t kAirPercent = 15;       // of a line distance, between events that are pressed together
constexpr double kLeastDuration = 0.001;  // of a whole note; an overfull measure ends before its last event
constexpr double kNoLength = -1e9;        // a force that leaves each gap its least
constexpr double kMostForce = 1e6;        // units for a whole note; wider than any measure
constexpr int kHalvings = 40;             // of that range: far below a unit

}  // namespace

ElasticRow::ElasticRow(const ListaEventi& list, const SpacingTable& table)
    : _start(list.events.front().x), _usable(list.Usable()) {
    const int32_t air = kAirPercent * list.lineDistance / 100;
    for (size_t i = 0; i < list.events.size(); ++i) {
        const Event& event = list.events[i];
        const int32_t ink = list.InNoteArea(event.rightExtent - event.leftExtent + air);
        const int32_t natural = list.WidthOf(i, table);
        _gaps.push_back(
            {1.0 * natural, 1.0 * std::min(ink, natural), std::max(event.duration, kLeastDuration)});
    }
}

double ElasticRow::Gap::At(double force) const { return std::max(natural + force * duration, least); }

std::vector<double> ElasticRow::At(double force, const std::vector<EventNeed>& needs) const {
    std::vector<double> places = {_start};
    auto need = needs.begin();
    for (size_t i = 0; i < _gaps.size(); ++i) {
        double next = places[i] + _gaps[i].At(force);
        for (; need != needs.end() && need->to == i + 1; ++need)
            next = std::max(next, places[need->from] + need->room);
        places.push_back(next);
    }
    return places;
}

bool ElasticRow::Fits(const std::vector<EventNeed>& needs) const {
    return At(kNoLength, needs).back() <= _usable;
}

std::vector<int32_t> ElasticRow::Stretched(const std::vector<EventNeed>& needs) const {
    double low = -kMostForce, high = kMostForce;
    for (int i = 0; i < kHalvings; ++i) {
        const double middle = (low + high) / 2;
        (At(middle, needs).back() <= _usable ? low : high) = middle;
    }
    std::vector<double> places = At(low, needs);
    places.pop_back();
    // The last event's ink stays within the measure.
    const double room = std::max(_usable - _gaps.back().least - _start, 0.0),
                 needed = std::max(places.back() - _start, 1.0), ratio = std::min(room / needed, 1.0);
    std::vector<int32_t> rounded;
    for (const double place : places) rounded.push_back(Round(_start + (place - _start) * ratio));
    return rounded;
}

}  // namespace corvane
