#include "layout/Spacing.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "base/Rounding.h"
#include "layout/Beaming.h"
#include "layout/CrossBeams.h"
#include "layout/EventSymbols.h"
#include "layout/Frames.h"
#include "layout/MovingClefs.h"
#include "layout/NoteGeometry.h"
#include "layout/SharedColumns.h"
#include "layout/SpacingHeader.h"
#include "model/NoteOperations.h"
#include "model/Par.h"

namespace corvane {
namespace {

constexpr double kEpsilon = 0.0001;  // of a whole note

struct Placed {
    VoiceSymbol* symbol;
    int32_t x;
};

// The walk over one voice: events in proportion to time, each run of grace chords in the gap before its main
// note.
class VoiceSpacing {
public:
    explicit VoiceSpacing(const Voice* voice)
        : _frame(FrameOf(MeasurePar(voice))), _lastNoteGap(GapsOf(DocumentPar(voice)).lastNote) {
        double sum = 0.0;
        _fraction = IsMeasureFull(voice, &sum) ? sum : MeasureFraction(MeasurePar(voice));
    }

    void Walk(const Voice* voice) {
        for (VoiceSymbol* symbol : voiceSymbols.Of(voice)) {
            if (IsGrace(symbol))
                _graces.push_back(symbol);
            else
                PlaceEvent(symbol);
        }
        PlaceGraces(_x);
        if (_pushed && _x > Available()) Compress();
    }

    bool Store() const {
        bool changed = false;
        for (const Placed& placed : _placed) changed |= PutX(placed.symbol, placed.x);
        return changed;
    }

private:
    int32_t Available() const { return 1000 - _lastNoteGap; }

    void PlaceEvent(VoiceSymbol* symbol) {
        if (!_graces.empty()) {
            const int32_t first = _previous + OwnWidth();
            const int32_t wanted = first + GraceRoom();
            _pushed |= wanted > _x;
            _x = std::max(_x, wanted);
            PlaceGraces(_x);
        }
        _placed.push_back({symbol, _x});
        _previous = _x;
        _before = symbol;
        _x += Round(Available() * FractionOf(symbol) / _fraction);
    }

    // Width of the event before, per mille; 0 at the start of the measure.
    int32_t OwnWidth() const {
        if (!_before) return 0;
        const auto* pause = As<Pause>(_before);
        const Rect rect = pause ? RectOf(pause) : RectOf(ChordSymbolPar(As<Chords>(_before)));
        return _frame.PerMille(rect.Width());
    }

    // What the waiting grace chords need before their main note, per mille.
    int32_t GraceRoom() const {
        int32_t room = _before ? 0 : _lastNoteGap;
        for (const VoiceSymbol* grace : _graces)
            room += _frame.PerMille(RectOf(ChordSymbolPar(As<Chords>(grace))).Width());
        return room;
    }

    // Divides the gap up to `end` evenly among the waiting grace chords.
    void PlaceGraces(int32_t end) {
        const auto k = static_cast<int32_t>(_graces.size());
        // Behind the last event there may be less room than that event is wide.
        const int32_t start = _before ? std::min(_previous + OwnWidth(), end) : 0;
        const int32_t step = k ? (_before ? end - start : _lastNoteGap) / k : 0;
        int32_t x = start;
        for (VoiceSymbol* grace : _graces) {
            _placed.push_back({grace, x});
            x += step;
        }
        _graces.clear();
    }

    // Room for grace chords has driven the voice past its end: everything moves together in proportion.
    void Compress() {
        for (Placed& placed : _placed) placed.x = Round(static_cast<double>(placed.x) * Available() / _x);
    }

    const MeasureFrame _frame;
    const int32_t _lastNoteGap;
    double _fraction = 1.0;
    int32_t _x = 0, _previous = 0;
    bool _pushed = false;
    const VoiceSymbol* _before = nullptr;
    std::vector<VoiceSymbol*> _graces;  // seen since the event before
    std::vector<Placed> _placed;
};

bool SpaceEvents(Voice* voice, VoiceSymbol* first) {
    const auto* rest = As<Pause>(first);
    if (rest && rest->_value == 1 && first == voiceSymbols.Last(voice)) return PutX(first, kMiddleOfMeasure);
    VoiceSpacing spacing(voice);
    spacing.Walk(voice);
    return spacing.Store();
}

}  // namespace

double FractionOf(const VoiceSymbol* symbol) {
    if (IsGrace(symbol)) return 0.0;
    const int dots = DotCount(symbol);
    const double dotted = dots > 0 ? 2.0 - std::ldexp(1.0, -dots) : 1.0;
    return SpacingFraction(ValueOf(symbol)) * (TupletRatio(symbol) / 1000.0) * dotted;
}

double MeasureFraction(const Measure* measure) {
    const int denominator = std::max<int>(measure->_den, 1);
    const double log = std::log2(denominator);
    if (log - std::floor(log) < 0.01) return static_cast<double>(measure->_num) / denominator;
    return measure->_num / std::exp2(std::round(log));
}

double VoiceFraction(const Voice* voice) {
    double sum = 0.0;
    for (const VoiceSymbol* symbol : voiceSymbols.Of(voice)) sum += FractionOf(symbol);
    return sum;
}

bool IsMeasureFull(const Voice* voice, double* sum) {
    const double filled = VoiceFraction(voice);
    if (sum) *sum = filled;
    return filled - MeasureFraction(MeasurePar(voice)) > kEpsilon;
}

bool HasRoomFor(const Measure* measure, const Voice* voice, uint8_t value) {
    const double filled = (voice ? VoiceFraction(voice) : 0.0) + SpacingFraction(value);
    return filled - MeasureFraction(measure) <= kEpsilon;
}

bool SpaceVoice(Voice* voice) {
    VoiceSymbol* first = voiceSymbols.First(voice);
    if (!first) return false;
    SplitPartedColumns(voice);
    const HeadersAtRest headers;
    const ClefPlaces clefs(MeasureStaffPar(voice));
    const bool changed = SpaceEvents(voice, first);
    if (!changed) return false;
    clefs.Apply();
    RefitBeamsOf(voice);
    if (HasSharedColumn(voice)) FollowSharedColumns(MeasurePar(voice));
    return true;
}

bool SpaceMeasure(Measure* measure, const SpacingRoom& room) {
    const HeadersAtRest headers;
    ListaEventi list(measure, room);
    if (!list.CanBeSpaced()) return false;
    list.LayOut(spacingTable);
    std::vector<ClefPlaces> clefs;
    for (const MeasureStaff* crossing : measureStaffs.Of(measure)) clefs.emplace_back(crossing);
    if (!list.Put()) return false;
    for (const ClefPlaces& each : clefs) room.clefs ? each.KeepOrder() : each.Apply();
    for (const MeasureStaff* crossing : measureStaffs.Of(measure))
        for (const Voice* voice : measureStaffVoices.Of(crossing)) RefitBeamsOf(voice);
    return true;
}

}  // namespace corvane
