// The window in front.
#pragma once

#include <QWidget>

namespace ecg {

// Called when a window closes, with the one behind it or null: not every window system gives the front back by itself,
// and the trace waits for it.
inline void GiveFrontTo(QWidget* behind)
{
    if (behind != nullptr)
        behind->activateWindow();
}

}  // namespace ecg
