// Every record's size is the class table's; the places of the ends are held by a test over all rows.
#include "model/EventRecords.h"
#include "model/PreferenceRecords.h"
#include "model/SymbolRecords.h"
#include "store/NamedClasses.h"

namespace corvane {

#define CORVANE_SIZE(Class, bytes) static_assert(sizeof(Class) == (bytes) && alignof(Class) == 2)
CORVANE_SIZE(Document, 150);
CORVANE_SIZE(Page, 40);
CORVANE_SIZE(System, 42);
CORVANE_SIZE(GraceChord, 40);
CORVANE_SIZE(SimpleStaff, 78);
CORVANE_SIZE(AllStaff, 20);
CORVANE_SIZE(StaffCustom, 44);
CORVANE_SIZE(StaffBot, 58);
CORVANE_SIZE(Staff, 38);
CORVANE_SIZE(Measure, 60);
CORVANE_SIZE(Stringa, 4);
CORVANE_SIZE(TarnFont, 34);
CORVANE_SIZE(Voice, 18);
CORVANE_SIZE(MeasureStaff, 38);
CORVANE_SIZE(DocStaff, 314);
CORVANE_SIZE(StaticClaf, 34);
CORVANE_SIZE(MovingClaf, 38);
CORVANE_SIZE(ChordSymbol, 30);
CORVANE_SIZE(Chords, 32);
CORVANE_SIZE(Note, 50);
CORVANE_SIZE(Stem, 44);
CORVANE_SIZE(CompositeSymbol, 26);
CORVANE_SIZE(SimpleFont, 64);
CORVANE_SIZE(Flag, 24);
CORVANE_SIZE(Pause, 52);
CORVANE_SIZE(TimeSignature, 36);
CORVANE_SIZE(ClafSignature, 34);
CORVANE_SIZE(Grace, 50);
CORVANE_SIZE(Dot, 38);
CORVANE_SIZE(Accident, 32);
CORVANE_SIZE(Time, 68);
CORVANE_SIZE(MarkValue, 32);
CORVANE_SIZE(TieValue, 50);
CORVANE_SIZE(MarkIrreg, 36);
CORVANE_SIZE(Irregular, 42);
CORVANE_SIZE(Connection, 42);
CORVANE_SIZE(ConnStaff, 16);
CORVANE_SIZE(Endings, 28);
CORVANE_SIZE(MarkEndings, 24);
CORVANE_SIZE(Coda, 32);
CORVANE_SIZE(Mordente, 32);
CORVANE_SIZE(Liriche, 32);
CORVANE_SIZE(Tremolo, 24);
CORVANE_SIZE(Articolazione, 34);
CORVANE_SIZE(Diteggiatura, 34);
CORVANE_SIZE(Corona, 34);
CORVANE_SIZE(Ornamenti, 32);
CORVANE_SIZE(BeamMarker, 34);
CORVANE_SIZE(Beam, 10);
CORVANE_SIZE(TimeOn, 26);
CORVANE_SIZE(TimeOff, 26);
CORVANE_SIZE(NoteOff, 36);
CORVANE_SIZE(NoteOn, 38);
CORVANE_SIZE(MarkHairpin, 32);
CORVANE_SIZE(Hairpin, 30);
CORVANE_SIZE(Dinamiche, 34);
CORVANE_SIZE(SimboliVari, 34);
CORVANE_SIZE(MarkOttava, 28);
CORVANE_SIZE(Ottava, 34);
CORVANE_SIZE(MarkPedale, 28);
CORVANE_SIZE(Pedale, 28);
CORVANE_SIZE(MarkTrillo, 28);
CORVANE_SIZE(Trillo, 36);
CORVANE_SIZE(Arpeggio, 42);
CORVANE_SIZE(MarkSlur, 32);
CORVANE_SIZE(Slur, 72);
CORVANE_SIZE(GenericText, 14);
CORVANE_SIZE(MeasureStaffText, 36);
CORVANE_SIZE(MarkText, 20);
CORVANE_SIZE(Tempo, 28);
CORVANE_SIZE(PageText, 32);
CORVANE_SIZE(MultiMeasure, 64);
CORVANE_SIZE(MultiPause, 20);
CORVANE_SIZE(CrossBeam, 22);
CORVANE_SIZE(Linea, 52);
CORVANE_SIZE(CompositeObj, 34);
CORVANE_SIZE(Quadrato, 48);
CORVANE_SIZE(Cerchio, 46);
CORVANE_SIZE(MeasurePreferences, 64);
CORVANE_SIZE(IrregPref, 46);
CORVANE_SIZE(ConnectionPref, 36);
CORVANE_SIZE(RipetitionPref, 36);
CORVANE_SIZE(PagePref, 70);
CORVANE_SIZE(NotePref, 94);
CORVANE_SIZE(VoicePref, 48);
CORVANE_SIZE(TimeMeasurePref, 72);
CORVANE_SIZE(StangPref, 36);
CORVANE_SIZE(TiePref, 36);
CORVANE_SIZE(GracePref, 44);
CORVANE_SIZE(AuxNotePref, 88);
CORVANE_SIZE(PowerEditPref, 38);
CORVANE_SIZE(TextPref, 34);
CORVANE_SIZE(LirichePref, 32);
CORVANE_SIZE(ToolbarPref, 40);
CORVANE_SIZE(ExtractionPref, 36);
CORVANE_SIZE(PalettePref, 64);
CORVANE_SIZE(StaffPref, 28);
#undef CORVANE_SIZE

// What the store knows of the records.
static_assert(named::kDocument == Document::kClass && named::kSimpleStaff == SimpleStaff::kClass &&
              named::kStaffBot == StaffBot::kClass && named::kStringa == Stringa::kClass &&
              named::kTarnFont == TarnFont::kClass && named::kDocStaff == DocStaff::kClass &&
              named::kCompositeSymbol == CompositeSymbol::kClass && named::kSimpleFont == SimpleFont::kClass &&
              named::kTime == Time::kClass && named::kGenericText == GenericText::kClass &&
              named::kTempo == Tempo::kClass);
static_assert(named::kVoiceRecordSize == sizeof(VoiceRecord) && named::kVoiceRecordCount == DocStaff::kVoices);
static_assert(named::kClocksPerBeat == kClocksPerBeat);

}  // namespace corvane
