// Accidentals and augmentation dots on what is under the press.
#include "base/Assert.h"
#include "edit/Audition.h"
#include "edit/Insertion.h"
#include "edit/MeasureRedraw.h"
#include "edit/Spanners.h"
#include "edit/ToolState.h"
#include "layout/Beaming.h"
#include "layout/Engraving.h"
#include "layout/NoteGeometry.h"
#include "layout/Spacing.h"
#include "model/NoteOperations.h"
#include "model/Par.h"
#include "model/SymbolTable.h"
#include "model/Ties.h"
#include "play/MIDIUtility.h"

namespace corvane {
namespace {

constexpr struct {
    const char* descriptor;
    Alteration alteration;
} kAccidentals[] = {
    {"_Bequadro_", Alteration::None},
    {"_Diesis_", Alteration::Sharp},
    {"_Bemolle_", Alteration::Flat},
    {"_DDiesis_", Alteration::DoubleSharp},
    {"_DBemolle_", Alteration::DoubleFlat},
    {"_Monesis_", Alteration::HalfSharp},
    {"_MonoBemolle_", Alteration::HalfFlat},
    {"_Triesis_", Alteration::ThreeQuarterSharp},
    {"_TriBemolle_", Alteration::ThreeQuarterFlat},
    {"_BequadroSu_", Alteration::NaturalUp},
    {"_BequadroGiu_", Alteration::NaturalDown},
};

Alteration AlterationOf(std::string_view descriptor) {
    for (const auto& accidental : kAccidentals)
        if (descriptor.starts_with(accidental.descriptor)) return accidental.alteration;
    CORVANE_ASSERT_AS(false, "descriptor");
    return Alteration::None;
}

// A bracketed sign stands whatever the key and earlier notes say; the same sign asked for twice goes again.
void SetBracketed(GenericNote* note, Alteration alteration) {
    const std::string name = AccidentName(alteration, As<Grace>(note) != nullptr, true);
    const Accident* old = AccidentOf(note);
    const bool same = old && SymbolName(old->_symbol) == name;
    RemoveAccidents(note);
    if (same) {
        note->_alteration = note->_alteration == alteration ? KeyAlterationAt(note) : alteration;
        return;
    }
    note->_alteration = alteration;
    AttachAccident(note, alteration, true);
}

// Dots are not refused: a person may be about to shorten another event.
void SetDots(const InsertionPlace& place, VoiceSymbol* event, int count) {
    ChangeDots(place.window, event, count);
    if (IsMeasureFull(VoicePar(event)))
        place.window.Shell().Tell("The measure holds more than its time signature says.");
}

}  // namespace

DrawPatch EventUnder(WindowTarn& window, Point p) {
    DrawPatch patch = window.Sheet().HitSymbol(p);
    if (patch && !patch.Record<ChordSymbol>() && !patch.Record<Pause>())
        patch = window.Sheet().HitSymbol(p, patch);
    return patch;
}

GenericNote* NoteUnder(WindowTarn& window, Point p) {
    const DrawPatch first = window.Sheet().HitSymbol(p);
    for (const DrawPatch& patch : {first, first ? window.Sheet().HitSymbol(p, first) : first})
        if (patch)
            if (auto* chordSymbol = patch.Record<ChordSymbol>())
                if (GenericNote* note = HeadAt(chordSymbol, p)) return note;
    return nullptr;
}

GenericNote* NoteFor(const InsertionPlace& place) {
    GenericNote* note = NoteUnder(place.window, place.point);
    if (!note) place.window.Shell().Tell("Press on a note.");
    return note;
}

GenericNote* ChordNoteFor(const InsertionPlace& place) {
    const DrawPatch patch = EventUnder(place.window, place.point);
    const auto* column = patch ? patch.Record<ChordSymbol>() : nullptr;
    if (column && !NoteUnder(place.window, place.point))
        for (const Stem* stem : chordSymbolStems.Of(column))
            if (HitAreaOf(Column(stem)).EnclosesStrictly(place.point)) return NoteOuter(stem);
    return NoteFor(place);
}

void AccInsertion(const InsertionPlace& place, std::string_view descriptor) {
    GenericNote* note = NoteFor(place);
    if (!note) return;
    const Alteration alteration = AlterationOf(descriptor);
    const MeasureRedraw redraw(place.window, MeasureStaffPar(note));
    if (descriptor.find('(') != std::string_view::npos) {
        SetBracketed(note, alteration);
    } else {
        note->_alteration = alteration;
        RemoveAccidents(note);
        UpdateAccidentals(note, UpdateNoteHeight);
    }
    UpdateNoteHeight(note);
    AlterTiedNotes(place.window, note);
    AuditionNote(note);
}

void DropAccidental(WindowTarn& window, GenericNote* note) {
    const MeasureRedraw redraw(window, MeasureStaffPar(note));
    RemoveAccidents(note);
    if (IsHeldOver(note)) return;
    note->_alteration = AlterationInForce(note);
    UpdateAccidentals(note, UpdateNoteHeight);
    UpdateNoteHeight(note);
    AlterTiedNotes(window, note);
}

void ChangeDots(WindowTarn& window, VoiceSymbol* symbol, int count) {
    Voice* voice = VoicePar(symbol);
    const MeasureRedraw redraw(window, MeasureStaffPar(voice));
    SetDots(symbol, count);
    RebuildVoiceEvents(voice);
    if (Switches().autoSpace) SpaceVoice(voice);
    if (Switches().autoBeam) BeamVoice(voice);
}

void DropDots(WindowTarn& window, VoiceSymbol* event) {
    const auto* chord = As<Chords>(event);
    if (!chord) return ChangeDots(window, event, 0);
    for (Chords* each : chordSymbolChords.Of(ChordSymbolPar(chord))) ChangeDots(window, each, 0);
}

void DotInsertion(const InsertionPlace& place, int count) {
    const DrawPatch patch = EventUnder(place.window, place.point);
    if (auto* pause = patch ? patch.Record<Pause>() : nullptr) return SetDots(place, pause, count);
    const auto* chordSymbol = patch ? patch.Record<ChordSymbol>() : nullptr;
    if (!chordSymbol || !HeadAt(chordSymbol, place.point))
        return place.window.Shell().Tell("Press on a note or a rest.");
    for (Chords* chord : chordSymbolChords.Of(chordSymbol)) SetDots(place, chord, count);
}

}  // namespace corvane
