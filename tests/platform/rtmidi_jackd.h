// A JACK server of the test's own, on the dummy driver: a real MIDI system without hardware.
#pragma once

#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <string>
#include <thread>

#include "platform/jack/JackServer.h"

namespace corvane {

// JACK's library ends its threads in a way that the thread sanitizer takes for an error.
#ifdef __SANITIZE_THREAD__
inline constexpr bool kJackCanBeUsed = false;
#else
inline constexpr bool kJackCanBeUsed = true;
#endif

class TestJackd {
public:
    TestJackd() {
        if (kJackCanBeUsed) Start();
    }
    ~TestJackd() {
        Stop();
        unsetenv("JACK_DEFAULT_SERVER");
    }
    TestJackd(const TestJackd&) = delete;
    TestJackd& operator=(const TestJackd&) = delete;

    bool Runs() const { return _runs; }
    // As when it crashes or the person ends it.
    void Stop() {
        if (_process > 0 && kill(_process, SIGTERM) == 0) waitpid(_process, nullptr, 0);
        _process = -1;
        _runs = false;
    }

    const char* WhyNot() const {
        return kJackCanBeUsed ? "no JACK server could be started here" : "not under the thread sanitizer";
    }

private:
    void Start() {
        setenv("JACK_DEFAULT_SERVER", _name.c_str(), 1);
        KeepJackQuiet();
        _process = fork();
        if (_process == 0) {
            prctl(PR_SET_PDEATHSIG, SIGTERM);  // a test that crashes leaves no server behind
            if (!freopen("/dev/null", "w", stdout) || !freopen("/dev/null", "w", stderr)) _exit(126);
            execlp("jackd", "jackd", "--no-realtime", "--name", _name.c_str(), "-d", "dummy", "-r", "48000",
                   "-p", "1024", static_cast<char*>(nullptr));
            _exit(127);
        }
        for (int i = 0; i < 100 && !_runs && _process > 0; ++i) {
            std::this_thread::sleep_for(std::chrono::milliseconds(50));
            _runs = JackServerRuns();
            if (waitpid(_process, nullptr, WNOHANG) != 0) _process = -1;
        }
    }

    std::string _name = "corvane-test-" + std::to_string(getpid());
    pid_t _process = -1;
    bool _runs = false;
};

}  // namespace corvane
