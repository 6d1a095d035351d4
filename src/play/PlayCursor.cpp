#include "play/PlayCursor.h"

#include <algorithm>

#include "layout/Frames.h"
#include "model/Par.h"
#include "play/MeasureClock.h"

namespace corvane {
namespace {

uint64_t Packed(const Measure* measure, int beat) {
    return uint64_t{StoredSpace::DistanceOf(measure)} << 32 | static_cast<uint32_t>(beat);
}

int BeatsOfStep(PlayCursor::Step step, int num) {
    if (step == PlayCursor::Step::Beat) return 1;
    return std::max(1, step == PlayCursor::Step::HalfMeasure ? num / 2 : num);
}

}  // namespace

void PlayCursor::SetStart(const Measure* measure, Step step) {
    _step = step;
    _place = Packed(measure, 0);
    _moved = true;
}

void PlayCursor::Move(const Measure* measure, int beat) {
    if (beat % BeatsOfStep(_step, PlayedMeterOf(measure).num) != 0) return;
    _place.store(Packed(measure, beat), std::memory_order_relaxed);
    _moved.store(true, std::memory_order_release);
}

PlayCursor::Place PlayCursor::Where() const {
    const uint64_t packed = _place.load(std::memory_order_relaxed);
    return {StoredSpace::At<Measure>(static_cast<uint32_t>(packed >> 32)),
            static_cast<int>(packed & 0xFFFFFFFF)};
}

bool MarkOf(PlayCursor::Place place, CursorMark& mark) {
    const Measure* measure = place.measure;
    const MeasureStaff* first = measure ? measureStaffs.First(measure) : nullptr;
    const MeasureStaff* last = measure ? measureStaffs.Last(measure) : nullptr;
    if (!first || !first->_staff || !last->_staff) return false;
    const MeasureFrame frame = FrameOf(measure);
    const int32_t start = frame.XOf(0);
    const int32_t beat = (frame.left + frame.width - start) / PlayedMeterOf(measure).num;
    const StaffFrame upper = FrameOf(first->_staff.Get());
    mark.x = start + place.beat * beat;
    mark.top = upper.top;
    mark.bottom = FrameOf(last->_staff.Get()).Bottom();
    mark.triangle = std::max<int32_t>(1, upper.lineDistance);
    return true;
}

}  // namespace corvane
