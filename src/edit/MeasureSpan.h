// The measures from the first to the last of some notes or events, in any order; one at least.
#pragma once

#include <vector>

#include "edit/MeasureRange.h"
#include "model/Par.h"

namespace corvane {

template <class Object>
MeasureRange SpanOf(const std::vector<Object*>& objects) {
    MeasureRange range;
    for (const Object* object : objects) {
        Measure* measure = MeasurePar(object);
        if (!range.first || measure->_number < range.first->_number) range.first = measure;
        if (!range.last || measure->_number > range.last->_number) range.last = measure;
    }
    return range;
}

}  // namespace corvane
