// Plays a score by walking its measures: each clock callback fires the time elements that are due, and beside
// them a click. Ticks are the clock's units of 4 ms; a quarter at 60 lasts 240 of them.
//
// Main thread makes, starts and destroys; `Tick` comes on the clock's thread, allocates nothing, locks
// nothing and only reads the score, which nobody may edit meanwhile. Destroy the clock first.
#pragma once

#include <atomic>
#include <cstdint>

#include "play/MeasureClock.h"
#include "play/PlaySetup.h"
#include "play/PlayWalk.h"
#include "play/Simultaneity.h"

namespace corvane {

class SoundPort;

inline constexpr int kLeadTicks = 120;  // from the press of play to the first beat

// Ticks of a quarter for the tempo slider's place, 0 (ten times slower) to 200 (ten times faster).
int ResolutionOfSlider(int place);

// What passes between the walker and the main thread's idle tick.
struct PlayFlags {
    std::atomic<bool> playing{false};       // play is wanted; cleared to ask for a stop, and at the end
    std::atomic<bool> clockRunning{false};  // the clock calls the walker
    std::atomic<bool> stop{false};          // the walker has come to its end
    std::atomic<bool> recording{false};
};
PlayFlags& ThePlayFlags();
// A score plays in this program: no edit may run.
bool IsPlaying();

class TarnPlay {
public:
    // Whoever plays beside the program's own play, such as an export, has flags of its own.
    explicit TarnPlay(PlayFlags& flags = ThePlayFlags()) : _flags(flags) {}

    // Sends programs and volumes. The port must outlive the walker.
    void Init(const Document* document, SoundPort* port, const PlaySetup& setup = {});
    // From a measure on, null for the first; `time` is the clock's. False, with the play flag cleared, where
    // no element is to come and nothing is recorded.
    bool Start(int32_t time, const Measure* from = nullptr);
    void Tick(int32_t time);

    // `Tick` may be called.
    bool IsReady() const { return _ready; }
    // From the next tick on. Any thread.
    void SetResolution(int ticks) { _askedResolution = ticks; }
    // Reads the tempo in force at the current measure anew, at the next tick. Any thread.
    void ApplyTempoAtCursor() { _askedTempo = true; }

private:
    struct Pickup {
        bool has = false, pending = false;
        const Measure* measure = nullptr;
        double beat = 0, correction = 0;
        int32_t offset = 0;
    };

    void SendPrograms();
    void FireDue();
    void Fire(const TimeElement* element);
    void PlayEvents(const MarkUp* markUp, const TimeElement* element);
    const TimeElement* NextElement(const TimeElement* element);
    const TimeElement* FirstElementFromHere();
    bool EnterNext();
    void EnterEvents(const Measure* measure);
    double DueTime(const TimeElement* element) const;
    void EndOfScore();

    void ApplyTempo(const Tempo* tempo);
    const Measure* NextMeasureOf(Lane& lane);
    void TakeRequests();
    void ChangeResolution(int ticks);

    void SetUpClick(const Measure* from);
    void SetUpCountOff(const Measure* from);
    void ClickAction();
    void SendClick();
    void TellClick();
    void HoldToLimits();
    int32_t NextClickTime();
    void LeaveClickMeasure();
    bool CountOffIsOver() const { return _countOffBeats < 1; }

    PlayFlags& _flags;
    const Document* _doc = nullptr;
    SoundPort* _port = nullptr;
    PlayListener* _listener = nullptr;
    ClickSettings _settings;
    RecordingLimits _limits;
    bool _followsTexts = false;
    bool _hasSolo = false;

    Lane _events, _click;
    int32_t _now = 0;  // clock value less the count-off
    const TimeElement* _currentEvent = nullptr;
    double _eventTime = 0;
    TimePlace _last;  // of the element that fired last
    Simultaneity _together;
    bool _tellsTempo = false;  // the first tempo of a play is not told

    bool _clickReady = false, _clickOnNext = false, _clickIsBeat = false;
    int32_t _clickNextTime = 0;
    int _clickBeatIndex = 0;
    int32_t _countOffBeats = 0, _countOffTicks = 0;
    int _countOffMeasures = 0;
    Pickup _pickup;
    bool _firstTick = false;
    int32_t _startTime = 0;

    std::atomic<bool> _ready{false};
    std::atomic<int> _askedResolution{0};  // 0 for none
    std::atomic<bool> _askedTempo{false};
};

}  // namespace corvane
