// The scenes of the live ECG.
#pragma once

#include "printing/PrintQueue.h"
#include "tour/TourDriver.h"

#include <filesystem>

namespace ecg {

// A workstation with an amplifier box in software: start, every speed and gain, leads, freeze, an electrode off and
// back, the box unplugged and back, a quick examination, the settings, exit. `program` is a program folder to work in.
void TourWithBox(TourDriver& tour, const std::filesystem::path& program);

// A workstation without a box: the demonstration, patients, records in review and on paper, all in both languages.
void TourWithoutBox(TourDriver& tour, const std::filesystem::path& program, PrintQueue& queue);

}  // namespace ecg
