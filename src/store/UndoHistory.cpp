#include "store/UndoHistory.h"

#include <algorithm>
#include <utility>

#include "base/Assert.h"

namespace corvane {
namespace {

constexpr size_t kMostBytes = size_t{256} << 20;

template <class Steps>
UndoStep TakeLast(Steps& steps) {
    CORVANE_ASSERT(!steps.empty());
    UndoStep step = std::move(steps.back());
    steps.pop_back();
    return step;
}

}  // namespace

size_t UndoStep::Size() const {
    size_t size = 0;
    for (const Part& part : parts) size += part.bytes.size();
    return size;
}

void UndoHistory::SetLevels(size_t levels) {
    _levels = levels;
    if (!IsKeeping()) Clear();
    Trim();
}

void UndoHistory::PushDone(UndoStep step) {
    _done.push_back(std::move(step));
    Trim();
}

void UndoHistory::Trim() {
    while (_done.size() >= std::max<size_t>(_levels, 1)) _done.pop_front();
    size_t size = 0, kept = 0;
    for (auto step = _done.rbegin(); step != _done.rend(); ++step, ++kept)
        if ((size += step->Size()) > kMostBytes) break;
    _done.erase(_done.begin(), _done.end() - static_cast<std::ptrdiff_t>(kept));
}

UndoStep UndoHistory::PopDone() { return TakeLast(_done); }
UndoStep UndoHistory::PopUndone() { return TakeLast(_undone); }

void UndoHistory::Clear() {
    _done.clear();
    _undone.clear();
}

bool UndoHistory::Needs(const PoolBlock* block) const {
    const auto names = [block](const UndoStep& step) {
        return std::any_of(step.parts.begin(), step.parts.end(),
                           [block](const UndoStep::Part& part) { return part.block == block; });
    };
    return std::any_of(_done.begin(), _done.end(), names) ||
           std::any_of(_undone.begin(), _undone.end(), names);
}

}  // namespace corvane
