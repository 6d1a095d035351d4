#include "interchange/ScorePlan.h"

#include <algorithm>

#include "interchange/ImportFailure.h"
#include "interchange/NoteGeneration.h"
#include "interchange/VoiceSplit.h"

namespace corvane {
namespace {

constexpr size_t kMostCrossings = 500000, kMostStaves = 1000;
constexpr int kMiddleC = 60;

class TrackPlanner {
public:
    TrackPlanner(ScorePlan& plan, const ImportOptions& options, ImportBudget& budget,
                 ImportProgress& progress)
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
            if (!_budget.Bears(pending.Notes().size())) return false;
        }
        pending.Finish(cells.Settle(events.back()));
        VoicePlan& voice = track.voices.emplace_back();
        voice.staff = place.staff;
        voice.voice = place.voice;
        return NoteGeneration(_plan.bars, cells, _options, _budget, voice).Generate(pending);
    }

    ScorePlan& _plan;
    const ImportOptions& _options;
    ImportBudget& _budget;
    ImportProgress& _progress;
};

}  // namespace

int StavesOf(const ScorePlan& plan) {
    int staves = 0;
    for (const TrackPlan& track : plan.tracks) staves += track.channels.UsesLower() ? 2 : 1;
    return staves;
}

int MeasuresPerSystem(int staves) {
    constexpr struct { int staves, measures; } kRows[] = {{2, 5}, {3, 4}, {6, 3}, {8, 2}};
    for (const auto& row : kRows)
        if (staves <= row.staves) return row.measures;
    return 1;
}

Status PlanScore(const MidiFile& file, size_t fileSize, const ImportOptions& options,
                 ImportProgress& progress, ScorePlan& plan) {
    const int parts = static_cast<int>(file.tracks.size());
    if (!progress.At("Measures Generation...", 0, parts)) return ImportCancelled();
    if (Status status = plan.bars.Read(file.tracks[0]); !status) return status;
    plan.title = ReadTitle(file.tracks[0]);
    plan.splitVoice = options.splitVoice;
    ImportBudget budget(fileSize);
    TrackPlanner planner(plan, options, budget, progress);
    for (int i = 1; i < parts; ++i) {
        if (!progress.At("Reading track:", i, parts)) return ImportCancelled();
        TrackPlan& track = plan.tracks.emplace_back();
        if (Status status = planner.Plan(file.tracks[static_cast<size_t>(i)], track); !status) return status;
        plan.isSingle = plan.isSingle && track.channels.IsSingle();
    }
    const auto staves = static_cast<size_t>(std::max(1, StavesOf(plan)));
    const auto perSystem = static_cast<size_t>(MeasuresPerSystem(static_cast<int>(staves)));
    const bool fits = staves <= kMostStaves && plan.bars.Size() * staves <= kMostCrossings &&
                      budget.SpendOnFrame(staves, plan.bars.Size(), perSystem);
    return fits ? Status::Ok() : InvalidMidiFile();
}

}  // namespace corvane
