// The window in front.
#pragma once

#include <QPointer>
#include <QWidget>

namespace ecg {

// Called when a window closes: not every window system gives the front back to the one behind, and the trace waits for it.
inline void GiveFrontTo(const QPointer<QWidget>& behind)
{
    if (behind)
        behind->activateWindow();
}

}  // namespace ecg
