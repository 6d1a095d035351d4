// Positions in the score: the path of objects from the Document down to one object, as one plain value. Transient: none
// survives a change of the tree. Casts give the object of a level, null where the path has none:
//     auto* measure = (Measure*)crd;
#pragma once

#include <array>

#include "model/Relations.h"

namespace corvane {

namespace level {
enum Level {
    kDocument, kPage, kSystem, kDocStaff, kStaff, kMeasure, kMeasureStaff, kMeasureSymbol, kStaffMeasureSymbol,
    kChordSymbol, kStem, kVoice, kVoiceSymbol, kChords, kGenericNote, kNoteAttribute, kVoiceSymbolAttribute, kAccident,
    kCount
};
template <class T> inline constexpr int Of = -1;
template <> inline constexpr int Of<Document> = kDocument;
template <> inline constexpr int Of<Page> = kPage;
template <> inline constexpr int Of<System> = kSystem;
template <> inline constexpr int Of<DocStaff> = kDocStaff;
template <> inline constexpr int Of<Staff> = kStaff;
template <> inline constexpr int Of<Measure> = kMeasure;
template <> inline constexpr int Of<MeasureStaff> = kMeasureStaff;
template <> inline constexpr int Of<MeasureSymbol> = kMeasureSymbol;
template <> inline constexpr int Of<StaffMeasureSymbol> = kStaffMeasureSymbol;
template <> inline constexpr int Of<ChordSymbol> = kChordSymbol;
template <> inline constexpr int Of<Stem> = kStem;
template <> inline constexpr int Of<Voice> = kVoice;
template <> inline constexpr int Of<VoiceSymbol> = kVoiceSymbol;
template <> inline constexpr int Of<Chords> = kChords;
template <> inline constexpr int Of<GenericNote> = kGenericNote;
template <> inline constexpr int Of<NoteAttribute> = kNoteAttribute;
template <> inline constexpr int Of<VoiceSymbolAttribute> = kVoiceSymbolAttribute;
template <> inline constexpr int Of<Accident> = kAccident;
}  // namespace level

class TarnCrd {
public:
    template <class T>
        requires(level::Of<T> >= 0)
    explicit operator T*() const {
        return static_cast<T*>(_levels[level::Of<T>]);
    }
    explicit operator bool() const = delete;

    template <class T>
    void Set(T* object) {
        static_assert(level::Of<T> >= 0);
        _levels[level::Of<T>] = object;
    }

private:
    std::array<void*, level::kCount> _levels{};
};

// The same path seen at another level; what lies below that level stays and is ignored.
template <class Crd>
Crd Slice(const TarnCrd& path) {
    Crd crd;
    static_cast<TarnCrd&>(crd) = path;
    return crd;
}

// Fills every empty level above the lowest filled ones by walking source links upward.
void CompleteUpward(TarnCrd& path);

// A level: its object, which may be null, under a path that holds what lies above it as far as that is known.
#define CORVANE_CRD(Name, Parent, Class)                                                    \
    class Name : public Parent {                                                            \
    public:                                                                                 \
        using Object = Class;                                                               \
        Name() = default;                                                                   \
        Name(const Parent& above, Class* object) : Parent(above) { Set<Class>(object); }

class DocCrd : public TarnCrd {
public:
    using Object = Document;
    DocCrd() = default;
    explicit DocCrd(Document* document) { Set<Document>(document); }
};
CORVANE_CRD(PageCrd, DocCrd, Page) };
CORVANE_CRD(SystemCrd, PageCrd, System) };
CORVANE_CRD(DocStaffCrd, DocCrd, DocStaff) };
CORVANE_CRD(StaffCrd, SystemCrd, Staff)
    operator DocStaffCrd() const { return {*this, (DocStaff*)*this}; }
};
CORVANE_CRD(MeasureCrd, SystemCrd, Measure) };
CORVANE_CRD(MeasureStaffCrd, MeasureCrd, MeasureStaff)
    // The DocStaff and Staff levels are filled from the object's own links.
    MeasureStaffCrd Complete() const;
    operator StaffCrd() const;
};
CORVANE_CRD(MeasureSymbolCrd, MeasureCrd, MeasureSymbol) };
CORVANE_CRD(StaffMeasureSymbolCrd, MeasureStaffCrd, StaffMeasureSymbol) };
CORVANE_CRD(ChordSymbolCrd, MeasureSymbolCrd, ChordSymbol) };
CORVANE_CRD(StemCrd, ChordSymbolCrd, Stem) };
CORVANE_CRD(VoiceCrd, MeasureStaffCrd, Voice) };
CORVANE_CRD(VoiceSymbolCrd, VoiceCrd, VoiceSymbol) };
CORVANE_CRD(ChordCrd, VoiceSymbolCrd, Chords) };
CORVANE_CRD(GenericNoteCrd, ChordCrd, GenericNote)
    // From the note alone: every level above it is found through its links.
    explicit GenericNoteCrd(GenericNote* note);
};
CORVANE_CRD(NoteAttributeCrd, GenericNoteCrd, NoteAttribute) };
CORVANE_CRD(VoiceSymbolAttributeCrd, VoiceSymbolCrd, VoiceSymbolAttribute) };
CORVANE_CRD(AccidentCrd, NoteAttributeCrd, Accident) };
#undef CORVANE_CRD

}  // namespace corvane
