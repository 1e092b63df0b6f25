// Each rule just fires, and no longer does when any one of its conditions is at its limit.
#include "analysis/Diagnose.h"

#include "analysis/BeatResult.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <functional>
#include <limits>

namespace ecg {
namespace {

using namespace lead;
using Lead = lead::Index;

// clang-format off
constexpr std::array<Twin, 31> statements{{  // by rule; 0 is none
    {"正常心电图", "Normal ecectrocaodiogram"}, {"正常窦性心律", "Normal sinus rhythm"},
    {"窦性心率过速", "Sinus tachycardia"}, {"窦性心率过缓", "Sinus bradycardia"}, {"心率过速", "tachycardia"},
    {"心率过缓", "bradycardia"}, {"肢导联低电压", "Limb lead low voltage"},
    {"胸导联低电压", "Chest lead low voltage"}, {"右心室肥大", "Right ventricuiar hypertrophy"},
    {"左心室肥大", "Left ventricuiar hypertrophy"}, {"右心房肥大", "Right atrial hypertrophy"},
    {"前间壁心肌梗塞", "Anteroseptal myocardial infarction"}, {"前壁心肌梗塞", "Anterior myocardial infarction"},
    {"前侧壁心肌梗塞", "Anterolateral myocardial infarction"},
    {"广泛性前壁心肌梗塞", "Extensive anterior myocardial infarction"},
    {"心尖部心肌梗塞", "Cardiac apex myocardial infarction"}, {"下壁心肌梗塞", "Inferior myocardial infarction"},
    {"高侧壁心肌梗塞", "High lateral wall myocardial infarction"},
    {"下壁心肌缺血", "Subepicardial ischemia of interior wall"}, {"侧壁心肌缺血", "Lateral myocardial ischemia"},
    {"冠状动脉供血不足", "Coronary insufficiency"}, {"右位心", "Dextrocardia"},
    {"一度房室传导阻滞", "First degree atrioventricular block"},
    {"左前分支传导阻滞", "Left anterior fascicular block"}, {"左后分支传导阻滞", "Left posterior fascicular block"},
    {"完全性右束支传导阻滞", "Complete right bundle branch block"},
    {"不完全性右束支传导阻滞", "Incomplete right bundle branch block"},
    {"预激综合症(LGL)", "Preexcitation syndrome(LGL)"}, {"预激综合症(A型)", "Preexcitation syndrome(A type)"},
    {"预激综合症(B型)", "Preexcitation syndrome(B type)"}, {"预激综合症(C型)", "Preexcitation syndrome(C type)"}}};
// clang-format on

// Of a beat with normal waves, R of 1 mV, and the one rate at which no rule speaks of that.
struct Beat {
    Beat()
    {
        Params.HeartRate = 100;
        Params.Axis = 60;
        Params.PR.fill(Float32{160});
        Params.QRSd.fill(Float32{90});
        Params.PPlus.fill(Float32{0.1F});
        Params.PPlus[aVR] = 0;
        Params.PMinus[aVR] = -0.1F;
        Params.PAmp.fill(Float32{0.1F});
        Params.QAmp.fill(Float32{-0.01F});
        Params.RAmp.fill(Float32{1});
        Params.SAmp.fill(Float32{-0.3F});
        Params.TAmp.fill(Float32{0.3F});
    }

