#include "platform/timer/TimerClock.h"

#include <pthread.h>
#include <sched.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <time.h>
#include <unistd.h>

#include <cerrno>

namespace corvane {
namespace {

constexpr int64_t kMillisecond = 1'000'000;  // nanoseconds
constexpr int64_t kUnit = SoundClock::kUnitMilliseconds * kMillisecond;

int64_t MonotonicNow() {
    timespec t{};
    clock_gettime(CLOCK_MONOTONIC, &t);
    return int64_t{t.tv_sec} * 1'000'000'000 + t.tv_nsec;
}

int64_t Epoch() {
    static const int64_t epoch = MonotonicNow();
    return epoch;
}

void SleepUntil(int64_t deadline) {
    const timespec t{static_cast<time_t>(deadline / 1'000'000'000),
                     static_cast<long>(deadline % 1'000'000'000)};
    while (clock_nanosleep(CLOCK_MONOTONIC, TIMER_ABSTIME, &t, nullptr) == EINTR) {
    }
}

// Whatever the system allows: real-time scheduling, else a better nice value, else nothing.
void RaisePriority() {
    prctl(PR_SET_TIMERSLACK, 1UL);
    sched_param param{};
    param.sched_priority = sched_get_priority_min(SCHED_FIFO) + 10;
    if (pthread_setschedparam(pthread_self(), SCHED_FIFO, &param) == 0) return;
    setpriority(PRIO_PROCESS, static_cast<id_t>(syscall(SYS_gettid)), -10);
}

}  // namespace

TimerClock::TimerClock(int resolution, int unit, ClockDealer* out, ClockDealer* in)
    : SoundClock(resolution, unit, out, in), _time(Now()) {}

TimerClock::~TimerClock() { EndChain(); }

void TimerClock::EndChain() {
    _killed = true;
    if (_thread.joinable()) _thread.join();
}

int32_t TimerClock::Now() {
    const int64_t epoch = Epoch();
    return static_cast<int32_t>((MonotonicNow() - epoch) / kUnit);
}

void TimerClock::Start() {
    EndChain();
    _killed = false;
    _time = Now();
    _running = true;
    _thread = std::thread(&TimerClock::RunChain, this);
}

void TimerClock::RunChain() {
    RaisePriority();
    const int64_t epoch = Epoch();
    int64_t deadline = epoch + ((MonotonicNow() - epoch) / kMillisecond + 1) * kMillisecond;
    for (bool armed = true; armed && !_killed;) {
        SleepUntil(deadline);
        const int64_t late = MonotonicNow() - deadline;
        if (_killed) break;
        armed = Call();
        deadline += kMillisecond * (1 + late / kMillisecond);
    }
    _running = false;
}

bool TimerClock::Call() {
    _time = Now();
    const bool armed = _outOn;
    if (armed && OutDealer()) OutDealer()->Tick(_time, Now());
    if (_inOn && InDealer()) InDealer()->Tick(_time, Now());
    return armed;
}

}  // namespace corvane
