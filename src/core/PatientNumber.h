// How a patient's number is written as the name of a folder, and when two numbers are the same.
#pragma once

#include <string>
#include <string_view>

namespace ecg {

// The folder's name of `number` (UTF-8), and the form in which numbers are listed and compared. Trailing blanks and
// NULs are cut; digits, with or without blanks in front, are padded with zeros to nine. Anything else stays as it
// stands: "1.5", "1e3" and "-5" are texts, for rounding them would make one patient of two.
//
// The result never leads out of the data folder: separators and control characters become "_", and so does each dot of
// a name that is nothing but dots. Only a blank number gives "".
std::string PatientFolderName(std::string_view number);

// Whether both numbers name the same patient: their folder names agree without regard to the case of letters.
bool SamePatientNumber(std::string_view number, std::string_view other);

// `text` with the letters a to z as capitals.
std::string UpperCase(std::string_view text);

}  // namespace ecg
