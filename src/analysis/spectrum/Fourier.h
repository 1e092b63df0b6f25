// Discrete Fourier sums as they are defined. The lengths come from heart cycles, are no powers of two, and at most a
// few hundred: there is nothing for a fast transform to win.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace ecg {

struct Bin {
    double Re = 0;
    double Im = 0;

    double Power() const { return Re * Re + Im * Im; }
};

// The lower half of the spectrum: bins 0 to N/2 - 1 of N samples.
std::vector<Bin> Transform(std::span<const std::int16_t> samples);

// The real part of the signal that has these N bins, times N.
std::vector<double> InverseTransform(std::span<const Bin> bins);

}  // namespace ecg
