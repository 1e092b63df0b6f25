// The words for the fields of a patient, in the windows that show and type them.
#pragma once

#include "core/Language.h"
#include "patients/PatientDraft.h"

#include <string>

namespace ecg {

inline constexpr Twin SexCaption{"患者性别", "Sex"};

// A custom item is called as the settings say, or by its number from 1 when they leave it empty.
std::string CaptionOf(PatientField field, const SysInfo& settings);

}  // namespace ecg
