// Walks of the score that hand out paths. Start on a path of the parent level, or StartAt around an element; Next and
// Prev give the element, or null, and Crd() its path. The element just returned may be removed before the next call.
// Plain stack objects; making one allocates nothing.
#pragma once

#include "model/TarnCoordinate.h"

namespace corvane {

// One relation.
template <class Rel, class ParentCrd, class ElementCrd>
class DirectIterator {
public:
    using Element = typename ElementCrd::Object;
    using Above = ParentCrd;
    using Crd_ = ElementCrd;

    void Start(const ParentCrd& crd) {
        auto* parent = static_cast<typename Rel::Parent*>(static_cast<typename ParentCrd::Object*>(crd));
        CORVANE_ASSERT_AS(parent, "crd");
        _walk = typename Rel::Walk(parent);
        Ready(crd);
    }
    void StartAt(const ElementCrd& crd) {
        auto* element = static_cast<typename Rel::Child*>(static_cast<Element*>(crd));
        auto* parent = static_cast<typename Rel::Parent*>(static_cast<typename ParentCrd::Object*>(crd));
        CORVANE_ASSERT_AS(parent && element, "crd");
        _walk = typename Rel::Walk(parent, element);
        Ready(crd);
    }
    Element* Next() { return Found(_walk.Next()); }
    Element* Prev() { return Found(_walk.Prev()); }
    const ElementCrd& Crd() const { return _crd; }

private:
    void Ready(const TarnCrd& crd) {
        static_cast<TarnCrd&>(_crd) = crd;
        _ready = true;
    }
    Element* Found(typename Rel::Child* child) {
        CORVANE_ASSERT_AS(_ready, "_crd");
        auto* element = static_cast<Element*>(child);
        if (!element) return nullptr;
        ElementCrd crd = Slice<ElementCrd>(_crd);
        crd.template Set<Element>(element);
        if constexpr (requires { crd.Complete(); } || std::is_same_v<ElementCrd, GenericNoteCrd>) {
            // Levels that differ from element to element are found anew.
            if constexpr (std::is_same_v<ElementCrd, GenericNoteCrd>) {
                crd.template Set<Chords>(nullptr);
                crd.template Set<VoiceSymbol>(nullptr);
                crd.template Set<Voice>(nullptr);
                crd.template Set<Stem>(nullptr);
                crd.template Set<MeasureStaff>(nullptr);
            }
            crd.template Set<DocStaff>(nullptr);
            crd.template Set<Staff>(nullptr);
            CompleteUpward(crd);
        }
        _crd = crd;
        return element;
    }

    typename Rel::Walk _walk;
    ElementCrd _crd;
    bool _ready = false;
};

// The elements of a walk that are of one class.
template <class Inner, class ElementCrd>
class FilterIterator {
public:
    using Element = typename ElementCrd::Object;
    using Above = typename Inner::Above;
    using Crd_ = ElementCrd;

    void Start(const Above& crd) { _inner.Start(crd); }
    void StartAt(const ElementCrd& crd) { _inner.StartAt(Slice<typename Inner::Crd_>(crd)); }
    Element* Next() { return Found([this] { return _inner.Next(); }); }
    Element* Prev() { return Found([this] { return _inner.Prev(); }); }
    const ElementCrd& Crd() const { return _crd; }

private:
    template <class Step>
    Element* Found(Step step) {
        while (auto* any = step())
            if (auto* element = As<Element>(any)) {
                _crd = Slice<ElementCrd>(_inner.Crd());
                _crd.template Set<Element>(element);
                return element;
            }
        return nullptr;
    }
    Inner _inner;
    ElementCrd _crd;
};

// Two levels walked as one; a middle without elements is passed over.
template <class Outer, class Inner>
class CompositeIterator {
public:
    using Element = typename Inner::Element;
    using Above = typename Outer::Above;
    using Crd_ = typename Inner::Crd_;

