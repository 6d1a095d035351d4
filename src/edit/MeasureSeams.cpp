#include "edit/MeasureSeams.h"

#include <optional>

#include "edit/Deletion.h"
#include "edit/TarnDestroy.h"
#include "layout/Beaming.h"
#include "layout/MeasureFlow.h"
#include "layout/MeasureHeads.h"
#include "layout/NoteAreas.h"
#include "layout/NotePitches.h"
#include "layout/ScoreBuilder.h"
#include "layout/SpannerMarks.h"
#include "model/NoteOperations.h"
#include "model/Par.h"
#include "play/MIDIUtility.h"

namespace corvane {
namespace {

bool StandsBehind(const Measure* measure, const Measure* other) { return measure->_number > other->_number; }

// The mark of a note whose tie leads out of a measure, and the note that it leads to.
struct Outgoing {
    MarkValue* mark = nullptr;
    const GenericNote* later = nullptr;
};
Outgoing OutgoingOf(const GenericNote* note, const Measure* measure) {
    for (NoteAttribute* attribute : noteAttributes.Of(note)) {
        auto* mark = As<MarkValue>(attribute);
        if (!mark) continue;
        for (const MarkValue* other : tieMarks.Of(tieMarks.ParentOf(mark)))
            if (const GenericNote* later = noteAttributes.ParentOf(other);
                StandsBehind(MeasurePar(later), measure))
                return {mark, later};
    }
    return {};
}

void CutTies(WindowTarn& window, const GenericNote* note, const Measure* measure) {
    for (Outgoing out = OutgoingOf(note, measure); out.mark; out = OutgoingOf(note, measure)) {
        MeasureStaff* crossing = MeasureStaffPar(out.later);
        DeleteNoteAttribute(window, out.mark);
        RedoAccidentals(crossing);
    }
}

void CutBeam(Beam* beam, const Measure* measure) {
    if (!beam) return;
    for (const BeamMarker* marker : beamMarkers.Of(beam)) {
        const BeamSymbol* symbol = beamSymbolAttributes.ParentOf(marker);
        const auto* stem = As<Stem>(symbol);
        const Measure* its =
            stem ? MeasurePar(stem) : MeasurePar(static_cast<const VoiceSymbol*>(As<Pause>(symbol)));
        if (StandsBehind(its, measure)) return DissolveBeam(beam, nullptr);
    }
}

void CutChord(WindowTarn& window, const Chords* chord, const Measure* measure) {
    for (const GenericNote* note : chordNotes.Of(chord)) {
        CutTies(window, note, measure);
        CutBeam(BeamOf(StemPar(note)), measure);
    }
}

MarkEndings* EndingsMarkIn(const Measure* measure) {
    for (MeasureSymbol* symbol : measureSymbols.Of(measure))
        if (auto* mark = As<MarkEndings>(symbol)) return mark;
    return nullptr;
}

std::vector<System*> SystemsOf(const std::vector<Measure*>& measures) {
    std::vector<System*> systems;
    for (const Measure* measure : measures)
        if (System* system = SystemPar(measure); systems.empty() || systems.back() != system)
            systems.push_back(system);
    return systems;
}

// Spanners whose mark between their ends went with its measure are known by their mark on the system before.
void SettleMarksAround(std::vector<System*> systems, const Measure* before) {
    if (before) systems.push_back(SystemPar(before));
    SettleMarks(systems);
}

}  // namespace

void CutBehind(WindowTarn& window, const Measure* measure) {
    for (const MeasureStaff* crossing : measureStaffs.Of(measure))
        for (const Voice* voice : measureStaffVoices.Of(crossing))
            for (const VoiceSymbol* symbol : voiceSymbols.Of(voice))
                if (const auto* chord = As<Chords>(symbol))
                    CutChord(window, chord, measure);
                else
                    CutBeam(BeamOf(As<Pause>(symbol)), measure);
}

void ContinueEndings(const std::vector<Measure*>& made) {
    const Measure *before = PrevMeasure(made.front()), *behind = NextMeasure(made.back());
    MarkEndings *left = before ? EndingsMarkIn(before) : nullptr,
                *right = behind ? EndingsMarkIn(behind) : nullptr;
    if (!left || !right || endingsMarks.ParentOf(left) != endingsMarks.ParentOf(right)) return;
    for (Measure* measure : made) {
        auto* mark = Make<MarkEndings>();
        measureSymbols.Add(measure, mark);
        endingsMarks.Insert(endingsMarks.ParentOf(left), mark, left);
        left = mark;
    }
}

void MoveFinalBarline(Measure* from, Measure* to) {
    if (from->_barline != BarlineKind::Final || to->_barline != BarlineKind::Single) return;
    from->_barline = BarlineKind::Single;
    to->_barline = BarlineKind::Final;
}

std::vector<System*> TakeOutMeasures(WindowTarn& window, const std::vector<Measure*>& going) {
    Measure *before = PrevMeasure(going.front()), *behind = NextMeasure(going.back());
    const std::vector<System*> systems = SystemsOf(going);
    if (!behind) MoveFinalBarline(going.back(), before);
    std::optional<MeasureHead> head;
    // The neighbours' own headers and the courtesy at their ends may change.
    std::vector<NoteAreas> areas;
    if (before && SystemPar(before) != systems.front()) areas.emplace_back(SystemPar(before));
    if (behind && SystemPar(behind) != systems.back()) areas.emplace_back(SystemPar(behind));
    if (behind) {
        head.emplace(behind);
        BequeathSigns(going, behind);
    }
    for (Measure* measure : going) DestroyMeasure(window, measure);
    if (head && head->Settle() && before) RenewHeightsByClefs(before);  // a clef may end it now
    for (const NoteAreas& each : areas) each.Apply();
    for (System* system : systems)
        if (!systemMeasures.IsEmpty(system)) FitMeasures(system);
    RenumberMeasures(behind);
    SettleMarksAround(systems, before);
    return systems;
}

}  // namespace corvane
