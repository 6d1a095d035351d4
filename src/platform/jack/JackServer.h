// Whether a JACK server is there to be joined. Libraries that use one print on stderr, or start one, where
// none runs.
#pragma once

#include <atomic>

namespace corvane {

// From now on no library of this process starts a JACK server or prints JACK's own messages. Main thread,
// before other threads run, since the environment changes.
void KeepJackQuiet();

// The period, in milliseconds and rounded up, of the server that runs and takes clients; 0 where none does,
// and as long as a JackWatch stays with one that is gone. Joins and leaves it to find out: some milliseconds
// where one runs, far less else.
int JackPeriod();
inline bool JackServerRuns() { return JackPeriod() > 0; }

// Stays with the server that runs now, to notice when it ends: libraries wait for ever for a server that is
// gone. Whoever is a client of the server by a library holds one, and lets it go after that.
class JackWatch {
public:
    JackWatch();
    ~JackWatch();
    JackWatch(const JackWatch&) = delete;
    JackWatch& operator=(const JackWatch&) = delete;

    // Also if there was none. Any thread.
    bool ServerIsGone() const { return _gone.load(std::memory_order_relaxed); }

private:
    void NoteGone();

    void* _client;
    std::atomic<bool> _gone{true};
};

}  // namespace corvane
