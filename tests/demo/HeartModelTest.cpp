// The model's times, found again in its signal, and its options.
#include "demo/HeartModel.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace ecg {
namespace {

double Length(const Dipole& dipole)
{
    return std::hypot(dipole.X, dipole.Y, dipole.Z);
}

TEST(HeartModel, HasNormalIntervalsAndNoSignalOutsideItsWaves)
{
    constexpr double silence = 0.03;  // millivolts
    for (const double rate : {50, 70, 90}) {
        const HeartModel heart({.Seconds = 30, .BeatsPerMinute = rate, .RateVariation = 0, .Breathing = 0});
        for (const Beat& beat : heart.Beats()) {
            const double before =
                &beat == &heart.Beats().front() ? heart.Beats().back().R - heart.Period() : (&beat - 1)->R;
            EXPECT_NEAR(beat.R - before, 60 / rate, 1e-9) << "no variation was asked for";
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

TEST(HeartModel, VariesItsRateAsAskedAndTakesAnyOptionsAtTheirNearestLimit)
{
    const HeartModel heart(EcgOptions{});
    double squares = 0;
    for (std::size_t i = 1; i < heart.Beats().size(); ++i) {
        const double interval = heart.Beats()[i].R - heart.Beats()[i - 1].R;
        squares += std::pow(interval - heart.Period() / 140, 2) / 139;
        EXPECT_TRUE(60.0 / 90 < interval && interval < 60.0 / 60) << interval;
    }
    EXPECT_EQ(heart.Beats().size(), 140u);
    EXPECT_NEAR(std::sqrt(squares), 0.035, 0.006);
    constexpr double endless = std::numeric_limits<double>::infinity();
    for (const double wild : {std::nan(""), endless, -endless, -1.0, 1e300}) {
        const HeartModel model({wild, wild, wild, wild, wild});
        EXPECT_TRUE(model.Period() == 1 || model.Period() == 600);
        EXPECT_TRUE(std::ranges::is_sorted(model.Beats(), {}, &Beat::R) && !model.Beats().empty());
        EXPECT_TRUE(std::isfinite(Length(model.At(0.5))));
    }
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

}  // namespace
}  // namespace ecg
