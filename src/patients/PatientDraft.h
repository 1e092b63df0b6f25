// A patient as typed: the texts of the entry window's fields, before they become a record.
#pragma once

#include "core/formats/PatientRecord.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace ecg {

// The text fields, numbered as the window's `Text1`. The bed is no field of the patient: it goes to the record.
enum class PatientField {
    Name = 0,
    Age = 1,
    Height = 2,
    Weight = 3,
    Address = 4,
    PostCode = 5,
    Telephone = 6,
    EMail = 7,
    IdNumber = 8,
    MedCard = 9,
    Number = 10,
    CustomItem1 = 11,
    CustomItem2 = 12,
    CustomItem3 = 13,
    CustomItem4 = 14,
    Bed = 15,
};

inline constexpr std::size_t PatientFieldCount = 16;

struct PatientDraft {
    std::array<std::string, PatientFieldCount> Texts;  // UTF-8
    bool Male = true;
    std::array<bool, 10> Flags{};

    std::string& operator[](PatientField field) { return Texts[static_cast<std::size_t>(field)]; }
    const std::string& operator[](PatientField field) const { return Texts[static_cast<std::size_t>(field)]; }

    friend bool operator==(const PatientDraft&, const PatientDraft&) = default;
};

// What the fields show of a stored patient. `year` is the current one; an age outside 0 to 100 is empty, and so is the
// bed.
PatientDraft DraftOf(const PatientRecord& patient, int year);

// The record that the fields make. An empty age, height or weight counts as 0; the year of birth is `year` less the
// age. Modifying a patient above 100, whose age is shown empty, therefore makes the age 0 unless it is typed again:
// meant. Numbers are rounded to whole ones and must have passed `InRange`. A text that is the one of `before` keeps its
// bytes.
PatientRecord GatherPatient(const PatientDraft& draft, int year, PatientRecord before = {});

// Whether a field takes numbers only: age, height, weight, postal code.
bool IsNumericField(PatientField field);

// Whether a text may stay in its field: age 0 to 200, height 40 to 250, weight 5 to 250, after rounding. Other fields
// and empty texts always may.
bool InRange(PatientField field, std::string_view text);

// The text that a number field holds after it is stored: cut to 9 bytes, without trailing blanks, "?" for characters
// that cannot be stored. Numbers are compared in this form.
std::string StorableNumber(std::string_view typed);

}  // namespace ecg
