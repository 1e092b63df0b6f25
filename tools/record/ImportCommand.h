// The words behind `ecg-record import`.
#pragma once

#include "record/ImportRecording.h"

#include <span>
#include <string>

namespace ecg {

// Understands HEADER.hea DATA_FOLDER [--patient NO] [--system W|F], options in any place; fails with what is wrong.
Outcome<ImportOptions> ParseImport(std::span<const std::string> words);

}  // namespace ecg
