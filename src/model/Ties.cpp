#include "model/Ties.h"

#include "model/NoteOperations.h"
#include "model/Par.h"

namespace corvane {

MarkValue* OtherMark(const MarkValue* mark) {
    const TieValue* tie = tieMarks.ParentOf(mark);
    if (!tie) return nullptr;
    for (MarkValue* other : tieMarks.Of(tie))
        if (other != mark) return other;
    return nullptr;
}

GenericNote* TiePartnerOf(const MarkValue* mark) {
    const MarkValue* other = OtherMark(mark);
    return other ? noteAttributes.ParentOf(other) : nullptr;
}

bool AreTied(const GenericNote* a, const GenericNote* b) {
    for (const NoteAttribute* attribute : noteAttributes.Of(a))
        if (const auto* mark = As<MarkValue>(attribute); mark && TiePartnerOf(mark) == b) return true;
    return false;
}

bool IsHeldOver(const GenericNote* note) {
    for (const NoteAttribute* attribute : noteAttributes.Of(note))
        if (const auto* mark = As<MarkValue>(attribute))
            if (const GenericNote* partner = TiePartnerOf(mark);
                partner && partner->_alteration == note->_alteration && StandsBefore(partner, note))
                return true;
    return false;
}

bool StandsBefore(const GenericNote* a, const GenericNote* b) {
    const Measure *first = MeasurePar(a), *second = MeasurePar(b);
    if (first != second) return first && second && first->_number < second->_number;
    return XOf(ChordPar(a)) < XOf(ChordPar(b));
}

}  // namespace corvane
