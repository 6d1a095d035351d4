#include "model/Par.h"

namespace corvane {
namespace {

// Null-safe step up one relation.
template <class R, class Child>
auto* Up(const R& relation, const Child* child) {
    return child ? relation.ParentOf(child) : nullptr;
}

}  // namespace

Document* DocumentPar(const Page* page) { return Up(documentPages, page); }
Document* DocumentPar(const System* system) { return DocumentPar(PagePar(system)); }
Document* DocumentPar(const Measure* measure) { return DocumentPar(SystemPar(measure)); }
Document* DocumentPar(const DocStaff* docStaff) { return Up(documentDocStaffs, docStaff); }
Document* DocumentPar(const MeasureStaff* measureStaff) { return DocumentPar(DocStaffPar(measureStaff)); }
Document* DocumentPar(const Voice* voice) { return DocumentPar(MeasureStaffPar(voice)); }
Document* DocumentPar(const VoiceSymbol* symbol) { return DocumentPar(MeasureStaffPar(symbol)); }
Document* DocumentPar(const GenericNote* note) { return DocumentPar(MeasureStaffPar(note)); }
Document* DocumentPar(const Stem* stem) { return DocumentPar(MeasurePar(stem)); }
Document* DocumentPar(const ChordSymbol* chordSymbol) { return DocumentPar(MeasurePar(chordSymbol)); }

Page* PagePar(const System* system) { return Up(pageSystems, system); }
Page* PagePar(const Measure* measure) { return PagePar(SystemPar(measure)); }
System* SystemPar(const Measure* measure) { return Up(systemMeasures, measure); }

System* SystemPar(const Staff* staff) {
    if (const auto* simple = As<SimpleStaff>(staff)) return systemStaffs.ParentOf(simple);
    const auto* bot = As<StaffBot>(staff);
    const StaffCustom* custom = bot ? customStaffs.ParentOf(bot) : nullptr;
    return custom ? systemStaffs.ParentOf(custom) : nullptr;
}

Measure* MeasurePar(const MeasureStaff* measureStaff) { return Up(measureStaffs, measureStaff); }
Measure* MeasurePar(const Voice* voice) { return MeasurePar(MeasureStaffPar(voice)); }
Measure* MeasurePar(const VoiceSymbol* symbol) { return MeasurePar(MeasureStaffPar(symbol)); }
Measure* MeasurePar(const MeasureSymbol* symbol) { return Up(measureSymbols, symbol); }
Measure* MeasurePar(const GenericNote* note) { return MeasurePar(MeasureStaffPar(note)); }
Measure* MeasurePar(const Stem* stem) {
    const ChordSymbol* chordSymbol = ChordSymbolPar(stem);
    return chordSymbol ? measureSymbols.ParentOf(chordSymbol) : nullptr;
}
Measure* MeasurePar(const StaffMeasureSymbol* symbol) { return MeasurePar(MeasureStaffPar(symbol)); }
Measure* MeasurePar(const TimeElement* element) { return Up(measureTimeElements, element); }

MeasureStaff* MeasureStaffPar(const Voice* voice) { return Up(measureStaffVoices, voice); }
MeasureStaff* MeasureStaffPar(const VoiceSymbol* symbol) { return MeasureStaffPar(VoicePar(symbol)); }
MeasureStaff* MeasureStaffPar(const GenericNote* note) { return MeasureStaffPar(VoicePar(note)); }
MeasureStaff* MeasureStaffPar(const StaffMeasureSymbol* symbol) { return Up(staffSymbols, symbol); }

DocStaff* DocStaffPar(const MeasureStaff* measureStaff) { return Up(docStaffMeasureStaffs, measureStaff); }
DocStaff* DocStaffPar(const VoiceSymbol* symbol) { return DocStaffPar(MeasureStaffPar(symbol)); }
DocStaff* DocStaffPar(const GenericNote* note) { return DocStaffPar(MeasureStaffPar(note)); }

Voice* VoicePar(const VoiceSymbol* symbol) { return Up(voiceSymbols, symbol); }
Voice* VoicePar(const GenericNote* note) { return VoicePar(ChordPar(note)); }
Chords* ChordPar(const GenericNote* note) { return Up(chordNotes, note); }
ChordSymbol* ChordSymbolPar(const Chords* chord) { return Up(chordSymbolChords, chord); }
ChordSymbol* ChordSymbolPar(const Stem* stem) { return Up(chordSymbolStems, stem); }
Stem* StemPar(const GenericNote* note) { return Up(stemNotes, note); }

Staff* StaffPar(const GenericNote* note) {
    const MeasureStaff* measureStaff = MeasureStaffPar(note);
    return measureStaff ? measureStaff->_staff.Get() : nullptr;
}
Staff* StaffPar(const VoiceSymbol* symbol) {
    const MeasureStaff* measureStaff = MeasureStaffPar(symbol);
    return measureStaff ? measureStaff->_staff.Get() : nullptr;
}

Measure* NextMeasure(const Measure* measure) {
    if (Measure* next = systemMeasures.Next(measure)) return next;
    const System* system = SystemPar(measure);
    const Page* page = PagePar(system);
    for (system = system ? pageSystems.Next(system) : nullptr; page; system = pageSystems.First(page)) {
        for (; system; system = pageSystems.Next(system))
            if (Measure* first = systemMeasures.First(system)) return first;
        page = documentPages.Next(page);
        if (!page) break;
    }
    return nullptr;
}

Measure* PrevMeasure(const Measure* measure) {
    if (Measure* before = systemMeasures.Prev(measure)) return before;
    // A staff knows its measures both ways; the way back over pages is linear in them.
    const MeasureStaff* crossing = measureStaffs.First(measure);
    if (crossing && docStaffMeasureStaffs.IsLinked(crossing)) return MeasurePar(PrevOnStaff(crossing));
    const System* system = SystemPar(measure);
    const Page* page = PagePar(system);
    for (system = system ? pageSystems.Prev(system) : nullptr; page; system = pageSystems.Last(page)) {
        for (; system; system = pageSystems.Prev(system))
            if (Measure* last = systemMeasures.Last(system)) return last;
        page = documentPages.Prev(page);
        if (!page) break;
    }
    return nullptr;
}

Measure* FirstMeasure(const Document* document) {
    for (const Page* page : documentPages.Of(document))
        for (const System* system : pageSystems.Of(page))
            if (Measure* first = systemMeasures.First(system)) return first;
    return nullptr;
}

Measure* LastMeasure(const Document* document) {
    for (const Page* page = documentPages.Last(document); page; page = documentPages.Prev(page))
        for (const System* system = pageSystems.Last(page); system; system = pageSystems.Prev(system))
            if (Measure* last = systemMeasures.Last(system)) return last;
    return nullptr;
}

MeasureStaff* MeasureStaffAt(const Measure* measure, const DocStaff* docStaff) {
    for (MeasureStaff* m : measureStaffs.Of(measure))
        if (docStaffMeasureStaffs.ParentOf(m) == docStaff) return m;
    return nullptr;
}

}  // namespace corvane
