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

int32_t StartRepeatWidth(const Measure* measure) {
    if (!measure->_startRepeat) return 0;
    const MeasureStaff* crossing = measureStaffs.First(measure);
    const Staff* staff = crossing ? crossing->_staff.Get() : nullptr;
    return BarlineWeightsOf(measure, staff ? staff->_lineDistance.Get() : 100).StartRepeatWidth();
}

}  // namespace corvane
