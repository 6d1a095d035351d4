#include "base/Rounding.h"
#include "model/Par.h"
#include "play/MIDIUtility.h"
#include "play/MeasureClock.h"
#include "play/MeasureTimeElements.h"

namespace corvane {
namespace {

constexpr double kWeightWithoutTempo = 60.0;

// Weight of a beat under a tempo; its dots and tuplet do not count.
double WeightOf(const Tempo* tempo) {
    const TempoValues values = ValuesOf(tempo);
    return values.bpm > 0 && values.figure ? 60.0 / (values.bpm * values.figure) : 1.0;
}

// Time of measures one after the other in score order, at the weight that holds in each.
class MeasureTimes {
public:
    double TimeOf(const Measure* measure) {
        const auto [num, den] = PlayedMeterOf(measure);
        double weight = WeightBefore(measure);
        double time = 0;
        int from = 1;
        for (const TimeElement* element : measureTimeElements.Of(measure)) {
            const auto* tempo = As<Tempo>(element);
            if (!tempo) continue;
            time += (tempo->_beat - from) * weight * 4 / den;
            weight = WeightOf(tempo);
            from = tempo->_beat;
        }
        time += (num + 1 - from) * weight * 4 / den;
        _measure = measure;
        _weight = weight;
        return time;
    }

private:
    // Back to the measure asked last, or to the nearest one with a tempo.
    double WeightBefore(const Measure* measure) const {
        for (const Measure* before = PrevMeasure(measure); before; before = PrevMeasure(before)) {
            if (before == _measure) return _weight;
            const Tempo* last = nullptr;
            for (const TimeElement* element : measureTimeElements.Of(before))
                if (const auto* tempo = As<Tempo>(element)) last = tempo;
            if (last) return WeightOf(last);
        }
        return kWeightWithoutTempo;
    }

    const Measure* _measure = nullptr;
    double _weight = 0;
};

double TotalTime(const std::vector<GenericNote*>& notes) {
    MeasureTimes times;
    double total = 0;
    const Measure* entered = nullptr;
    for (const GenericNote* note : notes) {
        const Measure* measure = MeasurePar(note);
        if (measure != entered) total += times.TimeOf(measure);
        entered = measure;
    }
    return total;
}

}  // namespace

Tempo* TempoOf(const Time* mark) {
    auto* element = static_cast<TimeElement*>(mark->_any28.Get());
    return element && ClassNumberOf(element) == Tempo::kClass ? static_cast<Tempo*>(element) : nullptr;
}

Tempo* InsertTempoAtBeat(Measure* measure, Time* mark) {
    CORVANE_ASSERT(mark);
    RemoveTempo(mark);
    Tempo* tempo = GetOrMakeTempo(measure, mark->_beat, 0);
    tempo->_mark = mark;
    tempo->_metronome = 0;
    mark->_any28 = tempo;
    return tempo;
}

void RemoveTempo(Time* mark) {
    Tempo* tempo = TempoOf(mark);
    if (!tempo) return;
    Measure* measure = MeasurePar(tempo);
    mark->_any28 = nullptr;
    if (tempo->_mark == mark) {
        // Another mark of the same place speaks for it from now on.
        Time* other = nullptr;
        for (MeasureSymbol* symbol : measureSymbols.Of(measure))
            if (auto* time = As<Time>(symbol); time && TempoOf(time) == tempo) other = time;
        tempo->_mark = other;
    }
    ReleaseTimeElement(measure, tempo);
}

void SetVelocities(const std::vector<GenericNote*>& notes, int start, int end) {
    const double total = TotalTime(notes);
    if (total == 0) return;
    const double slope = (end - start) / total;
    MeasureTimes times;
    double finished = 0, current = 0;
    const Measure* entered = nullptr;
    for (const GenericNote* note : notes) {
        const Measure* measure = MeasurePar(note);
        if (measure != entered) {
            finished += current;
            current = times.TimeOf(measure);
            entered = measure;
        }
        NoteOn* on = NoteOnOf(note);
        if (!on) continue;
        const int offset = (TimePlaceOf(on).beat - 1) * 1000 / PlayedMeterOf(measure).den;
        const int velocity = Truncate(start + (offset * current * 0.001 + finished) * slope);
        on->_velocity = static_cast<int16_t>(velocity < 0 ? 0 : velocity > 127 ? 127 : velocity);
    }
}

}  // namespace corvane
