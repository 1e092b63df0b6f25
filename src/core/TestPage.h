// The test page: one sample of the grid for each depth that can be chosen, so that the user picks by eye the depths
// that suit printer and paper.
#pragma once

#include "core/formats/SysInfo.h"
#include "platform/Printer.h"

#include <string_view>

namespace ecg {

enum class PrintOutcome { Printed, NoPrinter, Failed };

// Draws the page (millimetres) in the colour mode and language of `settings`: the black-and-white depths 0 to 7, or the
// colour depths 0 to 3 in each of the three hues.
void DrawTestPage(Surface& page, const SysInfo& settings, std::string_view printerName);

// Prints it with the quality and direction of `settings`.
PrintOutcome PrintTestPage(Printer& printer, const SysInfo& settings);

}  // namespace ecg
