// Playing from the window: one score at a time, through the built-in synthesiser and the system's MIDI
// outputs. Nothing is opened before it is needed.
#pragma once

#include <QTimer>
#include <functional>

#include "platform/fluidsynth/FluidSynth.h"
#include "play/TaskPlay.h"

namespace corvane {

class WindowTarn;

class PlayControl {
public:
    // `changed` is called when a play has begun or ended.
    explicit PlayControl(std::function<void()> changed);
    ~PlayControl();  // no sound any more; the devices are free

    // From PlayStart's measure.
    void Start(WindowTarn& window);
    void Stop();
    void Toggle(WindowTarn& window);
    // Every sound ends at once, be it of play or of a device that hangs.
    void Panic();
    // Before a score goes: stops a play of it.
    void Leave(const WindowTarn& window);
    bool IsOn() const { return _window != nullptr; }

private:
    void Idle();

    std::function<void()> _changed;
    FluidSynth _synth;
    TaskPlay _task;
    QTimer _idle;
    const WindowTarn* _window = nullptr;  // whose score plays
};

}  // namespace corvane
