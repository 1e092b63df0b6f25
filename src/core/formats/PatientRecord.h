// One patient in `Patient.lib`: 238 bytes. The age is not stored, only the year of birth.
#pragma once

#include "core/formats/FixedText.h"
#include "core/formats/Layout.h"

#include <array>

namespace ecg {

struct PatientRecord {
    FixedText<9> No;  // medical number; blank when the slot is deleted
    FixedText<16> Name;
    Byte Sex = 0;            // 0 male, 1 female
    FixedText<4> BirthYear;  // decimal; "0" for a quick patient
    Byte Height = 0;         // centimetres, 0 not entered
    Byte Weight = 0;         // kilograms, 0 not entered
    FixedText<60> Address;
    FixedText<6> PostCode;
    FixedText<18> Telephone;
    FixedText<32> EMail;
    FixedText<24> IdNumber;
    FixedText<24> MedCard;
    std::array<Byte, 10> Flags{};  // 0 to 5 risk factors, 6 to 9 symptom types; each 0 or 1
    std::array<FixedText<8>, 4> CustomItem;
};

static_assert(IsFixedRecord<PatientRecord, 238>);
static_assert(offsetof(PatientRecord, No) == 0);
static_assert(offsetof(PatientRecord, Name) == 9);
static_assert(offsetof(PatientRecord, Sex) == 25);
static_assert(offsetof(PatientRecord, BirthYear) == 26);
static_assert(offsetof(PatientRecord, Height) == 30);
static_assert(offsetof(PatientRecord, Weight) == 31);
static_assert(offsetof(PatientRecord, Address) == 32);
static_assert(offsetof(PatientRecord, PostCode) == 92);
static_assert(offsetof(PatientRecord, Telephone) == 98);
static_assert(offsetof(PatientRecord, EMail) == 116);
static_assert(offsetof(PatientRecord, IdNumber) == 148);
static_assert(offsetof(PatientRecord, MedCard) == 172);
static_assert(offsetof(PatientRecord, Flags) == 196);
static_assert(offsetof(PatientRecord, CustomItem) == 206);

}  // namespace ecg
