#include "cli/Program.h"

#include <cstdio>

#include "base/Notify.h"
#include "platform/freetype/FontFiles.h"
#include "platform/freetype/FreeTypeMeasures.h"

namespace corvane {

HeadlessProgram::HeadlessProgram() {
    InstallFreeTypeMeasures();
    if (const std::string missing = MissingMusicFont(); !missing.empty()) Notify(Severity::Message, missing);
    SessionParts parts;
    parts.files = &_files;
    _session = std::make_unique<Session>(parts);
}

WindowTarn* HeadlessProgram::OpenOrTell(const std::string& path) {
    Status status;
    std::vector<std::string> healed;
    WindowTarn* window = _session->Open(path, status, &healed);
    if (!window) Refuse(path + ": " + status.message());
    for (const std::string& line : healed)
        std::fprintf(stderr, "corvane: %s: mended: %s\n", path.c_str(), line.c_str());
    return window;
}

WindowTarn* HeadlessProgram::ImportOrTell(const std::string& path, const ImportOptions& options) {
    Status status;
    ImportProgress silent;
    WindowTarn* window = _session->Import(path, options, silent, status);
    if (!window) Refuse(path + ": " + status.message());
    return window;
}

int Refuse(const std::string& line) {
    std::fprintf(stderr, "corvane: %s\n", line.c_str());
    return kRefused;
}

int Misuse(const std::string& line) {
    Refuse(line);
    return kUsage;
}

int Outcome(const Status& status, const std::string& about) {
    if (status) return kDone;
    return Refuse(about.empty() ? status.message() : about + ": " + status.message());
}

}  // namespace corvane
