// Other note values and dots for events that are there. A voice's events follow each other: what stands
// behind a changed one moves in time.
#include <algorithm>
#include <cmath>
#include <map>
#include <set>

#include "edit/Insertion.h"
#include "edit/MeasureRange.h"
#include "edit/NoteChanges.h"
#include "edit/SystemRedraw.h"
#include "edit/ToolState.h"
#include "layout/BeamGroups.h"
#include "layout/Beaming.h"
#include "layout/Engraving.h"
#include "layout/NotePitches.h"
#include "layout/Spacing.h"
#include "model/NoteOperations.h"
#include "model/Par.h"
#include "model/SymbolTable.h"
#include "play/MIDIUtility.h"

namespace corvane {
namespace {

constexpr double kEpsilon = 0.0001;  // of a whole note
// From the longest to the shortest.
constexpr uint8_t kValues[] = {kDoubleWhole, 1, 2, 4, 8, 16, 32, 64, 128};

struct Length {
    uint8_t value;
    int dots;
    friend bool operator==(const Length&, const Length&) = default;
};

Length LengthOf(const VoiceSymbol* event) { return {ValueOf(event), DotCount(event)}; }

// Of a whole note, as the fullness of a measure counts.
double FractionOf(const VoiceSymbol* event, const Length& length) {
    if (IsGrace(event)) return 0;
    return SpacingFraction(length.value) * (2.0 - std::ldexp(1.0, -length.dots)) * TupletRatio(event) /
           1000.0;
}

// 0 where there is none.
uint8_t Scaled(uint8_t value, int doublings) {
    const auto at =
        std::find(std::begin(kValues), std::end(kValues), value) - std::begin(kValues) - doublings;
    return at >= 0 && at < std::ssize(kValues) ? kValues[at] : 0;
}

// What some events shall be, in the order in which they were told.
class NewLengths {
public:
    void Add(VoiceSymbol* event, const Length& length) {
        if (!(length == LengthOf(event)) && _lengths.emplace(event, length).second) _events.push_back(event);
    }
    const std::vector<VoiceSymbol*>& Events() const { return _events; }
    const Length& Of(const VoiceSymbol* event) const { return _lengths.at(event); }
    std::set<Voice*> Voices() const {
        std::set<Voice*> voices;
        for (const VoiceSymbol* event : _events) voices.insert(VoicePar(event));
        return voices;
    }
    bool Overfills(const Voice* voice) const {
        double grown = 0;
        for (const VoiceSymbol* event : voiceSymbols.Of(voice))
            if (_lengths.count(event))
                grown += FractionOf(event, Of(event)) - FractionOf(event, LengthOf(event));
        return grown > kEpsilon &&
               VoiceFraction(voice) + grown - MeasureFraction(MeasurePar(voice)) > kEpsilon &&
               !IsWholeRestAlone(voice);
    }

private:
    // Which stands for any measure.
    bool IsWholeRestAlone(const Voice* voice) const {
        const VoiceSymbol* first = voiceSymbols.First(voice);
        return first == voiceSymbols.Last(voice) && As<Pause>(first) && Of(first) == Length{1, 0};
    }

    std::vector<VoiceSymbol*> _events;
    std::map<const VoiceSymbol*, Length> _lengths;
};

// Those that an event's own stem takes along.
std::vector<VoiceSymbol*> EventsOnStemOf(VoiceSymbol* event) {
    const auto* chord = As<Chords>(event);
    if (!chord) return {event};
    std::vector<VoiceSymbol*> events;
    for (Chords* each : chordSymbolChords.Of(ChordSymbolPar(chord))) events.push_back(each);
    return events;
}

Status Plan(const std::vector<VoiceSymbol*>& events, const DurationChange& change, NewLengths& lengths) {
    for (VoiceSymbol* told : events) {
        Length length = LengthOf(told);
        length.value = change.value ? *change.value : Scaled(length.value, change.doublings);
        if (change.dots) length.dots = *change.dots;
        if (!length.value)
            return {Fault::Refused, change.doublings > 0 ? "Nothing is longer than a double whole note"
                                                         : "Nothing is shorter than a 128th note"};
        for (VoiceSymbol* event : EventsOnStemOf(told)) lengths.Add(event, length);
    }
    if (!Switches().autoSpace) return Status::Ok();
    for (const Voice* voice : lengths.Voices())
        if (lengths.Overfills(voice))
            return {Fault::Refused,
                    "Measure " + std::to_string(MeasurePar(voice)->_number) + " cannot hold so much"};
    return Status::Ok();
}

void WriteLength(VoiceSymbol* event, const Length& length) {
    if (Beam* beam = BeamOf(BeamSymbolOf(event))) DissolveBeam(beam, nullptr);
    if (auto* pause = As<Pause>(event)) {
        pause->_value = length.value;
        ChangeSymbol(DocumentPar(pause), pause->_symbol, RestKindOf(length.value).name);
    } else if (ValueOf(event) != length.value) {
        ChangeValue(ChordSymbolPar(As<Chords>(event)), length.value);
    }
    SetDots(event, length.dots);
}

void FollowUp(const NewLengths& lengths) {
    std::set<MeasureStaff*> crossings;
    for (VoiceSymbol* event : lengths.Events())
        if (auto* chord = As<Chords>(event)) RestemChord(chord);
    for (Voice* voice : lengths.Voices()) {
        RebuildVoiceEvents(voice);
        if (Switches().autoSpace) SpaceVoice(voice);
        if (Switches().autoBeam) BeamVoice(voice);
        crossings.insert(MeasureStaffPar(voice));
    }
    for (MeasureStaff* crossing : crossings) RedoAccidentals(crossing);
}

}  // namespace

Status ChangeDurations(WindowTarn& window, const std::vector<VoiceSymbol*>& events,
                       const DurationChange& change) {
    NewLengths lengths;
    if (Status status = Plan(events, change, lengths); !status) return status;
    if (lengths.Events().empty()) return Status::Ok();
    const EditStep step(window);
    const MeasureRange range = SpanOf(lengths.Events());
    const SystemRedraw redraw(window, range.first, range.last);
    for (VoiceSymbol* event : lengths.Events()) WriteLength(event, lengths.Of(event));
    FollowUp(lengths);
    return Status::Ok();
}

}  // namespace corvane
