// Making and taking apart the beams of a voice.
#include "layout/Beaming.h"

#include <algorithm>

#include "base/Assert.h"
#include "layout/CrossBeams.h"
#include "layout/Engraving.h"
#include "layout/SpacingHeader.h"
#include "model/NoteOperations.h"
#include "model/Par.h"
#include "model/Preferences.h"

namespace corvane {
namespace {

constexpr uint8_t kEighth = 8;

// What the score wants of beams beside their grouping.
struct BeamWishes {
    bool beamAlone = false, stemsOnRests = false;

    explicit BeamWishes(const Document* document) {
        const auto* pref = Preferences<NotePref>(document);
        if (!pref) return;
        beamAlone = pref->_singleNote == SingleNote::Beam;
        stemsOnRests = pref->_completedBy == CompletedBy::StemsOnRests;
    }
    bool WantsBeam(const BeamGroup& group) const {
        if (group.size() > 1) return true;
        const auto* stem = As<Stem>(group.front().symbol);
        return beamAlone && stem && !(stem->_said & kSaidAlone);
    }
};

// What a marker is made with.
struct MarkerPlan {
    BeamSymbol* symbol;
    uint8_t value, cut, connection;
    bool drawToRest;

    bool Holds(const BeamMarker* marker) const {
        return beamSymbolAttributes.ParentOf(marker) == symbol && marker->_leftValue == value &&
               marker->_rightValue == cut && marker->_level == connection &&
               (As<Stem>(symbol) || (marker->_drawToRest != 0) == drawToRest);
    }
};

std::vector<MarkerPlan> PlansOf(const BeamGroup& group, const BeamWishes& wishes) {
    std::vector<MarkerPlan> plans;
    for (size_t i = 0; i < group.size(); ++i) {
        const uint8_t cut =
            i + 1 < group.size() ? CutOf(group[i].connection, group[i].value, group[i + 1].value) : kNotCut;
        plans.push_back({group[i].symbol, group[i].value, cut, static_cast<uint8_t>(group[i].connection),
                         wishes.stemsOnRests && As<Pause>(group[i].symbol)});
    }
    return plans;
}

// Whether a beam has just these markers.
bool StandsAs(const Beam* beam, const std::vector<MarkerPlan>& plans) {
    size_t i = 0;
    for (const BeamMarker* marker : beamMarkers.Of(beam))
        if (i == plans.size() || !plans[i++].Holds(marker)) return false;
    return i == plans.size();
}

void AddMarker(Beam* beam, const MarkerPlan& plan) {
    CORVANE_ASSERT_AS(!BeamOf(plan.symbol), "!getBeam(beamSymbol)");
    auto* marker = Make<BeamMarker>();
    marker->_leftValue = plan.value;
    marker->_rightValue = plan.cut;
    marker->_level = plan.connection;
    marker->_drawToRest = plan.drawToRest;
    if (auto* stem = As<Stem>(plan.symbol)) RemoveFlag(stem);
    beamSymbolAttributes.Add(plan.symbol, marker);
    beamMarkers.Add(beam, marker);
}

void SetFlagged(const BeamGroup& group) {
    for (const BeamMember& member : group)
        if (auto* stem = As<Stem>(member.symbol); stem && !FlagOf(stem)) AttachFlag(stem, member.value);
}

// Dissolves what stands over the voice's events beside the beams to keep.
void DissolveOthers(const Voice* voice, const std::vector<const Beam*>& kept) {
    for (VoiceSymbol* symbol : voiceSymbols.Of(voice)) {
        Beam* beam = BeamOf(BeamSymbolOf(symbol));
        if (!beam || IsFixed(beam)) continue;
        if (std::find(kept.begin(), kept.end(), beam) == kept.end()) DissolveBeam(beam, nullptr);
    }
}

// A stem that has lost its beam stands on its own again.
void Free(Stem* stem) {
    if (IsMultiStaff(stem)) return SplitCrossChord(ChordSymbolPar(stem));
    const GenericNote* note = stemNotes.First(stem);
    CORVANE_ASSERT_AS(note, "note");
    Chords* chord = ChordPar(note);
    RestemChord(chord);
    AttachFlag(stem, ValueOf(chord));
}

// Something has come between two of its events, or one of them has gone.
bool IsParted(const Beam* beam, const Voice* voice) {
    const VoiceSymbol* before = nullptr;
    for (const BeamMarker* marker : beamMarkers.Of(beam)) {
        const VoiceSymbol* event = EventAt(beamSymbolAttributes.ParentOf(marker), voice);
        if (!event || (before && NextUnderBeam(before) != event)) return true;
        before = event;
    }
    return false;
}

// What a grouping asks for, whatever stood over its events.
void Establish(const BeamGroup& group, const Document* document) {
    const BeamWishes wishes(document);
    Beam* beam = BeamOf(group.front().symbol);
    if (beam && wishes.WantsBeam(group) && StandsAs(beam, PlansOf(group, wishes))) return RefitBeam(beam);
    for (const BeamMember& member : group)
        if (Beam* other = BeamOf(member.symbol)) DissolveBeam(other, nullptr);
    if (wishes.WantsBeam(group))
        BuildBeam(group, document);
    else
        SetFlagged(group);
}

}  // namespace

uint8_t CutOf(int connection, uint8_t value, uint8_t next) {
    if (connection == kEighthLevel) return kEighth;
    return connection == kLargerValue ? std::min(value, next) : kNotCut;
}

Beam* BuildBeam(const BeamGroup& group, const Document* document) {
    auto* beam = Make<Beam>();
    beam->_direction = 'U';
    for (const MarkerPlan& plan : PlansOf(group, BeamWishes(document))) AddMarker(beam, plan);
    RefitBeam(beam);
    return beam;
}

void DissolveBeam(Beam* beam, const BeamSymbol* dying) {
    while (BeamMarker* marker = beamMarkers.First(beam)) {
        BeamSymbol* symbol = beamSymbolAttributes.ParentOf(marker);
        beamMarkers.Remove(marker);
        beamSymbolAttributes.Remove(marker);
        Release(marker);
        if (auto* stem = As<Stem>(symbol); stem && stem != dying) Free(stem);
    }
    if (auto* cross = As<CrossBeam>(beam)) {
        measureSymbols.Remove(cross);
        Release(cross);
    } else {
        Release(beam);
    }
}

void EndPartedBeams(const Voice* voice) {
    for (VoiceSymbol* symbol : voiceSymbols.Of(voice)) {
        const BeamMarker* marker = MarkerOf(BeamSymbolOf(symbol));
        Beam* beam = marker ? beamMarkers.ParentOf(marker) : nullptr;
        const bool begins = beam && beamMarkers.First(beam) == marker;
        if (begins && !As<CrossBeam>(beam) && IsParted(beam, voice)) DissolveBeam(beam, nullptr);
    }
}

void BeamByBeats(const Voice* voice, const ChosenEvents& chosen) {
    for (const BeamGroup& group : BeamGroupsOf(voice)) {
        const bool touched = std::any_of(group.begin(), group.end(), [&](const BeamMember& member) {
            return chosen.count(EventAt(member.symbol, voice)) != 0;
        });
        if (touched) Establish(group, DocumentPar(voice));
    }
}

void BeamVoice(Voice* voice) {
    const HeadersAtRest headers;
    EndPartedBeams(voice);
    const Document* document = DocumentPar(voice);
    const BeamWishes wishes(document);
    const std::vector<BeamGroup> groups = BeamGroupsOf(voice);
    std::vector<const BeamGroup*> anew;
    std::vector<const Beam*> kept;
    for (const BeamGroup& group : groups) {
        Beam* beam = BeamOf(group.front().symbol);
        if (beam && wishes.WantsBeam(group) && StandsAs(beam, PlansOf(group, wishes))) {
            RefitBeam(beam);
            kept.push_back(beam);
        } else {
            anew.push_back(&group);
        }
    }
    DissolveOthers(voice, kept);
    for (const BeamGroup* group : anew) {
        if (wishes.WantsBeam(*group))
            BuildBeam(*group, document);
        else
            SetFlagged(*group);
    }
}

void RefitBeamsOf(const Voice* voice) {
    const HeadersAtRest headers;
    const Beam* last = nullptr;
    for (VoiceSymbol* symbol : voiceSymbols.Of(voice)) {
        const BeamMarker* marker = MarkerOf(BeamSymbolOf(symbol));
        if (!marker) continue;
        Beam* beam = beamMarkers.ParentOf(marker);
        const bool seen = As<CrossBeam>(beam) ? beam == last : beamMarkers.First(beam) != marker;
        if (!seen) RefitBeam(beam);
        last = beam;
    }
}

}  // namespace corvane
