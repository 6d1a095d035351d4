// Cut: what is selected leaves the score, whole, and waits unlinked for a paste.
#include <algorithm>
#include <unordered_set>
#include <utility>

#include "edit/ClipClones.h"
#include "edit/ClipboardState.h"
#include "edit/Deletion.h"
#include "edit/DeletionSteps.h"
#include "edit/Spanners.h"
#include "edit/TarnSelect.h"
#include "edit/ToolState.h"
#include "layout/Beaming.h"
#include "layout/NotePitches.h"
#include "layout/Spacing.h"
#include "model/NoteOperations.h"
#include "model/Par.h"
#include "model/RecordClone.h"
#include "play/MIDIGrace.h"
#include "play/MIDIUtility.h"

namespace corvane {
namespace {

using Objects = std::unordered_set<const void*>;

bool LeavesSelection(const MarkValue* mark, const Objects& cut) {
    for (const MarkValue* other : tieMarks.Of(tieMarks.ParentOf(mark)))
        if (!cut.contains(ChordPar(static_cast<const GenericNote*>(noteAttributes.ParentOf(other)))))
            return true;
    return false;
}

// A tie to a note that stays is no tie any more.
void PartTies(WindowTarn& window, const Chords* chord, const Objects& cut) {
    for (GenericNote* note : chordNotes.Of(chord))
        for (bool parted = true; parted;) {
            parted = false;
            for (NoteAttribute* attribute : noteAttributes.Of(note))
                if (auto* mark = As<MarkValue>(attribute); mark && LeavesSelection(mark, cut)) {
                    DeleteNoteAttribute(window, mark);
                    parted = true;
                    break;
                }
        }
}

// A tuplet that is cut in part becomes two of the same kind, so that neither part changes its time.
void PartTuplets(const std::vector<ClipVoiceSymbol>& clips, const Objects& cut) {
    std::unordered_set<Irregular*> seen;
    for (const ClipVoiceSymbol& clip : clips)
        for (VoiceSymbolAttribute* attribute : voiceSymbolAttributes.Of(clip.object))
            if (auto* mark = As<MarkIrreg>(attribute)) seen.insert(irregularMarks.ParentOf(mark));
    for (Irregular* irregular : seen) {
        std::vector<MarkIrreg*> leaving;
        bool whole = true;
        for (MarkIrreg* mark : irregularMarks.Of(irregular)) {
            const bool leaves = cut.contains(voiceSymbolAttributes.ParentOf(mark));
            if (leaves) leaving.push_back(mark);
            whole &= leaves;
        }
        if (whole) continue;
        Irregular* own = Clone(DocumentPar(voiceSymbolAttributes.ParentOf(leaving.front())), irregular);
        for (MarkIrreg* mark : leaving) {
            irregularMarks.Remove(mark);
            irregularMarks.Add(own, mark);
        }
    }
}

void RemoveEvents(VoiceSymbol* symbol) {
    if (auto* grace = As<GraceChord>(symbol))
        RemoveGraceEvents(grace);
    else
        RemoveVoiceSymbolEvents(symbol);
}

// The column goes with its last chord, a beam over several staffs with its first; both stay linked to what
// they hold.
void Unlink(VoiceSymbol* symbol) {
    voiceSymbols.Remove(symbol);
    auto* chord = As<Chords>(symbol);
    ChordSymbol* column = chord ? ChordSymbolPar(chord) : nullptr;
    if (column && measureSymbols.ParentOf(column)) measureSymbols.Remove(column);
    Stem* stem = chord ? StemOf(chord) : nullptr;
    auto* cross = stem ? As<CrossBeam>(BeamOf(stem)) : nullptr;
    if (cross && measureSymbols.ParentOf(cross)) measureSymbols.Remove(cross);
}

// A column that stands on several staffs goes as a whole or not at all.
void KeepWholeColumns(Clipboard& clips) {
    Objects cut;
    for (const ClipVoiceSymbol& clip : clips.ClipVoiceSymbols) cut.insert(clip.object);
    std::erase_if(clips.ClipVoiceSymbols, [&](const ClipVoiceSymbol& clip) {
        const auto* chord = As<Chords>(clip.object);
        if (!chord || !clip.heads.empty()) return false;
        for (const Chords* other : chordSymbolChords.Of(ChordSymbolPar(chord)))
            if (!cut.contains(other)) return true;
        return false;
    });
    SettleClips(clips);
}

template <class Visit>
void ForEachBeamSymbol(VoiceSymbol* symbol, Visit visit) {
    if (auto* pause = As<Pause>(symbol)) return visit(static_cast<BeamSymbol*>(pause));
    for (Stem* stem : chordSymbolStems.Of(ChordSymbolPar(As<Chords>(symbol))))
        visit(static_cast<BeamSymbol*>(stem));
}

// A beam that is not cut whole is none any more; its notes get flags.
void DissolvePartialBeams(const std::vector<ClipVoiceSymbol>& clips) {
    Objects cut;
    std::unordered_set<Beam*> beams;
    for (const ClipVoiceSymbol& clip : clips)
        ForEachBeamSymbol(clip.object, [&](BeamSymbol* symbol) {
            cut.insert(symbol);
            if (Beam* beam = BeamOf(symbol)) beams.insert(beam);
        });
    for (Beam* beam : beams)
        for (const BeamMarker* marker : beamMarkers.Of(beam))
            if (!cut.contains(beamSymbolAttributes.ParentOf(marker))) {
                DissolveBeam(beam, nullptr);
                break;
            }
}

// Single heads become a chord of their own beside the one that they leave, which then is cut as every other.
void PartChords(WindowTarn& window, Clipboard& clips) {
    ClipClones clones(window.GetDocument(), clips);
    std::vector<GenericNote*> leaving;
    for (ClipVoiceSymbol& clip : clips.ClipVoiceSymbols) {
        if (clip.heads.empty()) continue;
        VoiceSymbol* own = clones.CloneEvent(clip, VoicePar(clip.object), clip.object, XOf(clip.object));
        if (auto* grace = As<GraceChord>(own))
            MakeGraceEvents(grace);
        else
            InsertVoiceSymbolEvents(own);
        leaving.insert(leaving.end(), clip.heads.begin(), clip.heads.end());
        clip.object = own;
        clip.heads.clear();
    }
    if (leaving.empty()) return;
    clones.JoinBeams();
    clones.JoinTies();
    for (GenericNote* head : leaving) DeleteNote(window, head, {1, true, false, false});
    SettleClips(clips);
}

// What the selection leaves behind: spaced, without empty voices, its grace notes sounding.
void Mend(const std::vector<Voice*>& voices) {
    for (Voice* voice : voices) {
        MeasureStaff* crossing = MeasureStaffPar(voice);
        if (!voiceSymbols.IsEmpty(voice)) {
            RebuildVoiceEvents(voice);
            SpaceVoice(voice);
        }
        DropEmptyVoice(voice);
        RedoAccidentals(crossing);
        RenewHeightsByClefs(crossing);
    }
}

void CutVoiceSymbols(WindowTarn& window, const std::vector<ClipVoiceSymbol>& clips) {
    Objects cut;
    std::vector<Voice*> voices;
    for (const ClipVoiceSymbol& clip : clips) {
        cut.insert(clip.object);
        Voice* voice = VoicePar(clip.object);
        if (voices.empty() || voices.back() != voice) voices.push_back(voice);
    }
    for (const ClipVoiceSymbol& clip : clips)
        if (const auto* chord = As<Chords>(clip.object)) PartTies(window, chord, cut);
    PartTuplets(clips, cut);
    for (const ClipVoiceSymbol& clip : clips) DeleteSlursAt(window, clip.object);
    for (const ClipVoiceSymbol& clip : clips) {
        RemoveEvents(clip.object);
        Unlink(clip.object);  // at once: grace notes beside the next one make their neighbours sound anew
    }
    Mend(voices);
}

// A slur without its notes could come back nowhere; those that go with their notes are off the score by now.
void DeleteStayingSlurs(WindowTarn& window, const std::vector<Slur*>& slurs) {
    for (Slur* slur : slurs)
        if (MarkSlur* mark = slurMarks.First(slur); MeasureStaffPar(mark)) DeleteSpanner(window, mark);
}

}  // namespace

void Cut(WindowTarn& window) {
    window.Activate();
    window.caret.visible = false;
    SetSelectionAnchors(window);
    Clipboard clips = CollectClips(window, Tools().OneVoice());
    KeepWholeColumns(clips);
    const std::vector<Slur*> slurs = SelectedSlurs();
    ClearSelectionAnchors();
    if (clips.IsEmpty() && slurs.empty()) return window.Shell().Tell("Nothing that can be cut is selected.");
    EndLastCut();
    {
        const EditStep step(window);
        const PageRedraw redraw(window);
        PartChords(window, clips);
        DissolvePartialBeams(clips.ClipVoiceSymbols);
        CutSigns(clips);
        DeleteStayingSlurs(window, slurs);
        CutVoiceSymbols(window, clips.ClipVoiceSymbols);
        clips.cutInSourcePending = true;
        ClipboardState() = std::move(clips);
        window.TheSelection().Clear();
    }
    window.MarkCut();
    window.SelectionChanged();
}

}  // namespace corvane
