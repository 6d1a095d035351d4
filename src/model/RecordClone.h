// Copying any record with all that it owns, by what the class table tells of its fields.
#pragma once

#include "model/Relations.h"

namespace corvane {

// A record of the same class and fields in the current pool, which is the target's, linked to nothing.
// Symbols and fonts are the target's of the same name, with one use more; texts are copied; what else the
// original points at stays out. `record` is the original's start; it may lie in another pool and is only
// read.
BehaviourWord* CloneRecord(Document* target, const BehaviourWord* record);

template <class R>
R* Clone(Document* target, const R* record) {
    return static_cast<R*>(CloneRecord(target, record));
}

}  // namespace corvane
