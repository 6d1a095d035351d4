#include "interchange/ConductorTrack.h"

#include <algorithm>

#include "base/Rounding.h"
#include "interchange/ExportMidi.h"
#include "interchange/MeasureWalk.h"
#include "interchange/MidiBytes.h"
#include "layout/SignRecords.h"
#include "model/Par.h"
#include "play/MIDIUtility.h"
#include "play/MeasureClock.h"

namespace corvane {
namespace {

constexpr int32_t kDefaultMicroseconds = 1000000, kMostMicroseconds = 0xFFFFFF;
constexpr float kMicrosecondsOfMinute = 60000000.0f;
// What a meter event holds behind the numbers: clocks of the metronome, 32nds of a quarter.
constexpr char kClocks = 24, kThirtySeconds = 8;

// Single precision, as files of this kind have always been computed.
float FractionOf(const TempoValues& values) {
    if (!values.figure) return 0;
    float left = 1.0f;
    for (int i = 0; i < values.dots; ++i) left *= 0.5f;
    float fraction = 1.0f / static_cast<float>(values.figure) * (2.0f - left);
    if (values.tupletNormal)
        fraction =
            fraction * static_cast<float>(values.tupletActual) / static_cast<float>(values.tupletNormal);
    return fraction;
}

// The doublings from 1 that reach a denominator, one less where they overshoot.
char DoublingsOf(int den) {
    char doublings = 0;
    while (1 << (doublings + 1) <= den) ++doublings;
    return doublings;
}

bool BeginsMeter(const Measure* measure) {
    for (const MeasureStaff* crossing : measureStaffs.Of(measure))
        if (SignOf<TimeSignature>(crossing)) return true;
    return false;
}

// The mark that holds from the measure's start; null for none.
const Time* MarkOf(const Measure* measure) {
    for (const MeasureSymbol* symbol : measureSymbols.Of(measure))
        if (const auto* mark = As<Time>(symbol); mark && mark->_beat == 1 && TempoOf(mark)) return mark;
    return nullptr;
}

void WriteMeter(MidiTrackWriter& track, int32_t time, const Measure* measure) {
    const char numbers[] = {static_cast<char>(std::min<int>(measure->_num, 255)), DoublingsOf(measure->_den),
                            kClocks, kThirtySeconds};
    track.Meta(time, MetaKind::Meter, {numbers, sizeof numbers});
}

void WriteTempo(MidiTrackWriter& track, int32_t time, int32_t microseconds) {
    const char bytes[] = {static_cast<char>(microseconds >> 16), static_cast<char>(microseconds >> 8),
                          static_cast<char>(microseconds)};
    track.Meta(time, MetaKind::Tempo, {bytes, sizeof bytes});
}

}  // namespace

int32_t MicrosecondsOf(const Time* mark) {
    const TempoValues values = ValuesOf(TempoOf(mark));
    const float quarters = static_cast<float>(values.bpm) * 4.0f * FractionOf(values);
    if (!(quarters > 0)) return 0;
    return std::min(Truncate(kMicrosecondsOfMinute / quarters), kMostMicroseconds);
}

std::vector<uint8_t> ConductorTrack(const Document* document) {
    MidiTrackWriter track;
    int32_t time = 0, carry = 0;
    for (const Measure* measure = FirstMeasureOf(document); measure; measure = NextMeasure(measure)) {
        if (BeginsMeter(measure)) WriteMeter(track, time, measure);
        if (const Time* mark = MarkOf(measure))
            WriteTempo(track, time, MicrosecondsOf(mark));
        else if (!PrevMeasure(measure))
            WriteTempo(track, time, kDefaultMicroseconds);
        const MeasureLength length = LengthOf(measure, kMidiTicksPerQuarter, carry, 1.0);
        carry = length.carry;
        time += length.ticks;
    }
    return track.Finish();
}

}  // namespace corvane
