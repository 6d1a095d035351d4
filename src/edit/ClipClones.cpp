#include "edit/ClipClones.h"

#include <algorithm>

#include "layout/Beaming.h"
#include "layout/Engraving.h"
#include "model/NoteOperations.h"
#include "model/Par.h"
#include "model/RecordClone.h"
#include "play/MIDIUtility.h"

namespace corvane {
namespace {

void AddStaffs(const Stem* stem, std::unordered_set<const DocStaff*>& staffs) {
    for (const GenericNote* note : stemNotes.Of(stem)) staffs.insert(DocStaffPar(note));
}

}  // namespace

ClipClones::ClipClones(Document* target, const Clipboard& clips) : _target(target) {
    for (const ClipVoiceSymbol& clip : clips.ClipVoiceSymbols) _copied.insert(clip.object);
}

// ---- one event

VoiceSymbol* ClipClones::CloneEvent(const ClipVoiceSymbol& clip, Voice* voice, VoiceSymbol* before,
                                    int32_t x) {
    const VoiceSymbol* original = clip.object;
    VoiceSymbol* clone = Clone(_target, original);
    _event = clone;
    _events[original] = clone;
    voiceSymbols.Insert(voice, clone, before);
    if (auto* chord = As<Chords>(clone)) {
        ChordSymbol* column = ColumnFor(As<Chords>(original), voice);
        chordSymbolChords.Add(column, chord);
        for (const GenericNote* note : clip.Heads()) CloneNote(note, chord, column, x);
    } else {
        auto* pause = As<Pause>(clone);
        pause->_x = x;
        CloneBeamAttributes(As<Pause>(original), pause);
    }
    CloneEventAttributes(clip, clone);
    return clone;
}

// Chords that share a column share its clone, as long as they come to one measure.
ChordSymbol* ClipClones::ColumnFor(const Chords* original, Voice* voice) {
    const ChordSymbol* old = ChordSymbolPar(original);
    ChordSymbol*& column = _columns[old];
    if (column && MeasurePar(static_cast<MeasureSymbol*>(column)) == MeasurePar(voice)) return column;
    column = Clone(_target, old);
    measureSymbols.Add(MeasurePar(voice), column);
    return column;
}

Stem* ClipClones::StemFor(const Stem* original, ChordSymbol* column, int32_t x) {
    Stem*& stem = _stems[original];
    if (stem && ChordSymbolPar(stem) == column) return stem;
    stem = Clone(_target, original);
    chordSymbolStems.Add(column, stem);
    stem->_x = x;
    CloneBeamAttributes(original, stem);
    return stem;
}

void ClipClones::CloneNote(const GenericNote* original, Chords* chord, ChordSymbol* column, int32_t x) {
    GenericNote* note = Clone(_target, original);
    chordNotes.Add(chord, note);
    AddNoteToStem(StemFor(StemPar(original), column, x), note);
    for (const NoteAttribute* attribute : noteAttributes.Of(original)) {
        if (const auto* tie = As<MarkValue>(attribute))
            _ties.push_back({tie, note, _event});
        else
            noteAttributes.Add(note, Clone(_target, attribute));
    }
}

void ClipClones::CloneBeamAttributes(const BeamSymbol* original, BeamSymbol* clone) {
    for (const BeamSymbolAttribute* attribute : beamSymbolAttributes.Of(original)) {
        if (const auto* marker = As<BeamMarker>(attribute))
            _markers.push_back({marker, clone, _event});
        else
            beamSymbolAttributes.Add(clone, Clone(_target, attribute));
    }
}

// A tuplet comes with those of its events that were copied; where each head has a dot, those of single heads.
void ClipClones::CloneEventAttributes(const ClipVoiceSymbol& clip, VoiceSymbol* clone) {
    size_t dots = 0;
    for (const VoiceSymbolAttribute* attribute : voiceSymbolAttributes.Of(clip.object)) {
        if (As<Dot>(attribute) && ++dots > clip.heads.size() && !clip.heads.empty()) continue;
        VoiceSymbolAttribute* copy = Clone(_target, attribute);
        voiceSymbolAttributes.Add(clone, copy);
        const auto* mark = As<MarkIrreg>(attribute);
        const Irregular* tuplet = mark ? irregularMarks.ParentOf(mark) : nullptr;
        if (!tuplet) continue;
        Irregular*& joined = _tuplets[tuplet];
        if (!joined) joined = Clone(_target, tuplet);
        irregularMarks.Add(joined, As<MarkIrreg>(copy));
    }
}

VoiceSymbol* ClipClones::CloneOf(const VoiceSymbol* original) const {
    const auto found = _events.find(original);
    return found == _events.end() ? nullptr : found->second;
}

void ClipClones::Forget(const VoiceSymbol* clone) {
    std::erase_if(_events, [&](const auto& pair) { return pair.second == clone; });
    std::erase_if(_markers, [&](const auto& joint) { return joint.event == clone; });
    std::erase_if(_ties, [&](const auto& joint) { return joint.event == clone; });
    const auto* chord = As<Chords>(clone);
    const ChordSymbol* column = chord ? ChordSymbolPar(chord) : nullptr;
    std::erase_if(_columns, [&](const auto& pair) { return pair.second == column; });
    std::erase_if(_stems, [&](const auto& pair) { return ChordSymbolPar(pair.second) == column; });
    for (const VoiceSymbolAttribute* attribute : voiceSymbolAttributes.Of(clone))
        if (const auto* mark = As<MarkIrreg>(attribute)) {
            const Irregular* tuplet = irregularMarks.ParentOf(mark);
            if (irregularMarks.First(tuplet) == irregularMarks.Last(tuplet))
                std::erase_if(_tuplets, [&](const auto& pair) { return pair.second == tuplet; });
        }
}

// ---- what spans several

void ClipClones::JoinBeams() {
    std::vector<const Beam*> order;
    std::unordered_map<const Beam*, MarkerJoints> groups;
    for (const MarkerJoint& joint : _markers) {
        const Beam* old = beamMarkers.ParentOf(joint.mark);
        if (groups[old].empty()) order.push_back(old);
        groups[old][joint.mark] = &joint;
    }
    for (const Beam* old : order) JoinBeam(old, groups[old]);
    _markers.clear();
}

// What came along of a beam, in its order; of a part nothing beyond its first and last stem.
ClipClones::BeamPart ClipClones::PartOf(const Beam* old, const MarkerJoints& joints) {
    BeamPart part;
    for (const BeamMarker* marker : beamMarkers.Of(old)) {
        const auto found = joints.find(marker);
        if (found == joints.end())
            part.isWhole = false;
        else
            part.members.push_back(found->second);
    }
    const auto isStem = [](const MarkerJoint* joint) { return As<Stem>(joint->at) != nullptr; };
    auto& members = part.members;
    if (part.isWhole) return part;
    members.erase(std::find_if(members.rbegin(), members.rend(), isStem).base(), members.end());
    members.erase(members.begin(), std::find_if(members.begin(), members.end(), isStem));
    return part;
}

// Some of what was copied under the beam found no place.
bool ClipClones::HasDropped(const Beam* old, const MarkerJoints& joints) const {
    for (const BeamMarker* marker : beamMarkers.Of(old)) {
        if (joints.contains(marker)) continue;
        const BeamSymbol* symbol = beamSymbolAttributes.ParentOf(marker);
        if (const auto* pause = As<Pause>(symbol); pause && _copied.contains(pause)) return true;
        if (const auto* stem = As<Stem>(symbol))
            for (const GenericNote* note : stemNotes.Of(stem))
                if (_copied.contains(ChordPar(note))) return true;
    }
    return false;
}

void ClipClones::JoinBeam(const Beam* old, const MarkerJoints& joints) {
    const BeamPart part = PartOf(old, joints);
    std::unordered_set<const DocStaff*> staffs;
    for (const MarkerJoint* joint : part.members)
        if (const auto* stem = As<Stem>(joint->at)) AddStaffs(stem, staffs);
    const bool fellOnOneStaff = As<CrossBeam>(old) && !part.isWhole && staffs.size() < 2;
    _isTorn |= fellOnOneStaff && HasDropped(old, joints);
    if (!part.isWhole && part.members.size() < 2) {
        for (const MarkerJoint* joint : part.members) AttachFlag(As<Stem>(joint->at), ValueOf(joint->event));
        return;
    }
    Beam* beam = fellOnOneStaff ? Make<Beam>() : Clone(_target, old);
    if (fellOnOneStaff) beam->_direction = 'U';
    for (const MarkerJoint* joint : part.members) {
        BeamMarker* copy = Clone(_target, joint->mark);
        beamSymbolAttributes.Add(joint->at, copy);
        beamMarkers.Add(beam, copy);
    }
    BeamMarker* last = beamMarkers.Last(beam);
    last->_rightValue = kNotCut;
    last->_level = kNotConnected;
    if (auto* cross = As<CrossBeam>(beam)) measureSymbols.Add(MeasurePar(part.members.front()->event), cross);
    _beams.push_back(beam);
}

void ClipClones::JoinTies() {
    std::unordered_map<const TieValue*, const TieJoint*> open;
    for (const auto& joint : _ties) {
        const TieValue* old = tieMarks.ParentOf(joint.mark);
        const auto [place, isFirst] = open.try_emplace(old, &joint);
        if (isFirst) continue;
        TieValue* tie = Clone(_target, old);
        for (const auto* end : {place->second, &joint}) {
            auto* mark = Clone(_target, end->mark);
            noteAttributes.Add(end->at, mark);
            tieMarks.Add(tie, mark);
        }
        TieNotes(place->second->at, joint.at);
        open.erase(place);
    }
    _ties.clear();
}

bool ClipClones::HasIllegalBeam() const {
    if (_isTorn) return true;
    for (const Beam* beam : _beams) {
        if (!As<CrossBeam>(beam)) continue;
        std::unordered_set<const DocStaff*> staffs;
        for (const BeamMarker* marker : beamMarkers.Of(beam)) {
            const auto* stem = As<Stem>(beamSymbolAttributes.ParentOf(marker));
            if (!stem) continue;
            std::unordered_set<const DocStaff*> own;
            AddStaffs(stem, own);
            if (own.size() > 1) return true;
            staffs.insert(own.begin(), own.end());
        }
        if (staffs.size() < 2) return true;
    }
    return false;
}

}  // namespace corvane
