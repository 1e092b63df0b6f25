#include "analysis/Diagnose.h"

#include "analysis/diagnosis/Findings.h"

namespace ecg {
namespace {

using namespace lead;

struct Rule {
    Twin Statement;
    bool (*Fires)(const Findings& beat);
};

// Every rule is tried, in this order; none stops or takes back another. Some stand together by their nature: a fast
// sinus rhythm is a fast rhythm too, and every type B is a type A. The slips of spelling are meant: the notes of all
// records on file have these words.
// clang-format off
constexpr Rule rules[] = {
    // Rhythm. Meant: at a rate of exactly 100 none of these speaks, so that a healthy beat is then `NormalEcg`.
    {{"正常窦性心律", "Normal sinus rhythm"},
     [](const Findings& beat) {
         return beat.UprightP({II}) && beat.InvertedP({aVR}) && beat.HeartRate() >= 60 && beat.HeartRate() <= 99 &&
                beat.NormalPR();
     }},
    {{"窦性心率过速", "Sinus tachycardia"},
     [](const Findings& beat) { return beat.SinusP() && beat.HeartRate() > 100 && beat.NormalPR(); }},
    {{"窦性心率过缓", "Sinus bradycardia"},
     [](const Findings& beat) { return beat.SinusP() && beat.HeartRate() < 60 && beat.NormalPR(); }},
    {{"心率过速", "tachycardia"},
     [](const Findings& beat) { return beat.HeartRate() > 100; }},
    {{"心率过缓", "bradycardia"},
     [](const Findings& beat) { return beat.HeartRate() < 60; }},

    // Voltage.
    {{"肢导联低电压", "Limb lead low voltage"},
     [](const Findings& beat) { return beat.LimbLowVoltage(); }},
    {{"胸导联低电压", "Chest lead low voltage"},
     [](const Findings& beat) { return beat.SAndRBelow(0.8F, {V1, V2, V3, V4, V5, V6}); }},

    // Enlargement.
    {{"右心室肥大", "Right ventricuiar hypertrophy"},
     [](const Findings& beat) {
         return beat.R(V1) > 1.0F && beat.R(V1) + beat.S(V5) > 1.2F && beat.S(V1) < beat.R(V1) &&
                beat.S(V5) > beat.R(V5) && beat.Axis() > 110 && beat.Axis() < 270;
     }},
    {{"左心室肥大", "Left ventricuiar hypertrophy"},
     [](const Findings& beat) {
         // Meant: S of lead I goes with R of V5 here. The limits are set for this pair; none holds for an unknown sex.
         const float r5s1 = beat.R(V5) + beat.S(I);
         return (beat.R(aVL) > 1.2F && beat.R(aVF) > 2.0F && beat.R(II) + beat.R(III) > 4.0F) ||
                (beat.IsFemale() && beat.R(V5) > 2.5F && r5s1 > 3.5F) ||
                (beat.IsMale() && beat.R(V5) > 2.5F && r5s1 > 4.0F) ||
                (beat.R(I) > 1.5F && beat.R(I) + beat.S(III) > 2.5F);
     }},
    {{"右心房肥大", "Right atrial hypertrophy"},
     [](const Findings& beat) {
         return beat.PAbove(0.25F, {II, III, aVF}) || (beat.LimbLowVoltage() && beat.PAbove(0.2F, {II, III, aVF}));
     }},

    // Infarction.
    {{"前间壁心肌梗塞", "Anteroseptal myocardial infarction"},
     [](const Findings& beat) { return beat.DeepQ({V1, V2}); }},
    {{"前壁心肌梗塞", "Anterior myocardial infarction"},
     [](const Findings& beat) { return beat.DeepQ({V4, V5}); }},
    {{"前侧壁心肌梗塞", "Anterolateral myocardial infarction"},
     [](const Findings& beat) { return beat.DeepQ({V5, V6}); }},
    {{"广泛性前壁心肌梗塞", "Extensive anterior myocardial infarction"},
     [](const Findings& beat) { return beat.DeepQ({V2, V3, V4, V5}); }},
    {{"心尖部心肌梗塞", "Cardiac apex myocardial infarction"},
     [](const Findings& beat) { return beat.DeepQ({V4}) && !beat.DeepQ({V5}); }},
    {{"下壁心肌梗塞", "Inferior myocardial infarction"},
     [](const Findings& beat) { return beat.DeepQ({II, III, aVF}); }},
    {{"高侧壁心肌梗塞", "High lateral wall myocardial infarction"},
     [](const Findings& beat) { return beat.DeepQ({I, aVL}); }},

    // Ischemia.
    {{"下壁心肌缺血", "Subepicardial ischemia of interior wall"},
     [](const Findings& beat) { return beat.STDown({II, III, aVF}); }},
    {{"侧壁心肌缺血", "Lateral myocardial ischemia"},
     [](const Findings& beat) { return beat.STDown({I, aVL}); }},
    {{"冠状动脉供血不足", "Coronary insufficiency"},
     [](const Findings& beat) {
         return beat.LowT({II, III, aVF}) || beat.LowT({V5, V6}) || beat.STDown({V5, V6}) || beat.LowT({I, aVL});
     }},

    {{"右位心", "Dextrocardia"},
     [](const Findings& beat) {
         return beat.PPlus(aVR) > 0 && beat.QAndSBelowR({aVR}) && beat.PMinus(I) < 0 && beat.PMinus(aVL) < 0 &&
                beat.QOrSAboveR({I, aVL}) && beat.QAndSBelowR({V1}) && beat.QOrSAboveR({V5, V6});
     }},

    // Conduction. Meant: the upward part of a measured P is never below 0, so the first statement is never made, and a
    // long PR interval alone has no prompt: doctors have always judged it themselves.
    {{"一度房室传导阻滞", "First degree atrioventricular block"},
     [](const Findings& beat) { return beat.PPlus(II) > 0 && beat.PPlus(aVR) < 0 && beat.PR() > 200; }},
    {{"左前分支传导阻滞", "Left anterior fascicular block"},
     [](const Findings& beat) {
         return beat.SmallQ({I, aVL}) && beat.SAboveR({II, III, aVF}) && 1.1F * beat.S(II) < beat.S(III) &&
                beat.Axis() > -89.9F && beat.Axis() < -45;
     }},
    {{"左后分支传导阻滞", "Left posterior fascicular block"},
     [](const Findings& beat) {
         return beat.QAboveR({I, aVL}) && beat.SmallQ({II, III, aVF}) && beat.Axis() > 110 && beat.Axis() < 270;
     }},
    {{"完全性右束支传导阻滞", "Complete right bundle branch block"},
     [](const Findings& beat) { return beat.R2(V1) > beat.R(V1) && beat.QRSd(V1) > 120; }},
    {{"不完全性右束支传导阻滞", "Incomplete right bundle branch block"},
     [](const Findings& beat) { return beat.R2(V1) > beat.R(V1) && beat.QRSd(V1) <= 120; }},
    {{"预激综合症(LGL)", "Preexcitation syndrome(LGL)"},
     [](const Findings& beat) { return beat.PreexcitationP() && beat.QRSd() < 110; }},
    {{"预激综合症(A型)", "Preexcitation syndrome(A type)"},
     [](const Findings& beat) { return beat.PreexcitationP() && beat.QRSd() >= 110 && beat.QAndSBelowR({V5, V6}); }},
    {{"预激综合症(B型)", "Preexcitation syndrome(B type)"},
     [](const Findings& beat) {
         return beat.PreexcitationP() && beat.QRSd() >= 110 && beat.QAndSBelowR({V5, V6}) && beat.QAndSAboveR({V1, V2});
     }},
    {{"预激综合症(C型)", "Preexcitation syndrome(C type)"},
     [](const Findings& beat) {
         return beat.PreexcitationP() && beat.QRSd() >= 110 && beat.QAndSBelowR({V1, V2}) && beat.QAndSAboveR({V5, V6});
     }},
};
// clang-format on

}  // namespace

std::vector<Twin> DiagnosticStatements(const MeasuredParams& params, Byte sex)
{
    const Findings beat(params, sex);
    std::vector<Twin> statements;
    for (const Rule& rule : rules)
        if (rule.Fires(beat))
            statements.push_back(rule.Statement);
    return statements;
}

std::string Diagnose(const MeasuredParams& params, Byte sex, bool chinese)
{
    const auto statements = DiagnosticStatements(params, sex);
    if (statements.empty())
        return NormalEcg.In(chinese);
    std::string text;
    for (const Twin& statement : statements)
        text += std::string(statement.In(chinese)) + "\r\n";
    return text;
}

}  // namespace ecg
