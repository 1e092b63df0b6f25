// When the heart beats, and how the chest breathes meanwhile.
//
// The sinus node is an oscillator whose rate follows two bands of its nervous control: slow waves of the blood
// pressure around 0.1 Hz and the breath around 0.25 Hz. Each band is a few sinusoids that fit a whole number of times
// into the recording, and so does the number of beats: the end runs into the beginning.
//
//   rate(t) = mean x (1 + pressure wave(t) + breath(t))      a beat whenever the integral of the rate passes a
//                                                            whole number
#pragma once

#include "demo/EcgOptions.h"

#include <vector>

namespace ecg {

class Rhythm {
public:
    explicit Rhythm(const EcgOptions& options);

    double Period() const { return period_; }  // seconds until everything repeats

    // Times of the R waves within one period, seconds, rising. At least one. The period ends in the rest between
    // two beats, never within one.
    const std::vector<double>& Beats() const { return beats_; }

    // Depth of the breath at any time: 0 on average, about -1.3 to 1.3.
    double Breath(double seconds) const;

private:
    struct Line {
        double Frequency;  // Hz, a whole number of cycles a period
        double Amplitude;
        double Phase;  // radians at time 0
    };
    using Band = std::vector<Line>;

    Band MakePressureWave(const EcgOptions& options) const;
    Band MakeBreath(const EcgOptions& options) const;
    void PlaceBeats(const EcgOptions& options);
    double BeatsUntil(double seconds) const;

    static double Sum(const Band& band, double seconds);
    static double Integral(const Band& band, double seconds);
    static void ScaleToRms(Band& band, double rms);

    double period_;
    double meanRate_ = 0;  // beats a second
    Band breath_;          // of depth 1
    Band rateChange_;      // both bands, relative to the mean rate
    std::vector<double> beats_;
};

}  // namespace ecg
