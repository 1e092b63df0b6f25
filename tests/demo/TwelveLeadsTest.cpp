// What a cardiologist expects of the twelve leads of a healthy adult, lead by lead.
#include "demo/TwelveLeads.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <numeric>

namespace ecg {
namespace {

enum Lead { I, II, III, aVR, aVL, aVF, V1, V2, V3, V4, V5, V6, LeadCount };

struct Range {
    double Lowest, Highest;
    bool Holds(double value) const { return Lowest <= value && value <= Highest; }
};

std::array<double, LeadCount> TwelveLeads(const HeartModel& heart, double seconds)
{
    const WilsonLeads w = WilsonFromFrank(heart.At(seconds));
    const double leadI = w.II - w.III;
    return {leadI,  w.II,   w.III, -(leadI + w.II) / 2, (leadI - w.III) / 2, (w.II + w.III) / 2, w.V[0], w.V[1], w.V[2],
            w.V[3], w.V[4], w.V[5]};
}

// One lead of one beat without noise and breath, millivolts at a thousand a second between two instants.
std::vector<double> Stretch(Lead lead, double Beat::*from, double Beat::*to)
{
    static const HeartModel heart({.Seconds = 10, .BeatsPerMinute = 60, .RateVariation = 0, .Breathing = 0});
    const Beat& beat = heart.Beats()[4];
    std::vector<double> values;
    for (double time = beat.*from; time <= beat.*to; time += 0.001)
        values.push_back(TwelveLeads(heart, time)[lead]);
    return values;
}

double Highest(const std::vector<double>& values)
{
    return *std::max_element(values.begin(), values.end());
}

double Lowest(const std::vector<double>& values)
{
    return *std::min_element(values.begin(), values.end());
}

double FarthestFromZero(const std::vector<double>& values)
{
    return *std::max_element(values.begin(), values.end(),
                             [](double a, double b) { return std::fabs(a) < std::fabs(b); });
}

// The dip before the summit of QRS.
double Q(Lead lead)
{
    const auto qrs = Stretch(lead, &Beat::QrsOnset, &Beat::QrsEnd);
    return *std::min_element(qrs.begin(), std::max_element(qrs.begin(), qrs.end()) + 1);
}

struct Norm {
    Lead Index;
    const char* Name;
    Range P, R, LowestOfQrs, T; // millivolts; P and T: the value farthest from zero
};

class NormalLead : public testing::TestWithParam<Norm> {};

TEST_P(NormalLead, HasWavesOfNormalSizeAndALevelStSegment)
{
    const Norm& norm = GetParam();
    const double p = FarthestFromZero(Stretch(norm.Index, &Beat::POnset, &Beat::PEnd));
    const auto qrs = Stretch(norm.Index, &Beat::QrsOnset, &Beat::QrsEnd);
    const double t = FarthestFromZero(Stretch(norm.Index, &Beat::TOnset, &Beat::TEnd));
    EXPECT_TRUE(norm.P.Holds(p)) << p;
    EXPECT_TRUE(norm.R.Holds(Highest(qrs))) << Highest(qrs);
    EXPECT_TRUE(norm.LowestOfQrs.Holds(Lowest(qrs))) << Lowest(qrs);
    EXPECT_TRUE(norm.T.Holds(t)) << t;
    EXPECT_LT(std::fabs(FarthestFromZero(Stretch(norm.Index, &Beat::QrsEnd, &Beat::TOnset))), 0.05) << "ST";
    EXPECT_LT(std::fabs(FarthestFromZero(Stretch(norm.Index, &Beat::PEnd, &Beat::QrsOnset))), 0.04) << "PR segment";
}

INSTANTIATE_TEST_SUITE_P(Adult, NormalLead,
                         testing::Values(Norm{I, "I", {0.03, 0.15}, {0.3, 1.2}, {-0.15, 0}, {0.1, 0.4}},
                                         Norm{II, "II", {0.08, 0.25}, {0.6, 1.8}, {-0.3, 0}, {0.15, 0.5}},
                                         Norm{III, "III", {0.02, 0.2}, {0.2, 1.2}, {-0.4, 0}, {0.02, 0.35}},
                                         Norm{aVR, "aVR", {-0.2, -0.05}, {0, 0.2}, {-1.3, -0.5}, {-0.4, -0.1}},
                                         Norm{aVL, "aVL", {-0.08, 0.1}, {0.1, 0.7}, {-0.2, 0}, {0.01, 0.25}},
                                         Norm{aVF, "aVF", {0.05, 0.2}, {0.4, 1.5}, {-0.3, 0}, {0.1, 0.4}},
                                         Norm{V1, "V1", {-0.1, 0.1}, {0.1, 0.6}, {-1.6, -0.5}, {-0.1, 0.2}},
                                         Norm{V2, "V2", {-0.1, 0.15}, {0.2, 1.0}, {-2.0, -0.6}, {0.2, 0.8}},
                                         Norm{V3, "V3", {0.03, 0.2}, {0.5, 1.6}, {-1.5, -0.3}, {0.3, 0.9}},
                                         Norm{V4, "V4", {0.03, 0.2}, {0.9, 2.2}, {-0.8, 0}, {0.3, 0.9}},
                                         Norm{V5, "V5", {0.03, 0.2}, {0.9, 2.2}, {-0.4, 0}, {0.2, 0.7}},
                                         Norm{V6, "V6", {0.03, 0.2}, {0.7, 1.8}, {-0.3, 0}, {0.15, 0.5}}),
                         [](const auto& test) { return test.param.Name; });

TEST(NormalChestLeads, GainRAndLoseSFromRightToLeft)
{
    std::vector<double> r, shareOfR;
    for (int lead = V1; lead <= V6; ++lead) {
        const auto qrs = Stretch(static_cast<Lead>(lead), &Beat::QrsOnset, &Beat::QrsEnd);
        r.push_back(Highest(qrs));
        shareOfR.push_back(Highest(qrs) / (Highest(qrs) - Lowest(qrs)));
    }
    EXPECT_TRUE(std::is_sorted(r.begin(), r.begin() + 4)) << "V1 to V4";
    EXPECT_LT(r[5], r[4]) << "V6 below V5";
    EXPECT_TRUE(std::is_sorted(shareOfR.begin(), shareOfR.begin() + 5)) << "V1 to V5";
    EXPECT_LT(shareOfR[1], 0.5) << "V2 is mostly S";
    EXPECT_GT(shareOfR[3], 0.5) << "V4 is mostly R";
}

TEST(NormalSeptum, GivesASmallQOnTheLeftAndNoneOnTheRight)
{
    for (const Lead lead : {I, V5, V6}) {
        const double r = Highest(Stretch(lead, &Beat::QrsOnset, &Beat::QrsEnd));
        EXPECT_LT(Q(lead), -0.03) << lead;
        EXPECT_GT(Q(lead), -r / 4) << lead;
    }
    for (const Lead lead : {V1, V2})
        EXPECT_GT(Q(lead), -0.01) << lead;
}

double AxisDegrees(double Beat::*from, double Beat::*to)
{
    const auto area = [&](Lead lead) {
        const auto values = Stretch(lead, from, to);
        return std::accumulate(values.begin(), values.end(), 0.0);
    };
    return std::atan2(2 / std::sqrt(3.0) * area(aVF), area(I)) * 180 / std::numbers::pi;
}

TEST(NormalAxis, OfPQrsAndTPointDownToTheLeft)
{
    EXPECT_TRUE((Range{30, 75}).Holds(AxisDegrees(&Beat::POnset, &Beat::PEnd)));
    EXPECT_TRUE((Range{40, 65}).Holds(AxisDegrees(&Beat::QrsOnset, &Beat::QrsEnd)));
    EXPECT_TRUE((Range{25, 65}).Holds(AxisDegrees(&Beat::TOnset, &Beat::TEnd)));
}

} // namespace
} // namespace ecg
