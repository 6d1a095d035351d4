#include "platform/jack/JackServer.h"

#include <dlfcn.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <initializer_list>

namespace corvane {
namespace {

// The few functions needed, looked up at run time: a machine without the library simply has no server.
void* Library() {
    static void* library = dlopen("libjack.so.0", RTLD_NOW | RTLD_LOCAL);
    return library;
}

template <class Function>
Function Find(const char* name) {
    return Library() ? reinterpret_cast<Function>(dlsym(Library(), name)) : nullptr;
}

std::atomic<int> goneButWatched{0};

void* Join(const char* name) {
    constexpr int kNoStartServer = 1;
    const auto open = Find<void* (*)(const char*, int, int*, ...)>("jack_client_open");
    int status = 0;
    return open ? open(name, kNoStartServer, &status) : nullptr;
}

void Leave(void* client) {
    if (const auto close = Find<int (*)(void*)>("jack_client_close")) close(client);
}

void SayNothing(const char*) {}

void HushLibrary() {
    setenv("JACK_NO_START_SERVER", "1", 1);
    using Setter = void (*)(void (*)(const char*));
    for (const char* name : {"jack_set_error_function", "jack_set_info_function"})
        if (const auto set = Find<Setter>(name)) set(SayNothing);
}

}  // namespace

void KeepJackQuiet() {
    static const bool done = (HushLibrary(), true);
    static_cast<void>(done);
}

int JackPeriod() {
    KeepJackQuiet();
    const auto frames = Find<uint32_t (*)(void*)>("jack_get_buffer_size");
    const auto rate = Find<uint32_t (*)(void*)>("jack_get_sample_rate");
    // To join in vain would take the library from under those who still hold on to a server that has gone.
    if (goneButWatched > 0) return 0;
    void* client = frames && rate ? Join("corvane-look") : nullptr;
    if (!client) return 0;
    const int period = static_cast<int>(frames(client) * uint64_t{1000} / std::max(rate(client), 1u)) + 1;
    Leave(client);
    return period;
}

JackWatch::JackWatch() {
    KeepJackQuiet();
    _client = Join("corvane-watch");
    const auto callWhenGone = Find<void (*)(void*, void (*)(void*), void*)>("jack_on_shutdown");
    const auto activate = Find<int (*)(void*)>("jack_activate");
    if (!_client || !callWhenGone || !activate) return;
    _gone = false;
    callWhenGone(
        _client, [](void* watch) { static_cast<JackWatch*>(watch)->NoteGone(); }, this);
    if (activate(_client) != 0) NoteGone();
}

void JackWatch::NoteGone() {
    if (!_gone.exchange(true)) ++goneButWatched;
}

JackWatch::~JackWatch() {
    if (!_client) return;
    Leave(_client);
    if (_gone) --goneButWatched;
}

}  // namespace corvane
