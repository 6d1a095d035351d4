#include "interchange/BarGrid.h"

#include <algorithm>

#include "interchange/ImportFailure.h"
#include "model/Meters.h"

namespace corvane {
namespace {

constexpr int kMostMetronome = 32767, kMostDoublings = 7;
constexpr int64_t kMicrosecondsOfMinute = 60000000;

// Puts a tempo at its beat; one that stands there already yields.
void Put(std::vector<TempoAt>& tempos, TempoAt tempo) {
    auto place = std::find_if(tempos.begin(), tempos.end(),
                              [&](const TempoAt& other) { return other.beat >= tempo.beat; });
    if (place != tempos.end() && place->beat == tempo.beat)
        *place = tempo;
    else
        tempos.insert(place, tempo);
}

}  // namespace

BarGrid::BarGrid(int ticksPerQuarter) : _ticksPerQuarter(ticksPerQuarter) {
    AddBar(4, 4);
    _bars[0].showsMeter = true;
}

void BarGrid::AddBar(int num, int den) {
    Bar bar;
    bar.start = _bars.empty() ? 0 : _bars.back().End();
    bar.num = static_cast<int16_t>(num);
    bar.den = static_cast<int16_t>(den);
    bar.length = num * kWholeNote / den;
    _bars.push_back(std::move(bar));
}

int BarGrid::BarAt(FineTime time) {
    while (_bars.back().End() <= time) {
        if (_bars.size() == kMostMeasures) return -1;
        AddBar(_bars.back().num, _bars.back().den);
    }
    return static_cast<int>(BarOf(time));
}

size_t BarGrid::BarOf(FineTime time) const {
    if (time >= _bars.back().start) return _bars.size() - 1;
    const auto behind = std::upper_bound(_bars.begin(), _bars.end(), time,
                                         [](FineTime t, const Bar& bar) { return t < bar.start; });
    return static_cast<size_t>(behind - _bars.begin()) - 1;
}

Status BarGrid::Read(MidiBytes tempoMap) {
    MidiTrackReader reader(tempoMap);
    for (MidiEvent event; reader.Next(event);) {
        if (event.status != 0xFF) continue;
        KeyAt key{};
        if (event.kind == MetaKind::Meter && !SetMeter(event)) return InvalidMidiFile();
        if (event.kind == MetaKind::Tempo && !SetTempo(event)) return InvalidMidiFile();
        if (event.kind == MetaKind::Key && ReadKey(event, key)) _keys.push_back(key);
    }
    return reader.IsDamaged() ? InvalidMidiFile() : Status::Ok();
}

// A meter holds from the start of the measure in which it is told. One that cannot be written is passed over.
bool BarGrid::SetMeter(const MidiEvent& event) {
    if (event.data.size() < 2 || event.data[1] > kMostDoublings) return true;
    const Meter meter{{event.data[0]}, 1 << event.data[1], MeterKind::Normal};
    if (FaultOf(meter)) return true;
    if (BarAt(Fine(event.time)) < 0) return false;
    std::vector<TempoAt> tempos = std::move(_bars.back().tempos);
    _bars.pop_back();
    AddBar(meter.Num(), meter.den);
    _bars.back().tempos = std::move(tempos);
    _bars.back().showsMeter = true;
    return true;
}

// A mark stands at the measure's first beat. Where one tells the tempo of that beat already, what comes later
// in the measure stands at its own.
bool BarGrid::SetTempo(const MidiEvent& event) {
    if (event.data.size() < 3) return true;
    if (BarAt(Fine(event.time)) < 0) return false;
    Bar& bar = _bars.back();
    const int64_t microseconds = event.data[0] << 16 | event.data[1] << 8 | event.data[2];
    const int64_t metronome = microseconds ? bar.den * kMicrosecondsOfMinute / (microseconds * 4) : 0;
    const FineTime late = Fine(event.time) - bar.start;
    int beat = 1;
    if (late > 0 && !bar.tempos.empty())
        beat = std::clamp<int>(static_cast<int>((late * bar.num + bar.length / 2) / bar.length) + 1,
                               std::min<int>(2, bar.num), bar.num);
    Put(bar.tempos, {beat, static_cast<int>(std::min<int64_t>(metronome, kMostMetronome))});
    return true;
}

bool ReadKey(const MidiEvent& event, KeyAt& key) {
    if (event.data.empty()) return false;
    key = {event.time, static_cast<int8_t>(event.data[0])};
    return key.key >= -7 && key.key <= 7;
}

}  // namespace corvane
