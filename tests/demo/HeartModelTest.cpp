// The model's times, rhythm and loops, each found again in the signal by another way.
#include "demo/HeartModel.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <complex>
#include <limits>
#include <numbers>

namespace ecg {
namespace {

double Length(const Dipole& dipole)
{
    return std::hypot(dipole.X, dipole.Y, dipole.Z);
}

// Intervals between R waves, the last one round the period's end.
std::vector<double> Intervals(const HeartModel& heart)
{
    std::vector<double> intervals;
    for (std::size_t i = 1; i < heart.Beats().size(); ++i)
        intervals.push_back(heart.Beats()[i].R - heart.Beats()[i - 1].R);
    intervals.push_back(heart.Beats().front().R + heart.Period() - heart.Beats().back().R);
    return intervals;
}

TEST(HeartModel, HasNormalIntervalsAndNoSignalOutsideItsWaves)
{
    constexpr double silence = 0.03;  // millivolts
    for (const double rate : {50, 70, 90}) {
        const HeartModel heart({.Seconds = 30, .BeatsPerMinute = rate, .RateVariation = 0, .Breathing = 0});
        for (const double interval : Intervals(heart))
            EXPECT_NEAR(interval, 60 / rate, 1e-9) << "no variation was asked for";
        for (const Beat& beat : heart.Beats()) {
            EXPECT_NEAR(beat.PEnd - beat.POnset, 0.095, 0.015) << "P";
            EXPECT_NEAR(beat.QrsOnset - beat.POnset, 0.150, 0.010) << "PR";
            EXPECT_NEAR(beat.QrsEnd - beat.QrsOnset, 0.085, 0.010) << "QRS";
            EXPECT_NEAR((beat.TEnd - beat.QrsOnset) / std::sqrt(60 / rate), 0.400, 0.020) << "QT by Bazett";
            for (const double quiet : {beat.POnset - 0.01, (beat.PEnd + beat.QrsOnset) / 2, beat.QrsOnset - 0.008,
                                       (beat.QrsEnd + beat.TOnset) / 2, beat.TEnd + 0.01})
                EXPECT_LT(Length(heart.At(quiet)), silence) << quiet - beat.R;
            for (const double loud : {beat.POnset + 0.02, beat.PEnd - 0.02, beat.QrsOnset + 0.008, beat.QrsEnd - 0.008,
                                      beat.TOnset + 0.04, beat.TEnd - 0.03})
                EXPECT_GT(Length(heart.At(loud)), silence) << loud - beat.R;
            for (const double beside : {beat.R - 0.003, beat.R + 0.003})
                EXPECT_GT(Length(heart.At(beat.R)), 0.98 * Length(heart.At(beside)));
        }
    }
}

// Power of the series of intervals between two frequencies, seconds squared.
double BandPower(const HeartModel& heart, double lowestHz, double highestHz)
{
    const auto intervals = Intervals(heart);
    const auto count = static_cast<double>(intervals.size());
    double power = 0;
    for (double cycles = std::ceil(lowestHz * heart.Period()); cycles < highestHz * heart.Period(); ++cycles) {
        std::complex<double> sum = 0;
        for (std::size_t i = 0; i < intervals.size(); ++i)
            sum += (intervals[i] - heart.Period() / count) *
                   std::polar(1.0, -2 * std::numbers::pi * cycles / heart.Period() * heart.Beats()[i].R);
        power += 2 * std::norm(sum / count);
    }
    return power;
}

TEST(HeartModel, VariesItsRateInThePressureBandAndTheBreathBand)
{
    const HeartModel heart(EcgOptions{});
    const auto intervals = Intervals(heart);
    EXPECT_EQ(intervals.size(), 140u);
    EXPECT_GT(std::ranges::min(intervals), 60.0 / 90);
    EXPECT_LT(std::ranges::max(intervals), 60.0 / 60);
    const double pressure = BandPower(heart, 0.04, 0.15);
    const double breath = BandPower(heart, 0.2, 0.3);
    EXPECT_NEAR(std::sqrt(pressure + breath), 0.035, 0.006) << "standard deviation of the intervals";
    EXPECT_NEAR(pressure / breath, 1.2, 0.5);
    EXPECT_LT(BandPower(heart, 0.16, 0.19), 0.05 * breath) << "between the bands";
    EXPECT_LT(BandPower(heart, 0.32, 0.5), 0.15 * breath);
}

TEST(HeartModel, RunsOnAcrossItsEndEvenThroughAPWave)
{
    constexpr double instant = 1e-6;
    const HeartModel heart({.Seconds = 30, .BeatsPerMinute = 200, .RateVariation = 0, .Breathing = 0});
    ASSERT_LT(heart.Beats().front().POnset, 0);
    for (double time = -0.25; time < 0.25; time += 0.005) {
        EXPECT_NEAR(Length(heart.At(time - instant)), Length(heart.At(time + instant)), 0.001) << time;
        EXPECT_NEAR(heart.At(time).X, heart.At(time + heart.Period()).X, 1e-9) << time;
    }
}

TEST(HeartModel, TakesAnyOptionsAtTheirNearestLimit)
{
    constexpr double none = std::numeric_limits<double>::quiet_NaN();
    constexpr double endless = std::numeric_limits<double>::infinity();
    for (const double wild : {none, endless, -endless, -1.0, 1e300}) {
        const HeartModel heart({wild, wild, wild, wild, wild});
        EXPECT_TRUE(heart.Period() == 1 || heart.Period() == 600);
        EXPECT_GE(heart.Beats().size(), 1u);
        EXPECT_TRUE(std::ranges::is_sorted(heart.Beats(), {}, &Beat::R));
        EXPECT_TRUE(std::isfinite(Length(heart.At(0.5))));
    }
}

}  // namespace
}  // namespace ecg
