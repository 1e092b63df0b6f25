// How a patient's number is written as the name of a folder.
#pragma once

#include <string>
#include <string_view>

namespace ecg {

// `number` without trailing blanks and NULs; digits are padded with zeros to nine, anything else stays as it stands.
std::string PatientFolderName(std::string_view number);

} // namespace ecg
