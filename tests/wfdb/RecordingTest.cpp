// Samples out of bytes, and the two public recordings where they are at hand.
#include "wfdb/Recording.h"

#include <gtest/gtest.h>

#include <cmath>
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

TEST(WfdbSamples, AreTheValuesOfTheirFormat)
{
    const struct {
        const char* Header;
        std::vector<std::byte> Bytes;
        Values Expected;
    } cases[] = {
        {"r 1 100\na 16 2(-2)/mV", Bytes({0x01, 0x00, 0xFE, 0xFF, 0x01, 0x80}), {1.5, 0, -16382.5}},
        {"r 1 100\na 16 1", Bytes({0x00, 0x80, 5, 0, 0x00, 0x80, 6, 0}), {0, 5, 5, 6}},  // 0x8000 is "no sample"
        // 0x123 and 0xF56 (-170), then 0x7FF (2047) and 0x801 (-2047), then 0x00A alone
        {"r 1 100\na 212 1", Bytes({0x23, 0xF1, 0x56, 0xFF, 0x87, 0x01, 0x0A, 0x00}), {0x123, -170, 2047, -2047, 10}},
        {"r 1 100\na 212 1", Bytes({0x05, 0x80, 0x00}), {5, 5}}};  // 0x800 is "no sample"
    for (const auto& c : cases) {
        const auto recording = Decode(c.Header, {{"a", c.Bytes}});
        ASSERT_TRUE(recording) << recording.Reason();
        EXPECT_EQ(recording->Signals[0].Millivolts, c.Expected);
    }
}

TEST(WfdbRecording, TakesItsSignalsApartAndLeavesOutWhatIsNoVoltage)
{
    const auto recording = Decode("r 3 100\na 16 2/uV 16 0 0 0 0 x\na 16 1/mmHg\na 16 4/V 16 0 0 0 0 y",
                                  {{"a", Bytes({2, 0, 9, 0, 1, 0, 4, 0, 9, 0, 2, 0})}});
    ASSERT_TRUE(recording) << recording.Reason();
    ASSERT_EQ(recording->Signals.size(), 2U);
    EXPECT_EQ(recording->Find("X")->Millivolts, (Values{0.001, 0.002}));
    EXPECT_EQ(recording->Find("y")->Millivolts, (Values{250, 500}));
    EXPECT_EQ(recording->Find("z"), nullptr);
}

TEST(WfdbRecording, IsAsLongAsHeaderAndEveryFileHold)
{
    const struct {
        const char* Name;
        int Promised;
        std::size_t BytesOfA;  // two signals of format 16
        std::size_t BytesOfB;  // one signal of format 212 behind 4 bytes that are none
        std::size_t Length;    // 0 = refused
    } cases[] = {{"not told", 0, 40, 19, 10},
                 {"less told", 3, 40, 19, 3},
                 {"more told", 5000, 40, 19, 10},
                 {"first cut inside an instant", 10, 39, 19, 9},
                 {"second cut after half a pair", 10, 40, 4 + 8, 5},
                 {"second cut inside a pair", 10, 40, 4 + 7, 4},
                 {"offset behind the end", 10, 40, 3, 0},
                 {"empty file", 10, 0, 19, 0}};
    for (const auto& c : cases) {
        const std::string header = "r 3 100 " + std::to_string(c.Promised) + "\na 16\na 16\nb 212+4";
        const auto recording = Decode(
            header.c_str(), {{"a", std::vector<std::byte>(c.BytesOfA)}, {"b", std::vector<std::byte>(c.BytesOfB)}});
        EXPECT_EQ(recording ? recording->Length() : 0, c.Length) << c.Name << ": " << recording.Reason();
    }
}

TEST(WfdbRecording, RefusesWhatItCannotPutTogether)
{
    EXPECT_EQ(Decode("r 1 100\na 16", {}).Reason(), "signal file \"a\" is missing");
    EXPECT_EQ(Decode("r 2 100\na 16\na 212", {{"a", Bytes({1, 2, 3, 4})}}).Reason(),
              "signal file \"a\" is told to have two formats");
    EXPECT_EQ(Decode("r 1 100\na 16 1/mmHg", {{"a", Bytes({1, 2})}}).Reason(), "the recording has no signal in volts");
    EXPECT_EQ(Decode("r 1 1\na 16", {{"a", std::vector<std::byte>(2 * 86401)}}).Reason(),
              "the recording is longer than 24 hours");
}

// Whether each signal adds up to its checksum (the low 16 bits of the sum of its samples).
void ExpectChecksums(const Recording& recording, double gain, double baseline, const std::vector<int>& checksums)
{
    ASSERT_EQ(recording.Signals.size(), checksums.size());
    for (std::size_t i = 0; i < checksums.size(); ++i) {
        std::int64_t sum = 0;
        for (const double value : recording.Signals[i].Millivolts)
            sum += std::llround(value * gain + baseline);
        EXPECT_EQ(static_cast<std::int16_t>(sum), checksums[i]) << recording.Signals[i].Name;
    }
}

TEST(WfdbRecording, OfThePublicArchiveHasTheChecksumsOfItsHeader)
{
    const std::filesystem::path folder = ECG_SHARED_DATA;
    if (!std::filesystem::exists(folder))
        GTEST_SKIP() << "the public recordings are not at hand";
    const auto ambulatory = LoadRecording(folder / "100.hea");
    const auto resting = LoadRecording(folder / "s0010_re.hea");
    ASSERT_TRUE(ambulatory && resting) << ambulatory.Reason() << resting.Reason();
    EXPECT_EQ(ambulatory->Length(), 650000U);
    EXPECT_EQ(resting->Length(), 38400U);
    ExpectChecksums(*ambulatory, 200, 1024, {-22131, 20052});
    ExpectChecksums(
        *resting, 2000, 0,
        {-8337, -16369, 6829, 4582, 11687, -16657, -12469, 5636, -14299, -17916, -6668, -17545, -13009, 7109, -1992});
}

}  // namespace
}  // namespace ecg
