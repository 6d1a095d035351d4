// Playing from the window: one score at a time, through the built-in synthesiser and the system's MIDI
// outputs. Nothing is opened before it is needed.
#pragma once

#include <QTimer>
#include <functional>

#include "platform/fluidsynth/FluidSynth.h"
#include "platform/rtmidi/MidiThru.h"
#include "play/TaskPlay.h"
#include "shell/PlayFollower.h"
#include "shell/PlayReport.h"

namespace corvane {

class MainFrame;
class WindowTarn;

class PlayControl {
public:
    explicit PlayControl(MainFrame& frame);
    ~PlayControl();  // no sound any more; the devices are free

    // From the first limit where limits are on, else from PlayStart's measure.
    void Start(WindowTarn& window);
    void Stop();
    void Toggle(WindowTarn& window);
    // Goes on from the measure of that number; nothing while no play runs.
    void Seek(int measure);
    // Every sound ends at once, be it of play or of a device that hangs.
    void Panic();
    // Before a score goes: stops a play of it.
    void Leave(const WindowTarn& window);
    bool IsOn() const { return _window != nullptr; }
    // The keyboard sounds as things stand now: after settings, mixer or the current score changed.
    void RefreshThru();

    // The tempo slider, 0 (slowest) to 200; 100 is the written tempo. At once.
    void SetTempo(int place);
    int Tempo() const { return _tempo; }
    PlayLimits& Limits() { return _limits; }
    const PlayReport& Report() const { return _report; }

private:
    const Measure* StartMeasure(WindowTarn& window) const;
    void StartFrom(WindowTarn& window, const Measure* from);
    void End();
    void Idle();

    MainFrame& _frame;
    FluidSynth _synth;
    PlayReport _report;  // before the play that tells it
    PlayFollower _follower{_report.cursor};
    TaskPlay _task;
    MidiThru _thru;
    QTimer _idle;
    PlayLimits _limits;
    int _tempo = 100;
    WindowTarn* _window = nullptr;  // whose score plays
};

}  // namespace corvane
