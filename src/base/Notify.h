// How any floor tells a person something: a box in the window, a line on stderr without one.
#pragma once

#include <string_view>

namespace corvane {

enum class Severity {
    Status,   // a word for the status line: why a press did nothing
    Message,  // a message box
    Fatal,    // the program is about to end; already printed on stderr
};

using NotifySink = void (*)(Severity, std::string_view text);

// Installs who tells the person; null restores the default, which prints messages on stderr. Main thread
// only.
void SetNotifySink(NotifySink sink);

// Tells the person; returns once they have been told. Main thread only, but for Fatal.
void Notify(Severity severity, std::string_view text);

}  // namespace corvane
