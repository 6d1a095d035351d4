#include "shell/UiMap.h"

#include <QApplication>
#include <QDateTime>
#include <QEvent>
#include <QSaveFile>

#include "shell/MainFrame.h"
#include "shell/ScoreView.h"

namespace corvane {
namespace {

constexpr int kMilliseconds = 50;

QString MapPath() { return qEnvironmentVariable("CORVANE_UI_MAP"); }

}  // namespace

UiMap::UiMap(MainFrame& frame) : _frame(frame) {
    if (MapPath().isEmpty()) return;
    qApp->installEventFilter(this);
    connect(&_timer, &QTimer::timeout, this, [this] { Write(); });
    _timer.start(kMilliseconds);
}

bool UiMap::eventFilter(QObject* watched, QEvent* event) {
    const ScoreView* view = _frame.CurrentView();
    if (event->type() == QEvent::Paint && view && watched == view->viewport()) {
        qApp->removeEventFilter(this);
        QTimer::singleShot(0, this, [this] { _painted = QDateTime::currentMSecsSinceEpoch(); });
    }
    return false;
}

QByteArray UiMap::Text() const {
    QByteArray text;
    const auto line = [&text](const QString& words) { text += words.toUtf8() + "\n"; };
    if (_painted) line(QString("painted %1").arg(_painted));
    line("title " + _frame.windowTitle());
    if (ScoreView* view = _frame.CurrentView()) {
        const QPoint corner = view->PageCornerOnScreen();
        line(QString("view %1 %2 %3")
                 .arg(corner.x())
                 .arg(corner.y())
                 .arg(view->Scale().PixelsPerUnit(), 0, 'g', 17));
        if (const Page* page = view->Window().CurrentPage()) line(QString("page %1").arg(page->_pageNumber));
        if (const auto& mark = view->PlayMark()) line(QString("cursor %1 %2").arg(mark->x).arg(mark->top));
    }
    if (_frame.Player().IsOn())
        line(QString("play %1 %2").arg(_frame.Player().Report().measure).arg(_frame.Player().Report().beat));
    for (const QWidget* widget : _frame.findChildren<QWidget*>()) {
        if (widget->objectName().isEmpty() || widget->objectName().startsWith("qt_") || !widget->isVisible())
            continue;
        const double ratio = widget->devicePixelRatioF();
        const QPoint corner = widget->mapToGlobal(QPoint(0, 0)) * ratio;
        const QSize size = widget->size() * ratio;
        line(QString("widget %1 %2 %3 %4 ")
                 .arg(corner.x())
                 .arg(corner.y())
                 .arg(size.width())
                 .arg(size.height()) +
             widget->objectName());
    }
    return text;
}

void UiMap::Write() {
    const QByteArray text = Text();
    QSaveFile file(MapPath());
    if (text == _written || !file.open(QIODevice::WriteOnly)) return;
    file.write(text);
    if (file.commit()) _written = text;
}

}  // namespace corvane
