// Giving back any record with all that it owns, by what the class table tells of its fields.
#pragma once

#include "model/Relations.h"

namespace corvane {

// Releases a record that stands in no relation: one use of each symbol and font that it names, its texts, and
// the record. What else it points at stays. `record` is the record's start.
void DropRecord(Document* document, BehaviourWord* record);

}  // namespace corvane
