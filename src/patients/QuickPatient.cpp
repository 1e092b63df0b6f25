#include "patients/QuickPatient.h"

#include "core/Numbers.h"

namespace ecg {

std::string FreeQuickNumber(const std::function<bool(std::string_view)>& taken)
{
    constexpr int digits = 5;
    constexpr int numbers = 100'000;
    for (int n = 0; n < numbers; ++n) {
        std::string number = "RUVO" + FormatZeros(n, digits);
        if (!taken(number))
            return number;
    }
    return {};
}

PatientRecord QuickPatient(std::string_view number)
{
    PatientRecord patient;
    patient.No.Set(number);
    patient.BirthYear.Set("0");
    return patient;
}

}  // namespace ecg
