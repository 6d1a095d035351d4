#include "shell/Notices.h"

#include <QApplication>
#include <QMessageBox>
#include <QStringList>
#include <QThread>
#include <utility>

#include "base/Notify.h"

namespace corvane {
namespace {

constexpr const char* kTitle = "Corvane";

QWidget* frameInUse = nullptr;
std::function<void(std::string_view)> tellInUse;
QStringList waiting;
bool isShown = false;

QString ToQt(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

// The score may be in disorder: nothing is painted any more but the box.
void ShowLastMessage(std::string_view text) {
    if (!qApp || QThread::currentThread() != qApp->thread()) return;
    for (QWidget* window : QApplication::topLevelWidgets()) window->hide();
    QMessageBox box(QMessageBox::Critical, kTitle, ToQt(text).trimmed());
    box.setInformativeText("Corvane has to close. What was not saved will be offered when it starts again.");
    box.exec();
}

void Sink(Severity severity, std::string_view text) {
    switch (severity) {
        case Severity::Status:
            return tellInUse(text);
        case Severity::Fatal:
            return ShowLastMessage(text);
        case Severity::Message:
            break;
    }
    if (isShown)
        ShowMessage(frameInUse, text);
    else
        waiting.append(ToQt(text));
}

}  // namespace

void ShowMessage(QWidget* parent, std::string_view text, std::string_view about) {
    QMessageBox box(QMessageBox::Warning, kTitle, ToQt(text), QMessageBox::Ok, parent);
    box.setInformativeText(ToQt(about));
    box.setStyleSheet("QLabel#qt_msgbox_informativelabel { min-width: 320px; }");
    const bool busy = QApplication::overrideCursor();
    if (busy) QApplication::setOverrideCursor(Qt::ArrowCursor);
    box.exec();
    if (busy) QApplication::restoreOverrideCursor();
}

Notices::Notices(QWidget& frame, std::function<void(std::string_view)> tell) {
    frameInUse = &frame;
    tellInUse = std::move(tell);
    SetNotifySink(Sink);
}

Notices::~Notices() {
    SetNotifySink(nullptr);
    frameInUse = nullptr;
    isShown = false;
}

void Notices::FrameIsShown() {
    isShown = true;
    const QStringList texts = std::exchange(waiting, {});
    for (const QString& text : texts) ShowMessage(frameInUse, text.toStdString());
}

}  // namespace corvane
