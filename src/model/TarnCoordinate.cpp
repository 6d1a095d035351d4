#include "model/TarnCoordinate.h"

#include "model/Par.h"

namespace corvane {
namespace {

template <class T>
void SetIfEmpty(TarnCrd& crd, T* object) {
    if (!static_cast<T*>(crd)) crd.Set<T>(object);
}

}  // namespace

void CompleteUpward(TarnCrd& crd) {
    if (auto* note = (GenericNote*)crd) {
        SetIfEmpty<Chords>(crd, ChordPar(note));
        SetIfEmpty<Stem>(crd, StemPar(note));
    }
    if (auto* chord = (Chords*)crd) {
        SetIfEmpty<VoiceSymbol>(crd, chord);
        SetIfEmpty<ChordSymbol>(crd, ChordSymbolPar(chord));
    }
    if (auto* stem = (Stem*)crd) SetIfEmpty<ChordSymbol>(crd, ChordSymbolPar(stem));
    if (auto* chordSymbol = (ChordSymbol*)crd) SetIfEmpty<MeasureSymbol>(crd, chordSymbol);
    if (auto* symbol = (VoiceSymbol*)crd) SetIfEmpty<Voice>(crd, VoicePar(symbol));
    if (auto* voice = (Voice*)crd) SetIfEmpty<MeasureStaff>(crd, MeasureStaffPar(voice));
    if (auto* symbol = (StaffMeasureSymbol*)crd) SetIfEmpty<MeasureStaff>(crd, MeasureStaffPar(symbol));
    if (auto* measureStaff = (MeasureStaff*)crd) {
        SetIfEmpty<DocStaff>(crd, DocStaffPar(measureStaff));
        SetIfEmpty<Staff>(crd, measureStaff->_staff.Get());
        SetIfEmpty<Measure>(crd, MeasurePar(measureStaff));
    }
    if (auto* symbol = (MeasureSymbol*)crd) SetIfEmpty<Measure>(crd, MeasurePar(symbol));
    if (auto* measure = (Measure*)crd) SetIfEmpty<System>(crd, SystemPar(measure));
    if (auto* system = (System*)crd) SetIfEmpty<Page>(crd, PagePar(system));
    if (auto* page = (Page*)crd) SetIfEmpty<Document>(crd, DocumentPar(page));
}

MeasureStaffCrd MeasureStaffCrd::Complete() const {
    MeasureStaffCrd whole = *this;
    CompleteUpward(whole);
    return whole;
}

MeasureStaffCrd::operator StaffCrd() const { return Slice<StaffCrd>(Complete()); }

GenericNoteCrd::GenericNoteCrd(GenericNote* note) {
    CORVANE_ASSERT_AS(note, "note");
    Set<GenericNote>(note);
    CompleteUpward(*this);
    CORVANE_ASSERT_AS((Measure*)*this, "(Measure*)MeasurePar(nc)");
}

}  // namespace corvane
