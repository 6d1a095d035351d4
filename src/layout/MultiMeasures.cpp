#include "layout/MultiMeasures.h"

#include "layout/ScoreSkeleton.h"

namespace corvane {

MultiMeasure* MakeMultiMeasure(System* system, Measure* behind, int count) {
    auto* measure = Make<MultiMeasure>();
    JoinMeasure(system, measure, behind);
    measure->_count = count;
    for (MeasureStaff* crossing : measureStaffs.Of(measure)) staffSymbols.Add(crossing, Make<MultiPause>());
    return measure;
}

}  // namespace corvane
