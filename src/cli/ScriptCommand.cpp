#include <cstdio>
#include <fstream>
#include <iostream>
#include <iterator>

#include "cli/Program.h"
#include "session/ScriptRunner.h"
#include "shell/ScoreExport.h"

namespace corvane {

int RunScript(const std::string& file) {
    std::string text;
    if (file == "-") {
        text.assign(std::istreambuf_iterator<char>(std::cin), {});
    } else {
        PosixFiles files;
        std::vector<uint8_t> bytes;
        if (const Status status = files.Read(file, bytes); !status) return Outcome(status, file);
        text.assign(bytes.begin(), bytes.end());
    }
    HeadlessProgram program;
    std::string out;
    const auto exporter = [](WindowTarn& window, const std::string& path, int page, int zoom) {
        return ExportScore(window, {path, page, zoom});
    };
    ScriptRunner runner(program.TheSession(), exporter, out);
    const Status status = runner.Run(text);
    std::fwrite(out.data(), 1, out.size(), stdout);
    return Outcome(status);
}

}  // namespace corvane
