// What a synthetic ECG is asked to be. The factory values give the demonstration files: a healthy adult at rest.
#pragma once

#include <cstdint>

namespace ecg {

// A value outside its range is taken as the range's nearest end.
struct EcgOptions {
    double Seconds = 120;          // 1 to 600; the signal repeats itself after this time, without a seam
    double BeatsPerMinute = 70;    // 20 to 240, the mean; bent so that a whole number of beats fits `Seconds`
    double RateVariation = 0.042;  // 0 to 0.2, rms of the rate's change over its mean; 0 is a metronome
    double Breathing = 1;          // 0 to 5, movement of axis and baseline with the breath; 0 holds the breath
    double NoiseMicrovolts = 5;    // 0 to 1000, rms on each recorded channel
    std::uint32_t Seed = 20;       // of everything random: the same options always give the same signal
};

// `options` with every value inside its range.
EcgOptions Limited(const EcgOptions& options);

}  // namespace ecg
