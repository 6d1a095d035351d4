#include "platform/qt/HeadlessQt.h"

#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QGuiApplication>

namespace corvane {
namespace {

// Qt wants a private folder and complains on stderr about a system that names none.
void NameRuntimeFolder() {
    if (qEnvironmentVariableIsSet("XDG_RUNTIME_DIR")) return;
    const QString folder = QDir::tempPath() + "/corvane-" + QString::number(getuid());
    QDir().mkpath(folder);
    if (QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner))
        qputenv("XDG_RUNTIME_DIR", folder.toLocal8Bit());
}

}  // namespace

void StartHeadlessQt() {
    if (QCoreApplication::instance()) return;
    NameRuntimeFolder();
    static char name[] = "corvane", option[] = "-platform", platform[] = "offscreen";
    static char* arguments[] = {name, option, platform, nullptr};
    static int count = 3;
    new QGuiApplication(count, arguments);  // lives to the program's end
}

}  // namespace corvane
