#include "edit/BeamChanges.h"

#include <algorithm>
#include <set>

#include "edit/MeasureRange.h"
#include "edit/SystemRedraw.h"
#include "layout/Beaming.h"
#include "layout/Engraving.h"
#include "layout/HandBeams.h"
#include "model/NoteOperations.h"
#include "model/Par.h"

namespace corvane {
namespace {

std::vector<const Voice*> VoicesOf(const ChosenSymbols& events) {
    std::vector<const Voice*> voices;
    for (const VoiceSymbol* event : events) {
        const Voice* voice = VoicePar(event);
        if (std::find(voices.begin(), voices.end(), voice) == voices.end()) voices.push_back(voice);
    }
    return voices;
}

// One change of the beams of all voices with chosen events; refused where none has anything to change.
Status ChangeBeams(WindowTarn& window, const ChosenSymbols& events, const HandBeams& change,
                   const char* refusal) {
    const std::vector<const Voice*> voices = VoicesOf(events);
    const ChosenEvents chosen(events.begin(), events.end());
    const auto can = [&](const Voice* voice) { return change.can(voice, chosen); };
    if (std::none_of(voices.begin(), voices.end(), can)) return {Fault::Refused, refusal};
    const EditStep step(window);
    const MeasureRange range = SpanOf(events);
    const SystemRedraw redraw(window, range.first, range.last);
    for (const Voice* voice : voices) change.act(voice, chosen);
    return Status::Ok();
}

// Whether a chosen event and a chosen one behind the barline after it are beamed but for that barline.
bool IsOverBarline(const VoiceSymbol* event, const ChosenEvents& chosen) {
    const Voice* voice = VoicePar(event);
    const Measure* next = voiceSymbols.Last(voice) == event ? NextMeasure(MeasurePar(event)) : nullptr;
    const MeasureStaff* crossing = next ? MeasureStaffAt(next, DocStaffPar(MeasureStaffPar(voice))) : nullptr;
    const Voice* other = crossing ? FindVoice(crossing, voice->_number) : nullptr;
    VoiceSymbol* behind = other ? voiceSymbols.First(other) : nullptr;
    return behind && chosen.count(behind) && As<Chords>(behind) && CanBeam(behind);
}

bool AreOverBarline(const ChosenSymbols& events) {
    const ChosenEvents chosen(events.begin(), events.end());
    return std::any_of(events.begin(), events.end(), [&](VoiceSymbol* event) {
        return As<Chords>(event) && CanBeam(event) && IsOverBarline(event, chosen);
    });
}

ChosenSymbols EventsUnder(const Beam* beam) {
    ChosenSymbols events;
    for (const BeamMarker* marker : beamMarkers.Of(beam)) {
        BeamSymbol* symbol = beamSymbolAttributes.ParentOf(marker);
        if (auto* pause = As<Pause>(symbol)) events.push_back(pause);
        if (const auto* stem = As<Stem>(symbol))
            for (Chords* chord : chordSymbolChords.Of(ChordSymbolPar(stem))) events.push_back(chord);
    }
    return events;
}

std::vector<Chords*> ChordsOf(const ChosenSymbols& events) {
    std::vector<Chords*> chords;
    for (VoiceSymbol* event : events)
        if (auto* chord = As<Chords>(event)) chords.push_back(chord);
    return chords;
}

// Chords whose stems carry flags or a beam.
std::vector<Chords*> FlaggedOf(const ChosenSymbols& events) {
    std::vector<Chords*> chords = ChordsOf(events);
    std::erase_if(chords,
                  [](const Chords* chord) { return !FlagOf(StemOf(chord)) && !BeamOf(StemOf(chord)); });
    return chords;
}

}  // namespace

Status BeamOnBeat(WindowTarn& window, const ChosenSymbols& events) {
    return ChangeBeams(window, events, kBeamOnBeats, "Select eighth notes or shorter ones first");
}

Status BeamSelection(WindowTarn& window, const ChosenSymbols& events) {
    const bool overBarline = AreOverBarline(events);
    const Status status =
        ChangeBeams(window, events, kBeamTogether,
                    overBarline ? "A beam does not go over a barline"
                                : "Select at least two notes in a row that are eighths or shorter");
    if (status && overBarline) window.Shell().Tell("A beam ends at the barline; each measure has its own.");
    return status;
}

Status AddBeam(WindowTarn& window, const ChosenSymbols& events) {
    return ChangeBeams(window, events, kExtendBeams, "There is nothing beside these notes to beam them with");
}

Status RemoveBeam(WindowTarn& window, const ChosenSymbols& events) {
    return ChangeBeams(window, events, kTakeFromBeams, "Select notes under a beam first");
}

void DeleteBeam(WindowTarn&, Beam* beam) {
    const ChosenSymbols events = EventsUnder(beam);
    for (const Voice* voice : VoicesOf(events)) kTakeFromBeams.act(voice, {events.begin(), events.end()});
}

Status FlipFlag(WindowTarn& window, const ChosenSymbols& events) {
    constexpr const char* kNothing = "Select notes with flags or under a beam first";
    if (const Status status = ChangeBeams(window, events, kTurnStubs, kNothing); status) return status;
    const std::vector<Chords*> flagged = FlaggedOf(events);
    return flagged.empty() ? Status{Fault::Refused, kNothing} : InvertDirection(window, flagged);
}

Status ModifyBeam(WindowTarn& window, const ChosenSymbols& events, int connection) {
    const HandBeams& change = connection == kEighthLevel   ? kJoinByEighthBeam
                              : connection == kLargerValue ? kJoinByLargerValue
                                                           : kJoinInnerBeams;
    return ChangeBeams(window, events, change, "Select notes behind others under a beam first");
}

Status InvertDirection(WindowTarn& window, const std::vector<Chords*>& chords) {
    const EditStep step(window);
    const MeasureRange range = SpanOf(chords);
    const SystemRedraw redraw(window, range.first, range.last);
    std::set<const void*> done;
    for (Chords* chord : chords) {
        Stem* stem = StemOf(chord);
        Beam* beam = BeamOf(stem);
        if (!done.insert(beam ? static_cast<const void*>(beam) : stem).second) continue;
        if (beam)
            PointBeam(beam, beam->_direction != 'U');
        else
            PointChord(chord, !IsUp(stem->_direction));
    }
    return Status::Ok();
}

}  // namespace corvane
