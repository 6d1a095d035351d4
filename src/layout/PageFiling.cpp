#include "layout/PageFiling.h"

#include "layout/Lyrics.h"
#include "layout/PageLayout.h"
#include "layout/SlurSigns.h"
#include "layout/SpannerMarks.h"
#include "model/NoteOperations.h"
#include "model/Par.h"
#include "model/Texts.h"
#include "model/Ties.h"

namespace corvane {
namespace {

void Visit(void* record, int voice, const PatchVisitor& visit) {
    if (const DrawPatch patch = PatchOf(record)) visit(patch, voice);
}

void VisitMarkers(const BeamSymbol* symbol, int voice, const PatchVisitor& visit) {
    for (BeamSymbolAttribute* attribute : beamSymbolAttributes.Of(symbol)) Visit(attribute, voice, visit);
}

// A column of several chords is given with each of them, or once.
enum class Columns { WithEachChord, WithFirstChord };

void VisitChord(const Chords* chord, int voice, Columns columns, const PatchVisitor& visit) {
    ChordSymbol* column = ChordSymbolPar(chord);
    if (column && (columns == Columns::WithEachChord || chordSymbolChords.First(column) == chord)) {
        Visit(column, voice, visit);
        for (const Stem* stem : chordSymbolStems.Of(column)) VisitMarkers(stem, voice, visit);
    }
    for (const GenericNote* note : chordNotes.Of(chord))
        for (NoteAttribute* attribute : noteAttributes.Of(note)) Visit(attribute, voice, visit);
}

void VisitEvent(const VoiceSymbol* symbol, Columns columns, const PatchVisitor& visit) {
    const Voice* voice = VoicePar(symbol);
    const int number = voice ? voice->_number.Get() : 0;
    if (const auto* chord = As<Chords>(symbol)) VisitChord(chord, number, columns, visit);
    if (const auto* pause = As<Pause>(symbol)) {
        Visit(const_cast<Pause*>(pause), number, visit);
        VisitMarkers(pause, number, visit);
    }
    for (VoiceSymbolAttribute* attribute : voiceSymbolAttributes.Of(symbol)) Visit(attribute, number, visit);
}

void VisitSignsAndEvents(const MeasureStaff* crossing, Columns columns, const PatchVisitor& visit) {
    for (StaffMeasureSymbol* symbol : staffSymbols.Of(crossing)) Visit(symbol, 0, visit);
    for (const Voice* voice : measureStaffVoices.Of(crossing))
        for (const VoiceSymbol* symbol : voiceSymbols.Of(voice)) VisitEvent(symbol, columns, visit);
}

// The other ends of ties of a crossing's notes, on the same page.
const Page* PageOf(const MarkValue* mark) { return PagePar(MeasurePar(noteAttributes.ParentOf(mark))); }

void VisitTiesTo(const MeasureStaff* crossing, const PatchVisitor& visit) {
    const Page* page = PagePar(MeasurePar(crossing));
    for (const Voice* voice : measureStaffVoices.Of(crossing))
        for (const VoiceSymbol* symbol : voiceSymbols.Of(voice)) {
            const auto* chord = As<Chords>(symbol);
            if (!chord) continue;
            for (const GenericNote* note : chordNotes.Of(chord))
                for (const NoteAttribute* attribute : noteAttributes.Of(note))
                    if (const auto* mark = As<MarkValue>(attribute))
                        if (MarkValue* other = OtherMark(mark); other && PageOf(other) == page)
                            Visit(other, voice->_number, visit);
        }
}

// The marks in the same system whose spanners run over a crossing.
void VisitMarksOver(const MeasureStaff* crossing, const PatchVisitor& visit) {
    const Measure* measure = MeasurePar(crossing);
    const System* system = SystemPar(measure);
    const auto isInSystem = [&](const MeasureStaff* other) {
        return other && SystemPar(MeasurePar(other)) == system;
    };
    const MeasureStaff* first = crossing;
    while (isInSystem(PrevOnStaff(first))) first = PrevOnStaff(first);
    for (const MeasureStaff* each = first; isInSystem(each); each = NextOnStaff(each))
        for (StaffMeasureSymbol* symbol : staffSymbols.Of(each)) {
            const auto marks = each == crossing ? std::vector<StaffMeasureSymbol*>{} : MarksOf(symbol);
            if (!marks.empty() && MeasurePar(marks.front())->_number <= measure->_number &&
                MeasurePar(marks.back())->_number >= measure->_number)
                Visit(symbol, 0, visit);
            // What stands outside a slur moves with it.
            for (Corona* fermata : FermatasUnder(symbol))
                if (const Voice* voice = VoicePar(noteAttributes.ParentOf(fermata));
                    MeasureStaffPar(voice) != crossing)
                    Visit(fermata, voice->_number, visit);
        }
}

// A crossing without a staff of its own is not drawn.
void VisitCrossing(const MeasureStaff* crossing, const PatchVisitor& visit) {
    if (!crossing->_staff) return;
    VisitSignsAndEvents(crossing, Columns::WithFirstChord, visit);
}

void VisitSystem(const System* system, const PatchVisitor& visit) {
    for (Staff* staff : StaffsFromTop(system)) Visit(staff, 0, visit);
    for (Measure* measure : systemMeasures.Of(system)) Visit(measure, 0, visit);
    for (Connection* connection : systemConnections.Of(system)) Visit(connection, 0, visit);
    for (const Measure* measure : systemMeasures.Of(system)) {
        for (const MeasureStaff* crossing : measureStaffs.Of(measure)) VisitCrossing(crossing, visit);
        // The columns were given with their chords.
        for (MeasureSymbol* symbol : measureSymbols.Of(measure))
            if (!As<ChordSymbol>(symbol) && !As<CrossBeam>(symbol)) Visit(symbol, 0, visit);
    }
}

}  // namespace

void ForEachPatch(const Page* page, const PatchVisitor& visit) {
    for (const System* system : pageSystems.Of(page)) VisitSystem(system, visit);
    for (PageText* text : pageTexts.Of(page)) Visit(text, 0, visit);
    Document* document = documentPages.ParentOf(page);
    if (document && documentPages.First(document) == page && !TitleOf(document).empty())
        Visit(document, 0, visit);
}

void ForEachPatch(const System* system, const PatchVisitor& visit) { VisitSystem(system, visit); }

void ForEachPatch(const MeasureStaff* measureStaff, const PatchVisitor& visit) {
    VisitSignsAndEvents(measureStaff, Columns::WithEachChord, visit);
}

void ForEachSpannerOver(const MeasureStaff* measureStaff, const PatchVisitor& visit) {
    VisitTiesTo(measureStaff, visit);
    for (Liriche* syllable : LyricsReaching(measureStaff))
        Visit(syllable, VoicePar(noteAttributes.ParentOf(syllable))->_number, visit);
    VisitMarksOver(measureStaff, visit);
}

void ForEachPatch(const VoiceSymbol* symbol, const PatchVisitor& visit) {
    VisitEvent(symbol, Columns::WithEachChord, visit);
}

}  // namespace corvane
