#include "analysis/spectrum/TransferFunction.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace ecg {
namespace {

constexpr double fullScale = 40;  // mm on the page: 180 degrees, or the peak of the impulse response

// Meant: with a negative real part and no imaginary part at all the phase is 0, not 180 degrees. Reports have always
// shown it that way, and the arctangent of the quotient knows no better.
double Phase(const Bin& bin)
{
    using std::numbers::pi;
    if (bin.Re == 0)
        return bin.Im == 0 ? 0 : std::copysign(pi / 2, bin.Im);
    const double phase = std::atan(bin.Im / bin.Re);
    if (bin.Re < 0 && bin.Im > 0)
        return phase + pi;
    if (bin.Re < 0 && bin.Im < 0)
        return phase - pi;
    return phase;
}

// All N bins, from the lower half. Meant: the upper half is the lower one in reverse, not conjugated and one bin off,
// and of bins 0 and 1 the mirrors are looked for at N, where there is none, and at N - 1.
std::vector<Bin> Mirrored(std::span<const Bin> lower)
{
    std::vector<Bin> bins(lower.begin(), lower.end());
    bins.insert(bins.end(), lower.rbegin(), lower.rend());
    bins[0] = bins[1] = {};
    bins.back().Re = 0;
    return bins;
}

}  // namespace

std::vector<Bin> TransferFunction(std::span<const Bin> input, std::span<const Bin> output)
{
    std::vector<Bin> transfer(input.size());
    for (std::size_t k = 0; k < transfer.size(); ++k) {
        const Bin& a = input[k];
        const Bin& b = output[k];
        const double power = a.Power();
        if (power != 0)
            transfer[k] = {(a.Re * b.Re + a.Im * b.Im) / power, (a.Re * b.Im - b.Re * a.Im) / power};
        else if (k != 0)
            transfer[k] = transfer[k - 1];
    }
    return transfer;
}

void SetPhaseShift(std::span<const Bin> transfer, BinValues& phaseShift)
{
    for (std::size_t k = 0; k < transfer.size(); ++k)
        phaseShift[k] = static_cast<float>(Phase(transfer[k]) * fullScale / std::numbers::pi);
}

void SetImpulseResponse(std::span<const Bin> transfer, BinValues& response)
{
    const auto answer = InverseTransform(Mirrored(transfer));
    double largest = 0;
    for (const double value : answer)
        largest = std::max(largest, std::fabs(value));
    if (largest == 0)
        return;
    const std::size_t half = transfer.size();
    for (std::size_t n = 0; n < answer.size(); ++n)
        response[(n + half) % answer.size()] = static_cast<float>(answer[n] * fullScale / largest);
}

}  // namespace ecg
