#include "shell/PlayControl.h"

#include "edit/MeasureRange.h"
#include "model/Par.h"
#include "platform/rtmidi/RtMidiPort.h"
#include "platform/timer/TimerClock.h"
#include "play/PlayPreferences.h"
#include "shell/MainFrame.h"
#include "shell/PlayDock.h"
#include "shell/ScoreTabs.h"

namespace corvane {
namespace {

constexpr int kIdleMilliseconds = 20;

std::unique_ptr<SoundClock> MakeClock(int resolution, int unit, ClockDealer* out) {
    return std::make_unique<TimerClock>(resolution, unit, out);
}

}  // namespace

PlayControl::PlayControl(MainFrame& frame) : _frame(frame) {
    SoundPort::SetFactory([this] { return std::make_unique<RtMidiPort>(&_synth); });
    _idle.setInterval(kIdleMilliseconds);
    QObject::connect(&_idle, &QTimer::timeout, [this] { Idle(); });
}

PlayControl::~PlayControl() {
    _idle.stop();
    _task.Stop();
    _thru.TurnOff();
    SoundPort::Close();
    SoundPort::SetFactory(nullptr);
}

const Measure* PlayControl::StartMeasure(WindowTarn& window) const {
    if (_limits.on)
        if (const Measure* first = MeasureOfNumber(window, _limits.firstMeasure)) return first;
    return PlayStart(window);
}

void PlayControl::Start(WindowTarn& window) {
    if (!IsOn() && window.GetDocument()) StartFrom(window, StartMeasure(window));
}

void PlayControl::StartFrom(WindowTarn& window, const Measure* from) {
    const SessionPreferences& preferences = _frame.TheSession().Preferences();
    PlaySetup setup = PlaySetupOf(preferences);
    setup.resolution = ResolutionOfSlider(_tempo);
    setup.listener = &_report;
    _report.Begin(_limits);
    ScoreView* view = _frame.Tabs().ViewOf(window);
    const Measure* first = from ? from : FirstMeasure(window.GetDocument());
    if (view && first && corvane::IsOn(preferences, SessionWord::PageTurn))
        _follower.Begin(window, *view, first,
                        static_cast<PlayCursor::Step>(GetWord(preferences, SessionWord::CursorStep)));
    if (!_task.Init(window.GetDocument(), MakeClock, setup) || !_task.Start(from)) {
        _follower.End();
        return window.Shell().Tell("There is nothing to play.");
    }
    _window = &window;
    _idle.start();
    _frame.RefreshActions();
}

void PlayControl::End() {
    _idle.stop();
    _follower.End();
    _window = nullptr;
    _frame.RefreshActions();
}

void PlayControl::Stop() {
    if (!IsOn()) return;
    _task.Stop();
    End();
}

void PlayControl::Toggle(WindowTarn& window) { IsOn() ? Stop() : Start(window); }

void PlayControl::Seek(int number) {
    WindowTarn* window = _window;
    const Measure* measure = window ? MeasureOfNumber(*window, number) : nullptr;
    if (!measure) return;
    Stop();
    StartFrom(*window, measure);
}

void PlayControl::Panic() {
    Stop();
    if (SoundPort* port = SoundPort::Instance()) port->Panic();
}

void PlayControl::RefreshThru() {
    const WindowTarn* window = _frame.CurrentScore();
    const Status status =
        _thru.Refresh(_frame.TheSession().Preferences(), window ? window->GetDocument() : nullptr);
    if (!status) _frame.Tell(status.message());
}

void PlayControl::Leave(const WindowTarn& window) {
    if (_window == &window) Stop();
}

void PlayControl::SetTempo(int place) {
    _tempo = place;
    if (TarnPlay* play = _task.Play()) play->SetResolution(ResolutionOfSlider(place));
}

// A message box waits in a loop of its own, from which this is called again: polling comes last.
void PlayControl::Idle() {
    _follower.Update();
    if (_task.StopIfOver()) End();
    _frame.PlayPalette().ShowCounter(_report);
    SoundPort::PollError();
    SoundPort::PollSilence();
}

}  // namespace corvane
