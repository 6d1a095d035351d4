// What the parts of a paste share.
#pragma once

#include <map>
#include <utility>

#include "edit/ClipClones.h"

namespace corvane {

// Where clips come to: as many staffs below the caret's and measures behind it as in their source.
class PastePlaces {
public:
    PastePlaces(const Caret& caret, const Clipboard& clips);

    // Null beyond the score's staffs and measures. `further`: measures behind the clip's own.
    MeasureStaff* Destination(const ClipPlace& place, int32_t further = 0);
    // Some clip had no destination.
    bool HasDropped() const { return _hasDropped; }
    // An event has come to the measure that is its clip's.
    void Take(const ClipPlace& place, const VoiceSymbol* clone) {
        _events[{place.measure, place.staff}][place.x] = clone;
    }
    // Where a place comes to in its measure: it keeps its distance from the event that it stood at or behind.
    // Where none has come, what comes to the first measure keeps its distance from the leftmost.
    int32_t XOf(const ClipPlace& place) const;

    Measure* First() const { return _measures.front(); }
    int32_t Offset() const { return _offset; }  // per mille in the first measure
    // The same for what comes before or behind it: left of a measure's start, before its first event, it is
    // less than 0.
    int32_t Told() const { return _told; }
    // Measures behind the clip's own that the score has, at most so many.
    int32_t MeasuresBehind(const ClipPlace& place, int32_t count);

private:
    Measure* MeasureFromCaret(int32_t count);
    MeasureStaff* Find(const ClipPlace& place, int32_t further);

    const Clipboard& _clips;
    const DocStaff* const _staff;
    std::vector<Measure*> _measures;  // from the caret's on, as far as was asked for
    const int32_t _told, _offset;
    // By measure and staff of the source, then by place there.
    std::map<std::pair<int32_t, int32_t>, std::map<int32_t, const VoiceSymbol*>> _events;
    bool _hasDropped = false;
};

// Clones all that is no event; the events must be there.
void PasteSigns(WindowTarn& window, const Clipboard& clips, PastePlaces& places, const ClipClones& clones);

}  // namespace corvane
