// The heart as one electric dipole that grows, turns and vanishes three times a beat.
//
//        P            QRS             T
//     atria fill   ventricles      ventricles recover
//   ---/\-----------|\--------------/--\------------   one axis of the dipole
//               septum, left wall,
//               base
//
// Each axis of each wave is a sum of Gaussian humps, placed in time from the R wave: the dynamical model of McSharry
// (2003) in the vector form of Sameni (2007). P and QRS keep their shape at every rate; T is stretched with the square
// root of the RR interval. The breath turns the dipole a little and moves the baseline.
#pragma once

#include "demo/Rhythm.h"

#include <vector>

namespace ecg {

// Millivolts along the axes of the Frank leads.
struct Dipole {
    double X = 0;  // to the left
    double Y = 0;  // to the feet
    double Z = 0;  // to the back
};

// The model's own truth of one beat, in seconds of the recording. A wave lasts while the length of its dipole is above
// a share of its greatest length: a fiftieth for QRS, a twentieth for P and T. A time of the first or last beat may lie
// outside the period.
struct Beat {
    double POnset;
    double PEnd;
    double QrsOnset;
    double R;  // origin of the beat's clock, at the summit of QRS to 3 ms
    double QrsEnd;
    double TOnset;
    double TEnd;
};

class HeartModel {
public:
    explicit HeartModel(const EcgOptions& options);

    // The dipole at any time; the model repeats itself with its period.
    Dipole At(double seconds) const;

    double Period() const { return rhythm_.Period(); }

    // All beats of one period, in order.
    const std::vector<Beat>& Beats() const { return beats_; }

private:
    Dipole BeatAt(std::size_t beat, double secondsFromR) const;

    double breathing_;
    Rhythm rhythm_;
    std::vector<double> recoveryStretch_;  // of T, by beat
    std::vector<Beat> beats_;
};

}  // namespace ecg
