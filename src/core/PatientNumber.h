// How a patient's number is written as the name of a folder.
#pragma once

#include <string>
#include <string_view>

namespace ecg {

// `number` without trailing blanks and NULs; digits are padded with zeros to nine, anything else stays as it stands.
std::string PatientFolderName(std::string_view number);

// Whether `name` can name a folder directly below the data folder. A number comes from a keyboard or a damaged file: one
// that holds a separator or is ".." would lead out of the patient's own folder.
bool IsFolderName(std::string_view name);

} // namespace ecg
