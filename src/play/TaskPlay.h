// Sets a play up and takes it down: port, dealer, clock, walker. Main thread.
#pragma once

#include <functional>
#include <memory>

#include "play/ClockDealer.h"
#include "play/SoundClock.h"
#include "play/TarnPlay.h"

namespace corvane {

// Calls the walker while it is ready.
class TarnClock : public ClockDealer {
public:
    explicit TarnClock(TarnPlay& play) : _play(play) {}
    void Tick(int32_t time, int32_t) override {
        if (_play.IsReady()) _play.Tick(time);
    }

private:
    TarnPlay& _play;
};

class TaskPlay {
public:
    using ClockFactory =
        std::function<std::unique_ptr<SoundClock>(int resolution, int unit, ClockDealer* out)>;

    using Setup = PlaySetup;

    TaskPlay() = default;
    ~TaskPlay();
    TaskPlay(const TaskPlay&) = delete;

    // Nothing where a play is prepared already. False where there is no port.
    bool Init(const Document* document, const ClockFactory& makeClock, const Setup& setup = {});
    // From a measure on, null for the first. False, and all is taken down, where nothing is to be played.
    bool Start(const Measure* from = nullptr);
    // No callback and no sound any more; the devices are free.
    void Stop();
    // Stops a play that has come to its end or was asked to stop. From the idle tick; true if it stopped one.
    bool StopIfOver();

    bool IsPrepared() const { return _port && _clock && _dealer; }
    // The walker of a prepared play.
    TarnPlay* Play() { return _play.get(); }

private:
    SoundPort* _port = nullptr;
    std::unique_ptr<TarnPlay> _play;
    std::unique_ptr<TarnClock> _dealer;
    std::unique_ptr<SoundClock> _clock;
};

}  // namespace corvane
