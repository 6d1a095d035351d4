#include "platform/files/StateFolder.h"

#include <cstdlib>

namespace corvane {
namespace {

std::string Environment(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

}  // namespace

std::string StateFolder() {
    if (std::string own = Environment("CORVANE_STATE_DIR"); !own.empty()) return own;
    // A relative one is to be ignored.
    if (const std::string xdg = Environment("XDG_STATE_HOME"); xdg.starts_with('/')) return xdg + "/corvane";
    return Environment("HOME") + "/.local/state/corvane";
}

}  // namespace corvane
