// The layout of a whole score while staves come or go: made before, applied after. Systems share their pages
// in equal bands and spread their staves; measures keep their note areas in proportion.
#pragma once

#include <vector>

#include "layout/NoteAreas.h"

namespace corvane {

class StaffLayouts {
public:
    explicit StaffLayouts(Document* document);
    void Apply() const;

private:
    Document* _document;
    std::vector<NoteAreas> _areas;
};

}  // namespace corvane
