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

// Allocates, fills and adds the default records of a new score, in their order.
void MakeDefaultPreferences(Document* document);

}  // namespace corvane
