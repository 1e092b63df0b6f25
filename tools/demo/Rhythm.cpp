#include "demo/Rhythm.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <random>

namespace ecg {
namespace {

constexpr double twoPi = 2 * std::numbers::pi;
constexpr double pressureHz = 0.1;
constexpr double pressureSpreadHz = 0.015;
constexpr double pressureLowestHz = 0.04;  // the borders of the band that is reported as low frequency
constexpr double pressureHighestHz = 0.15;
constexpr double breathHz = 0.25;
constexpr double restFraction = 0.6;  // of an interval from an R wave to the period's end: between T and the next P

double RandomPhase(std::mt19937& random)
{
    return twoPi * static_cast<double>(random()) / (static_cast<double>(std::mt19937::max()) + 1);
}

}  // namespace

Rhythm::Rhythm(const EcgOptions& options) : period_(Limited(options).Seconds)
{
    const EcgOptions limited = Limited(options);
    const double bandRms = limited.RateVariation / std::numbers::sqrt2;  // both bands alike, as at quiet rest
    breath_ = MakeBreath(limited);
    Band breathInRate = breath_;
    ScaleToRms(breathInRate, bandRms);
    rateChange_ = MakePressureWave(limited);
    ScaleToRms(rateChange_, bandRms);
    rateChange_.insert(rateChange_.end(), breathInRate.begin(), breathInRate.end());
    PlaceBeats(limited);
}

double Rhythm::Breath(double seconds) const
{
    return Sum(breath_, seconds);
}

// A hump of lines around 0.1 Hz with random phases.
Rhythm::Band Rhythm::MakePressureWave(const EcgOptions& options) const
{
    std::mt19937 random(options.Seed);
    Band band;
    for (int cycles = 1; cycles / period_ < pressureHighestHz; ++cycles) {
        const double frequency = cycles / period_;
        if (frequency < pressureLowestHz)
            continue;
        const double distance = (frequency - pressureHz) / pressureSpreadHz;
        band.push_back({frequency, std::exp(-distance * distance / 2), RandomPhase(random)});
    }
    return band;
}

// One strong line with two weak neighbours: breaths of a steady pace whose depth comes and goes a little.
Rhythm::Band Rhythm::MakeBreath(const EcgOptions& options) const
{
    std::mt19937 random(options.Seed + 1);
    Band band;
    const auto add = [&](double cycles, double amplitude) {
        if (cycles >= 1)
            band.push_back({cycles / period_, amplitude, RandomPhase(random)});
    };
    const double breaths = std::max(1.0, std::nearbyint(breathHz * period_));
    add(breaths, 1);
    add(breaths - 2, 0.15);
    add(breaths + 3, 0.15);
    return band;
}

// The rate never falls to zero, so each beat is found by halving. Beats start at the fraction of an interval that
// leaves the period's end in the rest between two beats.
void Rhythm::PlaceBeats(const EcgOptions& options)
{
    const double count = std::max(1.0, std::nearbyint(options.BeatsPerMinute * period_ / 60));
    meanRate_ = count / period_;
    for (double beat = 1 - restFraction; beat < count; ++beat) {
        double before = 0;
        double after = period_;
        for (int halving = 0; halving < 50; ++halving) {
            const double middle = (before + after) / 2;
            (BeatsUntil(middle) < beat ? before : after) = middle;
        }
        beats_.push_back(after);
    }
}

double Rhythm::BeatsUntil(double seconds) const
{
    return meanRate_ * (seconds + Integral(rateChange_, seconds));
}

double Rhythm::Sum(const Band& band, double seconds)
{
    double sum = 0;
    for (const Line& line : band)
        sum += line.Amplitude * std::sin(twoPi * line.Frequency * seconds + line.Phase);
    return sum;
}

// Of `Sum`, from time 0.
double Rhythm::Integral(const Band& band, double seconds)
{
    double integral = 0;
    for (const Line& line : band)
        integral += line.Amplitude / (twoPi * line.Frequency) *
                    (std::cos(line.Phase) - std::cos(twoPi * line.Frequency * seconds + line.Phase));
    return integral;
}

void Rhythm::ScaleToRms(Band& band, double rms)
{
    double squares = 0;
    for (const Line& line : band)
        squares += line.Amplitude * line.Amplitude / 2;
    for (Line& line : band)
        line.Amplitude *= rms / std::sqrt(squares);
}

}  // namespace ecg
