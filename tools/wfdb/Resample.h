// A signal at another sampling rate.
#pragma once

#include <span>
#include <vector>

namespace ecg {

// The signal as if it had been sampled `rateOut` times a second; both rates above 0, in any ratio.
//
// Sample n of the result stands for the moment n / `rateOut`, the same zero of time as the input's, so there is no
// delay. The result lasts no longer than the input. Beyond its ends the input is taken to go on at its first and
// last value. Equal rates give the input back untouched.
//
// The filter is symmetric (linear phase). With r the lower of the two rates, it passes 0 to 0.42 r within 0.02 %
// and holds what lies above 0.5 r (aliases or images) under 0.02 %; a constant stays what it is.
std::vector<double> Resample(std::span<const double> signal, double rateIn, double rateOut);

}  // namespace ecg
