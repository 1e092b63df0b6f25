#include "analysis/spectrum/Fourier.h"

#include <cmath>
#include <numbers>

namespace ecg {
namespace {

// The circle in N steps: every cosine and sine that sums of N places need.
std::vector<Bin> UnitCircle(std::size_t steps)
{
    std::vector<Bin> circle(steps);
    for (std::size_t i = 0; i < steps; ++i) {
        const double angle = 2 * std::numbers::pi * static_cast<double>(i) / static_cast<double>(steps);
        circle[i] = {std::cos(angle), std::sin(angle)};
    }
    return circle;
}

// The next place on the circle, `step` further.
std::size_t Turn(std::size_t place, std::size_t step, std::size_t steps)
{
    place += step;
    return place < steps ? place : place - steps;
}

}  // namespace

std::vector<Bin> Transform(std::span<const std::int16_t> samples)
{
    const auto circle = UnitCircle(samples.size());
    std::vector<Bin> bins(samples.size() / 2);
    for (std::size_t k = 0; k < bins.size(); ++k) {
        std::size_t place = 0;
        for (const std::int16_t sample : samples) {
            bins[k].Re += sample * circle[place].Re;
            bins[k].Im -= sample * circle[place].Im;
            place = Turn(place, k, samples.size());
        }
    }
    return bins;
}

std::vector<double> InverseTransform(std::span<const Bin> bins)
{
    const auto circle = UnitCircle(bins.size());
    std::vector<double> signal(bins.size());
    for (std::size_t n = 0; n < signal.size(); ++n) {
        std::size_t place = 0;
        for (const Bin& bin : bins) {
            signal[n] += bin.Re * circle[place].Re - bin.Im * circle[place].Im;
            place = Turn(place, n, bins.size());
        }
    }
    return signal;
}

}  // namespace ecg
