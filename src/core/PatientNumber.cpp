#include "core/PatientNumber.h"

#include "core/formats/FixedText.h"

#include <algorithm>

namespace ecg {
namespace {

bool IsSeparatorOrControl(char c)
{
    constexpr unsigned char firstPrintable = 0x20;
    return c == '/' || c == '\\' || static_cast<unsigned char>(c) < firstPrintable;
}

}  // namespace

std::string PatientFolderName(std::string_view number)
{
    constexpr std::size_t folderDigits = 9;
    std::string name(TrimField(number));
    const std::size_t first = name.find_first_not_of(' ');
    if (first != std::string::npos && name.find_first_not_of("0123456789", first) == std::string::npos) {
        name.erase(0, first);
        if (name.size() < folderDigits)
            name.insert(0, folderDigits - name.size(), '0');
        return name;
    }
    std::replace_if(name.begin(), name.end(), IsSeparatorOrControl, '_');
    if (name.find_first_not_of('.') == std::string::npos)
        std::replace(name.begin(), name.end(), '.', '_');
    return name;
}

bool SamePatientNumber(std::string_view number, std::string_view other)
{
    return UpperCase(PatientFolderName(number)) == UpperCase(PatientFolderName(other));
}

std::string UpperCase(std::string_view text)
{
    std::string upper(text);
    for (char& c : upper)
        if (c >= 'a' && c <= 'z')
            c = static_cast<char>(c - 'a' + 'A');
    return upper;
}

}  // namespace ecg
