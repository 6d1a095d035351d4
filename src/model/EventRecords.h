// The timed events of a measure: the score plays by walking them. A place is a beat from 1 and a clock of 0 to 31999,
// 32000 to a beat.
#pragma once

#include "model/HierarchyRecords.h"
#include "model/Record.h"

namespace corvane {

inline constexpr int kClocksPerBeat = 32000;

// A place in the measure's list, ordered by beat and clock; at one place off, on, tempo. In the list exactly while
// _refCount is above 0.
struct TimeElement : BehaviourWord, Bot2T<TimeElement, 100, 3>, Gap<4, 12> {
    static constexpr bool IsHeir(int16_t n) { return n == 75 || n == 76 || n == 99; }
    Stored<int16_t> _beat, _clock, _refCount;
};
struct MarkUp : Top2T<MarkUp, 1001, 3> {};  // SoundEvents that fall here
struct TimeOn : TimeElement, MarkUp {
    static constexpr int16_t kClass = 75;
    static constexpr bool IsHeir(int16_t n) { return n == 75; }
};
struct TimeOff : TimeElement, MarkUp {
    static constexpr int16_t kClass = 76;
    static constexpr bool IsHeir(int16_t n) { return n == 76; }
};
struct Time;
struct Tempo : TimeElement {
    static constexpr int16_t kClass = 99;
    static constexpr bool IsHeir(int16_t n) { return n == 99; }
    Ptr<Time> _mark;              // may be null
    Stored<int16_t> _metronome;   // beats a minute held here when there is no mark; 0 when the mark holds it
};

// At one place a note that ends releases before one that starts, and a tempo holds from behind both.
constexpr int RankOf(int16_t classNumber) {
    return classNumber == TimeOff::kClass ? 0 : classNumber == TimeOn::kClass ? 1 : 2;
}

struct SoundEvent : BehaviourWord, Bot2T<SoundEvent, 1001, 3>, Bot2T<SoundEvent, 1002, 3>, Gap<4, 20> {
    static constexpr bool IsHeir(int16_t n) { return n == 77 || n == 78; }
    Ptr<VoiceRecord> _voiceRecord;  // inside _docStaff
    Ptr<DocStaff> _docStaff;
    Stored<int32_t> _height;        // MIDI key before the staff's transposition
};
struct NoteOff : SoundEvent {
    static constexpr int16_t kClass = 77;
    static constexpr bool IsHeir(int16_t n) { return n == 77; }
};
struct NoteOn : SoundEvent {
    static constexpr int16_t kClass = 78;
    static constexpr bool IsHeir(int16_t n) { return n == 78; }
    Stored<int16_t> _velocity;
};

}  // namespace corvane
