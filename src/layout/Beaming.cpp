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

constexpr uint8_t kNotCut = 255;

uint8_t RightValueOf(const BeamMember& member, const BeamMember& next) {
    constexpr int kEighthLevel = 1;
    if (member.connection == kEighthLevel) return 8;
    return member.connection == 2 ? std::min(member.value, next.value) : kNotCut;
}

bool HasTwoStems(const BeamGroup& group) {
    return std::count_if(group.begin(), group.end(), [](const BeamMember& m) { return As<Stem>(m.symbol) != nullptr; }) > 1;
}

// Whether the beam stands over just these events, with these values and connections.
bool IsAsBefore(const Beam* beam, const BeamGroup& group) {
    size_t i = 0;
    for (const BeamMarker* marker : beamMarkers.Of(beam)) {
        if (i == group.size()) return false;
        const BeamMember& member = group[i];
        if (beamSymbolAttributes.ParentOf(marker) != member.symbol || marker->_leftValue != member.value ||
            marker->_level != member.connection)
            return false;
        ++i;
    }
    return i == group.size();
}

void AddMarker(Beam* beam, const BeamGroup& group, size_t i, bool drawToRest) {
    const BeamMember& member = group[i];
    CORVANE_ASSERT_AS(!BeamOf(member.symbol), "!getBeam(beamSymbol)");
    auto* marker = Make<BeamMarker>();
    marker->_leftValue = member.value;
    marker->_rightValue = i + 1 < group.size() ? RightValueOf(member, group[i + 1]) : kNotCut;
    marker->_level = static_cast<uint8_t>(member.connection);
    marker->_drawToRest = drawToRest && As<Pause>(member.symbol);
    if (auto* stem = As<Stem>(member.symbol)) RemoveFlag(stem);
    beamSymbolAttributes.Add(member.symbol, marker);
    beamMarkers.Add(beam, marker);
}

void BuildBeam(const Document* document, const BeamGroup& group) {
    const auto* pref = Preferences<NotePref>(document);
    const bool drawToRest = pref && pref->_completedBy == CompletedBy::StemsOnRests;
    auto* beam = Make<Beam>();
    beam->_direction = 'U';
    for (size_t i = 0; i < group.size(); ++i) AddMarker(beam, group, i, drawToRest);
    RefitBeam(beam);
}

// A note on its own has its flag and its own stem.
void SetFlagged(const BeamMember& member) {
    auto* stem = As<Stem>(member.symbol);
    if (!stem || FlagOf(stem)) return;
    AttachFlag(stem, member.value);
}

bool WantsBeamAlone(const Document* document, const BeamGroup& group) {
    const auto* pref = Preferences<NotePref>(document);
    return pref && pref->_singleNote == SingleNote::Beam && group.size() == 1 && As<Stem>(group[0].symbol);
}

}  // namespace

void DissolveBeam(Beam* beam, const BeamSymbol* dying) {
    while (BeamMarker* marker = beamMarkers.First(beam)) {
        BeamSymbol* symbol = beamSymbolAttributes.ParentOf(marker);
        const uint8_t value = marker->_leftValue;
        beamMarkers.Remove(marker);
        beamSymbolAttributes.Remove(marker);
        Release(marker);
        auto* stem = As<Stem>(symbol);
        if (!stem || stem == dying) continue;
        AttachFlag(stem, value);
        SetDefaultStemLength(stem);
    }
    if (auto* cross = As<CrossBeam>(beam)) {
        measureSymbols.Remove(cross);
        Release(cross);
    } else {
        Release(beam);
    }
}

void BeamVoice(Voice* voice) {
    const Document* document = DocumentPar(voice);
    const std::vector<BeamGroup> groups = BeamGroupsOf(voice);
    std::vector<const BeamGroup*> missing;
    for (const BeamGroup& group : groups) {
        const bool wanted = HasTwoStems(group) || WantsBeamAlone(document, group);
        Beam* beam = BeamOf(group.front().symbol);
        if (wanted && beam && IsAsBefore(beam, group)) RefitBeam(beam);
        else missing.push_back(&group);
    }
    std::vector<Stem*> freed;
    for (const BeamGroup* group : missing)
        for (const BeamMember& member : *group)
            if (Beam* beam = BeamOf(member.symbol)) {
                for (const BeamMarker* marker : beamMarkers.Of(beam))
                    if (auto* stem = As<Stem>(beamSymbolAttributes.ParentOf(marker))) freed.push_back(stem);
                DissolveBeam(beam, nullptr);
            }
    for (Stem* stem : freed)
        if (GenericNote* note = stemNotes.First(stem)) RestemChord(ChordPar(note));
    for (const BeamGroup* group : missing) {
        if (HasTwoStems(*group) || WantsBeamAlone(document, *group)) BuildBeam(document, *group);
        else for (const BeamMember& member : *group) SetFlagged(member);
    }
}

}  // namespace corvane
