// What the detail panel of the database window shows of a patient.
#pragma once

#include "core/formats/PatientRecord.h"

#include <array>
#include <string>

namespace ecg {

struct PatientDetails {
    // Number (padded), name, sex, age, height, weight, address, postal code, telephone, mail, identity, insurance, then
    // the four custom items. Age, height and weight carry their unit; an age that is not listed is empty.
    std::array<std::string, 16> Texts;
    std::array<bool, 10> Flags{};
};

// `year` is the current one.
PatientDetails DetailsOf(const PatientRecord& patient, int year, bool chinese);

}  // namespace ecg
