// The busy cursor, for as long as this object lives.
#pragma once

#include <QApplication>

namespace ecg {

class BusyCursor {
public:
    BusyCursor() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    BusyCursor(const BusyCursor&) = delete;
    BusyCursor& operator=(const BusyCursor&) = delete;
    ~BusyCursor() { QApplication::restoreOverrideCursor(); }
};

}  // namespace ecg
