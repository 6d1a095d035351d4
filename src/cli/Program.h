// What every subcommand works with: the files, the settings, the session, the exporter.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "graphics/GraphicPort.h"
#include "platform/files/FileSettings.h"
#include "platform/files/PosixFiles.h"
#include "session/Session.h"

namespace corvane {

inline constexpr const char* kVersion = "0.1.0";
inline constexpr int kDone = 0, kRefused = 1, kUsage = 2;

// A session without a window. Neither reads nor writes the person's settings: a command line does the same
// for everybody.
class HeadlessProgram {
public:
    HeadlessProgram();
    Session& TheSession() { return *_session; }
    // Null, with one line on stderr, for a file that cannot be opened.
    WindowTarn* OpenOrTell(const std::string& path);
    // The same for a MIDI file.
    WindowTarn* ImportOrTell(const std::string& path, const ImportOptions& options);

private:
    PosixFiles _files;
    std::unique_ptr<Session> _session;
};

// One line on stderr for a failure, with the file that it is about; the program's exit code.
int Outcome(const Status& status, const std::string& about = {});
int Refuse(const std::string& line);
// The same for words on the command line that make no sense.
int Misuse(const std::string& line);

// The subcommands; each answers the exit code.
struct NewOptions {
    std::string out, staves = "D";
    int measures = 5, systems = 3;
};
struct ConvertOptions {
    std::vector<std::string> files;  // one to read and one to write, or with `outDir` all to read
    std::string outDir, to;
    int jobs = 0;  // 0: as many as there are cores
    int page = 0, zoom = GraphicPort::kTrueSizeZoom;
    ImportOptions import;
};
struct PlayOptions {
    std::string file;
    bool dry = false, texts = false, click = false;
    int from = 1, countOff = 0;
};
int RunNew(const NewOptions& options);
int RunConvert(const ConvertOptions& options);
// Many files into a folder, each by a process of its own.
int RunBatch(const ConvertOptions& options);
int RunInfo(const std::string& file, bool json);
int RunCheck(const std::string& file);
int RunPlay(const PlayOptions& options);
int RunDevices();
int RunSymbols(const std::string& out, int zoom);
int RunScript(const std::string& file);
// The window; returns when it is closed.
int RunEditor(const std::vector<std::string>& files, int argc, char** argv);

}  // namespace corvane
