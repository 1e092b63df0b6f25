// A patient nobody has named: the number is the first free one of its kind, everything else is left open.
#pragma once

#include "core/formats/PatientRecord.h"

#include <functional>
#include <string>
#include <string_view>

namespace ecg {

// The first number "RUVO00000" to "RUVO99999" that is not `taken`; "" when all are.
std::string FreeQuickNumber(const std::function<bool(std::string_view)>& taken);

PatientRecord QuickPatient(std::string_view number);

}  // namespace ecg
