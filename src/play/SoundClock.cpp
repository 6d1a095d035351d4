#include "play/SoundClock.h"

#include "base/Assert.h"

namespace corvane {
namespace {
std::atomic<SoundClock*> _instance{nullptr};
}  // namespace

SoundClock* SoundClock::Instance() { return _instance.load(std::memory_order_acquire); }

SoundClock::SoundClock(int resolution, int unit, ClockDealer* out, ClockDealer* in)
    : _resolution(resolution), _unit(unit), _out(out), _in(in) {
    CORVANE_ASSERT(!_instance);
    _instance.store(this, std::memory_order_release);
}

SoundClock::~SoundClock() { _instance = nullptr; }

ManualClock::ManualClock(int resolution, int unit, ClockDealer* out, ClockDealer* in)
    : SoundClock(resolution, unit, out, in) {}

void ManualClock::Start() {
    _time = static_cast<int32_t>(_milliseconds / kUnitMilliseconds);
    _armed = true;
}

bool ManualClock::Fire() {
    if (!_armed) return false;
    _time = static_cast<int32_t>(_milliseconds++ / kUnitMilliseconds);
    _armed = _outOn;
    if (_outOn && OutDealer()) OutDealer()->Tick(_time, _time);
    if (_inOn && InDealer()) InDealer()->Tick(_time, _time);
    return true;
}

bool ManualClock::Advance() {
    for (int i = 0; i < kUnitMilliseconds; ++i)
        if (!Fire()) return false;
    return true;
}

}  // namespace corvane
