#include "shell/PlayControl.h"

#include "edit/MeasureRange.h"
#include "platform/rtmidi/RtMidiPort.h"
#include "platform/timer/TimerClock.h"

namespace corvane {
namespace {

constexpr int kIdleMilliseconds = 20;

std::unique_ptr<SoundClock> MakeClock(int resolution, int unit, ClockDealer* out) {
    return std::make_unique<TimerClock>(resolution, unit, out);
}

}  // namespace

PlayControl::PlayControl(std::function<void()> changed) : _changed(std::move(changed)) {
    SoundPort::SetFactory([this] { return std::make_unique<RtMidiPort>(&_synth); });
    _idle.setInterval(kIdleMilliseconds);
    QObject::connect(&_idle, &QTimer::timeout, [this] { Idle(); });
}

PlayControl::~PlayControl() {
    _idle.stop();
    _task.Stop();
    SoundPort::Close();
    SoundPort::SetFactory(nullptr);
}

void PlayControl::Start(WindowTarn& window) {
    if (IsOn() || !window.GetDocument()) return;
    if (!_task.Init(window.GetDocument(), MakeClock) || !_task.Start(PlayStart(window)))
        return window.Shell().Tell("There is nothing to play.");
    _window = &window;
    _idle.start();
    _changed();
}

void PlayControl::Stop() {
    if (!IsOn()) return;
    _task.Stop();
    _idle.stop();
    _window = nullptr;
    _changed();
}

void PlayControl::Toggle(WindowTarn& window) { IsOn() ? Stop() : Start(window); }

void PlayControl::Panic() {
    Stop();
    if (SoundPort* port = SoundPort::Instance()) port->Reset();
}

void PlayControl::Leave(const WindowTarn& window) {
    if (_window == &window) Stop();
}

// A message box waits in a loop of its own, from which this is called again: polling comes last.
void PlayControl::Idle() {
    if (_task.StopIfOver()) {
        _idle.stop();
        _window = nullptr;
        _changed();
    }
    SoundPort::PollError();
    SoundPort::PollSilence();
}

}  // namespace corvane
