// The age of a patient, of whom only the year of birth is stored.
#pragma once

#include "core/Numbers.h"
#include "core/formats/PatientRecord.h"

#include <optional>

namespace ecg {

inline constexpr int OldestListedAge = 100;  // years; an older patient is listed with an empty age

// Years from `BirthYear` to `year`, below 0 for a year to come; nothing when the field is no number.
inline std::optional<int> AgeOf(const PatientRecord& patient, int year)
{
    const auto birthYear = ParseDecimal(patient.BirthYear.Text());  // four characters: small enough for an int
    if (!birthYear)
        return std::nullopt;
    return year - RoundToInt(*birthYear);
}

// The age as the grid, the detail panel and the entry window show it: 0 to 100, else nothing.
inline std::optional<int> ListedAge(const PatientRecord& patient, int year)
{
    const auto age = AgeOf(patient, year);
    return age && *age >= 0 && *age <= OldestListedAge ? age : std::nullopt;
}

}  // namespace ecg
