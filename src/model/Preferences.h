// Looking up a score's preference records.
#pragma once

#include <string_view>

#include "model/PreferenceRecords.h"
#include "model/Relations.h"

namespace corvane {

// The record with that class name; null for an unknown name ("className" must not be null).
ClassPreferences* FindPreferences(const Document* document, const char* className);

// The record of a class; every score has one of each.
template <class P>
P* Preferences(const Document* document) {
    return static_cast<P*>(FindPreferences(document, InfoOf(P::kClass)->name));
}

// What the program keeps of a score's preferences beside them is read anew: its page size. After a load, an undo, a
// redo, and for a new score.
void RefreshPreferences(const Document* document);
// The creator of PagePref, which does that.
Administrator* PageCreator();

// Allocates, fills and adds the default records of a new score, in their order. The document's standard fonts, "Times
// New Roman", "Marcelane" and "Courier New" at size 189, come first; the document itself holds one use of each.
void MakeDefaultPreferences(Document* document);

}  // namespace corvane
