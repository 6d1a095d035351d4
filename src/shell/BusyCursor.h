// While it lives the pointer tells that the program is at work.
#pragma once

#include <QApplication>

namespace corvane {

class BusyCursor {
public:
    BusyCursor() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~BusyCursor() { QApplication::restoreOverrideCursor(); }
    BusyCursor(const BusyCursor&) = delete;
};

}  // namespace corvane
