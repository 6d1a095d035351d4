// For programs that drive the window as a person does: writes to a file where things are on the screen, so
// that they know where to press. Only where $CORVANE_UI_MAP names the file; nothing happens without it.
#pragma once

#include <QObject>
#include <QTimer>

namespace corvane {

class MainFrame;

// Lines of the file, which is replaced in one step whenever something has moved:
//     painted MILLISECONDS     when the first score had been painted, since 1970
//     title TEXT               of the window
//     view X Y SCALE           the page's corner on the screen in pixels, pixels to a page unit
//     page NUMBER              that is shown
//     play MEASURE BEAT        while a score plays: where it is
//     cursor X Y               the play cursor, page units, while it is shown
//     widget X Y W H NAME      each part of the window that has a name, in pixels
class UiMap : public QObject {
public:
    explicit UiMap(MainFrame& frame);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Write();
    QByteArray Text() const;

    MainFrame& _frame;
    QTimer _timer;
    QByteArray _written;
    qint64 _painted = 0;
};

}  // namespace corvane
