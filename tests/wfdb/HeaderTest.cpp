// What the text header of a recording says, and what is refused.
#include "wfdb/Header.h"

#include <gtest/gtest.h>

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

    struct Expected {
        WfdbFormat Format;
        std::int64_t ByteOffset;
        double Gain;
        double Baseline;
        const char* Units;
        const char* Name;
    };
    const Expected expected[] = {{WfdbFormat::Packed12, 0, 200, 5, "uV", "MLII"},
                                 {WfdbFormat::Packed12, 24, 200, 1024, "mV", ""}, // gain 0 stands for 200
                                 {WfdbFormat::Integer16, 0, -2000, -7, "V", "two words"},
                                 {WfdbFormat::Integer16, 0, 200, 0, "mV", ""}};
    ASSERT_EQ(header->Signals.size(), std::size(expected));
    for (std::size_t i = 0; i < std::size(expected); ++i) {
        SCOPED_TRACE(i);
        const WfdbSignal& signal = header->Signals[i];
        EXPECT_EQ(signal.File, i < 2 ? "a.dat" : "b.dat");
        EXPECT_EQ(signal.Format, expected[i].Format);
        EXPECT_EQ(signal.ByteOffset, expected[i].ByteOffset);
        EXPECT_EQ(signal.Gain, expected[i].Gain);
        EXPECT_EQ(signal.Baseline, expected[i].Baseline);
        EXPECT_EQ(signal.Units, expected[i].Units);
        EXPECT_EQ(signal.Name, expected[i].Name);
    }
}

TEST(WfdbHeader, GoesByTheDefaultsForWhatIsNotTold)
{
    const auto header = ParseWfdbHeader("rec 1\nrec.dat 16");
    ASSERT_TRUE(header) << header.Reason();
    EXPECT_EQ(header->Rate, 250);
    EXPECT_EQ(header->Samples, 0);
}

struct BadHeader {
    const char* Name;
    const char* Text;
    const char* Reason; // part of it
};

class BadWfdbHeader : public testing::TestWithParam<BadHeader> {};

TEST_P(BadWfdbHeader, IsRefusedWithTheReason)
{
    const auto header = ParseWfdbHeader(GetParam().Text);
    ASSERT_FALSE(header);
    EXPECT_NE(header.Reason().find(GetParam().Reason), std::string::npos) << header.Reason();
}

INSTANTIATE_TEST_SUITE_P(
    Texts, BadWfdbHeader,
    testing::Values(BadHeader{"empty", "", "no record line"}, BadHeader{"only_comments", "# x\n#", "no record line"},
                    BadHeader{"binary", "\x01\x02\xFF\xFE", "number of signals"},
                    BadHeader{"segments", "rec/3 2 360 100", "several segments"},
                    BadHeader{"no_signals", "rec 0 360 100", "number of signals"},
                    BadHeader{"too_many_signals", "rec 65 360", "number of signals"},
                    BadHeader{"fewer_lines_than_signals", "rec 2 360\na 16", "promises 2 signals and describes 1"},
                    BadHeader{"rate_zero", "rec 1 0\na 16", "sampling rate"},
                    BadHeader{"rate_nan", "rec 1 nan\na 16", "sampling rate"},
                    BadHeader{"rate_garbage", "rec 1 36O\na 16", "sampling rate"},
                    BadHeader{"samples_negative", "rec 1 360 -1\na 16", "number of samples"},
                    BadHeader{"samples_beyond_64_bits", "rec 1 360 99999999999999999999\na 16", "number of samples"},
                    BadHeader{"format_unknown", "rec 1\na 80", "\"80\" is not supported"},
                    BadHeader{"format_missing", "rec 1\na", "is not supported"},
                    BadHeader{"several_samples_an_instant", "rec 1\na 16x4", "several samples"},
                    BadHeader{"skewed", "rec 1\na 16:3", "skewed"},
                    BadHeader{"offset_negative", "rec 1\na 16+-4", "byte offset"},
                    BadHeader{"gain_garbage", "rec 1\na 16 2oo", "gain is no number"},
                    BadHeader{"gain_infinite", "rec 1\na 16 inf", "gain is no number"},
                    BadHeader{"gain_tiny", "rec 1\na 16 1e-300", "gain is out of range"},
                    BadHeader{"baseline_open", "rec 1\na 16 200(5", "gain is no number"},
                    BadHeader{"baseline_empty", "rec 1\na 16 200()", "baseline is no number"},
                    BadHeader{"zero_garbage", "rec 1\na 16 200 16 x", "ADC zero"},
                    BadHeader{"file_elsewhere", "rec 1\n../a 16", "does not lie beside"}),
    [](const auto& test) { return test.param.Name; });

} // namespace
} // namespace ecg