    MeasuredParams Params;
    Byte Sex = 0;
};

// Something else about a beat, in some leads.
struct Change {
    std::vector<Lead> Leads;
    std::function<void(Beat&, Lead)> Make;
};

template <std::array<Float32, 12> MeasuredParams::*Field>
Change Set(std::vector<Lead> leads, float value)
{
    return {std::move(leads), [=](Beat& beat, Lead lead) { (beat.Params.*Field)[lead] = value; }};
}

constexpr auto PPlus = Set<&MeasuredParams::PPlus>;
constexpr auto PMinus = Set<&MeasuredParams::PMinus>;
constexpr auto P = Set<&MeasuredParams::PAmp>;
constexpr auto Q = Set<&MeasuredParams::QAmp>;
constexpr auto R = Set<&MeasuredParams::RAmp>;
constexpr auto S = Set<&MeasuredParams::SAmp>;
constexpr auto R2 = Set<&MeasuredParams::R2Amp>;
constexpr auto ST = Set<&MeasuredParams::STm>;
constexpr auto T = Set<&MeasuredParams::TAmp>;

// Of the whole beat.
constexpr auto Rate = [](Byte rate) { return Change{{I}, [=](Beat& beat, Lead) { beat.Params.HeartRate = rate; }}; };
constexpr auto Axis = [](float axis) { return Change{{I}, [=](Beat& beat, Lead) { beat.Params.Axis = axis; }}; };
constexpr auto PR = [](float ms) { return Change{{I}, [=](Beat& beat, Lead) { beat.Params.PR[AllLeads] = ms; }}; };
constexpr auto QRSd = [](float ms) { return Change{{I}, [=](Beat& beat, Lead) { beat.Params.QRSd[AllLeads] = ms; }}; };
constexpr auto QRSdV1 = [](float ms) { return Change{{I}, [=](Beat& beat, Lead) { beat.Params.QRSd[V1] = ms; }}; };
constexpr auto Sex = [](Byte sex) { return Change{{I}, [=](Beat& beat, Lead) { beat.Sex = sex; }}; };

// The next 32-bit floats.
const auto Above = [](float limit) { return std::nextafter(limit, std::numeric_limits<float>::infinity()); };
const auto Below = [](float limit) { return std::nextafter(limit, -std::numeric_limits<float>::infinity()); };

struct Case {
    int Rule;
    std::vector<Change> Beat;
    std::vector<int> Fire;        // all rules that fire for this beat
    std::vector<Change> Prevent;  // of these each one, in a single lead, keeps `Rule` from firing
};

std::string TextOf(const std::vector<int>& rules, bool chinese)
{
    std::string text;
    for (const int rule : rules)
        text += std::string(statements.at(static_cast<std::size_t>(rule)).In(chinese)) + "\r\n";
    return text;
}

void Check(const Case& c)
{
    Beat beat;
    for (const Change& change : c.Beat)
        for (const Lead lead : change.Leads)
            change.Make(beat, lead);
    EXPECT_EQ(Diagnose(beat.Params, beat.Sex, true), TextOf(c.Fire, true));
    EXPECT_EQ(Diagnose(beat.Params, beat.Sex, false), TextOf(c.Fire, false));
    for (std::size_t i = 0; i < c.Prevent.size(); ++i)
        for (const Lead lead : c.Prevent[i].Leads) {
            Beat missed = beat;
            c.Prevent[i].Make(missed, lead);
            const std::string statement = statements.at(static_cast<std::size_t>(c.Rule)).Chinese;
            for (const Twin& said : DiagnosticStatements(missed.Params, missed.Sex))
                EXPECT_NE(said.Chinese, statement) << "prevention " << i << ", lead " << lead;
        }
}

const std::vector<Lead> limbs{I, II, III, aVR, aVL, aVF};
const std::vector<Lead> chest{V1, V2, V3, V4, V5, V6};
const std::vector<Lead> sinus{I, II, aVF, V4, V5, V6};
const std::vector<Lead> inferior{II, III, aVF};
const float deepQ = -Above(0.25F);
const float fourthQ = -0.25F;

// clang-format off
const std::vector<Case> cases{
    {1, {Rate(60), PR(Above(120))}, {1},
     {Rate(59), PR(120), PPlus({II}, 0), PMinus({II}, -0.01F), PPlus({aVR}, 0.01F), PMinus({aVR}, 0)}},
    {1, {Rate(99), PR(Below(200))}, {1}, {Rate(100), PR(200)}},
    {2, {Rate(101), PR(Above(120))}, {2, 4},
     {Rate(100), PR(120), PR(200), PPlus(sinus, 0), PMinus(sinus, -0.01F), PPlus({aVR}, 0.01F), PMinus({aVR}, 0)}},
    {3, {Rate(59), PR(Below(200))}, {3, 5},
     {Rate(60), PR(120), PR(200), PPlus(sinus, 0), PMinus(sinus, -0.01F), PPlus({aVR}, 0.01F), PMinus({aVR}, 0)}},
    {4, {Rate(101), PR(200)}, {4}, {Rate(100)}},
    {5, {Rate(59), PR(120)}, {5}, {Rate(60)}},
    // 0.5 - 1/2^25 and three quarters of 1/2^25 are 0.5 in 32 bits
    {6, {R(limbs, Below(0.5F)), S(limbs, 0)}, {6}, {R(limbs, 0.5F), S(limbs, -0.1F), S(limbs, -0.75F / 33554432)}},
    {7, {R(chest, Below(0.8F)), S(chest, 0)}, {7}, {R(chest, 0.8F), S(chest, -0.1F)}},
    {8, {R({V1}, Above(1)), S({V5}, -Above(1)), Axis(Above(110))}, {8},
     {R({V1}, 1), S({V1}, -Above(1)), S({V5}, -1), Axis(110), Axis(270)}},
    {8, {R({V1}, 1.1F), S({V1}, -1.05F), R({V5}, 0.05F), S({V5}, -0.101F), Axis(Below(270))}, {8}, {S({V5}, -0.1F)}},
    {9, {R({aVL}, Above(1.2F)), R({aVF}, Above(2)), R({II}, 2.1F), R({III}, 1.901F)}, {9},
     {R({aVL}, 1.2F), R({aVF}, 2), R({III}, 1.9F)}},
    {9, {Sex(1), R({V5}, Above(2.5F)), S({I}, -1.001F)}, {9},
     {R({V5}, 2.5F), S({I}, Above(2.5F) - 3.5F), Sex(0), Sex(2)}},
    {9, {Sex(0), R({V5}, Above(2.5F)), S({I}, -1.501F)}, {9}, {R({V5}, 2.5F), S({I}, Above(2.5F) - 4), Sex(2)}},
    {9, {R({I}, Above(1.5F)), S({III}, -1.001F)}, {9}, {R({I}, 1.5F), S({III}, Above(1.5F) - 2.5F)}},
    {10, {P(inferior, Above(0.25F))}, {10}, {P(inferior, 0.25F)}},
    {10, {R(limbs, 0.2F), S(limbs, -0.1F), P(inferior, Above(0.2F))}, {6, 10}, {P(inferior, 0.2F), R(limbs, 0.4F)}},
    {11, {Q({V1, V2}, deepQ)}, {11}, {Q({V1, V2}, fourthQ)}},
    {12, {Q({V4, V5}, deepQ)}, {12}, {Q({V4, V5}, fourthQ)}},
    {13, {Q({V5, V6}, deepQ)}, {13}, {Q({V5, V6}, fourthQ)}},
    {14, {Q({V2, V3, V4, V5}, deepQ)}, {12, 14}, {Q({V2, V3, V4, V5}, fourthQ)}},
    {15, {Q({V4}, deepQ)}, {15}, {Q({V4}, fourthQ), Q({V5}, deepQ)}},
    {16, {Q(inferior, deepQ)}, {16}, {Q(inferior, fourthQ)}},
    {17, {Q({I, aVL}, -deepQ)}, {17}, {Q({I, aVL}, fourthQ)}},
    {18, {ST(inferior, -0.05F)}, {18}, {ST(inferior, Above(-0.05F))}},
    {19, {ST({I, aVL}, -0.05F)}, {19}, {ST({I, aVL}, Above(-0.05F))}},
    {20, {T(inferior, Below(0.1F))}, {20}, {T(inferior, 0.1F)}},
    {20, {T({V5, V6}, Below(0.1F))}, {20}, {T({V5, V6}, 0.1F)}},
    {20, {ST({V5, V6}, -0.05F)}, {20}, {ST({V5, V6}, Above(-0.05F))}},
    {20, {T({I, aVL}, Below(0.1F))}, {20}, {T({I, aVL}, 0.1F)}},
    {21, {PPlus({aVR}, 0.01F), PMinus({I, aVL}, -0.01F), S({I, aVL, V5, V6}, -Above(1))}, {21},
     {PPlus({aVR}, 0), PMinus({I, aVL}, 0), Q({aVR, V1}, -1), S({I, aVR, aVL, V1, V5, V6}, -1)}},
    {21, {PPlus({aVR}, 0.01F), PMinus({I, aVL}, -0.01F), Q({I, aVL, V5, V6}, -Above(1))}, {13, 17, 21},
     {Q({I, aVL, V5, V6}, -1)}},
    {22, {PPlus({aVR}, -0.01F), PR(Above(200))}, {22}, {PPlus({II}, 0), PPlus({aVR}, 0), PR(200)}},
    {23, {Q({I, aVL}, Above(fourthQ)), S({II, aVF}, -1.01F), S({III}, -1.112F), Axis(Above(-89.9F))}, {23},
     {Q({I, aVL}, fourthQ), S({II, aVF}, -1), S({III}, -1.1F * 1.01F), R({III}, 1.112F), Axis(-89.9F), Axis(-45)}},
    {23, {S({II, aVF}, -1.01F), S({III}, -1.2F), Axis(Below(-45))}, {23}, {Axis(-45)}},
    {24, {Q({I, aVL}, -Above(1)), Q(inferior, Above(fourthQ)), Axis(Above(110))}, {17, 24},
     {Q({I, aVL}, -1), Q(inferior, fourthQ), Axis(110), Axis(270)}},
    {24, {Q({I, aVL}, -Above(1)), Axis(Below(270))}, {17, 24}, {Axis(270)}},
    {25, {R({V1}, 0.9F), R2({V1}, Above(0.9F)), QRSdV1(Above(120))}, {25}, {R2({V1}, 0.9F), QRSdV1(120)}},
    {26, {R({V1}, 0.9F), R2({V1}, Above(0.9F)), QRSdV1(120)}, {26}, {R2({V1}, 0.9F), QRSdV1(Above(120))}},
    {27, {PR(Below(120)), QRSd(Below(110))}, {27}, {PR(120), QRSd(110), PPlus({II}, 0), PMinus({aVR}, 0)}},
    {28, {PR(Below(120)), QRSd(110)}, {28},
     {PR(120), QRSd(Below(110)), PPlus({II}, 0), PMinus({aVR}, 0), Q({V5, V6}, -1), S({V5, V6}, -1)}},
    {29, {PR(Below(120)), QRSd(110), Q({V1, V2}, -Above(1)), S({V1, V2}, -Above(1))}, {11, 28, 29},
     {PR(120), QRSd(Below(110)), Q({V1, V2, V5, V6}, -1), S({V1, V2, V5, V6}, -1)}},
    {30, {PR(Below(120)), QRSd(110), Q({V5, V6}, -Above(1)), S({V5, V6}, -Above(1))}, {13, 30},
     {PR(120), QRSd(Below(110)), Q({V1, V2, V5, V6}, -1), S({V1, V2, V5, V6}, -1)}},
};
// clang-format on

TEST(Diagnose, EachRuleFiresWithinItsLimitsOnly)
{
    for (std::size_t i = 0; i < cases.size(); ++i) {
        SCOPED_TRACE(testing::Message() << "case " << i << ", rule " << cases[i].Rule);
        Check(cases[i]);
    }
}

TEST(Diagnose, SaysThatNothingIsThereWithoutALineEnd)
{
    EXPECT_EQ(Diagnose(Beat().Params, 0, true), "正常心电图");
    EXPECT_EQ(Diagnose(Beat().Params, 0, false), "Normal ecectrocaodiogram");
}

TEST(Diagnose, ComparesWhatWasNotMeasuredLikeAnyValue)
{
    MeasuredParams params;
    EXPECT_EQ(Diagnose(params, 0, true), TextOf({5, 6, 7}, true)) << "0 everywhere";
    params = UnmeasuredParams();
    EXPECT_EQ(Diagnose(params, 2, false), TextOf({5, 9, 10, 11, 12, 13, 14, 16, 17}, false)) << "10000 everywhere";
    std::array<Byte, sizeof params> bits;
    bits.fill(0xFF);  // no numbers, and a rate of 255
    params = std::bit_cast<MeasuredParams>(bits);
    EXPECT_EQ(Diagnose(params, 255, true), TextOf({4}, true));
}

}  // namespace
}  // namespace ecg
