#include "wfdb/Resample.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <numbers>

namespace ecg {
namespace {

// The kernel is a sinc under a Kaiser window, told in samples of the lower rate. Its reach sets how steep the filter
// is, the window's shape how deep the stop band: 80 dB here, with the transition between 0.42 and 0.5 of the rate.
constexpr int reach = 32;
constexpr double windowShape = 7.86;
constexpr double cutOff = 0.461;  // cycles a sample, the middle of the transition
constexpr int stepsPerSample = 512;

class Kernel {
public:
    Kernel()
    {
        for (std::size_t i = 0; i < table_.size(); ++i)
            table_[i] = Exact(static_cast<double>(i) / stepsPerSample);
    }

    // The kernel at `distance` >= 0 from its centre, on the straight line between two steps of the table.
    double At(double distance) const
    {
        const double step = distance * stepsPerSample;
        const auto i = static_cast<std::size_t>(step);
        if (i + 1 >= table_.size())
            return 0;
        const double part = step - static_cast<double>(i);
        return table_[i] + part * (table_[i + 1] - table_[i]);
    }

private:
    static double Exact(double distance)
    {
        const double place = distance / reach;
        const double window =
            std::cyl_bessel_i(0, windowShape * std::sqrt(1 - place * place)) / std::cyl_bessel_i(0, windowShape);
        const double angle = 2 * std::numbers::pi * cutOff * distance;
        return window * (angle == 0 ? 1 : std::sin(angle) / angle);
    }

    std::array<double, reach * stepsPerSample + 1> table_;
};

}  // namespace

std::vector<double> Resample(std::span<const double> signal, double rateIn, double rateOut)
{
    if (signal.empty() || rateIn == rateOut)
        return {signal.begin(), signal.end()};
    static const Kernel kernel;
    const double ratio = rateIn / rateOut;
    const double kernelScale = std::min(1.0, rateOut / rateIn);  // the filter widens when samples get fewer
    const double inputReach = reach / kernelScale;
    const auto last = static_cast<std::int64_t>(signal.size()) - 1;

    std::vector<double> result(static_cast<std::size_t>(static_cast<double>(signal.size()) * rateOut / rateIn));
    for (std::size_t n = 0; n < result.size(); ++n) {
        const double centre = static_cast<double>(n) * ratio;
        const auto first = static_cast<std::int64_t>(std::ceil(centre - inputReach));
        const auto end = static_cast<std::int64_t>(std::floor(centre + inputReach)) + 1;
        double sum = 0;
        double weights = 0;
        for (std::int64_t k = first; k < end; ++k) {
            const double weight = kernel.At(std::fabs(centre - static_cast<double>(k)) * kernelScale);
            sum += weight * signal[static_cast<std::size_t>(std::clamp<std::int64_t>(k, 0, last))];
            weights += weight;
        }
        result[n] = sum / weights;
    }
    return result;
}

}  // namespace ecg
