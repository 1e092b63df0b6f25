// Which numbers are one patient, and that none of them names a folder elsewhere.
#include "core/PatientNumber.h"

#include <gtest/gtest.h>

namespace ecg {
namespace {

TEST(PatientNumber, NamesItsFolder)
{
    // clang-format off
    constexpr std::pair<const char*, const char*> namings[]{  // number, folder
        {"123", "000000123"}, {"000000123", "000000123"}, {" 12", "000000012"}, {"12  ", "000000012"},
        {"1234567890", "1234567890"}, {"RUVO00007", "RUVO00007"}, {"1.5", "1.5"}, {"1e3", "1e3"}, {"-5", "-5"},
        {"+5", "+5"}, {" a", " a"}, {"王12", "王12"}, {"", ""}, {"   ", ""}, {".", "_"}, {"..", "__"},
        {"../x", ".._x"}, {"a\\b", "a_b"}, {"/etc", "_etc"}, {"a\nb", "a_b"}, {"00000*", "00000*"}};
    // clang-format on
    for (const auto& [number, folder] : namings)
        EXPECT_EQ(PatientFolderName(number), folder) << number;
    EXPECT_EQ(PatientFolderName(std::string_view("7\0\0 \0", 5)), "000000007");
    EXPECT_EQ(PatientFolderName(std::string_view("\0a", 2)), "_a");
}

TEST(PatientNumber, IsTheSameWhateverZerosAndCaseItIsTypedWith)
{
    EXPECT_TRUE(SamePatientNumber("123", "000000123"));
    EXPECT_TRUE(SamePatientNumber("ruvo00001", "RUVO00001 "));
    EXPECT_FALSE(SamePatientNumber("1.5", "2"));
    EXPECT_FALSE(SamePatientNumber("12", "120"));
}

}  // namespace
}  // namespace ecg
