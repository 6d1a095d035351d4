#include "graphics/GlyphMeasures.h"

#include "base/Assert.h"

namespace corvane {
namespace {

GlyphMeasures* theMeasures = nullptr;

}  // namespace

void SetGlyphMeasures(GlyphMeasures* measures) { theMeasures = measures; }

bool HasGlyphMeasures() { return theMeasures != nullptr; }

GlyphMeasures& TheGlyphMeasures() {
    CORVANE_ASSERT(theMeasures);
    return *theMeasures;
}

}  // namespace corvane
