#include "layout/SharedColumns.h"

#include <algorithm>
#include <limits>
#include <set>
#include <vector>

#include "base/Rounding.h"
#include "layout/Beaming.h"
#include "layout/EventSymbols.h"
#include "layout/MovingClefs.h"
#include "layout/Spacing.h"
#include "layout/SpacingHeader.h"
#include "model/NoteOperations.h"
#include "model/Par.h"

namespace corvane {
namespace {

bool IsShared(const VoiceSymbol* symbol) {
    const auto* chord = As<Chords>(symbol);
    const ChordSymbol* column = chord ? ChordSymbolPar(chord) : nullptr;
    return column && chordSymbolChords.First(column) != chordSymbolChords.Last(column);
}

bool IsInOrder(const Voice* voice) {
    int32_t before = std::numeric_limits<int32_t>::min();
    for (const VoiceSymbol* symbol : voiceSymbols.Of(voice)) {
        if (XOf(symbol) < before) return false;
        before = XOf(symbol);
    }
    return true;
}

// A walk over one voice from one shared column to the next. Times are whole notes, places per mille.
class SharedWalk {
public:
    void Walk(const Voice* voice) {
        double time = 0.0;
        for (VoiceSymbol* symbol : voiceSymbols.Of(voice)) {
            if (IsShared(symbol)) {
                if (XOf(symbol) < _from.x) PutX(symbol, _from.x);
                SpreadUpTo({time, XOf(symbol)});
            } else {
                _waiting.push_back({symbol, time});
            }
            time += FractionOf(symbol);
        }
        const Measure* measure = MeasurePar(voice);
        SpreadUpTo({std::max(time, MeasureFraction(measure)),
                    std::max(_from.x, 1000 - GapsOf(DocumentPar(voice)).lastNote)});
    }

private:
    struct Anchor {
        double time;
        int32_t x;
    };
    struct Waiting {
        VoiceSymbol* symbol;
        double time;
    };

    void SpreadUpTo(Anchor to) {
        const double span = to.time - _from.time;
        _before = _from.x;
        for (const Waiting& each : _waiting) {
            if (IsGrace(each.symbol)) {
                _graces.push_back(each.symbol);
                continue;
            }
            const double part = span > 0.0 ? (each.time - _from.time) / span : 0.0;
            const int32_t x = _from.x + Round((to.x - _from.x) * part);
            PlaceGraces(x);
            PutX(each.symbol, x);
            _before = x;
        }
        PlaceGraces(to.x);
        _waiting.clear();
        _from = to;
    }

    // Evenly between the event before and the one behind.
    void PlaceGraces(int32_t behind) {
        const auto steps = static_cast<int32_t>(_graces.size()) + 1;
        for (int32_t i = 1; i < steps; ++i)
            PutX(_graces[static_cast<size_t>(i - 1)], _before + (behind - _before) * i / steps);
        _graces.clear();
    }

    Anchor _from{0.0, 0};
    int32_t _before = 0;
    std::vector<Waiting> _waiting;  // since the last shared column
    std::vector<VoiceSymbol*> _graces;
};

bool SetRight(const MeasureStaff* crossing) {
    bool any = false;
    const ClefPlaces clefs(crossing);
    for (const Voice* voice : measureStaffVoices.Of(crossing)) {
        if (IsInOrder(voice)) continue;
        SharedWalk().Walk(voice);
        RefitBeamsOf(voice);
        any = true;
    }
    if (any) clefs.Apply();
    return any;
}

bool SetRight(const Measure* measure) {
    bool any = false;
    for (const MeasureStaff* crossing : measureStaffs.Of(measure)) any |= SetRight(crossing);
    return any;
}

int SharedColumns(const Measure* measure) {
    std::set<const ChordSymbol*> columns;
    for (const MeasureStaff* crossing : measureStaffs.Of(measure))
        for (const Voice* voice : measureStaffVoices.Of(crossing))
            for (const VoiceSymbol* symbol : voiceSymbols.Of(voice))
                if (IsShared(symbol)) columns.insert(ChordSymbolPar(As<Chords>(symbol)));
    return static_cast<int>(columns.size());
}

}  // namespace

bool HasSharedColumn(const Voice* voice) {
    for (const VoiceSymbol* symbol : voiceSymbols.Of(voice))
        if (IsShared(symbol)) return true;
    return false;
}

void FollowSharedColumns(const Measure* measure) {
    const HeadersAtRest headers;
    // Moving a shared column on may bring another voice out of order. It only ever moves on, to where one
    // stands that a voice has before it; so each ends where the rightmost one stands from which voices lead
    // to it, past no column twice. A pass takes a place one column further at least, and one more spreads
    // what stands between. A file whose durations make no sense may ask for more and does not get it.
    for (int left = SharedColumns(measure) + 1; left > 0 && SetRight(measure); --left) {
    }
}

}  // namespace corvane
