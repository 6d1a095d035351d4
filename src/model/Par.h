// Parents at a named level, found by walking source links upward. Null in, or an unlinked object, gives null out.
#pragma once

#include "model/Relations.h"

namespace corvane {

Document* DocumentPar(const Page* page);
Document* DocumentPar(const System* system);
Document* DocumentPar(const Measure* measure);
Document* DocumentPar(const MeasureStaff* measureStaff);
Document* DocumentPar(const Voice* voice);
Document* DocumentPar(const VoiceSymbol* symbol);
Document* DocumentPar(const GenericNote* note);
Document* DocumentPar(const Stem* stem);
Document* DocumentPar(const ChordSymbol* chordSymbol);
Document* DocumentPar(const DocStaff* docStaff);

Page* PagePar(const System* system);
Page* PagePar(const Measure* measure);
System* SystemPar(const Measure* measure);
System* SystemPar(const Staff* staff);
Measure* MeasurePar(const MeasureStaff* measureStaff);
Measure* MeasurePar(const Voice* voice);
Measure* MeasurePar(const VoiceSymbol* symbol);
Measure* MeasurePar(const MeasureSymbol* symbol);
Measure* MeasurePar(const GenericNote* note);
Measure* MeasurePar(const Stem* stem);
Measure* MeasurePar(const StaffMeasureSymbol* symbol);
Measure* MeasurePar(const TimeElement* element);
MeasureStaff* MeasureStaffPar(const Voice* voice);
MeasureStaff* MeasureStaffPar(const VoiceSymbol* symbol);
MeasureStaff* MeasureStaffPar(const GenericNote* note);
MeasureStaff* MeasureStaffPar(const StaffMeasureSymbol* symbol);
DocStaff* DocStaffPar(const MeasureStaff* measureStaff);
DocStaff* DocStaffPar(const VoiceSymbol* symbol);
DocStaff* DocStaffPar(const GenericNote* note);
Voice* VoicePar(const VoiceSymbol* symbol);
Voice* VoicePar(const GenericNote* note);
Chords* ChordPar(const GenericNote* note);
ChordSymbol* ChordSymbolPar(const Chords* chord);
ChordSymbol* ChordSymbolPar(const Stem* stem);
Stem* StemPar(const GenericNote* note);
// The Staff that draws a note or an event; null where the crossing has none.
Staff* StaffPar(const GenericNote* note);
Staff* StaffPar(const VoiceSymbol* symbol);
// A measure staff's neighbours of the same DocStaff, over systems and pages; null at the ends.
inline MeasureStaff* NextOnStaff(const MeasureStaff* m) { return docStaffMeasureStaffs.Next(m); }
inline MeasureStaff* PrevOnStaff(const MeasureStaff* m) { return docStaffMeasureStaffs.Prev(m); }
// The measure behind or before, over systems and pages; null at the ends of the score.
Measure* NextMeasure(const Measure* measure);
Measure* PrevMeasure(const Measure* measure);
// The measures at both ends of the score; null where it has none.
Measure* FirstMeasure(const Document* document);
Measure* LastMeasure(const Document* document);
// The crossing of a measure and a staff of the score; null if there is none.
MeasureStaff* MeasureStaffAt(const Measure* measure, const DocStaff* docStaff);

}  // namespace corvane
