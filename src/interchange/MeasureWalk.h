// Where a walk over the measures of a score begins; NextMeasure goes on from there.
#pragma once

#include "model/Par.h"

namespace corvane {

// Null for a score without measures.
inline Measure* FirstMeasureOf(const Document* document) {
    for (const Page* page : documentPages.Of(document))
        for (const System* system : pageSystems.Of(page))
            if (Measure* first = systemMeasures.First(system)) return first;
    return nullptr;
}

}  // namespace corvane
