#include "demo/SyntheticEcg.h"

#include "AmplifierScale.h"
#include "demo/MuscleNoise.h"
#include "demo/TwelveLeads.h"

namespace ecg {
namespace {

constexpr std::size_t frankAxes = 3;
constexpr double millisecond = 0.001;

double FrameTime(std::size_t frame)
{
    return static_cast<double>(frame) / FramesPerSecond;
}

}  // namespace

std::vector<Frame> SyntheticEcg::WilsonFrames() const
{
    const auto noise = ChannelNoise(ChannelCount);
    std::vector<Frame> frames(FrameCount());
    for (std::size_t i = 0; i < frames.size(); ++i) {
        const WilsonLeads leads = WilsonFromFrank(heart_.At(FrameTime(i)));
        const std::array<double, ChannelCount> channels{leads.II,   leads.III,  leads.V[0], leads.V[1],
                                                        leads.V[2], leads.V[3], leads.V[4], leads.V[5]};
        for (std::size_t channel = 0; channel < channels.size(); ++channel)
            frames[i][channel] = WordOfMillivolts(channels[channel] + noise[channel][2 * i]);
    }
    return frames;
}

std::vector<Frame> SyntheticEcg::FrankFrames() const
{
    const auto noise = ChannelNoise(frankAxes);
    std::vector<Frame> frames(FrameCount());
    for (std::size_t i = 0; i < frames.size(); ++i)
        for (std::size_t half = 0; half < 2; ++half) {
            const Dipole dipole = heart_.At(FrameTime(i) + millisecond * static_cast<double>(half));
            const std::array<double, frankAxes> axes{dipole.X, dipole.Y, dipole.Z};
            for (std::size_t axis = 0; axis < frankAxes; ++axis)
                frames[i][frankAxes * half + axis] = WordOfMillivolts(axes[axis] + noise[axis][2 * i + half]);
        }
    return frames;
}

std::size_t SyntheticEcg::FrameCount() const
{
    return static_cast<std::size_t>(RoundToInt(heart_.Period() * FramesPerSecond));
}

// Two values a frame for each channel, each channel its own.
std::vector<std::vector<double>> SyntheticEcg::ChannelNoise(std::size_t channels) const
{
    std::vector<std::vector<double>> noise;
    for (std::size_t channel = 0; channel < channels; ++channel)
        noise.push_back(MuscleNoise(2 * FrameCount(), options_.NoiseMicrovolts,
                                    options_.Seed + 100 + static_cast<std::uint32_t>(channel)));
    return noise;
}

}  // namespace ecg
