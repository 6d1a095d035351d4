// How a sound event becomes a message, and how the mixer's values reach the clock's thread.
#pragma once

#include "model/EventRecords.h"

namespace corvane {

class SoundPort;

// Sends an event with its voice's port, channel, volume and transposition, if its staff is heard. Any thread;
// the values are read as LoadShared does.
void Play(const SoundEvent* event, SoundPort& port, bool documentHasSolo);

// A field that the main thread may change while the clock's thread reads it. Both sides in one access of its
// width.
template <class T>
T LoadShared(const Stored<T>& field) {
    typedef T __attribute__((may_alias)) Shared;
    return __atomic_load_n(reinterpret_cast<const Shared*>(&field), __ATOMIC_RELAXED);
}
// Touches the field first. Main thread.
template <class T>
void StoreShared(Stored<T>& field, T value) {
    typedef T __attribute__((may_alias)) Shared;
    Touch(&field, sizeof field);
    __atomic_store_n(reinterpret_cast<Shared*>(&field), value, __ATOMIC_RELAXED);
}

}  // namespace corvane
