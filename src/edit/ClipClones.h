// Clones of events in the making: what spans several of them is joined when all are there.
#pragma once

#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "edit/Clipboard.h"

namespace corvane {

class ClipClones {
public:
    ClipClones(Document* target, const Clipboard& clips);

    // A clone of the event with the heads that are meant and its signs, in the voice behind `before` (null:
    // in front), at x per mille. Without sounding events.
    VoiceSymbol* CloneEvent(const ClipVoiceSymbol& clip, Voice* voice, VoiceSymbol* before, int32_t x);
    // What an original became; null if it was not cloned.
    VoiceSymbol* CloneOf(const VoiceSymbol* original) const;
    // The clone is about to be deleted again.
    void Forget(const VoiceSymbol* clone);
    // Make a beam over what was cloned of each, a flag for a single stem; and the ties of which both notes
    // are cloned.
    void JoinBeams();
    void JoinTies();
    // What was copied under a beam over several staffs would stand on one, or a stem of one on several.
    bool HasIllegalBeam() const;

    const std::vector<Beam*>& Beams() const { return _beams; }

private:
    // A mark of an original whose clone waits for the others of what it joins.
    template <class Mark, class At>
    struct Joint {
        const Mark* mark;
        At* at;                    // what the clone of the mark is to hang on
        const VoiceSymbol* event;  // the clone that it belongs to
    };
    using MarkerJoint = Joint<BeamMarker, BeamSymbol>;
    using TieJoint = Joint<MarkValue, GenericNote>;
    struct BeamPart {
        std::vector<const MarkerJoint*> members;
        bool isWhole = true;
    };
    using MarkerJoints = std::unordered_map<const BeamMarker*, const MarkerJoint*>;

    void CloneNote(const GenericNote* original, Chords* chord, ChordSymbol* column, int32_t x);
    void CloneBeamAttributes(const BeamSymbol* original, BeamSymbol* clone);
    void CloneEventAttributes(const ClipVoiceSymbol& clip, VoiceSymbol* clone);
    ChordSymbol* ColumnFor(const Chords* original, Voice* voice);
    Stem* StemFor(const Stem* original, ChordSymbol* column, int32_t x);
    static BeamPart PartOf(const Beam* old, const MarkerJoints& joints);
    bool HasDropped(const Beam* old, const MarkerJoints& joints) const;
    void JoinBeam(const Beam* old, const MarkerJoints& joints);

    Document* _target;
    const VoiceSymbol* _event = nullptr;  // the clone being made
    std::unordered_map<const VoiceSymbol*, VoiceSymbol*> _events;
    std::unordered_map<const ChordSymbol*, ChordSymbol*> _columns;
    std::unordered_map<const Stem*, Stem*> _stems;
    std::unordered_map<const Irregular*, Irregular*> _tuplets;
    std::vector<MarkerJoint> _markers;
    std::vector<TieJoint> _ties;
    std::vector<Beam*> _beams;
    std::unordered_set<const VoiceSymbol*> _copied;
    bool _isTorn = false;  // a beam over several staffs has lost all but one
};

}  // namespace corvane