    void Start(const Above& crd) {
        _outer.Start(crd);
        _inside = false;
        if (_outer.Next()) Enter();
    }
    void StartAt(const Crd_& crd) {
        _outer.StartAt(Slice<typename Outer::Crd_>(crd));
        _inner.StartAt(crd);
        _inside = true;
    }
    Element* Next() {
        for (;;) {
            if (_inside)
                if (Element* element = _inner.Next()) return element;
            if (!_outer.Next()) return _inside = false, nullptr;
            Enter();
        }
    }
    Element* Prev() {
        for (;;) {
            if (_inside)
                if (Element* element = _inner.Prev()) return element;
            if (!_outer.Prev()) return _inside = false, nullptr;
            Enter();
        }
    }
    const Crd_& Crd() const { return _inner.Crd(); }

private:
    void Enter() {
        _inner.Start(Slice<typename Inner::Above>(_outer.Crd()));
        _inside = true;
    }
    Outer _outer;
    Inner _inner;
    bool _inside = false;
};

template <auto& relation, class ParentCrd, class ElementCrd>
using Direct = DirectIterator<std::remove_cvref_t<decltype(relation)>, ParentCrd, ElementCrd>;

using DocumentPageIterator = Direct<documentPages, DocCrd, PageCrd>;
using PageSystemIterator = Direct<pageSystems, PageCrd, SystemCrd>;
using SystemMeasureIterator = Direct<systemMeasures, SystemCrd, MeasureCrd>;
using MeasureMeasureStaffIterator = Direct<measureStaffs, MeasureCrd, MeasureStaffCrd>;
using DocStaffMeasureStaffIterator = Direct<docStaffMeasureStaffs, DocStaffCrd, MeasureStaffCrd>;
using MeasureStaffvoiceIterator = Direct<measureStaffVoices, MeasureStaffCrd, VoiceCrd>;
using MeasureStaffMeasStaffSymIterator = Direct<staffSymbols, MeasureStaffCrd, StaffMeasureSymbolCrd>;
using VoiceSymbolIterator = Direct<voiceSymbols, VoiceCrd, VoiceSymbolCrd>;
using VoiceSymAttributeIterator = Direct<voiceSymbolAttributes, VoiceSymbolCrd, VoiceSymbolAttributeCrd>;
using MeasureSymbolIterator = Direct<measureSymbols, MeasureCrd, MeasureSymbolCrd>;
using ChordSymbolChordIterator = Direct<chordSymbolChords, ChordSymbolCrd, ChordCrd>;
using ChordSymbolStemIterator = Direct<chordSymbolStems, ChordSymbolCrd, StemCrd>;
using ChordNoteIterator = Direct<chordNotes, ChordCrd, GenericNoteCrd>;
using StemNoteIterator = Direct<stemNotes, StemCrd, GenericNoteCrd>;
using GenericNoteAttributeIterator = Direct<noteAttributes, GenericNoteCrd, NoteAttributeCrd>;

using MeasureChordSymbolIterator = FilterIterator<MeasureSymbolIterator, ChordSymbolCrd>;
using VoiceChordIterator = FilterIterator<VoiceSymbolIterator, ChordCrd>;

using DocumentSystemIterator = CompositeIterator<DocumentPageIterator, PageSystemIterator>;
using DocSysIterator = DocumentSystemIterator;
using PageMeasureIterator = CompositeIterator<PageSystemIterator, SystemMeasureIterator>;
using DocumentMeasureIterator = CompositeIterator<DocumentSystemIterator, SystemMeasureIterator>;
using DocumentMeasSymbolIterator = CompositeIterator<DocumentMeasureIterator, MeasureSymbolIterator>;
using DocMeasureStaffIterator = CompositeIterator<DocumentMeasureIterator, MeasureMeasureStaffIterator>;
using DocMeasureStaffSymIterator = CompositeIterator<DocMeasureStaffIterator, MeasureStaffMeasStaffSymIterator>;
using MeasureStemIterator = CompositeIterator<MeasureChordSymbolIterator, ChordSymbolStemIterator>;
using VoiceNoteIterator = CompositeIterator<VoiceChordIterator, ChordNoteIterator>;
using MeasureStaffNoteIterator = CompositeIterator<MeasureStaffvoiceIterator, VoiceNoteIterator>;
using SystemMeasureStaffIterator = CompositeIterator<SystemMeasureIterator, MeasureMeasureStaffIterator>;
using SystemMeasureStaffSymIterator = CompositeIterator<SystemMeasureStaffIterator, MeasureStaffMeasStaffSymIterator>;
using SystemVoiceIterator = CompositeIterator<SystemMeasureStaffIterator, MeasureStaffvoiceIterator>;
using SystemVoiceSymbolIterator = CompositeIterator<SystemVoiceIterator, VoiceSymbolIterator>;
using SystemVoiceSymAttIterator = CompositeIterator<SystemVoiceSymbolIterator, VoiceSymAttributeIterator>;
using SystemStemIterator = CompositeIterator<SystemMeasureIterator, MeasureStemIterator>;
using SystemGenericNoteIterator = CompositeIterator<SystemMeasureStaffIterator, MeasureStaffNoteIterator>;
using SystemNoteAttributeIterator = CompositeIterator<SystemGenericNoteIterator, GenericNoteAttributeIterator>;
using DocNoteAttributeIterator = CompositeIterator<DocumentSystemIterator, SystemNoteAttributeIterator>;
using VoiceIterator = CompositeIterator<DocStaffMeasureStaffIterator, MeasureStaffvoiceIterator>;
using DocStaffVoiceSymbolIterator = CompositeIterator<VoiceIterator, VoiceSymbolIterator>;

}  // namespace corvane
