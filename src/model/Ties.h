// What ties tell of the notes at their ends.
#pragma once

#include "model/Relations.h"

namespace corvane {

// The mark at a tie's other end; null for a mark without a partner.
MarkValue* OtherMark(const MarkValue* mark);
// The note at the other end; null for a mark without a partner.
GenericNote* TiePartnerOf(const MarkValue* mark);
// Whether a tie leads from one note to the other, in either direction.
bool AreTied(const GenericNote* a, const GenericNote* b);
// A tie leads to the note from an earlier one of the same alteration: it is not struck anew, shows no
// accidental and speaks for no later note on its line, as the first of the tied notes does.
bool IsHeldOver(const GenericNote* note);
// Of two notes that a tie joins: the one of the earlier measure, or further left, comes first.
bool StandsBefore(const GenericNote* a, const GenericNote* b);

}  // namespace corvane
