#include "demo/MuscleNoise.h"

#include <cmath>
#include <numbers>
#include <random>

namespace ecg {
namespace {

constexpr double samplesPerSecond = 1000;
constexpr double lowestHz = 20;
constexpr double highestHz = 150;

// Nearly normal, and the same with every library: the sum of twelve equal draws.
double Draw(std::mt19937& random)
{
    constexpr int draws = 12;
    double sum = 0;
    for (int i = 0; i < draws; ++i)
        sum += static_cast<double>(random()) / static_cast<double>(std::mt19937::max());
    return sum - draws / 2.0;
}

// First-order low pass. Run twice round the ring: the first round leaves the filter in the state that the ring's end
// hands to its beginning.
std::vector<double> LowPass(const std::vector<double>& ring, double hertz)
{
    const double share = 1 - std::exp(-2 * std::numbers::pi * hertz / samplesPerSecond);
    std::vector<double> smooth(ring.size());
    double level = 0;
    for (int round = 0; round < 2; ++round)
        for (std::size_t i = 0; i < ring.size(); ++i) {
            level += share * (ring[i] - level);
            smooth[i] = level;
        }
    return smooth;
}

}  // namespace

std::vector<double> MuscleNoise(std::size_t count, double rmsMicrovolts, std::uint32_t seed)
{
    constexpr double microvoltsPerMillivolt = 1000;
    if (count < 2)
        return std::vector<double>(count);
    std::mt19937 random(seed);
    std::vector<double> white(count);
    for (double& value : white)
        value = Draw(random);
    std::vector<double> noise = LowPass(white, highestHz);
    const std::vector<double> drift = LowPass(noise, lowestHz);
    double squares = 0;
    for (std::size_t i = 0; i < count; ++i) {
        noise[i] -= drift[i];
        squares += noise[i] * noise[i];
    }
    const double scale = rmsMicrovolts / microvoltsPerMillivolt / std::sqrt(squares / static_cast<double>(count));
    for (double& value : noise)
        value *= scale;
    return noise;
}

}  // namespace ecg
