// Making and taking apart the beams of a voice.
#include "layout/Beaming.h"

#include <algorithm>

#include "base/Assert.h"
#include "layout/BeamGroups.h"
#include "layout/Engraving.h"
#include "model/NoteOperations.h"
#include "model/Par.h"
#include "model/Preferences.h"

namespace corvane {
namespace {

constexpr uint8_t kNotCut = 255, kEighth = 8;

// What the score wants of beams beside their grouping.
struct BeamWishes {
    bool beamAlone = false, stemsOnRests = false;

    explicit BeamWishes(const Document* document) {
        const auto* pref = Preferences<NotePref>(document);
        if (!pref) return;
        beamAlone = pref->_singleNote == SingleNote::Beam;
        stemsOnRests = pref->_completedBy == CompletedBy::StemsOnRests;
    }
    bool WantsBeam(const BeamGroup& group) const { return group.size() > 1 || beamAlone; }
};

// What a marker is made with.
struct MarkerPlan {
    BeamSymbol* symbol;
    uint8_t value, cut, connection;
    bool drawToRest;

    bool Holds(const BeamMarker* marker) const {
        return beamSymbolAttributes.ParentOf(marker) == symbol && marker->_leftValue == value &&
               marker->_rightValue == cut && marker->_level == connection &&
               (marker->_drawToRest != 0) == drawToRest;
    }
};

uint8_t CutTo(const BeamMember& member, const BeamMember& next) {
    switch (member.connection) {
        case kEighthLevel:
            return kEighth;
        case kLargerValue:
            return std::min(member.value, next.value);
        default:
            return kNotCut;
    }
}

std::vector<MarkerPlan> PlansOf(const BeamGroup& group, const BeamWishes& wishes) {
    std::vector<MarkerPlan> plans;
    for (size_t i = 0; i < group.size(); ++i) {
        const uint8_t cut = i + 1 < group.size() ? CutTo(group[i], group[i + 1]) : kNotCut;
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

void BuildBeam(const std::vector<MarkerPlan>& plans) {
    auto* beam = Make<Beam>();
    beam->_direction = 'U';
    for (const MarkerPlan& plan : plans) AddMarker(beam, plan);
    RefitBeam(beam);
}

void SetFlagged(const BeamGroup& group) {
    for (const BeamMember& member : group)
        if (auto* stem = As<Stem>(member.symbol); stem && !FlagOf(stem)) AttachFlag(stem, member.value);
}

// Dissolves what stands over the voice's events beside the beams to keep.
void DissolveOthers(const Voice* voice, const std::vector<const Beam*>& kept) {
    for (VoiceSymbol* symbol : voiceSymbols.Of(voice)) {
        Beam* beam = BeamOf(BeamSymbolOf(symbol));
        if (!beam || As<CrossBeam>(beam)) continue;
        if (std::find(kept.begin(), kept.end(), beam) == kept.end()) DissolveBeam(beam, nullptr);
    }
}

// A stem that has lost its beam stands on its own again.
void Free(Stem* stem) {
    const GenericNote* note = stemNotes.First(stem);
    CORVANE_ASSERT_AS(note, "note");
    Chords* chord = ChordPar(note);
    RestemChord(chord);
    AttachFlag(stem, ValueOf(chord));
}

}  // namespace

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

void BeamVoice(Voice* voice) {
    const BeamWishes wishes(DocumentPar(voice));
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
            BuildBeam(PlansOf(*group, wishes));
        else
            SetFlagged(*group);
    }
}

void RefitBeamsOf(const Voice* voice) {
    for (VoiceSymbol* symbol : voiceSymbols.Of(voice))
        if (const BeamMarker* marker = MarkerOf(BeamSymbolOf(symbol))) {
            Beam* beam = beamMarkers.ParentOf(marker);
            if (beamMarkers.First(beam) == marker) RefitBeam(beam);
        }
}

}  // namespace corvane
