// Arpeggios before chords: a press on the chord makes one, a second press takes it away.
#include <cstdlib>

#include "edit/Insertion.h"
#include "edit/Signs.h"
#include "layout/Arpeggios.h"
#include "layout/SignRecords.h"
#include "model/Par.h"
#include "model/SymbolTable.h"

namespace corvane {
namespace {

constexpr int32_t kSameChord = 150;  // hundredths of a line distance sideways

Arpeggio* ArpeggioAt(const MeasureStaff* crossing, const ArpeggioLine& line) {
    for (StaffMeasureSymbol* symbol : staffSymbols.Of(crossing))
        if (auto* arpeggio = As<Arpeggio>(symbol);
            arpeggio && std::abs(LineOf(arpeggio).x - line.x) * 100 < kSameChord * line.lineDistance)
            return arpeggio;
    return nullptr;
}

}  // namespace

void ArpeggioInsertion(const InsertionPlace& place, std::string_view descriptor) {
    const GenericNote* note = ChordNoteFor(place);
    if (!note) return;
    const ArpeggioLine line = ArpeggioBefore(ChordSymbolPar(StemPar(note)));
    MeasureStaff* crossing = MeasureStaffPar(note);
    if (line.IsEmpty() || !crossing->_staff.Get()) return;
    if (Arpeggio* there = ArpeggioAt(crossing, line)) return DeleteArpeggio(place.window, there);
    auto* arpeggio = Make<Arpeggio>();
    staffSymbols.Add(crossing, arpeggio);
    arpeggio->_symbol = LookupSymbol(DocumentPar(crossing), descriptor);
    SetLine(arpeggio, line);
    if (PagePar(MeasurePar(crossing)) == place.window.CurrentPage())
        place.window.Sheet().AddObject(PatchOf(arpeggio), 0);
}

void DeleteArpeggio(WindowTarn& window, Arpeggio* arpeggio) {
    window.Sheet().RemoveObject(PatchOf(arpeggio));
    ReleaseSign(arpeggio);
}

}  // namespace corvane
