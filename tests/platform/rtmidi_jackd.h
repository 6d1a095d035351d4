// A JACK server of the test's own, on the dummy driver: a real MIDI system without hardware.
#pragma once

#include <fcntl.h>
#include <signal.h>
#include <sys/file.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
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

// A server that is killed keeps one of the eight places that the library has for servers, until one of the
// same name comes: so the tests share some names, each held by one process at a time.
class JackName {
public:
    JackName() {
        for (int i = 0; i < 4 && _lock < 0; ++i) {
            _name = "corvane-test-" + std::to_string(i);
            const auto path = std::filesystem::temp_directory_path() / (_name + ".lock");
            _lock = open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
            if (_lock < 0 || flock(_lock, LOCK_EX | LOCK_NB) == 0) continue;
            close(_lock);
            _lock = -1;
        }
    }
    ~JackName() {
        if (_lock >= 0) close(_lock);
    }
    JackName(const JackName&) = delete;
    JackName& operator=(const JackName&) = delete;
    const char* Text() const { return _name.c_str(); }

private:
    int _lock = -1;
    std::string _name;
};

// Where no server lives, what dead ones have left takes up all their places.
inline void ForgetDeadServers() {
    std::error_code error;
    for (const auto& process : std::filesystem::directory_iterator("/proc", error)) {
        std::string name;
        std::getline(std::ifstream(process.path() / "comm"), name);
        if (name == "jackd" || name == "jackdbus") return;
    }
    std::filesystem::remove("/dev/shm/jack-shm-registry", error);
}

class TestJackd {
public:
    TestJackd() {
        if (!kJackCanBeUsed) return;
        setenv("JACK_DEFAULT_SERVER", _name.Text(), 1);
        KeepJackQuiet();
        Start();
        if (_runs) return;
        ForgetDeadServers();
        Start();
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
        _process = fork();
        if (_process == 0) {
            prctl(PR_SET_PDEATHSIG, SIGTERM);  // a test that crashes leaves no server behind
            if (!freopen("/dev/null", "w", stdout) || !freopen("/dev/null", "w", stderr)) _exit(126);
            // Waiting for its clients in each period, it loses nothing on a machine that has other work.
            execlp("jackd", "jackd", "--no-realtime", "--sync", "--timeout", "2000", "--name", _name.Text(),
                   "-d", "dummy", "-r", "48000", "-p", "1024", static_cast<char*>(nullptr));
            _exit(127);
        }
        for (int i = 0; i < 400 && !_runs && _process > 0; ++i) {
            std::this_thread::sleep_for(std::chrono::milliseconds(50));
            if (waitpid(_process, nullptr, WNOHANG) != 0)
                _process = -1;
            else
                _runs = JackServerRuns();
        }
    }

    const JackName _name;
    pid_t _process = -1;
    bool _runs = false;
};

}  // namespace corvane
