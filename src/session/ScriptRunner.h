// Runs editing steps, one a line, through the functions that the window calls. '#' starts a comment.
#pragma once

#include <functional>
#include <iosfwd>
#include <string>

#include "base/Status.h"

namespace corvane {

class Session;
class WindowTarn;

// Writes a picture, a sound or a document of one page (from 1; 0 for all) by the path's extension.
using Exporter = std::function<Status(WindowTarn& window, const std::string& path, int page, int zoom)>;

class ScriptRunner {
public:
    // `out` gets what dump prints.
    ScriptRunner(Session& session, Exporter exporter, std::string& out);

    // Stops at the first refused line: the message begins with "line N: ".
    Status Run(const std::string& text);
    // One step.
    Status Step(const std::string& line);

private:
    Session& _session;
    Exporter _exporter;
    std::string& _out;
};

}  // namespace corvane
