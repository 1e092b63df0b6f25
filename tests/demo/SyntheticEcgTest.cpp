// Frames of the synthetic ECG: scale, noise, the order of channels and halves.
#include "demo/SyntheticEcg.h"

#include "demo/MuscleNoise.h"
#include "demo/TwelveLeads.h"

#include <gtest/gtest.h>

#include <cmath>

namespace ecg {
namespace {

constexpr EcgOptions noiseless{.Seconds = 20, .NoiseMicrovolts = 0};

TEST(SyntheticEcg, WordsAreTwelveBitsWithZeroInTheMiddle)
{
    EXPECT_EQ(WordOfMillivolts(0), 2048);
    EXPECT_EQ(WordOfMillivolts(1), 2357); // 2048 + 309.37
    EXPECT_EQ(WordOfMillivolts(-1), 1739);
    EXPECT_EQ(WordOfMillivolts(100), 4095);
    EXPECT_EQ(WordOfMillivolts(-100), 0);
}

TEST(SyntheticEcg, LimbChannelsObeyEinthoven)
{
    const SyntheticEcg ecg(noiseless);
    const auto frames = ecg.WilsonFrames();
    for (std::size_t i = 0; i < frames.size(); ++i) {
        const Dipole dipole = ecg.Heart().At(static_cast<double>(i) / 500);
        const double leadI = 0.632 * dipole.X - 0.235 * dipole.Y + 0.059 * dipole.Z;
        EXPECT_NEAR(frames[i][0] - frames[i][1], leadI * CountsPerMillivolt, 1.01) << i;
    }
}

TEST(SyntheticEcg, FrankHalvesAreOneMillisecondApart)
{
    const auto frames = SyntheticEcg(noiseless).FrankFrames();
    int steepest = 0;
    for (std::size_t i = 0; i + 1 < frames.size(); ++i)
        for (std::size_t axis = 0; axis < 3; ++axis) {
            const int between = frames[i][axis + 3];
            const double middle = (frames[i][axis] + frames[i + 1][axis]) / 2.0;
            EXPECT_NEAR(between, middle, 4) << i;
            steepest = std::max(steepest, std::abs(frames[i + 1][axis] - frames[i][axis]));
        }
    EXPECT_GT(steepest, 30) << "or the halves could stand in any place";
}

struct Statistics {
    double Rms;
    double Correlation;
};

// Of the differences of two channels between two signals.
Statistics Compare(const std::vector<Frame>& a, const std::vector<Frame>& b, std::size_t one, std::size_t other)
{
    double squaresOne = 0;
    double squaresOther = 0;
    double products = 0;
    for (std::size_t i = 0; i < a.size(); ++i) {
        const double first = a[i][one] - b[i][one];
        const double second = a[i][other] - b[i][other];
        squaresOne += first * first;
        squaresOther += second * second;
        products += first * second;
    }
    return {std::sqrt(squaresOne / static_cast<double>(a.size())), products / std::sqrt(squaresOne * squaresOther)};
}

TEST(SyntheticEcg, NoiseHasTheSizeAskedForAndIsEachChannelsOwn)
{
    EcgOptions noisy = noiseless;
    noisy.NoiseMicrovolts = 20;
    const auto wilson = SyntheticEcg(noisy).WilsonFrames();
    const auto quietWilson = SyntheticEcg(noiseless).WilsonFrames();
    for (std::size_t channel = 0; channel < 8; ++channel) {
        const auto [rms, correlation] = Compare(wilson, quietWilson, channel, (channel + 1) % 8);
        EXPECT_NEAR(rms / CountsPerMillivolt, 0.020, 0.001) << channel;
        EXPECT_LT(std::fabs(correlation), 0.06) << channel;
    }
    const auto frank = SyntheticEcg(noisy).FrankFrames();
    const auto quietFrank = SyntheticEcg(noiseless).FrankFrames();
    for (std::size_t axis = 0; axis < 3; ++axis) {
        EXPECT_NEAR(Compare(frank, quietFrank, axis, axis).Rms / CountsPerMillivolt, 0.020, 0.001) << axis;
        EXPECT_GT(Compare(frank, quietFrank, axis, axis + 3).Correlation, 0.2) << "halves are neighbours in time";
    }
}

TEST(MuscleNoise, IsNeitherWhiteNorAWanderAndClosesItsRing)
{
    const auto noise = MuscleNoise(20000, 5, 1);
    double steps = 0;  // mean square of the step to the next value
    double tenths = 0; // of the mean over a tenth of a second
    for (std::size_t i = 0; i < noise.size(); i += 100) {
        double sum = 0;
        for (std::size_t j = i; j < i + 100; ++j) {
            sum += noise[j];
            steps += std::pow(noise[j] - noise[(j + 1) % noise.size()], 2) / 20000;
        }
        tenths += sum * sum / 10000 / 200;
    }
    EXPECT_NEAR(std::sqrt(steps), 0.006, 0.0005); // white: 0.0071
    EXPECT_LT(std::sqrt(tenths), 0.0004);         // white: 0.0005
    EXPECT_LT(std::fabs(noise.front() - noise.back()), 4 * std::sqrt(steps));
}

} // namespace
} // namespace ecg
