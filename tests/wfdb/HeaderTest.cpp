// What the text header of a recording says, and what is refused.
#include "wfdb/Header.h"

#include <gtest/gtest.h>

#include <tuple>

namespace ecg {
namespace {

TEST(WfdbHeader, TellsWhereSignalsLieAndWhatTheyAreWorth)
{
    const auto header = ParseWfdbHeader("# before\r\n"
                                        "rec 4 360/1.5(0) 650000 10:00:00 01/10/1990\r\n"
                                        "\r\n"
                                        "a.dat 212 200(5)/uV 11 1024 995 -22131 0 MLII\r\n"
                                        "a.dat 212+24 0 12 1024\r\n"
                                        "b.dat 16x1 -2000/V 16 -7 0 0 0 two words\r\n"
                                        "b.dat 16\r\n"
                                        "# age: 81\r\n");
    ASSERT_TRUE(header) << header.Reason();
    EXPECT_EQ(header->Name, "rec");
    EXPECT_EQ(header->Rate, 360);
    EXPECT_EQ(header->Samples, 650000);
    EXPECT_EQ(header->Comments, (std::vector<std::string>{"before", "age: 81"}));

    const WfdbSignal expected[] = {{"a.dat", WfdbFormat::Packed12, 0, 200, 5, "uV", "MLII"},
                                   {"a.dat", WfdbFormat::Packed12, 24, 200, 1024, "mV", ""},  // gain 0 stands for 200
                                   {"b.dat", WfdbFormat::Integer16, 0, -2000, -7, "V", "two words"},
                                   {"b.dat", WfdbFormat::Integer16, 0, 200, 0, "mV", ""}};
    const auto told = [](const WfdbSignal& s) {
        return std::tie(s.File, s.Format, s.ByteOffset, s.Gain, s.Baseline, s.Units, s.Name);
    };
    ASSERT_EQ(header->Signals.size(), std::size(expected));
    for (std::size_t i = 0; i < std::size(expected); ++i)
        EXPECT_TRUE(told(header->Signals[i]) == told(expected[i])) << "signal " << i;

    const auto shortest = ParseWfdbHeader("rec 1\nrec.dat 16");
    ASSERT_TRUE(shortest) << shortest.Reason();
    EXPECT_EQ(shortest->Rate, 250);
    EXPECT_EQ(shortest->Samples, 0);
}

TEST(WfdbHeader, IsRefusedWithTheReason)
{
    // clang-format off
    const std::pair<const char*, const char*> cases[] = {
        {"", "no record line"}, {"\x01\x02\xFF\xFE", "number of signals"}, {"rec/3 2 360 100", "several segments"},
        {"rec 0 360 100", "number of signals"}, {"rec 65 360", "number of signals"},
        {"rec 2 360\na 16", "promises 2 signals and describes 1"},
        {"rec 1 0\na 16", "sampling rate"}, {"rec 1 nan\na 16", "sampling rate"},
        {"rec 1 360 -1\na 16", "number of samples"}, {"rec 1 360 99999999999999999999\na 16", "number of samples"},
        {"rec 1\na 80", "\"80\" is not supported"}, {"rec 1\na", "is not supported"},
        {"rec 1\na 16x4", "several samples"}, {"rec 1\na 16:3", "skewed"}, {"rec 1\na 16+-4", "byte offset"},
        {"rec 1\na 16 inf", "gain is no number"}, {"rec 1\na 16 1e-300", "gain is out of range"},
        {"rec 1\na 16 200(5", "gain is no number"}, {"rec 1\na 16 200()", "baseline is no number"},
        {"rec 1\na 16 200 16 x", "ADC zero"}, {"rec 1\n../a 16", "does not lie beside"}};
    // clang-format on
    for (const auto& [text, reason] : cases) {
        const auto header = ParseWfdbHeader(text);
        EXPECT_FALSE(header) << text;
        EXPECT_NE(header.Reason().find(reason), std::string::npos) << text << ": " << header.Reason();
    }
}

}  // namespace
}  // namespace ecg
