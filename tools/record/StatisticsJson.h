// What the statistics find, as JSON: QT dispersion, heart-rate variability, spectrum.
#pragma once

#include "analysis/AboutFile.h"
#include "analysis/BeatResult.h"

#include <string>

namespace ecg {

// The eight values of `QtStats`, of a beat that is delineated in twelve leads.
std::string QtStatsJson(BeatResult result);

// From `BlockStart` on, as if the view were on the screen. Overwrites rows of `EcgBlock`.
std::string HrvJson(AboutFile& file);

// The marks of the default leads, and the magnitudes of all. Overwrites `EcgBlock`.
std::string SpectrumJson(AboutFile& file, int heartRate);

}  // namespace ecg
