#include "core/PatientNumber.h"

#include "core/formats/FixedText.h"

namespace ecg {

std::string PatientFolderName(std::string_view number)
{
    constexpr std::size_t folderDigits = 9;
    std::string name(TrimField(number));
    const bool digits = !name.empty() && name.find_first_not_of("0123456789") == std::string::npos;
    if (digits && name.size() < folderDigits)
        name.insert(0, folderDigits - name.size(), '0');
    return name;
}

bool IsFolderName(std::string_view name)
{
    constexpr std::string_view separators{"/\\\0", 3};
    return !name.empty() && name != "." && name != ".." && name.find_first_of(separators) == std::string_view::npos;
}

} // namespace ecg
