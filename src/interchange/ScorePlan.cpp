#include "interchange/ScorePlan.h"

#include <algorithm>

#include "interchange/ImportFailure.h"
#include "interchange/NoteGeneration.h"
#include "interchange/VoiceSplit.h"

namespace corvane {
namespace {

constexpr size_t kMostCrossings = 500000, kMostStaves = 1000, kNarrowStaves = 8, kHeadBytes = 320;
constexpr int kMiddleC = 60;

// Bytes of memory that parts of a score take, generously, and how many a file may ask for: enough for any
// music, too few to be harmed by a file that lies.
constexpr size_t kChordBytes = 340, kNoteBytes = 240, kRestBytes = 80, kCrossingBytes = 130, kBarBytes = 120;
constexpr size_t kFreeBytes = size_t{40} << 20, kBytesOfByte = 200;

// Adds up what a plan will cost.
class Budget {
public:
    explicit Budget(size_t fileSize) : _left(kFreeBytes + kBytesOfByte * fileSize) {}
    bool Spend(const VoicePlan& voice) {
        size_t bytes = 0;
        for (const PlannedSymbol& symbol : voice.symbols)
            bytes += symbol.noteCount ? kChordBytes + symbol.noteCount * kNoteBytes : kRestBytes;
        return Spend(bytes);
    }
    bool Spend(size_t bytes) {
        if (bytes > _left) return false;
        _left -= bytes;
        return true;
    }

private:
    size_t _left;
};

class TrackPlanner {
public:
    TrackPlanner(ScorePlan& plan, const ImportOptions& options, Budget& budget, ImportProgress& progress)
        : _plan(plan), _options(options), _budget(budget), _progress(progress) {}

    Status Plan(MidiBytes bytes, TrackPlan& track) {
        ImportTrack source;
        if (Status status = ReadImportTrack(bytes, source); !status) return status;
        if (_options.level && !_progress.At("Quantization...", 0, 1)) return ImportCancelled();
        Quantize(source.events, _plan.bars.TicksPerQuarter(), _options);
        int low = 0, high = 0;
        for (const NoteEvent& event : source.events) {
            if (!event.isOn) continue;
            source.channels.Register(event.channel);
            ++(event.key < kMiddleC ? low : high);
        }
        track.name = std::move(source.name);
        track.keys = std::move(source.keys);
        track.sounds = source.sounds;
        track.channels = source.channels;
        track.isLow = low > high;
        if (!_progress.At("Scanning...", 0, 1)) return ImportCancelled();
        return PlanVoices(source.events, track) ? Status::Ok() : InvalidMidiFile();
    }

private:
    bool PlanVoices(const std::vector<NoteEvent>& events, TrackPlan& track) {
        track.hasSplit = _options.splitVoice > 1 && track.channels.IsSingle();
        if (track.hasSplit) {
            const SplitEvents split = SplitInTwo(events);
            return PlanVoice(split.first, {0, 1}, track) &&
                   PlanVoice(split.second, {0, _options.splitVoice}, track);
        }
        for (int channel = 0; channel < 16; ++channel) {
            std::vector<NoteEvent> own;
            for (const NoteEvent& event : events)
                if (event.channel == channel) own.push_back(event);
            if (!own.empty() && !PlanVoice(own, track.channels.PlaceOf(channel), track)) return false;
        }
        return true;
    }

    bool PlanVoice(const std::vector<NoteEvent>& events, ChannelTable::Place place, TrackPlan& track) {
        if (events.empty()) return true;
        // What ends with a measure begins none.
        const FineTime last = _plan.bars.Fine(events.back().time);
        if (_plan.bars.BarAt(std::max<FineTime>(0, last - 1)) < 0) return false;
        TupletCells cells(_plan.bars, _options);
        cells.Find(events);
        PendingChords pending;
        for (const NoteEvent& event : events) {
            const FineTime time = cells.Settle(event);
            if (event.isOn)
                pending.NoteOn(time, event.key);
            else
                pending.NoteOff(time, event.key);
            if (pending.Notes().size() > kMostParts) return false;
        }
        pending.Finish(cells.Settle(events.back()));
        VoicePlan& voice = track.voices.emplace_back();
        voice.staff = place.staff;
        voice.voice = place.voice;
        NoteGeneration generation(_plan.bars, cells, _options, voice);
        return generation.Generate(pending) && _budget.Spend(voice);
    }

    static constexpr size_t kMostParts = 1000000;

    ScorePlan& _plan;
    const ImportOptions& _options;
    Budget& _budget;
    ImportProgress& _progress;
};

}  // namespace

int StavesOf(const ScorePlan& plan) {
    int staves = 0;
    for (const TrackPlan& track : plan.tracks) staves += track.channels.UsesLower() ? 2 : 1;
    return staves;
}

Status PlanScore(const MidiFile& file, size_t fileSize, const ImportOptions& options,
                 ImportProgress& progress, ScorePlan& plan) {
    const int parts = static_cast<int>(file.tracks.size());
    if (!progress.At("Measures Generation...", 0, parts)) return ImportCancelled();
    if (Status status = plan.bars.Read(file.tracks[0]); !status) return status;
    plan.splitVoice = options.splitVoice;
    Budget budget(fileSize);
    TrackPlanner planner(plan, options, budget, progress);
    for (int i = 1; i < parts; ++i) {
        if (!progress.At("Reading track:", i, parts)) return ImportCancelled();
        TrackPlan& track = plan.tracks.emplace_back();
        if (Status status = planner.Plan(file.tracks[static_cast<size_t>(i)], track); !status) return status;
        plan.isSingle = plan.isSingle && track.channels.IsSingle();
    }
    const auto staves = static_cast<size_t>(std::max(1, StavesOf(plan)));
    const size_t bars = plan.bars.Size(), crossings = bars * staves;
    // A system of many staves is a measure wide.
    const size_t heads = staves > kNarrowStaves ? crossings : 0;
    const bool fits = crossings <= kMostCrossings && staves <= kMostStaves &&
                      budget.Spend(heads * kHeadBytes + crossings * kCrossingBytes + bars * kBarBytes);
    return fits ? Status::Ok() : InvalidMidiFile();
}

}  // namespace corvane
