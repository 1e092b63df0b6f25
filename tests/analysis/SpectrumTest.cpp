// Spectra of known tones, the transfer function against a plain calculation, and each mark by itself.
#include "analysis/RecordFixture.h"
#include "analysis/ReportTexts.h"
#include "core/Numbers.h"

#include <cmath>
#include <complex>
#include <fstream>
#include <gmock/gmock.h>
#include <map>
#include <numbers>

namespace ecg {
namespace {

using std::numbers::pi;
using testing::Each;
using testing::ElementsAre;

class SpectrumSamples : public RecordFixture {};

TEST_F(SpectrumSamples, ReachFromBeatToBeatOverFourSeconds)
{
    // Places of two flags, samples at 50 Hz.
    constexpr std::array<int, 3> cases[]{{0, 2000, 0},   {0, 2001, 200}, {0, 2005, 200}, {0, 2015, 202}, {0, 2010, 200},
                                         {7, 4000, 398}, {0, 4000, 400}, {0, 4001, 0},   {3000, 4000, 0}};
    for (const auto& [first, second, length] : cases) {
        StoreFlags(4500, {300 + first, 300 + second});
        EXPECT_EQ(ReadSpectrumSamples(File), length) << first << " " << second;
    }
}

TEST_F(SpectrumSamples, AreEveryTenthOfTwelveLeads)
{
    std::vector<Frame> frames(2600, silence);
    for (std::size_t i = 0; i < frames.size(); ++i)
        frames[i][0] = static_cast<std::int16_t>(i);
    frames[12][0] = static_cast<std::int16_t>(0xB000 | 12);  // with another mark beside it
    for (const int beat : {512, 1012, 1512, 2012, 2512})
        frames[static_cast<std::size_t>(beat)][0] = Flagged(beat);
    Store(frames);
    State.BlockStart = 310;
    ASSERT_EQ(ReadSpectrumSamples(File), 250);
    EXPECT_THAT(File.EcgBlock.Row(lead::II).first(3), ElementsAre(12 - 2048, 22 - 2048, 32 - 2048));
    EXPECT_EQ(File.EcgBlock.Row(lead::I)[249], 2502 - 2048);
}

TEST_F(SpectrumSamples, OfDamagedRecordsLeaveTheResultAsItWas)
{
    SpectrumResult result;
    result.Marks[mark::H] = true;
    std::ofstream(Path(), std::ios::binary) << std::string(70009, '\xFF');
    for (const std::int32_t start : {-2147483647 - 1, 0, 300, 4300, 2147483647}) {
        State.BlockStart = start;
        EXPECT_FALSE(AnalyseSpectrum(File, SpectrumLayout::DoubleLead, 60, result)) << "no slots from " << start;
        File.CountSlots(WhichRecord::Current);
        EXPECT_FALSE(AnalyseSpectrum(File, SpectrumLayout::DoubleLead, 60, result)) << "flags only from " << start;
    }
    EXPECT_TRUE(result.Marks[mark::H]);
    State.BlockStart = 300;
    StoreFlags(2600, {300, 2800});
    EXPECT_TRUE(AnalyseSpectrum(File, SpectrumLayout::DoubleLead, 60, result)) << "a flat line";
    EXPECT_FALSE(result.Marks[mark::H]);
    EXPECT_TRUE(result.Marks[mark::RSR]);
}

TEST(Spectrum, ShowsTwoTonesAtTheirBinsByTheScaleOfTheLayout)
{
    constexpr std::size_t length = 250;
    constexpr double tolerance = 0.3;  // samples are whole counts
    LeadBlock block(length);
    for (std::size_t n = 0; n < length; ++n) {
        const double cycles = 5 * 2 * pi * static_cast<double>(n) / length;
        block.Row(lead::II)[n] = RoundToInt16(300 + 1000 * std::cos(cycles) + 400 * std::sin(2 * cycles)).value();
        block.Row(lead::V5)[n] = RoundToInt16(500 * std::sin(cycles) + 100 * std::sin(2 * cycles)).value();
    }
    SpectrumResult result;
    result.Spectrum[lead::II].fill(7);  // of a longer stretch before
    ComputeSpectrum(block, length, SpectrumLayout::TwelveLeads, result);
    const BinValues& twelve = result.Spectrum[lead::II];
    EXPECT_NEAR(twelve[0], 300 * 1.185, tolerance);
    EXPECT_NEAR(twelve[5], 500 * 1.185, tolerance);
    EXPECT_NEAR(twelve[10], 200 * 1.185, tolerance);
    EXPECT_NEAR(twelve[6], 0, tolerance);
    EXPECT_EQ(twelve[length / 2], 0);

    ComputeSpectrum(block, length, SpectrumLayout::DoubleLead, result);
    EXPECT_EQ(result.Spectrum[lead::II][0], 0);
    EXPECT_NEAR(result.Spectrum[lead::II][5], 500 * 3.037 / 2, tolerance);
    EXPECT_NEAR(result.Spectrum[lead::V5][10], 50 * 3.037 / 2, tolerance);
    EXPECT_NEAR(result.PhaseShift[5], -20, 0.05) << "a quarter of a turn behind";
    EXPECT_NEAR(result.PhaseShift[10], 0, 0.05);
}

TEST(Spectrum, OfTwoLeadsAgreesWithAPlainCalculation)
{
    using Complex = std::complex<double>;
    constexpr std::size_t length = 12;
    constexpr std::array<std::int16_t, length> input{9, -4, 7, 1, -8, 3, 5, -2, 6, -7, 2, 8};
    constexpr std::array<std::int16_t, length> output{1, 6, -3, 4, -9, 2, -5, 8, -1, 7, 3, -6};
    const auto turned = [](std::size_t steps) { return std::polar(1.0, 2 * pi * static_cast<double>(steps) / length); };
    std::array<Complex, length> transfer;
    for (std::size_t k = 0; k < length / 2; ++k) {
        Complex a;
        Complex b;
        for (std::size_t n = 0; n < length; ++n) {
            a += Complex(input[n]) / turned(k * n);
            b += Complex(output[n]) / turned(k * n);
        }
        transfer[k] = transfer[length - 1 - k] = b / a;
    }
    LeadBlock block(length);
    std::ranges::copy(input, block.Row(lead::II).begin());
    std::ranges::copy(output, block.Row(lead::V5).begin());
    SpectrumResult result;
    ComputeSpectrum(block, length, SpectrumLayout::DoubleLead, result);
    for (std::size_t k = 1; k < length / 2; ++k)
        EXPECT_NEAR(result.PhaseShift[k], std::arg(transfer[k]) * 40 / pi, 1e-4) << k;

    transfer[0] = transfer[1] = transfer[length - 1] = 0;
    std::array<double, length> response{};
    double peak = 0;
    for (std::size_t n = 0; n < length; ++n) {
        for (std::size_t m = 0; m < length; ++m)
            response[n] += (transfer[m] * turned(n * m)).real();
        peak = std::max(peak, std::abs(response[n]));
    }
    for (std::size_t n = 0; n < length; ++n)
        EXPECT_NEAR(result.ImpulseResp[(n + length / 2) % length], response[n] * 40 / peak, 1e-4) << n;

    block.Clear();
    const BinValues before = result.ImpulseResp;
    ComputeSpectrum(block, length, SpectrumLayout::DoubleLead, result);
    EXPECT_THAT(std::span(result.PhaseShift).first(length / 2), Each(0)) << "flat";
    EXPECT_EQ(result.ImpulseResp, before) << "no answer, nothing changes";
    for (const int outside : {-2, 0, 8, 402})
        ComputeSpectrum(block, outside, SpectrumLayout::TwelveLeads, result);
    EXPECT_EQ(result.Length, 12);
}

TEST(SpectrumMarks, OfTheFirstFiveByHarmonics)
{
    struct Case {
        const char* Marks;
        int HeartRate;
        std::map<std::size_t, float> Peaks;  // magnitude by bin; bin 5 is 60 a minute
        const char* Why;
    };
    const std::vector<Case> cases{
        {"-----", 60, {}, "no harmonic"},
        {"-----", 60, {{5, 9}, {10, 8}, {15, 8}, {20, 9.5F}, {25, 9}}, "the fourth is higher, the fifth is not"},
        {"H----", 60, {{5, 8}, {10, 9}}, "second higher"},
        {"-----", 60, {{5, 9}, {10, 8}, {16, 7}}, "6 is within 1.15 of 16/3"},
        {"-U---", 60, {{5, 9}, {10, 8}, {17, 7}}, "7 is above 1.15 of 17/3"},
        {"-U---", 99, {{12, 9}, {20, 8}}, "8 is below 0.85 of 10"},
        {"-----", 40, {{5, 9}}, "60 is not above 60"},
        {"--N--", 39, {{5, 9}}, "60 is above 58.5"},
        {"--N--", 0, {{5, 9}}, "no rate"},
        {"---A-", 60, {{5, 11}, {10, 10.5F}}, "two high ones"},
        {"-----", 60, {{5, 11}, {10, 10}}, "10 is not above 10"},
        {"----a", 60, {{5, 6}, {10, 5}, {15, 5}, {20, 5}, {25, 5}, {30, 7}}, "the sixth higher than the first"},
        {"--N--", 60, {{2, 9}, {10, 8}}, "bin 2 is below half a hertz: the first is bin 10"},
        {"-----", 60, {{5, 100}, {9, 14}}, "not sharp enough for a harmonic"},
        {"-U-A-", 60, {{5, 100}, {9, 16}, {11, 16}}, "sharp enough"},
        {"-----", 60, {{5, 0.4F}, {10, 0.05F}, {15, 0.2F}}, "all too low for a threshold: every peak counts"},
        {"-----", 60, {{124, 9}, {125, 12}}, "the last bin is no peak"},
    };
    for (const Case& c : cases) {
        SpectrumResult result;
        result.Length = 250;
        result.Marks.fill(true);
        for (const auto& [bin, magnitude] : c.Peaks)
            result.Spectrum[lead::V5][bin] = magnitude;
        ClassifySpectrum(SpectrumGroup::Output, c.HeartRate, result);
        std::string marks;
        for (std::size_t i = 0; i < MarksOfGroup; ++i)
            marks += result.Marks[MarksOfGroup + i] ? "HUNAa"[i] : '-';
        EXPECT_EQ(marks, c.Marks) << c.Why;
        EXPECT_THAT(std::span(result.Marks).first(MarksOfGroup), Each(true)) << "of the other lead";
    }
}

TEST(SpectrumMarks, OfPhaseAndImpulseResponse)
{
    SpectrumResult result;
    result.Length = 250;
    const auto markOfPhase = [&](std::size_t bin, float phase) {
        result.PhaseShift = {};
        result.PhaseShift[bin] = phase;
        ClassifyTransfer(result);
        return result.Marks[mark::D];
    };
    EXPECT_FALSE(markOfPhase(29, 40));
    EXPECT_TRUE(markOfPhase(30, -20.5F)) << "6 Hz";
    EXPECT_FALSE(markOfPhase(30, 20));
    EXPECT_TRUE(markOfPhase(100, 20.5F)) << "20 Hz";
    EXPECT_FALSE(markOfPhase(101, 40));

    result.ImpulseResp[3] = 40;
    result.ImpulseResp[4] = -39;
    result.ImpulseResp[250] = -40;  // of a longer stretch before
    ClassifyTransfer(result);
    EXPECT_FALSE(result.Marks[mark::F]);
    result.ImpulseResp[4] = -40;
    ClassifyTransfer(result);
    EXPECT_TRUE(result.Marks[mark::F]);
    EXPECT_THAT(std::span(result.Marks).last(3), ElementsAre(false, true, false));
    EXPECT_STREQ(texts::MarkText(result.Marks, mark::RSR), "+   ");
    EXPECT_STREQ(texts::MarkText(result.Marks, mark::CSR), "-   ");
    EXPECT_STREQ(texts::MarkText(result.Marks, mark::D), "-");
}

}  // namespace
}  // namespace ecg
