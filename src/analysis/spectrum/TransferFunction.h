// How one lead follows from another: their transfer function, its phase and its impulse response.
#pragma once

#include "analysis/Spectrum.h"
#include "analysis/spectrum/Fourier.h"

namespace ecg {

// Output divided by input, bin by bin. A bin in which the input is silent has the value of the bin before it.
std::vector<Bin> TransferFunction(std::span<const Bin> input, std::span<const Bin> output);

// The phase of each bin; 40 is 180 degrees.
void SetPhaseShift(std::span<const Bin> transfer, BinValues& phaseShift);

// The answer to a single pulse at moment 0, which is drawn in the middle; its peak is 40 or -40. Where there is no
// answer at all `response` stays as it was.
void SetImpulseResponse(std::span<const Bin> transfer, BinValues& response);

}  // namespace ecg
