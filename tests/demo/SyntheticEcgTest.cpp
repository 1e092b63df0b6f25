// Frames of the synthetic ECG: scale, order of channels and halves, noise.
#include "demo/SyntheticEcg.h"

#include "AmplifierScale.h"
#include "demo/MuscleNoise.h"

#include <gtest/gtest.h>

#include <cmath>

namespace ecg {
namespace {

constexpr EcgOptions noiseless{.Seconds = 20, .NoiseMicrovolts = 0};

TEST(SyntheticEcg, FramesHoldTheDipoleAtTheirTimeInTwelveBits)
{
    const std::pair<double, int> words[] = {{0, 2048}, {1, 2357}, {-1, 1739}, {100, 4095}, {-100, 0}};  // 309.37 a mV
    for (const auto& [millivolts, word] : words)
        EXPECT_EQ(WordOfMillivolts(millivolts), word) << millivolts;

    const SyntheticEcg ecg(noiseless);
    const auto wilson = ecg.WilsonFrames();
    const auto frank = ecg.FrankFrames();
    ASSERT_EQ(wilson.size(), 10000u);
    ASSERT_EQ(frank.size(), 10000u);
    for (std::size_t i = 0; i < frank.size(); ++i) {
        const Dipole now = ecg.Heart().At(static_cast<double>(i) / 500);
        const Dipole later = ecg.Heart().At(static_cast<double>(i) / 500 + 0.001);
        const double leadI = 0.632 * now.X - 0.235 * now.Y + 0.059 * now.Z;
        ASSERT_NEAR(wilson[i][0] - wilson[i][1], leadI * 309.37, 1.01) << "II less III, frame " << i;
        const auto word = WordOfMillivolts;
        ASSERT_EQ(frank[i], (Frame{word(now.X), word(now.Y), word(now.Z), word(later.X), word(later.Y), word(later.Z)}))
            << "frame " << i;
    }
}

double Rms(const std::vector<double>& values)
{
    double squares = 0;
    for (const double value : values)
        squares += value * value / static_cast<double>(values.size());
    return std::sqrt(squares);
}

TEST(SyntheticEcg, NoiseHasTheSizeAskedForAndIsEachChannelsOwn)
{
    EcgOptions noisy = noiseless;
    noisy.NoiseMicrovolts = 20;
    const auto expectNoise = [](const std::vector<Frame>& frames, const std::vector<Frame>& quiet, std::size_t count) {
        for (std::size_t channel = 0; channel < count; ++channel) {
            std::vector<double> noise, difference;
            for (std::size_t i = 0; i < frames.size(); ++i) {
                const std::size_t other = (channel + 1) % count;
                noise.push_back((frames[i][channel] - quiet[i][channel]) / 309.37);
                difference.push_back(noise.back() - (frames[i][other] - quiet[i][other]) / 309.37);
            }
            EXPECT_NEAR(Rms(noise), 0.020, 0.001) << channel;
            EXPECT_NEAR(Rms(difference), 0.020 * std::sqrt(2), 0.001) << "less the next channel's, " << channel;
        }
    };
    expectNoise(SyntheticEcg(noisy).WilsonFrames(), SyntheticEcg(noiseless).WilsonFrames(), 8);
    expectNoise(SyntheticEcg(noisy).FrankFrames(), SyntheticEcg(noiseless).FrankFrames(), 3);
}

TEST(MuscleNoise, IsNotWhiteNeitherInsideNorAcrossTheEndOfItsRing)
{
    std::vector<double> inside, across;  // steps from one value to the next
    for (std::uint32_t seed = 0; seed < 2000; ++seed) {
        const auto ring = MuscleNoise(50, 5, seed);
        inside.push_back(ring[25] - ring[24]);
        across.push_back(ring.front() - ring.back());
    }
    EXPECT_NEAR(Rms(inside), 0.006, 0.0004);  // white: 0.0071
    EXPECT_NEAR(Rms(across), 0.006, 0.0004);
}

}  // namespace
}  // namespace ecg
