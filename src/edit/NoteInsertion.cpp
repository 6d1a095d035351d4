#include <algorithm>

#include "base/Assert.h"
#include "edit/Audition.h"
#include "edit/Deletion.h"
#include "edit/Insertion.h"
#include "edit/MeasureRedraw.h"
#include "edit/Spanners.h"
#include "edit/TarnClick.h"
#include "edit/ToolState.h"
#include "layout/Beaming.h"
#include "layout/Engraving.h"
#include "layout/Frames.h"
#include "layout/NoteGeometry.h"
#include "layout/Spacing.h"
#include "model/NoteOperations.h"
#include "model/Par.h"
#include "play/MIDIGrace.h"
#include "play/MIDIUtility.h"

namespace corvane {
namespace {

// A press left of the first event, whose place may be 0, goes before it.
int32_t PerMilleAt(const MeasureStaff* measureStaff, int32_t x) {
    return std::clamp(FrameOf(MeasurePar(measureStaff)).PerMilleOfX(x), -1, 1000);
}

bool HasNoteOn(const Chords* chord, int line) {
    for (const GenericNote* note : chordNotes.Of(chord))
        if (note->_line == line) return true;
    return false;
}

// Timed events of a note that is linked in its chord, the chord's first or a further one.
void AddEvents(GenericNote* note, bool joined) {
    Chords* chord = ChordPar(note);
    if (IsGrace(chord))
        MakeGraceEvents(static_cast<GraceChord*>(chord));
    else if (!joined)
        AddChordEvents(chord);
    else {
        AddNoteEvents(note);
        RenewAroundGraceNotes(VoicePar(chord));
    }
}

// When a voice gets its first event beside others, theirs turn their stems away from it.
void RestemOthers(Voice* voice) {
    if (voiceSymbols.First(voice) != voiceSymbols.Last(voice)) return;
    for (Voice* other : measureStaffVoices.Of(MeasureStaffPar(voice))) {
        if (other == voice || voiceSymbols.IsEmpty(other)) continue;
        RestemVoice(other);
        if (Switches().autoBeam) BeamVoice(other);
    }
}

constexpr const char* kMeasureFull = "The measure is full.";

// What is too much is entered and taken back again, so that undo steps through it. With more than one level
// of undo it is no step at all, and known before.
bool IsKnownToBeTooMuch(const InsertionPlace& place, const MeasureStaff* measureStaff, uint8_t value) {
    if (!Switches().autoSpace || Switches().undoLevels <= 1) return false;
    return !HasRoomFor(MeasurePar(measureStaff), FindVoice(measureStaff, place.voice), value);
}

void InsertAsNewChord(const InsertionPlace& place, MeasureStaff* measureStaff, int line,
                      const NoteKind& kind) {
    if (!kind.grace && IsKnownToBeTooMuch(place, measureStaff, kind.value))
        return place.window.Shell().Tell(kMeasureFull);
    Voice* voice = FindOrMakeVoice(measureStaff, place.voice);
    GenericNote* note = InsertNewChord(voice, PerMilleAt(measureStaff, place.point.x), line, kind);
    AddEvents(note, false);
    if (Switches().autoSpace && !kind.grace && IsMeasureFull(voice)) {
        place.step.Split();
        DeleteNote(place.window, note, {place.voice, place.allVoices, false});
        place.window.Shell().Tell(kMeasureFull);
        return;
    }
    CutTiesOver(place.window, ChordPar(note));
    RestemOthers(voice);
    FollowUp(note, false, false);
}

void JoinChord(const InsertionPlace& place, Chords* chord, int line, const NoteKind& kind) {
    EditorShell& shell = place.window.Shell();
    if (HasNoteOn(chord, line)) return shell.Tell("The chord has this note already.");
    if (IsGrace(chord) != kind.grace) return shell.Tell("Grace notes and others do not share a chord.");
    if (ValueOf(chord) != kind.value) return shell.Tell("A chord has one value for all its notes.");
    GenericNote* note = AddNoteToChord(chord, line, kind);
    const bool beamed = BeamOf(StemPar(note)) != nullptr;
    AddEvents(note, true);
    FollowUp(note, true, beamed);
}

}  // namespace

void NoteInsertion(const InsertionPlace& place, std::string_view descriptor) {
    const NoteKind kind = NoteKindOf(descriptor);
    MeasureStaff* measureStaff = FindMeasureStaff(place.system, place.point);
    if (!measureStaff || !measureStaff->_staff.Get()) return;
    const int line = StaffPosition(FrameOf(measureStaff->_staff.Get()), place.point.y);
    const MeasureRedraw redraw(place.window, measureStaff);
    if (Chords* chord = ChordAt(measureStaff, place.point.x, place.voice))
        JoinChord(place, chord, line, kind);
    else
        InsertAsNewChord(place, measureStaff, line, kind);
}

void FollowUp(GenericNote* note, bool joined, bool beamed) {
    Stem* stem = StemPar(note);
    Voice* voice = VoicePar(note);
    note->_alteration = KeyAlterationAt(note);
    UpdateNoteHeight(note);
    // A head that joins may turn the chord.
    if (joined && !beamed)
        RestemChord(ChordPar(note));
    else if (!beamed)
        SetDefaultStemLength(stem);
    SetDirection(stem, stem->_direction);
    if (Switches().autoSpace && !joined) SpaceVoice(voice);
    UpdateAccidentals(note, UpdateNoteHeight);
    if (Switches().autoBeam && !beamed) BeamVoice(voice);
    if (!Switches().autoBeam && !joined) EndPartedBeams(voice);
    if (beamed) RefitBeam(BeamOf(stem));
    AuditionNote(note);
}

void PauseInsertion(const InsertionPlace& place, std::string_view descriptor) {
    const RestKind kind = RestKindOf(descriptor);
    MeasureStaff* measureStaff = FindMeasureStaff(place.system, place.point);
    if (!measureStaff || !measureStaff->_staff.Get()) return;
    const Voice* filled = FindVoice(measureStaff, place.voice);
    const bool fillsAlone = kind.value == 1 && (!filled || voiceSymbols.IsEmpty(filled));
    if (!fillsAlone && IsKnownToBeTooMuch(place, measureStaff, kind.value))
        return place.window.Shell().Tell(kMeasureFull);
    const MeasureRedraw redraw(place.window, measureStaff);
    Voice* voice = FindOrMakeVoice(measureStaff, place.voice);
    Pause* pause = InsertNewPause(voice, PerMilleAt(measureStaff, place.point.x), kind);
    InsertVoiceSymbolEvents(pause);
    if (Switches().autoSpace && IsMeasureFull(voice) && !fillsAlone) {
        place.step.Split();
        DeletePause(place.window, pause, {place.voice, place.allVoices, false});
        place.window.Shell().Tell(kMeasureFull);
        return;
    }
    CutTiesOver(place.window, pause);
    RestemOthers(voice);
    if (Switches().autoBeam)
        BeamVoice(voice);
    else
        EndPartedBeams(voice);
    if (Switches().autoSpace) SpaceVoice(voice);
}

}  // namespace corvane
