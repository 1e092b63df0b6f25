// The words behind `ecg-record measure`.
#pragma once

#include "record/MeasureRecord.h"

#include <span>
#include <string>

namespace ecg {

// Understands RECORD [--start SLOT] [--beat K] [--all], options in any place; fails with what is wrong.
Outcome<MeasureOptions> ParseMeasure(std::span<const std::string> words);

}  // namespace ecg
