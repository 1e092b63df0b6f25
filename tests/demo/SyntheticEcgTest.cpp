// Frames of the synthetic ECG: scale, order of channels and halves, noise.
#include "demo/SyntheticEcg.h"

#include "AmplifierScale.h"

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

TEST(SyntheticEcg, NoiseHasTheSizeAskedFor)
{
    EcgOptions noisy = noiseless;
    noisy.NoiseMicrovolts = 20;
    const auto frames = SyntheticEcg(noisy).WilsonFrames();
    const auto quiet = SyntheticEcg(noiseless).WilsonFrames();
    for (std::size_t channel = 0; channel < ChannelCount; ++channel) {
        double squares = 0;
        for (std::size_t i = 0; i < frames.size(); ++i)
            squares += std::pow((frames[i][channel] - quiet[i][channel]) / 309.37, 2);
        EXPECT_NEAR(std::sqrt(squares / static_cast<double>(frames.size())), 0.020, 0.001) << channel;
    }
}

}  // namespace
}  // namespace ecg
