#include "platform/files/StateFolder.h"

#include <sys/stat.h>

#include <cstdlib>

namespace corvane {
namespace {

std::string Environment(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

std::string Name() {
    if (std::string own = Environment("CORVANE_STATE_DIR"); !own.empty()) return own;
    // A relative one is to be ignored.
    if (const std::string xdg = Environment("XDG_STATE_HOME"); xdg.starts_with('/')) return xdg + "/corvane";
    return Environment("HOME") + "/.local/state/corvane";
}

}  // namespace

std::string StateFolder() {
    const std::string name = Name();
    for (size_t slash = 0; slash != std::string::npos;) {
        slash = name.find('/', slash + 1);
        mkdir(name.substr(0, slash).c_str(), S_IRWXU);
    }
    return name;
}

}  // namespace corvane
