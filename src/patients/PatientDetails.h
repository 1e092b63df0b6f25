// What the database window shows of a patient, and the captions of the custom items.
#pragma once

#include "core/formats/PatientRecord.h"
#include "core/formats/SysInfo.h"

#include <array>
#include <string>

namespace ecg {

// What the detail panel of the database window shows.
struct PatientDetails {
    // Number (padded), name, sex, age, height, weight, address, postal code, telephone, mail, identity, insurance, then
    // the four custom items. Age, height and weight carry their unit; an age that is not listed is empty.
    std::array<std::string, 16> Texts;
    std::array<bool, 10> Flags{};
};

// The caption of custom item 0 to 3: its name in the settings, or the item's number from 1 when it has none.
std::string CustomItemCaption(const SysInfo& settings, std::size_t item);

// `year` is the current one.
PatientDetails DetailsOf(const PatientRecord& patient, int year, bool chinese);

}  // namespace ecg
