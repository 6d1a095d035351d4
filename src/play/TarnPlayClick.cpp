#include <utility>

#include "base/Rounding.h"
#include "model/Par.h"
#include "play/InputRing.h"
#include "play/SoundPort.h"
#include "play/TarnPlay.h"

namespace corvane {
namespace {

constexpr int kClickProgram = 2;

bool HasPickupFlag(const Measure* measure) {
    for (const MeasureStaff* crossing : measureStaffs.Of(measure))
        for (const StaffMeasureSymbol* symbol : staffSymbols.Of(crossing))
            if (const auto* signature = As<TimeSignature>(symbol); signature && signature->_pickup)
                return true;
    return false;
}

bool IsMidiByte(int value) { return value >= 0 && value <= 127; }

}  // namespace

void TarnPlay::SetUpClick(const Measure* from) {
    _clickReady = false;
    const Measure* behind = NextMeasure(from);
    _pickup = Pickup();
    _pickup.has = HasPickupFlag(from) && behind && (from->_num != behind->_num || from->_den != behind->_den);
    const bool counted = _pickup.has && _settings.on;
    // The count-off takes the meter of the first full measure.
    const Measure* metered = counted ? behind : from;
    if (counted) _pickup.measure = from;
    if (const Tempo* tempo = TempoInForce(metered)) ApplyTempo(tempo);
    _clickBeatIndex = 0;
    _click.Enter(metered);
    SetUpCountOff(from);
    // The lane stands on the pickup measure with the meter of the full one.
    if (counted) _click.measure = from;
    _pickup.pending = true;
    _clickReady = true;
}

void TarnPlay::SetUpCountOff(const Measure* from) {
    _countOffMeasures = _settings.on ? _settings.countOffMeasures : 0;
    _countOffBeats = _countOffTicks = 0;
    if (_flags.recording) TheInputFlags().countOffTicks = 0;
    if (_countOffMeasures < 1 || _settings.port == SoundPort::kNone) {
        _countOffMeasures = 0;
        return;
    }
    const double num = _click.num, den = _click.den;
    const PlayedMeter own = PlayedMeterOf(from);
    const double ownNum = own.num, ownDen = own.den;
    _countOffBeats = Truncate(num * _countOffMeasures + num - ownNum * (den / ownDen));
    const double q = _click.TicksOfBeat();
    _pickup.beat = _pickup.has ? q : 0;
    _countOffTicks = Truncate(_countOffBeats * q);
    _clickNextTime -= _countOffTicks;
    if (_flags.recording) TheInputFlags().countOffTicks = _countOffTicks;
    if (ownNum / ownDen < 1 / den) _pickup.offset = Truncate(q * (1 / den - ownNum / ownDen) / (1 / den));
}

void TarnPlay::ClickAction() {
    if (_click.measure)
        SendClick();
    else
        _flags.recording = false;
    if (_flags.recording) HoldToLimits();
    if (_listener) _listener->Click(_click.measure, _clickBeatIndex, _clickOnNext);
    TellClick();
    _clickNextTime = NextClickTime();
}

// The keyboard is heard between the limits; behind the last beat the take is over.
void TarnPlay::HoldToLimits() {
    if (!CountOffIsOver() || !_clickOnNext || !_click.measure || _click.measure == _pickup.measure) return;
    const auto place = [](const Measure* measure, int beat) {
        return std::pair<int, int>(measure->_number, beat);
    };
    const auto here = place(_click.measure, _clickBeatIndex + 1);
    if (_limits.last && here > place(_limits.last, _limits.lastBeat)) {
        TheInputFlags().running = false;
        _flags.recording = false;
    } else if (!_limits.first || here >= place(_limits.first, _limits.firstBeat)) {
        TheInputFlags().running = true;
    }
}

void TarnPlay::SendClick() {
    _port->SetInstrument(_settings.port, _settings.channel, kClickProgram);
    int pitch = _settings.beatPitch, velocity = 0;
    const bool silent = !_settings.on || (CountOffIsOver() && _settings.muteAfterCountOff);
    if (!silent) {
        pitch = _clickIsBeat ? _settings.beatPitch : _settings.barPitch;
        velocity = _clickIsBeat ? _settings.beatVolume : _settings.barVolume;
    }
    if (!_clickIsBeat && _listener) _listener->NewBar();
    if (!_clickOnNext) velocity = 0;
    _port->SendNote(_settings.port, _settings.channel, pitch, IsMidiByte(velocity) ? velocity : 127);
}

void TarnPlay::TellClick() {
    if (!_listener || !_click.measure || _click.measure == _pickup.measure) return;
    if (_countOffBeats < 0 && _clickOnNext) _listener->MoveCursor(_click.measure, _clickBeatIndex);
    if (CountOffIsOver()) _listener->Counter(_click.measure, _clickBeatIndex + 1);
}

int32_t TarnPlay::NextClickTime() {
    const int sixtieths = _clickIsBeat ? _settings.beatDuration : _settings.barDuration;
    const int32_t ticks = sixtieths * kNormalResolution / 60;
    int32_t result = 0;
    if (_clickOnNext) {
        result = _clickNextTime + ticks;
        _clickOnNext = false;
    } else {
        const double q = _click.TicksOfBeat();
        if (_clickBeatIndex == 0 && CountOffIsOver())
            result = Truncate(_click.start + q - _pickup.correction);
        else
            result = Truncate(_clickNextTime + q - ticks);
        _clickOnNext = true;
        if (_clickBeatIndex == _click.num - 1) {
            LeaveClickMeasure();
        } else {
            ++_clickBeatIndex;
            _clickIsBeat = true;
        }
        --_countOffBeats;
    }
    if (!_click.measure)
        if (const Measure* next = NextMeasureOf(_click)) _click.Enter(next);
    return result;
}

void TarnPlay::LeaveClickMeasure() {
    if (CountOffIsOver()) {
        if (_click.measure) _click.order.NoteStartRepeat(_click.measure);
        _click.measure = NextMeasureOf(_click);
        if (_click.measure) {
            _click.order.NoteStartRepeat(_click.measure);
            _click.Enter(_click.measure);
        }
        if (_pickup.pending && _pickup.has && _settings.on) {
            _pickup.correction = (_click.start - _clickNextTime) - _pickup.beat;
            _pickup.pending = false;
        }
    } else {
        --_countOffMeasures;
    }
    _clickBeatIndex = 0;
    _clickIsBeat = false;
}

}  // namespace corvane
