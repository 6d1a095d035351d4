// The system's wish that the program end (as at the end of a session) becomes a quiet end without questions:
// what is unsaved is kept for the next start.
#pragma once

#include <QSocketNotifier>
#include <memory>

namespace corvane {

// While this lives. Made after the application object.
class EndSignals {
public:
    EndSignals();
    ~EndSignals();
    EndSignals(const EndSignals&) = delete;

private:
    std::unique_ptr<QSocketNotifier> _notifier;
};

}  // namespace corvane
