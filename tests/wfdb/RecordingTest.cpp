// Samples out of bytes, and the two public recordings where they are at hand.
#include "wfdb/Recording.h"

#include "support/TemporaryDataFolder.h"

#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <initializer_list>

namespace ecg {
namespace {

std::vector<std::byte> Bytes(std::initializer_list<int> values)
{
    std::vector<std::byte> bytes;
    for (const int value : values)
        bytes.push_back(static_cast<std::byte>(value));
    return bytes;
}

// The signals of a header text with gain 1, so that millivolts are sample values.
Outcome<Recording> Decode(const char* header, std::vector<WfdbFile> files)
{
    const auto parsed = ParseWfdbHeader(header);
    return parsed ? DecodeRecording(*parsed, files) : Outcome<Recording>::Failure(parsed.Reason());
}

using Values = std::vector<double>;

TEST(WfdbSamples, OfFormat16AreInterleavedLittleEndianWords)
{
    const auto recording = Decode("r 2 100\na 16 1 16 0 0 0 0 x\na 16 2(-2)/mV 16 0 0 0 0 y",
                                  {{"a", Bytes({0x01, 0x00, 0xFE, 0xFF, 0xFF, 0x7F, 0x01, 0x80})}});
    ASSERT_TRUE(recording) << recording.Reason();
    EXPECT_EQ(recording->Find("X")->Millivolts, (Values{1, 32767}));
    EXPECT_EQ(recording->Find("y")->Millivolts, (Values{0, -16382.5}));
    EXPECT_EQ(recording->Find("z"), nullptr);
}

TEST(WfdbSamples, OfFormat212ShareTheMiddleByteOfThree)
{
    // 0x123 and 0xF56 (-170), then 0x7FF (2047) and 0x801 (-2047), then 0x00A alone
    const auto recording = Decode("r 1 100\na 212 1", {{"a", Bytes({0x23, 0xF1, 0x56, 0xFF, 0x87, 0x01, 0x0A, 0x00})}});
    ASSERT_TRUE(recording) << recording.Reason();
    EXPECT_EQ(recording->Signals[0].Millivolts, (Values{0x123, -170, 2047, -2047, 10}));
}

TEST(WfdbSamples, MarkedInvalidRepeatTheOneBefore)
{
    const auto words = Decode("r 1 100\na 16 1", {{"a", Bytes({0x00, 0x80, 5, 0, 0x00, 0x80, 6, 0})}});
    ASSERT_TRUE(words) << words.Reason();
    EXPECT_EQ(words->Signals[0].Millivolts, (Values{0, 5, 5, 6}));
    const auto packed = Decode("r 1 100\na 212 1", {{"a", Bytes({0x05, 0x80, 0x00})}});
    ASSERT_TRUE(packed) << packed.Reason();
    EXPECT_EQ(packed->Signals[0].Millivolts, (Values{5, 5}));
}

struct LengthCase {
    const char* Name;
    int Promised;
    std::size_t BytesOfA; // two signals of format 16
    std::size_t BytesOfB; // one signal of format 212 behind 4 bytes that are none
    std::size_t Length;   // 0 = refused
};

class RecordingLength : public testing::TestWithParam<LengthCase> {};

TEST_P(RecordingLength, IsWhatHeaderAndEveryFileHold)
{
    const LengthCase& c = GetParam();
    const std::string header = "r 3 100 " + std::to_string(c.Promised) + "\na 16\na 16\nb 212+4";
    const auto recording =
        Decode(header.c_str(), {{"a", std::vector<std::byte>(c.BytesOfA)}, {"b", std::vector<std::byte>(c.BytesOfB)}});
    EXPECT_EQ(recording ? recording->Length() : 0, c.Length) << recording.Reason();
}

INSTANTIATE_TEST_SUITE_P(Files, RecordingLength,
                         testing::Values(LengthCase{"not_told", 0, 40, 19, 10}, LengthCase{"less_told", 3, 40, 19, 3},
                                         LengthCase{"more_told", 5000, 40, 19, 10},
                                         LengthCase{"first_cut_inside_an_instant", 10, 39, 19, 9},
                                         LengthCase{"second_cut_after_half_a_pair", 10, 40, 4 + 8, 5},
                                         LengthCase{"second_cut_inside_a_pair", 10, 40, 4 + 7, 4},
                                         LengthCase{"offset_behind_the_end", 10, 40, 3, 0},
                                         LengthCase{"empty_file", 10, 0, 19, 0}),
                         [](const auto& test) { return test.param.Name; });

TEST(WfdbRecording, RefusesWhatItCannotPutTogether)
{
    EXPECT_EQ(Decode("r 1 100\na 16", {}).Reason(), "signal file \"a\" is missing");
    EXPECT_EQ(Decode("r 2 100\na 16\na 212", {{"a", Bytes({1, 2, 3, 4})}}).Reason(),
              "signal file \"a\" is told to have two formats");
    EXPECT_EQ(Decode("r 1 100\na 16 1/mmHg", {{"a", Bytes({1, 2})}}).Reason(), "the recording has no signal in volts");
    EXPECT_EQ(Decode("r 1 1\na 16", {{"a", std::vector<std::byte>(2 * 86401)}}).Reason(),
              "the recording is longer than 24 hours");
}

TEST(WfdbRecording, LeavesOutSignalsThatAreNoVoltage)
{
    const auto recording = Decode("r 3 100\na 16 2/uV\na 16 1/mmHg\na 16 4/V", {{"a", Bytes({2, 0, 9, 0, 1, 0})}});
    ASSERT_TRUE(recording) << recording.Reason();
    ASSERT_EQ(recording->Signals.size(), 2U);
    EXPECT_DOUBLE_EQ(recording->Signals[0].Millivolts[0], 0.001);
    EXPECT_DOUBLE_EQ(recording->Signals[1].Millivolts[0], 250);
}

TEST(WfdbRecording, OnDiskNeedsAllItsFiles)
{
    const TemporaryDataFolder folder;
    EXPECT_NE(LoadRecording(folder.File("r.hea")).Reason().find("there is no file"), std::string::npos);
    EXPECT_FALSE(LoadRecording(folder.Paths().Data)); // a folder
    std::ofstream(folder.File("r.hea")) << "r 1 100\nr.dat 16\n";
    EXPECT_NE(LoadRecording(folder.File("r.hea")).Reason().find("r.dat"), std::string::npos);
    std::ofstream(folder.File("r.dat")) << "1234";
    EXPECT_TRUE(LoadRecording(folder.File("r.hea")));
}

Outcome<Recording> LoadShared(const char* name)
{
    return LoadRecording(std::filesystem::path(ECG_SHARED_DATA) / name);
}

TEST(RestingRecording, HasItsTwelveLeadsConsistentWithEachOther)
{
    if (!std::filesystem::exists(ECG_SHARED_DATA))
        GTEST_SKIP() << "the public recordings are not at hand";
    const auto recording = LoadShared("s0010_re.hea");
    ASSERT_TRUE(recording) << recording.Reason();
    EXPECT_EQ(recording->Rate, 1000);
    EXPECT_EQ(recording->Length(), 38400U);
    ASSERT_EQ(recording->Signals.size(), 15U);
    EXPECT_EQ(recording->Find("VX")->Millivolts.front(), -3 / 2000.0); // the first value the header tells
    EXPECT_EQ(recording->Find("v6")->Millivolts.front(), 390 / 2000.0);

    constexpr double count = 1 / 2000.0;
    double worst = 0;
    for (std::size_t i = 0; i < recording->Length(); ++i)
        worst = std::max(worst, std::fabs(recording->Find("i")->Millivolts[i] - recording->Find("ii")->Millivolts[i] +
                                          recording->Find("iii")->Millivolts[i]));
    EXPECT_LT(worst, 2.5 * count) << "mV";
}

TEST(AmbulatoryRecording, HasTheChecksumsOfItsHeader)
{
    if (!std::filesystem::exists(ECG_SHARED_DATA))
        GTEST_SKIP() << "the public recordings are not at hand";
    const auto recording = LoadShared("100.hea");
    ASSERT_TRUE(recording) << recording.Reason();
    EXPECT_EQ(recording->Length(), 650000U);
    const int checksums[] = {-22131, 20052}; // sum of all samples, low 16 bits
    for (std::size_t signal = 0; signal < 2; ++signal) {
        std::int64_t sum = 0;
        for (const double value : recording->Signals[signal].Millivolts)
            sum += std::llround(value * 200 + 1024);
        EXPECT_EQ(static_cast<std::int16_t>(sum), checksums[signal]);
    }
}

} // namespace
} // namespace ecg
