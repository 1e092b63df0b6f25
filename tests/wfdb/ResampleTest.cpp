// The resampler against sines, whose samples at any rate are known.
#include "wfdb/Resample.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <tuple>

namespace ecg {
namespace {

constexpr double seconds = 4;

std::vector<double> Sine(double frequency, double rate)
{
    std::vector<double> signal(static_cast<std::size_t>(seconds * rate));
    for (std::size_t i = 0; i < signal.size(); ++i)
        signal[i] = std::sin(2 * std::numbers::pi * frequency * static_cast<double>(i) / rate);
    return signal;
}

// Largest difference in the middle half, where the ends do not reach.
double LargestError(const std::vector<double>& signal, const std::vector<double>& expected)
{
    double error = 0;
    for (std::size_t i = expected.size() / 4; i < expected.size() * 3 / 4; ++i)
        error = std::max(error, std::fabs(signal.at(i) - expected[i]));
    return error;
}

class Rates : public testing::TestWithParam<std::tuple<double, double>> {};

TEST_P(Rates, KeepAmplitudeAndPhaseOfThePassBand)
{
    const auto [rateIn, rateOut] = GetParam();
    for (const double part : {0.002, 0.05, 0.2, 0.35, 0.42}) {
        const double frequency = part * std::min(rateIn, rateOut);
        const auto result = Resample(Sine(frequency, rateIn), rateIn, rateOut);
        EXPECT_EQ(result.size(), static_cast<std::size_t>(seconds * rateOut));
        EXPECT_LT(LargestError(result, Sine(frequency, rateOut)), 2e-4) << frequency << " Hz";
    }
}

TEST_P(Rates, LetNothingThroughThatTheLowerRateCannotCarry)
{
    const auto [rateIn, rateOut] = GetParam();
    for (double frequency = 0.503 * rateOut; frequency < 0.5 * rateIn; frequency += 0.0371 * rateOut) {
        const auto result = Resample(Sine(frequency, rateIn), rateIn, rateOut);
        EXPECT_LT(LargestError(result, std::vector<double>(result.size())), 2e-4) << frequency << " Hz";
    }
}

INSTANTIATE_TEST_SUITE_P(Pairs, Rates,
                         testing::Values(std::tuple{360, 500}, std::tuple{1000, 500}, std::tuple{128, 500},
                                         std::tuple{257.25, 500}, std::tuple{360, 1000}, std::tuple{2048, 500}));

TEST(Resample, KeepsConstantsAndEqualRatesAndTheLengthOfShortSignals)
{
    for (const double value : Resample(std::vector<double>(100, 3.25), 360, 500))
        ASSERT_NEAR(value, 3.25, 1e-12) << "to its ends";
    const std::vector<double> signal{1, -2, 3};
    EXPECT_EQ(Resample(signal, 500, 500), signal);
    EXPECT_TRUE(Resample({}, 360, 500).empty());
    EXPECT_TRUE(Resample(std::vector<double>{1}, 1000, 500).empty());  // half a sample is none
    EXPECT_EQ(Resample(std::vector<double>{1}, 250, 500), (std::vector<double>{1, 1}));
}

}  // namespace
}  // namespace ecg
