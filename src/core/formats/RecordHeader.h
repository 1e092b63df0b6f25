// The header of a record file: its first 4780 bytes. The samples begin at offset 4784 (`RecordSample.h`).
#pragma once

#include "core/formats/FixedText.h"
#include "core/formats/Layout.h"

#include <array>

namespace ecg {

struct RecordHeader {
    FixedText<14> ExamTime;  // year, month, day, hour, minute, second of the start, in digits
    FixedText<24> Department;
    FixedText<12> Bed;
    Byte GainIndex = 0;
    Byte SpeedIndex = 0;
    std::array<Byte, 3> FilterFlags{};         // AC, baseline, muscle: 0 off, 1 on
    std::array<Byte, 12> LeadFlags{};          // 1 = lead was shown, in lead order
    std::array<FixedText<500>, 6> DoctorNote;  // by review mode
    std::array<Int32, 46> EventPos{};          // slot of each event; below 1 = empty
    std::array<FixedText<22>, 46> EventText;
    Int32 SavedStart{};  // 0 or four blanks: no analysis was saved
    Byte SavedBeat = 0;
    std::array<std::array<Int32, 12>, 9> SavedLines{};  // by line, then lead
    Byte SavedHR = 0;
    FixedText<30> Reserved30;
    FixedText<16> Name;
    Byte Sex = 0;
    FixedText<4> BirthYear;
    Byte Height = 0;
    Byte Weight = 0;
    FixedText<2> Reserved2;
    FixedText<24> Doctor;
};

static_assert(IsFixedRecord<RecordHeader, 4780>);
static_assert(offsetof(RecordHeader, ExamTime) == 0);
static_assert(offsetof(RecordHeader, Department) == 14);
static_assert(offsetof(RecordHeader, Bed) == 38);
static_assert(offsetof(RecordHeader, GainIndex) == 50);
static_assert(offsetof(RecordHeader, SpeedIndex) == 51);
static_assert(offsetof(RecordHeader, FilterFlags) == 52);
static_assert(offsetof(RecordHeader, LeadFlags) == 55);
static_assert(offsetof(RecordHeader, DoctorNote) == 67);
static_assert(offsetof(RecordHeader, EventPos) == 3067);
static_assert(offsetof(RecordHeader, EventText) == 3251);
static_assert(offsetof(RecordHeader, SavedStart) == 4263);
static_assert(offsetof(RecordHeader, SavedBeat) == 4267);
static_assert(offsetof(RecordHeader, SavedLines) == 4268);
static_assert(offsetof(RecordHeader, SavedHR) == 4700);
static_assert(offsetof(RecordHeader, Reserved30) == 4701);
static_assert(offsetof(RecordHeader, Name) == 4731);
static_assert(offsetof(RecordHeader, Sex) == 4747);
static_assert(offsetof(RecordHeader, BirthYear) == 4748);
static_assert(offsetof(RecordHeader, Height) == 4752);
static_assert(offsetof(RecordHeader, Weight) == 4753);
static_assert(offsetof(RecordHeader, Reserved2) == 4754);
static_assert(offsetof(RecordHeader, Doctor) == 4756);

}  // namespace ecg
