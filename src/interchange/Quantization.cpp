#include "interchange/Quantization.h"

#include <algorithm>
#include <array>
#include <cstdlib>

namespace corvane {
namespace {

int64_t Nearest(int64_t time, int64_t grid) { return (time * 1000 + grid / 2) / grid * grid / 1000; }

class Grids {
public:
    Grids(int ticksPerQuarter, const ImportOptions& options)
        : _plain(GridOf(ticksPerQuarter, options.level)),
          _tooNear(ticksPerQuarter * 4 / options.tupletResolution) {
        for (int place = 0; options.tuplets && place < options.tupletKind; ++place) {
            const TupletRatioOf ratio = TupletOfPlace(place);
            _tuplets.push_back(std::max<int64_t>(1, ratio.inTimeOf * _plain / ratio.count));
        }
    }

    int64_t Plain(int64_t time) const { return Nearest(time, _plain); }
    // `passed`: since the event before.
    int64_t Place(int64_t time, int64_t passed) const {
        const int64_t plain = Plain(time);
        if (_tuplets.empty() || (passed != 0 && passed < _tooNear)) return plain;
        int64_t best = Nearest(time, _tuplets[0]);
        for (const int64_t grid : _tuplets)
            if (const int64_t place = Nearest(time, grid); std::abs(place - time) < std::abs(best - time))
                best = place;
        return std::abs(best - time) < std::abs(plain - time) ? best : plain;
    }

private:
    int64_t _plain, _tooNear;
    std::vector<int64_t> _tuplets;
};

// Of events of one moment, ends of notes that began earlier come first: what is tied over would else be heard
// in the chord behind it.
class Moments {
public:
    using Place = std::vector<NoteEvent>::iterator;

    void Sort(Place first, Place last) {
        _others.clear();
        Place end = first;
        for (Place event = first; event != last; ++event) {
            int& sounding = _sounding[event->channel & 15][event->key & 127];
            if (!event->isOn && sounding > 0) {
                --sounding;
                *end++ = *event;
            } else {
                _others.push_back(*event);
            }
        }
        std::copy(_others.begin(), _others.end(), end);
        for (const NoteEvent& event : _others) {
            int& sounding = _sounding[event.channel & 15][event.key & 127];
            sounding = std::max(0, sounding + (event.isOn ? 1 : -1));
        }
    }

private:
    std::array<std::array<int, 128>, 16> _sounding{};
    std::vector<NoteEvent> _others;
};

}  // namespace

int64_t GridOf(int ticksPerQuarter, int level) {
    return std::max<int64_t>(1, (int64_t{ticksPerQuarter} * 4000) >> level);
}

void Quantize(std::vector<NoteEvent>& events, int ticksPerQuarter, const ImportOptions& options) {
    if (options.level == 0) return;
    const Grids grids(ticksPerQuarter, options);
    int64_t original = 0, before = 0;
    for (NoteEvent& event : events) {
        const int64_t passed = event.time - original;
        original = event.time;
        before = std::max(before, grids.Place(original, passed));
        event.time = static_cast<int32_t>(std::min<int64_t>(before, INT32_MAX));
        event.plain = static_cast<int32_t>(std::min<int64_t>(grids.Plain(original), INT32_MAX));
    }
    OrderMoments(events);
}

void OrderMoments(std::vector<NoteEvent>& events) {
    Moments moments;
    for (auto first = events.begin(); first != events.end();) {
        const auto last =
            std::find_if(first, events.end(), [&](const NoteEvent& e) { return e.time != first->time; });
        moments.Sort(first, last);
        first = last;
    }
}

}  // namespace corvane
