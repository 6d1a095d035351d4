#include "play/MeasureClock.h"

#include <algorithm>
#include <cmath>

#include "base/Rounding.h"
#include "model/Meters.h"
#include "model/Par.h"

namespace corvane {
namespace {

// Ticks of one beat at factor 1.0; `carry` is renewed.
double TicksOfBeat(int den, int resolution, int32_t& carry) {
    const double log = std::log2(den);
    double ticks = 0;
    int parts = den;
    if (log - std::trunc(log) <= 0.01) {
        ticks = (resolution * 4.0 + carry) / den;
    } else {
        parts = 1 << static_cast<int>(log);
        const int half = den / 2;
        ticks = (carry + resolution * 4.0 * (1 << static_cast<int>(log - 1)) / half) / parts;
    }
    carry = Truncate(parts * (ticks - std::trunc(ticks)));
    return ticks;
}

}  // namespace

PlayedMeter PlayedMeterOf(const Measure* measure) {
    return {std::max<int>(1, measure->_num), std::max<int>(1, measure->_den)};
}

TempoValues ValuesOf(const Tempo* tempo) {
    TempoValues values;
    values.bpm = tempo->_metronome;
    const Time* mark = tempo->_mark;
    if (!mark) return values;
    if (!values.bpm) values.bpm = mark->_bpm;
    const int figure = mark->_figure;
    const int value = figure >= 0 && figure < std::ssize(kFigureValues) ? kFigureValues[figure] : 0;
    values.figure = value == kDoubleWhole ? 1 : value;  // timing knows no double whole
    values.dots = mark->_dots;
    values.tupletActual = mark->_tupletActual;
    values.tupletNormal = mark->_tupletNormal;
    return values;
}

double FigureFraction(const TempoValues& values) {
    if (!values.figure) return 0;
    float left = 1.0f;
    for (int i = 0; i < values.dots; ++i) left *= 0.5f;
    double fraction = 1.0 / values.figure * (2 - left);
    if (values.tupletActual > 0 && values.tupletNormal > 0)
        fraction = fraction * values.tupletActual / values.tupletNormal;
    return fraction;
}

double FactorOf(const TempoValues& values) {
    const double fraction = FigureFraction(values);
    return values.bpm && fraction != 0 ? 60.0 / (values.bpm * 4 * fraction) : 0;
}

const Tempo* TempoInForce(const Measure* measure) {
    for (const Measure* m = measure; m; m = PrevMeasure(m)) {
        const Tempo* last = nullptr;
        for (const TimeElement* element : measureTimeElements.Of(m)) {
            if (m == measure && (element->_beat > 1 || element->_clock > 0)) break;
            if (const auto* tempo = As<Tempo>(element)) last = tempo;
        }
        if (last) return last;
    }
    return nullptr;
}

MeasureLength LengthOf(const Measure* measure, int resolution, int32_t carry, double factor) {
    MeasureLength length;
    length.carry = carry;
    const auto [num, den] = PlayedMeterOf(measure);
    const double t = TicksOfBeat(den, resolution, length.carry);
    length.ticks = Truncate(num * t);
    double f = factor, sum = 0;
    int b0 = 1;
    bool hasTempo = false;
    for (const TimeElement* element : measureTimeElements.Of(measure)) {
        const auto* tempo = As<Tempo>(element);
        if (!tempo) continue;
        const int b = tempo->_beat;
        sum += (b - b0) * f;
        if (const double next = FactorOf(ValuesOf(tempo)); next > 0) f = next;
        b0 = b;
        hasTempo = true;
    }
    const int32_t duration = Truncate(hasTempo ? ((num + 1 - b0) * f + sum) * t : num * factor * t);
    length.duration = std::clamp(duration, 1, kLongestMeasure);
    return length;
}

}  // namespace corvane
