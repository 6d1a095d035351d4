// A JACK server of the test's own, on the dummy driver: a real MIDI system without hardware.
#pragma once

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <string>
#include <thread>

#include "platform/jack/JackServer.h"

namespace corvane {

class TestJackd {
public:
    TestJackd() : _name("corvane-test-" + std::to_string(getpid())) {
        setenv("JACK_DEFAULT_SERVER", _name.c_str(), 1);
        KeepJackQuiet();
        _process = fork();
        if (_process == 0) {
            if (!freopen("/dev/null", "w", stdout) || !freopen("/dev/null", "w", stderr)) _exit(126);
            execlp("jackd", "jackd", "--no-realtime", "--name", _name.c_str(), "-d", "dummy", "-r", "48000",
                   "-p", "1024", static_cast<char*>(nullptr));
            _exit(127);
        }
        for (int i = 0; i < 100 && !_runs && waitpid(_process, nullptr, WNOHANG) == 0; ++i) {
            std::this_thread::sleep_for(std::chrono::milliseconds(50));
            _runs = JackServerRuns();
        }
    }
    ~TestJackd() {
        if (_runs) {
            kill(_process, SIGTERM);
            waitpid(_process, nullptr, 0);
        }
        unsetenv("JACK_DEFAULT_SERVER");
    }
    TestJackd(const TestJackd&) = delete;
    TestJackd& operator=(const TestJackd&) = delete;

    bool Runs() const { return _runs; }

private:
    std::string _name;
    pid_t _process = -1;
    bool _runs = false;
};

}  // namespace corvane
