#include "play/TaskPlay.h"

#include "play/SoundPort.h"

namespace corvane {

TaskPlay::~TaskPlay() { Stop(); }

bool TaskPlay::Init(const Document* document, const ClockFactory& makeClock, const Setup& setup) {
    if (IsPrepared()) return true;
    _port = SoundPort::Instance();
    if (!_port) return false;
    _play = std::make_unique<TarnPlay>();
    _dealer = std::make_unique<TarnClock>(*_play);
    _clock = makeClock(setup.resolution, 1, _dealer.get());
    _play->Init(document, _port, setup);
    return true;
}

bool TaskPlay::Start(const Measure* from) {
    CORVANE_ASSERT_AS(IsPrepared(), "sc && sp && cd");
    PlayFlags& flags = ThePlayFlags();
    flags.playing = true;
    flags.stop = false;
    flags.clockRunning = true;
    _clock->EnableOut();
    _clock->Start();
    if (_play->Start(_clock->Time(), from)) return true;
    Stop();
    return false;
}

// The clock goes first: no callback may find the port gone, or start a note behind the silence.
void TaskPlay::Stop() {
    if (!IsPrepared()) return;
    _clock->DisableOut();
    _clock.reset();
    _port->Silence();
    SoundPort::Close();
    _port = nullptr;
    _dealer.reset();
    _play.reset();
    PlayFlags& flags = ThePlayFlags();
    flags.playing = false;
    flags.stop = false;
    flags.clockRunning = false;
}

bool TaskPlay::StopIfOver() {
    const PlayFlags& flags = ThePlayFlags();
    if (!IsPrepared() || !flags.clockRunning || flags.playing) return false;
    Stop();
    return true;
}

}  // namespace corvane
