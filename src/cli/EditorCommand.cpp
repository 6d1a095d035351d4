// The window.
#include <QApplication>
#include <cstdlib>

#include "base/Notify.h"
#include "cli/Program.h"
#include "platform/freetype/FontFiles.h"
#include "platform/freetype/FreeTypeMeasures.h"
#include "shell/MainFrame.h"
#include "shell/UiMap.h"

namespace corvane {
namespace {

// $XDG_STATE_HOME/corvane, else ~/.local/state/corvane.
std::string StateFolder() {
    if (const char* state = std::getenv("XDG_STATE_HOME"); state && *state == '/')
        return std::string(state) + "/corvane";
    const char* home = std::getenv("HOME");
    return std::string(home ? home : "") + "/.local/state/corvane";
}

}  // namespace

int RunEditor(const std::vector<std::string>& files, int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setApplicationName("corvane");
    QApplication::setApplicationDisplayName("Corvane");
    QApplication::setApplicationVersion(kVersion);
    QApplication::setDesktopFileName("corvane");
    InstallFreeTypeMeasures();
    PosixFiles layer;
    FileSettings settings(layer);
    MainFrame frame(layer, settings, StateFolder());
    if (const std::string missing = MissingMusicFont(); !missing.empty()) Notify(Severity::Message, missing);
    if (const std::string damaged = settings.TakeMessage(); !damaged.empty())
        Notify(Severity::Message, damaged);
    frame.Start(files);
    const UiMap map(frame);
    return QApplication::exec();
}

}  // namespace corvane
