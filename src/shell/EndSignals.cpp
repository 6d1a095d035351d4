#include "shell/EndSignals.h"

#include <fcntl.h>
#include <unistd.h>

#include <QCoreApplication>
#include <csignal>

namespace corvane {
namespace {

constexpr int kSignals[] = {SIGTERM, SIGINT, SIGHUP};
int ends[2] = {-1, -1};  // of a pipe: a handler may do no more than write to it

void Note(int signal) {
    const auto byte = static_cast<char>(signal);
    [[maybe_unused]] const auto written = write(ends[1], &byte, 1);
}

}  // namespace

EndSignals::EndSignals() {
    if (pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0) return;
    _notifier = std::make_unique<QSocketNotifier>(ends[0], QSocketNotifier::Read);
    QObject::connect(_notifier.get(), &QSocketNotifier::activated, [] {
        char signal = SIGTERM;
        if (read(ends[0], &signal, 1) == 1) QCoreApplication::exit(128 + signal);
    });
    for (const int signal : kSignals) std::signal(signal, Note);
}

EndSignals::~EndSignals() {
    if (!_notifier) return;
    for (const int signal : kSignals) std::signal(signal, SIG_DFL);
    _notifier.reset();
    for (int& end : ends) close(end), end = -1;
}

}  // namespace corvane
