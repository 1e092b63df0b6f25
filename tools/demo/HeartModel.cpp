#include "demo/HeartModel.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>

namespace ecg {
namespace {

struct Hump {
    double Centre;      // seconds from R; for T at an RR interval of one second
    double Width;       // standard deviation, seconds
    double Millivolts;  // summit
};

struct Wave {
    std::span<const Hump> X, Y, Z;
};

constexpr std::array pX{Hump{-0.158, 0.016, 0.060}, Hump{-0.133, 0.015, 0.105}};
constexpr std::array pY{Hump{-0.158, 0.016, 0.070}, Hump{-0.133, 0.015, 0.050}};
constexpr std::array pZ{Hump{-0.162, 0.014, -0.050}, Hump{-0.131, 0.014, 0.025}};

constexpr std::array qrsX{Hump{-0.029, 0.007, -0.13}, Hump{-0.011, 0.0085, 0.58}, Hump{0.002, 0.0085, 0.84},
                          Hump{0.014, 0.008, 0.46}, Hump{0.029, 0.007, -0.04}};
constexpr std::array qrsY{Hump{-0.014, 0.0095, 0.17}, Hump{0.002, 0.0095, 0.68}, Hump{0.024, 0.0075, -0.05}};
constexpr std::array qrsZ{Hump{-0.026, 0.0078, -0.29}, Hump{-0.011, 0.0085, -0.10}, Hump{0.015, 0.0095, 0.70},
                          Hump{0.029, 0.007, 0.08}};

constexpr std::array tX{Hump{0.217, 0.045, 0.13}, Hump{0.268, 0.033, 0.27}};
constexpr std::array tY{Hump{0.217, 0.045, 0.050}, Hump{0.266, 0.033, 0.115}};
constexpr std::array tZ{Hump{0.213, 0.044, -0.11}, Hump{0.258, 0.033, -0.165}};

constexpr Wave pWave{pX, pY, pZ};
constexpr Wave qrsWave{qrsX, qrsY, qrsZ};
constexpr Wave tWave{tX, tY, tZ};

constexpr double shareOfQrs = 1.0 / 50;  // of the greatest length, where the wave begins and ends
constexpr double shareOfPAndT = 1.0 / 20;
constexpr std::size_t recoveryMemory = 8;  // intervals whose mean sets the length of T: it follows the rate slowly

constexpr double breathTurn = 0.035;                   // radians in the frontal plane at breath 1
constexpr Dipole breathBaseline{0.015, 0.020, 0.010};  // millivolts at breath 1

double Height(std::span<const Hump> humps, double seconds)
{
    double sum = 0;
    for (const Hump& hump : humps) {
        const double distance = (seconds - hump.Centre) / hump.Width;
        sum += hump.Millivolts * std::exp(-distance * distance / 2);
    }
    return sum;
}

Dipole DipoleOf(const Wave& wave, double seconds)
{
    return {Height(wave.X, seconds), Height(wave.Y, seconds), Height(wave.Z, seconds)};
}

Dipole operator+(const Dipole& a, const Dipole& b)
{
    return {a.X + b.X, a.Y + b.Y, a.Z + b.Z};
}

struct Limits {
    double Onset;
    double End;
};

// Where the wave begins and ends by its share, on a grid of a tenth of a millisecond.
Limits FindLimits(const Wave& wave, double share)
{
    constexpr double step = 0.0001;
    constexpr double first = -0.3;
    constexpr int steps = 9000;
    std::array<double, steps> length{};
    for (int i = 0; i < steps; ++i) {
        const Dipole dipole = DipoleOf(wave, first + step * i);
        length[static_cast<std::size_t>(i)] = std::hypot(dipole.X, dipole.Y, dipole.Z);
    }
    const double threshold = share * *std::max_element(length.begin(), length.end());
    const auto above = [&](double value) { return value > threshold; };
    const auto onset = std::find_if(length.begin(), length.end(), above) - length.begin();
    const auto end = length.rend() - std::find_if(length.rbegin(), length.rend(), above) - 1;
    return {first + step * static_cast<double>(onset), first + step * static_cast<double>(end)};
}

// Square root of the mean of the intervals before each beat, counted round the period.
std::vector<double> RecoveryStretch(const Rhythm& rhythm)
{
    const std::vector<double>& r = rhythm.Beats();
    const std::size_t count = r.size();
    const std::size_t memory = std::min(recoveryMemory, count);
    std::vector<double> stretch(count);
    for (std::size_t beat = 0; beat < count; ++beat) {
        const std::size_t earlier = (beat + count - memory) % count;
        const double span = r[beat] - r[earlier] + (earlier >= beat ? rhythm.Period() : 0);
        stretch[beat] = std::sqrt(span / static_cast<double>(memory));
    }
    return stretch;
}

}  // namespace

HeartModel::HeartModel(const EcgOptions& options)
    : breathing_(Limited(options).Breathing), rhythm_(options), recoveryStretch_(RecoveryStretch(rhythm_))
{
    const Limits p = FindLimits(pWave, shareOfPAndT);
    const Limits qrs = FindLimits(qrsWave, shareOfQrs);
    const Limits t = FindLimits(tWave, shareOfPAndT);
    for (std::size_t i = 0; i < rhythm_.Beats().size(); ++i) {
        const double r = rhythm_.Beats()[i];
        const double stretch = recoveryStretch_[i];
        beats_.push_back(
            {r + p.Onset, r + p.End, r + qrs.Onset, r, r + qrs.End, r + t.Onset * stretch, r + t.End * stretch});
    }
}

// The last beat before the time is in its QRS or T, the next one perhaps already in its P; no other reaches here.
Dipole HeartModel::At(double seconds) const
{
    const double period = rhythm_.Period();
    const double time = seconds - period * std::floor(seconds / period);
    const std::vector<double>& r = rhythm_.Beats();
    const auto next = static_cast<std::size_t>(std::upper_bound(r.begin(), r.end(), time) - r.begin());
    const std::size_t last = r.size() - 1;
    const Dipole before = next > 0 ? BeatAt(next - 1, time - r[next - 1]) : BeatAt(last, time - r[last] + period);
    const Dipole after = next <= last ? BeatAt(next, time - r[next]) : BeatAt(0, time - r[0] - period);
    const Dipole heart = before + after;

    const double breath = breathing_ * rhythm_.Breath(time);
    const double cosine = std::cos(breathTurn * breath);
    const double sine = std::sin(breathTurn * breath);
    return {heart.X * cosine - heart.Y * sine + breathBaseline.X * breath,
            heart.X * sine + heart.Y * cosine + breathBaseline.Y * breath, heart.Z + breathBaseline.Z * breath};
}

Dipole HeartModel::BeatAt(std::size_t beat, double secondsFromR) const
{
    return DipoleOf(pWave, secondsFromR) + DipoleOf(qrsWave, secondsFromR) +
           DipoleOf(tWave, secondsFromR / recoveryStretch_[beat]);
}

}  // namespace ecg
