#include "analysis/Spectrum.h"
#include "core/Numbers.h"

#include <algorithm>
#include <cmath>
#include <span>
#include <vector>

namespace ecg {
namespace {

struct Harmonic {
    float Magnitude;
    int Bin;
};

// How far a bin stands out of its neighbours.
double Sharpness(const BinValues& magnitudes, std::size_t bin)
{
    return 2.0 * magnitudes[bin] - magnitudes[bin - 1] - magnitudes[bin + 1];
}

// Meant: a bin that falls behind its right neighbour takes part too, when it does so by more than half a unit.
double SharpnessThreshold(const BinValues& magnitudes, std::size_t half)
{
    constexpr double partOfSharpest = 0.15;
    double sharpest = -10000;
    for (std::size_t k = 1; k <= half; ++k) {
        const double fall = double{magnitudes[k]} - magnitudes[k + 1];
        if (magnitudes[k] > magnitudes[k - 1] && RoundHalfEven(fall) != 0)
            sharpest = std::max(sharpest, Sharpness(magnitudes, k));
    }
    return sharpest * partOfSharpest;
}

std::vector<Harmonic> FindHarmonics(const BinValues& magnitudes, int length)
{
    constexpr double leastHz = 0.5;
    const std::size_t half = static_cast<std::size_t>(std::max(length / 2, 1)) - 1;
    const double threshold = SharpnessThreshold(magnitudes, half);
    std::vector<Harmonic> harmonics;
    for (std::size_t k = 1; k <= half; ++k) {
        const double hz = static_cast<double>(k) * SpectrumRate / length;
        if (Sharpness(magnitudes, k) > threshold && magnitudes[k] > magnitudes[k - 1] &&
            magnitudes[k] > magnitudes[k + 1] && hz >= leastHz)
            harmonics.push_back({magnitudes[k], static_cast<int>(k)});
    }
    return harmonics;
}

// `harmonics` holds one at least.
bool SpacedUnevenly(const std::vector<Harmonic>& harmonics)
{
    constexpr double widest = 1.15;
    constexpr double closest = 0.85;
    const double mean = static_cast<double>(harmonics.back().Bin) / static_cast<double>(harmonics.size());
    return std::ranges::adjacent_find(harmonics, [&](const Harmonic& left, const Harmonic& right) {
               const int spacing = right.Bin - left.Bin;
               return spacing > widest * mean || spacing < closest * mean;
           }) != harmonics.end();
}

}  // namespace

void ClassifySpectrum(SpectrumGroup group, int heartRate, SpectrumResult& result)
{
    constexpr double fasterThanHeart = 1.5;
    constexpr float high = 10;
    constexpr std::size_t fifth = 4;
    constexpr int secondsInMinute = 60;
    const auto place = static_cast<std::size_t>(group);
    const auto marks = std::span(result.Marks).subspan(place * MarksOfGroup, MarksOfGroup);
    std::ranges::fill(marks, false);
    const auto harmonics = FindHarmonics(result.Spectrum[result.DftLeads[place]], result.Length);
    if (harmonics.empty())
        return;
    const Harmonic first = harmonics[0];
    const float second = harmonics.size() > 1 ? harmonics[1].Magnitude : 0;
    const double perMinute = static_cast<double>(first.Bin) * SpectrumRate * secondsInMinute / result.Length;
    marks[mark::H] = first.Magnitude < second;
    marks[mark::U] = SpacedUnevenly(harmonics);
    marks[mark::N] = perMinute > fasterThanHeart * heartRate;
    marks[mark::APlus] = first.Magnitude > high && second > high;
    const auto upper = std::span(harmonics).subspan(std::min(fifth, harmonics.size()));
    marks[mark::AMinus] =
        std::any_of(upper.begin(), upper.end(), [&](const Harmonic& h) { return h.Magnitude > first.Magnitude; });
}

void ClassifyTransfer(SpectrumResult& result)
{
    constexpr int fromHz = 6;
    constexpr int toHz = 20;
    constexpr float rightAngle = 20;
    const auto length = static_cast<std::size_t>(result.Length);
    const std::size_t from = length * fromHz / SpectrumRate;
    const std::size_t to = length * toHz / SpectrumRate;
    result.Marks[mark::D] = std::any_of(result.PhaseShift.begin() + from, result.PhaseShift.begin() + to + 1,
                                        [](float phase) { return std::fabs(phase) > rightAngle; });
    const auto response = std::span(result.ImpulseResp).first(length);
    const auto [lowest, highest] = std::ranges::minmax_element(response);
    result.Marks[mark::F] = lowest != response.end() && std::fabs(*lowest) >= std::fabs(*highest);
    result.Marks[mark::M] = false;
    result.Marks[mark::RSR] = true;
    result.Marks[mark::CSR] = false;
}

}  // namespace ecg
