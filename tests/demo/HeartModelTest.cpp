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

constexpr EcgOptions still{.Seconds = 30, .BeatsPerMinute = 70, .RateVariation = 0, .Breathing = 0};

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

class AtRate : public testing::TestWithParam<int> {};

TEST_P(AtRate, TheIntervalsOfEachBeatAreNormal)
{
    EcgOptions options = still;
    options.BeatsPerMinute = GetParam();
    const HeartModel heart(options);
    const double rr = 60.0 / GetParam();
    for (const double interval : Intervals(heart))
        EXPECT_NEAR(interval, rr, 1e-9) << "no variation was asked for";
    for (const Beat& beat : heart.Beats()) {
        EXPECT_NEAR(beat.PEnd - beat.POnset, 0.095, 0.015);
        EXPECT_NEAR(beat.QrsOnset - beat.POnset, 0.150, 0.010) << "PR";
        EXPECT_NEAR(beat.QrsEnd - beat.QrsOnset, 0.085, 0.010) << "QRS";
        EXPECT_NEAR((beat.TEnd - beat.QrsOnset) / std::sqrt(rr), 0.400, 0.020) << "QT by Bazett";
    }
}

INSTANTIATE_TEST_SUITE_P(PerMinute, AtRate, testing::Values(50, 60, 70, 90));

TEST(HeartModel, IsSilentOutsideItsWavesAndHeardInside)
{
    constexpr double silence = 0.03; // millivolts
    const HeartModel heart(still);
    for (const Beat& beat : heart.Beats()) {
        for (const double quiet : {beat.POnset - 0.01, (beat.PEnd + beat.QrsOnset) / 2, beat.QrsOnset - 0.008,
                                   (beat.QrsEnd + beat.TOnset) / 2, beat.TEnd + 0.01})
            EXPECT_LT(Length(heart.At(quiet)), silence) << quiet - beat.R;
        for (const double loud : {beat.POnset + 0.02, beat.PEnd - 0.02, beat.QrsOnset + 0.008, beat.QrsEnd - 0.008,
                                  beat.TOnset + 0.04, beat.TEnd - 0.03})
            EXPECT_GT(Length(heart.At(loud)), silence) << loud - beat.R;
        EXPECT_GT(Length(heart.At(beat.R)), 0.98 * Length(heart.At(beat.R + 0.003)));
        EXPECT_GT(Length(heart.At(beat.R)), 0.98 * Length(heart.At(beat.R - 0.003)));
    }
}

TEST(HeartModel, DrawsLoopsOfAHealthyHeart)
{
    const HeartModel heart(still);
    const Beat& beat = heart.Beats()[3];
    double area = 0; // of the horizontal QRS loop seen from above, left to the right and back upwards: + is
                     // counterclockwise
    double longestQrs = 0;
    double longestT = 0;
    Dipole qrs, t;
    for (double time = beat.QrsOnset; time < beat.TEnd; time += 0.001) {
        const Dipole now = heart.At(time);
        const Dipole next = heart.At(time + 0.001);
        const bool ventriclesFill = time < beat.QrsEnd;
        if (ventriclesFill)
            area += (now.X * next.Z - next.X * now.Z) / 2;
        double& longest = ventriclesFill ? longestQrs : longestT;
        if (Length(now) > longest) {
            longest = Length(now);
            (ventriclesFill ? qrs : t) = now;
        }
    }
    EXPECT_GT(area, 0.3);
    EXPECT_LT(heart.At(beat.QrsOnset + 0.02).Z, -0.2) << "the septum is in front";
    EXPECT_GT(heart.At(beat.R + 0.015).Z, 0.4) << "the base is behind";
    const double cosine = (qrs.X * t.X + qrs.Y * t.Y + qrs.Z * t.Z) / (longestQrs * longestT);
    EXPECT_GT(cosine, std::cos(70 * std::numbers::pi / 180)) << "T follows QRS";
    EXPECT_NEAR(longestT / longestQrs, 0.33, 0.1);
}

// Power of the series of intervals between two frequencies, seconds squared.
double BandPower(const HeartModel& heart, double lowestHz, double highestHz)
{
    const auto intervals = Intervals(heart);
    const double mean = heart.Period() / static_cast<double>(intervals.size());
    double power = 0;
    for (int cycles = 1; cycles / heart.Period() < highestHz; ++cycles) {
        const double hertz = cycles / heart.Period();
        if (hertz < lowestHz)
            continue;
        std::complex<double> sum = 0;
        for (std::size_t i = 0; i < intervals.size(); ++i)
            sum += (intervals[i] - mean) * std::polar(1.0, -2 * std::numbers::pi * hertz * heart.Beats()[i].R);
        power += 2 * std::norm(sum / static_cast<double>(intervals.size()));
    }
    return power;
}

TEST(HeartModel, VariesItsRateInThePressureBandAndTheBreathBand)
{
    const HeartModel heart(EcgOptions{});
    const auto intervals = Intervals(heart);
    EXPECT_EQ(intervals.size(), 140u);
    EXPECT_LT(60 / *std::min_element(intervals.begin(), intervals.end()), 90);
    EXPECT_GT(60 / *std::max_element(intervals.begin(), intervals.end()), 60);
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
    EcgOptions fast = still;
    fast.BeatsPerMinute = 200;
    const HeartModel heart(fast);
    ASSERT_LT(heart.Beats().front().POnset, 0);
    for (int i = -50; i <= 50; ++i) {
        const double time = 0.005 * i;
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
        EXPECT_TRUE(std::is_sorted(heart.Beats().begin(), heart.Beats().end(),
                                   [](const Beat& a, const Beat& b) { return a.R < b.R; }));
        EXPECT_TRUE(std::isfinite(Length(heart.At(0.5))));
    }
}

} // namespace
} // namespace ecg
