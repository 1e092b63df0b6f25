// What a cardiologist expects of the twelve leads of a healthy adult, lead by lead.
#include "demo/TwelveLeads.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace ecg {
namespace {

enum Lead { I, II, III, aVR, aVL, aVF, V1, V2, V3, V4, V5, V6, LeadCount };

std::array<double, LeadCount> TwelveLeads(const HeartModel& heart, double seconds)
{
    const auto [two, three, v] = WilsonFromFrank(heart.At(seconds));
    const double one = two - three;
    return {one,  two,  three, -(one + two) / 2, (one - three) / 2, (two + three) / 2, v[0], v[1], v[2],
            v[3], v[4], v[5]};
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

double FarthestFromZero(const std::vector<double>& values)
{
    return std::ranges::max(values, {}, [](double value) { return std::fabs(value); });
}

using Range = std::pair<double, double>;  // mV

void ExpectWithin(const Range& range, double value, const char* what)
{
    EXPECT_TRUE(range.first <= value && value <= range.second) << what << " is " << value << " mV";
}

TEST(NormalLeads, HaveWavesOfNormalSizeAndLevelSegments)
{
    // R grows from V1 to V4 and is lower again in V6; V2 is mostly S, V4 mostly R.
    const struct {
        const char* Name;
        Range P, R, LowestOfQrs, T;  // millivolts; P and T: the value farthest from zero
    } norms[LeadCount] = {{"I", {0.03, 0.15}, {0.3, 1.2}, {-0.15, 0}, {0.1, 0.4}},
                          {"II", {0.08, 0.25}, {0.6, 1.8}, {-0.3, 0}, {0.15, 0.5}},
                          {"III", {0.02, 0.2}, {0.2, 1.2}, {-0.4, 0}, {0.02, 0.35}},
                          {"aVR", {-0.2, -0.05}, {0, 0.2}, {-1.3, -0.5}, {-0.4, -0.1}},
                          {"aVL", {-0.08, 0.1}, {0.1, 0.7}, {-0.2, 0}, {0.01, 0.25}},
                          {"aVF", {0.05, 0.2}, {0.4, 1.5}, {-0.3, 0}, {0.1, 0.4}},
                          {"V1", {-0.1, 0.1}, {0.1, 0.4}, {-1.6, -0.7}, {-0.1, 0.2}},
                          {"V2", {-0.1, 0.15}, {0.4, 0.7}, {-2.0, -0.75}, {0.2, 0.8}},
                          {"V3", {0.03, 0.2}, {0.7, 1.3}, {-0.75, -0.3}, {0.3, 0.9}},
                          {"V4", {0.03, 0.2}, {1.3, 2.2}, {-0.3, 0}, {0.3, 0.9}},
                          {"V5", {0.03, 0.2}, {1.3, 2.2}, {-0.2, 0}, {0.2, 0.7}},
                          {"V6", {0.03, 0.2}, {0.7, 1.3}, {-0.2, 0}, {0.15, 0.5}}};
    for (const auto& norm : norms) {
        SCOPED_TRACE(norm.Name);
        const auto lead = static_cast<Lead>(&norm - norms);
        const auto qrs = Stretch(lead, &Beat::QrsOnset, &Beat::QrsEnd);
        ExpectWithin(norm.P, FarthestFromZero(Stretch(lead, &Beat::POnset, &Beat::PEnd)), "P");
        ExpectWithin(norm.R, std::ranges::max(qrs), "R");
        ExpectWithin(norm.LowestOfQrs, std::ranges::min(qrs), "the lowest of QRS");
        ExpectWithin(norm.T, FarthestFromZero(Stretch(lead, &Beat::TOnset, &Beat::TEnd)), "T");
        ExpectWithin({-0.05, 0.05}, FarthestFromZero(Stretch(lead, &Beat::QrsEnd, &Beat::TOnset)), "ST");
        ExpectWithin({-0.04, 0.04}, FarthestFromZero(Stretch(lead, &Beat::PEnd, &Beat::QrsOnset)), "PR segment");
    }
}

}  // namespace
}  // namespace ecg
