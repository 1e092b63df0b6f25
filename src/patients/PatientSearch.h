// Searching patients: the conditions that the search window gathers, and the filter that hides the rows of patients who
// do not meet all of them. Nothing is removed; the last conditions are kept for the whole run.
#pragma once

#include "patients/PatientFile.h"
#include "patients/PatientTable.h"

#include <array>
#include <string>

namespace ecg {

struct ByteRange {
    Byte Lowest = 0;
    Byte Highest = 0;  // inclusive; below `Lowest` nothing matches
};

struct SearchConditions {
    bool UseNo = false;
    FixedText<9> No;  // a pattern: "*" at its end stands for anything
    bool UseName = false;
    FixedText<16> Name;  // a pattern likewise
    bool UseSex = false;
    Byte Sex = 0;
    bool UseAge = false;
    ByteRange Age;  // years
    bool UseHeight = false;
    ByteRange Height;  // cm
    bool UseWeight = false;
    ByteRange Weight;  // kg
    std::array<bool, 10> UseFlag{};
    std::array<bool, 10> FlagWanted{};
};

// What the search window holds, in the order of its check boxes and texts.
struct SearchForm {
    std::array<bool, 16> Checked{};    // number, name, sex, age, height, weight, then the ten flags
    std::array<std::string, 8> Texts;  // number, name, then lowest and highest age, height and weight
    bool Male = true;
    std::array<bool, 10> FlagYes{};
};

// The form as it opens, with what was last taken. Bounds that were never set are empty.
SearchForm FormOf(const SearchConditions& conditions);

// Takes the form. A checked box with an empty text, or with bounds that are not both numbers, sets no condition. A
// bound outside 0 to 255 leaves the one before.
void TakeForm(SearchConditions& conditions, const SearchForm& form);

// Whether a patient meets all conditions. `year` is the current one; the age is compared even when the grid leaves it
// empty.
//
// A number pattern is formatted as a number first: "12" finds 000000012 alone, and "12*", which is no number, only
// numbers that are texts; a prefix of digits is written with its zeros, "00000*".
bool Matches(const PatientRecord& patient, const SearchConditions& conditions, int year);

// Shows the rows that match and hides the others, by what the file holds. A row whose slot cannot be read stays as it
// is.
void FilterPatients(PatientTable& patients, const PatientFile& file, const SearchConditions& conditions, int year);

}  // namespace ecg
