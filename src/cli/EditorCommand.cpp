// The window.
#include <QApplication>
#include <cstdlib>

#include "base/Notify.h"
#include "cli/Program.h"
#include "platform/files/PosixJournals.h"
#include "platform/files/StateFolder.h"
#include "platform/freetype/FontFiles.h"
#include "platform/freetype/FreeTypeMeasures.h"
#include "shell/EndSignals.h"
#include "shell/MainFrame.h"
#include "shell/UiMap.h"

namespace corvane {
namespace {

// Without any of these Qt would end the program with words of its own.
bool HasDisplay() {
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        if (const char* value = std::getenv(name); value && *value) return true;
    return false;
}

}  // namespace

int RunEditor(const std::vector<std::string>& files, int argc, char** argv) {
    if (!HasDisplay()) return Refuse("there is no display; \"corvane --help\" tells what works without one");
    QApplication application(argc, argv);
    QApplication::setApplicationName("corvane");
    QApplication::setApplicationDisplayName("Corvane");
    QApplication::setApplicationVersion(kVersion);
    QApplication::setDesktopFileName("corvane");
    InstallFreeTypeMeasures();
    PosixFiles layer;
    FileSettings settings(layer);
    PosixJournals journals(StateFolder() + "/journals");
    SessionParts parts;
    parts.files = &layer;
    parts.settings = &settings;
    parts.journals = &journals;
    parts.stateFolder = StateFolder();
    MainFrame frame(parts, settings);
    const EndSignals endSignals;
    if (const std::string missing = MissingMusicFont(); !missing.empty()) Notify(Severity::Message, missing);
    if (const std::string damaged = settings.TakeMessage(); !damaged.empty())
        Notify(Severity::Message, damaged);
    frame.Start(files);
    const UiMap map(frame);
    return QApplication::exec();
}

}  // namespace corvane
