#include "layout/HandBeams.h"

#include <algorithm>

#include "layout/Beaming.h"
#include "layout/CrossBeams.h"
#include "layout/Engraving.h"
#include "model/NoteOperations.h"
#include "model/Par.h"

namespace corvane {
namespace {

int ConnectionOf(const BeamMarker* marker) {
    return marker->_rightValue == kNotCut ? kFullConnection : marker->_level.Get();
}

BeamMember MemberOf(const BeamMarker* marker) {
    return {beamSymbolAttributes.ParentOf(marker), marker->_leftValue, ConnectionOf(marker)};
}

bool IsStem(const BeamMember& member) { return As<Stem>(member.symbol) != nullptr; }

// Without the rests at its ends.
BeamGroup Trimmed(const BeamGroup& part) {
    const auto first = std::find_if(part.begin(), part.end(), IsStem);
    const auto end = std::find_if(part.rbegin(), part.rend(), IsStem).base();
    return first == part.end() ? BeamGroup() : BeamGroup(first, end);
}

void ForEachChosenStem(const Voice* voice, const ChosenEvents& chosen, auto visit) {
    for (VoiceSymbol* symbol : voiceSymbols.Of(voice))
        if (auto* stem = As<Stem>(BeamSymbolOf(symbol)); stem && chosen.count(symbol)) visit(stem, symbol);
}

// Those over chosen events, each once.
std::vector<Beam*> BeamsOver(const Voice* voice, const ChosenEvents& chosen) {
    std::vector<Beam*> beams;
    for (VoiceSymbol* symbol : voiceSymbols.Of(voice)) {
        Beam* beam = chosen.count(symbol) ? BeamOf(BeamSymbolOf(symbol)) : nullptr;
        if (beam && std::find(beams.begin(), beams.end(), beam) == beams.end()) beams.push_back(beam);
    }
    return beams;
}

// What stays of a beam on either side of chosen events.
std::vector<BeamGroup> PartsOf(const Beam* beam, const Voice* voice, const ChosenEvents& chosen) {
    std::vector<BeamGroup> parts(1);
    for (const BeamMarker* marker : beamMarkers.Of(beam)) {
        const BeamMember member = MemberOf(marker);
        if (chosen.count(EventAt(member.symbol, voice)))
            parts.emplace_back();
        else
            parts.back().push_back(member);
    }
    return parts;
}

bool HasTwoStems(const BeamGroup& group) { return std::count_if(group.begin(), group.end(), IsStem) > 1; }

// Dissolves the beams over chosen events; what they leave behind is beamed as it was.
void FreeFromBeams(const Voice* voice, const ChosenEvents& chosen) {
    for (Beam* beam : BeamsOver(voice, chosen)) {
        const bool cross = As<CrossBeam>(beam) != nullptr;
        const uint8_t kept = beam->_kept;
        const std::vector<BeamGroup> parts = cross ? std::vector<BeamGroup>() : PartsOf(beam, voice, chosen);
        DissolveBeam(beam, nullptr);
        for (const BeamGroup& part : parts) {
            BeamGroup left = Trimmed(part);
            if (!HasTwoStems(left)) continue;
            left.back().connection = kNotConnected;
            BuildBeam(left, DocumentPar(voice))->_kept = kept;
        }
    }
}

void BuildKept(const BeamGroup& group, const Voice* voice) {
    for (const BeamMember& member : group)
        if (auto* stem = As<Stem>(member.symbol)) Say(stem, kSaidAlone, false);
    BuildBeam(group, DocumentPar(voice))->_kept = uint8_t{1};
}

ChosenEvents EventsOf(const std::vector<BeamGroup>& groups, const Voice* voice) {
    ChosenEvents events;
    for (const BeamGroup& group : groups)
        for (const BeamMember& member : group) events.insert(EventAt(member.symbol, voice));
    return events;
}

// ---- joining

// Events of a voice from one to another, both included.
struct Reach {
    VoiceSymbol *first, *last;
};

const Beam* PlainBeamOf(VoiceSymbol* symbol) {
    const Beam* beam = BeamOf(BeamSymbolOf(symbol));
    return beam && !As<CrossBeam>(beam) ? beam : nullptr;
}

VoiceSymbol* FirstUnder(VoiceSymbol* symbol, const Voice* voice) {
    const Beam* beam = PlainBeamOf(symbol);
    return beam ? EventAt(beamSymbolAttributes.ParentOf(beamMarkers.First(beam)), voice) : symbol;
}
VoiceSymbol* LastUnder(VoiceSymbol* symbol, const Voice* voice) {
    const Beam* beam = PlainBeamOf(symbol);
    return beam ? EventAt(beamSymbolAttributes.ParentOf(beamMarkers.Last(beam)), voice) : symbol;
}

bool CanJoin(VoiceSymbol* symbol) {
    return symbol && As<Chords>(symbol) && CanBeam(symbol) && !As<CrossBeam>(BeamOf(BeamSymbolOf(symbol)));
}

// The run with the beams that it touches, and a neighbour where that is no more than it was.
Reach ReachOf(const BeamGroup& run, const Voice* voice) {
    VoiceSymbol *first = EventAt(run.front().symbol, voice), *last = EventAt(run.back().symbol, voice);
    const bool one = first == last || (PlainBeamOf(first) && PlainBeamOf(first) == PlainBeamOf(last));
    Reach reach{FirstUnder(first, voice), LastUnder(last, voice)};
    if (!one) return reach;
    if (VoiceSymbol* before = PrevUnderBeam(reach.first); CanJoin(before))
        reach.first = FirstUnder(before, voice);
    else if (VoiceSymbol* behind = NextUnderBeam(reach.last); CanJoin(behind))
        reach.last = LastUnder(behind, voice);
    return reach;
}

BeamGroup GroupOf(const Reach& reach) {
    BeamGroup group;
    for (VoiceSymbol* symbol = reach.first; symbol; symbol = NextUnderBeam(symbol)) {
        const BeamMarker* marker = MarkerOf(BeamSymbolOf(symbol));
        const bool inner = marker && beamMarkers.Next(marker);
        group.push_back(
            {BeamSymbolOf(symbol), ValueOf(symbol), inner ? ConnectionOf(marker) : kFullConnection});
        if (symbol == reach.last) break;
    }
    group.back().connection = kNotConnected;
    return group;
}

bool IsOneBeam(const BeamGroup& group) {
    const Beam* beam = BeamOf(group.front().symbol);
    return beam && beamMarkers.Count(beam) == static_cast<int>(group.size()) &&
           std::all_of(group.begin(), group.end(),
                       [&](const BeamMember& member) { return BeamOf(member.symbol) == beam; });
}

// What joining would make; empty where there is nothing to join.
std::vector<BeamGroup> JoinedGroups(const Voice* voice, const ChosenEvents& chosen) {
    std::vector<BeamGroup> groups;
    for (const BeamGroup& run : BeamRunsOf(voice, chosen)) {
        if (!CanJoin(EventAt(run.front().symbol, voice))) continue;
        BeamGroup group = GroupOf(ReachOf(run, voice));
        if (!IsOneBeam(group)) groups.push_back(std::move(group));
    }
    return groups;
}

std::vector<BeamGroup> RunsOfTwo(const Voice* voice, const ChosenEvents& chosen) {
    std::vector<BeamGroup> runs = BeamRunsOf(voice, chosen);
    std::erase_if(runs, [](const BeamGroup& run) { return !HasTwoStems(run); });
    return runs;
}

// ---- the changes

bool AnyCanBeam(const Voice* voice, const ChosenEvents& chosen) {
    bool any = !BeamsOver(voice, chosen).empty();
    ForEachChosenStem(voice, chosen, [&](Stem*, VoiceSymbol* symbol) { any |= CanBeam(symbol); });
    return any;
}

void BeamOnBeats(const Voice* voice, const ChosenEvents& chosen) {
    ChosenEvents all = chosen;
    for (Beam* beam : BeamsOver(voice, chosen)) {
        for (const BeamMarker* marker : beamMarkers.Of(beam))
            all.insert(EventAt(beamSymbolAttributes.ParentOf(marker), voice));
        if (IsFixed(beam)) DissolveBeam(beam, nullptr);
    }
    ForEachChosenStem(voice, chosen, [](Stem* stem, VoiceSymbol*) { Say(stem, kSaidAlone, false); });
    BeamByBeats(voice, all);
}

bool AreTwo(const Voice* voice, const ChosenEvents& chosen) { return !RunsOfTwo(voice, chosen).empty(); }

void BeamTogether(const Voice* voice, const ChosenEvents& chosen) {
    const std::vector<BeamGroup> runs = RunsOfTwo(voice, chosen);
    FreeFromBeams(voice, EventsOf(runs, voice));
    for (const BeamGroup& run : runs) BuildKept(run, voice);
}

bool CanExtend(const Voice* voice, const ChosenEvents& chosen) {
    return !JoinedGroups(voice, chosen).empty();
}

// One after the other: the beam that one run makes may be what the next one joins.
void ExtendBeams(const Voice* voice, const ChosenEvents& chosen) {
    for (const BeamGroup& run : BeamRunsOf(voice, chosen))
        for (const BeamGroup& group : JoinedGroups(voice, EventsOf({run}, voice))) {
            FreeFromBeams(voice, EventsOf({group}, voice));
            BuildKept(group, voice);
        }
}

bool CanTake(const Voice* voice, const ChosenEvents& chosen) {
    bool any = !BeamsOver(voice, chosen).empty();
    ForEachChosenStem(voice, chosen, [&](Stem* stem, VoiceSymbol*) { any |= IsMultiStaff(stem); });
    return any;
}

void TakeFromBeams(const Voice* voice, const ChosenEvents& chosen) {
    FreeFromBeams(voice, chosen);
    ForEachChosenStem(voice, chosen, [&](Stem* stem, VoiceSymbol* symbol) {
        if (IsMultiStaff(stem)) SplitCrossChord(ChordSymbolPar(stem));
        if (CanBeam(symbol)) Say(StemOf(As<Chords>(symbol)), kSaidAlone, true);
    });
}

std::vector<BeamMarker*> StubsOf(const Voice* voice, const ChosenEvents& chosen) {
    std::vector<BeamMarker*> markers;
    ForEachChosenStem(voice, chosen, [&](Stem* stem, VoiceSymbol*) {
        if (BeamMarker* marker = MarkerOf(stem); marker && HasStub(marker)) markers.push_back(marker);
    });
    return markers;
}

bool HasStubs(const Voice* voice, const ChosenEvents& chosen) { return !StubsOf(voice, chosen).empty(); }

void TurnAllStubs(const Voice* voice, const ChosenEvents& chosen) {
    for (BeamMarker* marker : StubsOf(voice, chosen)) {
        marker->_drawToRest = static_cast<uint8_t>(!marker->_drawToRest);
        SetMarkerStubs(beamMarkers.ParentOf(marker));
    }
}

// The marker before that of a run's first event; null where that is the first of its beam.
BeamMarker* MarkerBefore(const BeamGroup& run) {
    const BeamMarker* marker = MarkerOf(run.front().symbol);
    return marker ? beamMarkers.Prev(marker) : nullptr;
}

bool CanConnect(const Voice* voice, const ChosenEvents& chosen) {
    const std::vector<BeamGroup> runs = BeamRunsOf(voice, chosen);
    return std::any_of(runs.begin(), runs.end(), MarkerBefore);
}

template <int Connection>
void Connect(const Voice* voice, const ChosenEvents& chosen) {
    for (const BeamGroup& run : BeamRunsOf(voice, chosen)) {
        BeamMarker* before = MarkerBefore(run);
        if (!before) continue;
        Beam* beam = beamMarkers.ParentOf(before);
        before->_level = static_cast<uint8_t>(Connection);
        before->_rightValue = CutOf(Connection, before->_leftValue, run.front().value);
        beam->_kept = uint8_t{1};
        RefitBeam(beam);
    }
}

}  // namespace

const HandBeams kBeamOnBeats{AnyCanBeam, BeamOnBeats};
const HandBeams kBeamTogether{AreTwo, BeamTogether};
const HandBeams kExtendBeams{CanExtend, ExtendBeams};
const HandBeams kTakeFromBeams{CanTake, TakeFromBeams};
const HandBeams kTurnStubs{HasStubs, TurnAllStubs};
const HandBeams kJoinInnerBeams{CanConnect, Connect<kFullConnection>};
const HandBeams kJoinByEighthBeam{CanConnect, Connect<kEighthLevel>};
const HandBeams kJoinByLargerValue{CanConnect, Connect<kLargerValue>};

}  // namespace corvane
