#include "base/Notify.h"

#include <cstdio>

namespace corvane {
namespace {

void PrintMessage(Severity severity, std::string_view text) {
    if (severity != Severity::Message) return;
    std::fprintf(stderr, "corvane: %.*s\n", static_cast<int>(text.size()), text.data());
}

NotifySink sinkInUse = PrintMessage;

}  // namespace

void SetNotifySink(NotifySink sink) { sinkInUse = sink ? sink : PrintMessage; }

void Notify(Severity severity, std::string_view text) { sinkInUse(severity, text); }

}  // namespace corvane
