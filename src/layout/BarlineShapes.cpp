#include "layout/BarlineShapes.h"

#include "layout/LineWeights.h"
#include "model/Par.h"
#include "model/Preferences.h"

namespace corvane {

BarlineWeights BarlineWeightsOf(const Measure* measure, int32_t lineDistance) {
    const Document* document = DocumentPar(measure);
    const auto* preferences = document ? Preferences<MeasurePreferences>(document) : nullptr;
    const int32_t thick = preferences ? preferences->_thickBarline.Get() : 42;
    const int32_t gap = preferences ? preferences->_barlineGap.Get() : 40;
    return {BarlineWeight(lineDistance), WeightOf(thick, lineDistance), gap * lineDistance / 100,
            lineDistance};
}

namespace {

// For the staves of a measure, by its first one.
BarlineWeights BarlineWeightsOf(const Measure* measure) {
    const MeasureStaff* crossing = measureStaffs.First(measure);
    const Staff* staff = crossing ? crossing->_staff.Get() : nullptr;
    return BarlineWeightsOf(measure, staff ? staff->_lineDistance.Get() : 100);
}

}  // namespace

int32_t StartRepeatWidth(const Measure* measure) {
    return measure->_startRepeat ? BarlineWeightsOf(measure).StartRepeatWidth() : 0;
}

int32_t EndBarlineWidth(const Measure* measure) {
    if (measure->_hiddenBarline) return 0;
    const BarlineWeights w = BarlineWeightsOf(measure);
    if (measure->_endRepeat) return w.StartRepeatWidth();  // its mirror
    if (measure->_barline == BarlineKind::Final) return w.thick + w.gap + w.thin;
    return measure->_barline == BarlineKind::Double ? 2 * w.thin + w.gap : w.thin;
}

}  // namespace corvane
