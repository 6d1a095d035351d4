// Clones of events in the making: what spans several of them is joined when all are there.
#pragma once

#include <unordered_map>
#include <vector>

#include "edit/Clipboard.h"

namespace corvane {

class ClipClones {
public:
    explicit ClipClones(Document* target) : _target(target) {}

    // A clone of the event with its heads and signs, in the voice behind `before` (null: in front), at x per
    // mille. Without sounding events.
    VoiceSymbol* CloneEvent(const VoiceSymbol* original, Voice* voice, VoiceSymbol* before, int32_t x);
    // What an original became; null if it was not cloned.
    VoiceSymbol* CloneOf(const VoiceSymbol* original) const;
    // The clone is about to be deleted again.
    void Forget(const VoiceSymbol* clone);
    // Makes the ties, beams and tuplets of which every note is cloned; stems under other beams get flags.
    void JoinBeams();
    void JoinTies();
    // A beam over several staffs would stand on one, or a stem of one on several.
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
    using MarkerJoints = std::unordered_map<const BeamMarker*, const MarkerJoint*>;

    void CloneNote(const GenericNote* original, Chords* chord, ChordSymbol* column, int32_t x);
    void CloneBeamAttributes(const BeamSymbol* original, BeamSymbol* clone);
    void CloneEventAttributes(const VoiceSymbol* original, VoiceSymbol* clone);
    ChordSymbol* ColumnFor(const Chords* original, Voice* voice);
    Stem* StemFor(const Stem* original, ChordSymbol* column, int32_t x);
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
};

}  // namespace corvane
