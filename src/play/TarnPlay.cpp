#include "play/TarnPlay.h"

#include <cmath>

#include "base/Notify.h"
#include "base/Rounding.h"
#include "model/Par.h"
#include "play/SoundPort.h"
#include "play/TarnPlaySound.h"

namespace corvane {
namespace {


}  // namespace

int ResolutionOfSlider(int place) {
    return Truncate(std::pow(10.0, (100 - place) * 0.01) * kNormalResolution);
}

PlayFlags& ThePlayFlags() {
    static PlayFlags flags;
    return flags;
}

bool IsPlaying() { return ThePlayFlags().clockRunning; }

void TarnPlay::Init(const Document* document, SoundPort* port, const PlaySetup& setup) {
    _doc = document;
    _port = port;
    _settings = setup.click;
    _limits = setup.limits;
    _followsTexts = setup.followsTexts;
    _listener = setup.listener;
    _hasSolo = LoadShared(document->_hasSolo);
    _currentEvent = nullptr;
    _events = _click = Lane();
    _events.resolution = _click.resolution = setup.resolution;
    SendPrograms();
    if (_settings.on && _settings.port == SoundPort::kNone)
        Notify(Severity::Message,
               "Select a port for the click using the Record Setup dialog in the MIDI menu");
}

void TarnPlay::SendPrograms() {
    for (const DocStaff* staff : documentDocStaffs.Of(_doc))
        for (const VoiceRecord& voice : staff->_voices) {
            const int program = voice._program, channel = voice._channel;
            if (program < 1 || program > 128 || channel < 1 || channel > 16) continue;
            _port->SetInstrument(voice._port, channel, program);
            _port->SetVolume(voice._port, channel, SoundPort::kFullVolume);
        }
}

bool TarnPlay::Start(int32_t time, const Measure* from) {
    CORVANE_ASSERT(_doc);
    _firstTick = true;
    _startTime = 0;
    const Measure* first = FirstMeasure(_doc);
    if (!from) from = first;
    if (!from) return EndOfScore(), false;

    const Tempo* tempo = TempoInForce(from);
    const Measure* repeatStart = StartRepeatBefore(from);
    const RepetitionRoute route = _followsTexts ? RepetitionRoute(_doc) : RepetitionRoute();
    for (Lane* lane : {&_events, &_click}) {
        lane->Begin(time + kLeadTicks);
        lane->order.Begin(from, repeatStart ? repeatStart : first, route);
    }
    _now = time;
    _eventTime = time + kLeadTicks;
    _clickNextTime = Truncate(_eventTime);
    _tellsTempo = false;
    SetUpClick(from);
    _tellsTempo = true;
    _clickOnNext = true;
    _clickIsBeat = false;
    _events.measure = from;
    if (tempo) ApplyTempo(tempo);
    EnterEvents(from);
    _currentEvent = FirstElementFromHere();
    if (!_currentEvent && !_flags.recording) return EndOfScore(), false;
    if (_currentEvent) _eventTime = DueTime(_currentEvent);
    _ready = true;
    return true;
}

void TarnPlay::EndOfScore() {
    _currentEvent = nullptr;
    if (_flags.recording) return;
    _flags.playing = false;
    _flags.stop = true;
}

void TarnPlay::Tick(int32_t time) {
    if (_firstTick && CountOffIsOver()) {
        _startTime = time;
        _firstTick = false;
    }
    _now = time - _countOffTicks;
    if (!_doc) return;
    TakeRequests();
    if (_currentEvent && _now != _pickup.offset && _eventTime <= _now - _pickup.offset) FireDue();
    if (_now != 0 && _clickReady && _clickNextTime <= _now) ClickAction();
    if (_listener && CountOffIsOver()) _listener->Elapsed(time - _startTime);
}

void TarnPlay::FireDue() {
    const Measure* m = _events.measure;
    const TimeElement* candidate = _currentEvent;
    while (m && _events.measure && _together.Holds(m, _currentEvent, _events.measure, candidate)) {
        _currentEvent = candidate;
        Fire(_currentEvent);
        _last = TimePlaceOf(_currentEvent);
        candidate = NextElement(_currentEvent);
        if (!candidate) return EndOfScore();
    }
    _currentEvent = candidate;
    _eventTime = DueTime(_currentEvent);
}

void TarnPlay::Fire(const TimeElement* element) {
    if (const auto* tempo = As<Tempo>(element)) {
        if (!_together.IsOverrun()) ApplyTempo(tempo);
    } else if (const auto* on = As<TimeOn>(element)) {
        if (!_together.IsOverrun()) PlayEvents(on, element);
    } else {
        PlayEvents(As<TimeOff>(element), element);
    }
}

void TarnPlay::PlayEvents(const MarkUp* markUp, const TimeElement* element) {
    _hasSolo = LoadShared(_doc->_hasSolo);
    for (const SoundEvent* event : markUpEvents.Of(markUp)) Play(event, *_port, _hasSolo);
    if (_listener && CountOffIsOver()) _listener->Counter(_events.measure, element->_beat);
}

const TimeElement* TarnPlay::NextElement(const TimeElement* element) {
    if (const TimeElement* next = measureTimeElements.Next(element)) return next;
    return EnterNext() ? FirstElementFromHere() : nullptr;
}

// Measures without elements are passed in their time.
const TimeElement* TarnPlay::FirstElementFromHere() {
    do {
        if (const TimeElement* first = measureTimeElements.First(_events.measure)) return first;
    } while (EnterNext());
    return nullptr;
}

bool TarnPlay::EnterNext() {
    _events.order.NoteStartRepeat(_events.measure);
    const Measure* measure = NextMeasureOf(_events);
    if (!measure) return false;
    _events.order.NoteStartRepeat(measure);
    EnterEvents(measure);
    return true;
}

void TarnPlay::EnterEvents(const Measure* measure) {
    _events.Enter(measure);
    _eventTime = _events.start;
    _last = TimePlace();
    _together.Enter();
}

double TarnPlay::DueTime(const TimeElement* element) const {
    CORVANE_ASSERT_AS(_events.duration, "_measureDuration");
    CORVANE_ASSERT_AS(_events.num, "_num");
    int db = element->_beat - _last.beat, dc = element->_clock - _last.clock;
    if (dc < 0) {
        dc += kClocksPerBeat;
        --db;
    }
    const double ticks = _events.ticks;
    const double due =
        (ticks * db + ticks * dc * (1.0 / kClocksPerBeat)) / _events.num * _events.factor + _eventTime;
    const double end = _events.start + _events.duration;
    return end <= due ? end : due;
}

void TarnPlay::ApplyTempo(const Tempo* tempo) {
    const TempoValues values = ValuesOf(tempo);
    if (const double factor = FactorOf(values); factor > 0) _events.factor = _click.factor = factor;
    if (_tellsTempo && _listener && CountOffIsOver())
        _listener->TempoChanged(_events.measure, values.figure, values.bpm);
}

const Measure* TarnPlay::NextMeasureOf(Lane& lane) {
    bool jumped = false;
    const Measure* next = lane.order.Next(jumped);
    if (jumped)
        if (const Tempo* tempo = TempoInForce(next)) ApplyTempo(tempo);
    return next;
}

void TarnPlay::TakeRequests() {
    if (const int ticks = _askedResolution.exchange(0); ticks > 0) ChangeResolution(ticks);
    if (_askedTempo.exchange(false) && _events.measure)
        if (const Tempo* tempo = TempoInForce(_events.measure)) ApplyTempo(tempo);
}

// What is still to come keeps its distance in music.
void TarnPlay::ChangeResolution(int ticks) {
    const double scale = static_cast<double>(ticks) / _events.resolution;
    const double eventNow = _now - _pickup.offset;
    _eventTime = eventNow + (_eventTime - eventNow) * scale;
    _clickNextTime = Truncate(_now + (_clickNextTime - _now) * scale);
    _events.ChangeResolution(ticks, eventNow);
    _click.ChangeResolution(ticks, _now);
}

}  // namespace corvane
