// The files of the data folder that let the workstation run without an amplifier.
//
//   EcgTest.dat   two minutes of the twelve-lead system
//   VcgTest.dat   two minutes of the Frank leads, 1000 samples a second
//   Color.dat     the wave of the colour preview
//
// Each is laid out as a record file: a header, then 16-byte slots from slot 300 on. The first two end where they begin.
#pragma once

#include "core/formats/RecordSample.h"

#include <cstddef>
#include <filesystem>
#include <vector>

namespace ecg {

// A twelve-lead frame as the demonstration file holds it: the chest electrodes against the left foot instead of against
// the mean of the limbs, which the demo feed restores by adding (II + III) / 3 to each.
Frame ChestAgainstFoot(const Frame& wilson);

std::vector<std::byte> WilsonDemoFile();
std::vector<std::byte> FrankDemoFile();
std::vector<std::byte> PreviewFile();

// Writes the three files into `folder`, making it when needed. Returns the paths that could not be written: none when
// all is well.
std::vector<std::filesystem::path> WriteDemoFiles(const std::filesystem::path& folder);

}  // namespace ecg
