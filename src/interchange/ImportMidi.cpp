#include "interchange/ImportMidi.h"

#include "edit/Signs.h"
#include "interchange/MeasureWalk.h"
#include "interchange/ScoreFrame.h"
#include "interchange/VoiceWriting.h"
#include "model/Preferences.h"

namespace corvane {
namespace {

void WriteTrack(const TrackPlan& track, const ScorePlan& plan, std::vector<StaffColumn>& columns) {
    for (StaffColumn& column : columns) {
        if (column.track != &track) continue;
        const std::vector<int> keys = ScoreFrame::KeysOf(column, plan);
        for (const VoicePlan& voice : track.voices)
            if (voice.staff == column.staff) VoiceWriting(column, voice, keys).Write();
    }
}

Status WriteNotes(const ScorePlan& plan, std::vector<StaffColumn>& columns, ImportProgress& progress) {
    const int tracks = static_cast<int>(plan.tracks.size());
    for (int i = 0; i < tracks; ++i) {
        if (!progress.At("Note Generation...", i, tracks)) return ImportCancelled();
        WriteTrack(plan.tracks[static_cast<size_t>(i)], plan, columns);
    }
    return Status::Ok();
}

template <class Act>
Status ForAllCrossings(const std::vector<StaffColumn>& columns, const char* stage, ImportProgress& progress,
                       Act act) {
    const int count = static_cast<int>(columns.size());
    for (int i = 0; i < count; ++i) {
        if (!progress.At(stage, i, count)) return ImportCancelled();
        if (!columns[static_cast<size_t>(i)].track) continue;
        for (MeasureStaff* crossing : columns[static_cast<size_t>(i)].crossings) act(crossing);
    }
    return Status::Ok();
}

Status Respace(const Document* document, int measures, ImportProgress& progress) {
    int done = 0;
    for (Measure* measure = FirstMeasureOf(document); measure; measure = NextMeasure(measure)) {
        if (!progress.At("Respacing...", done++, measures)) return ImportCancelled();
        RespaceMeasure(measure);
    }
    return Status::Ok();
}

void PlaceTempoMarks(const Document* document) {
    for (const Measure* measure = FirstMeasureOf(document); measure; measure = NextMeasure(measure))
        for (MeasureSymbol* symbol : measureSymbols.Of(measure))
            if (auto* mark = As<Time>(symbol)) PlaceTempoMark(mark);
}

}  // namespace

Status ImportMidi(Document* document, MidiBytes bytes, const ImportOptions& options,
                  ImportProgress& progress) {
    MidiFile file;
    if (Status status = ReadMidiFile(bytes, file); !status) return status;
    ScorePlan plan(file.ticksPerQuarter);
    if (Status status = PlanScore(file, bytes.size(), options, progress, plan); !status) return status;
    if (!progress.At("Generating measure:", 0, 1)) return ImportCancelled();
    ScoreFrame frame(document, plan);
    frame.Build();
    if (Status status = WriteNotes(plan, frame.Columns(), progress); !status) return status;
    if (Status status = ForAllCrossings(frame.Columns(), "Respacing...", progress, SettleCrossing); !status)
        return status;
    if (Status status = Respace(document, static_cast<int>(plan.bars.Size()), progress); !status)
        return status;
    if (Status status = ForAllCrossings(frame.Columns(), "Beaming...", progress, BeamCrossing); !status)
        return status;
    PlaceTempoMarks(document);
    if (plan.isSingle)
        if (auto* voices = Preferences<VoicePref>(document)) voices->_automaticStems = 1;
    return Status::Ok();
}

}  // namespace corvane
