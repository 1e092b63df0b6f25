// How every tour begins and ends, and what it reads off the main window.
#pragma once

#include "app/Workstation.h"
#include "tour/TourDriver.h"

namespace ecg {

inline constexpr int SweepMs = 8600;  // of the trace at 25 mm/s and the design size

// Plays the doctor's name and the splash, and shows the main window.
void PlayStart(TourDriver& tour, Workstation& workstation);

// Presses the exit key.
void PlayExit(TourDriver& tour, Workstation& workstation);

// The rate that the window shows, or 0.
int ShownRate(TourDriver& tour, const QWidget& window);

// The trace as it stands on the screen.
QImage Trace(TourDriver& tour, const QWidget& window);

}  // namespace ecg
