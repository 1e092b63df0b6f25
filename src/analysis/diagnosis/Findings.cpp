#include "analysis/diagnosis/Findings.h"

#include <algorithm>
#include <cmath>

namespace ecg {

using namespace lead;

float Findings::Q(Lead lead) const
{
    return std::fabs(float{params_.QAmp[lead]});
}

float Findings::S(Lead lead) const
{
    return std::fabs(float{params_.SAmp[lead]});
}

bool Findings::UprightP(Leads leads) const
{
    return std::ranges::all_of(leads, [this](Lead lead) { return PPlus(lead) > 0 && PMinus(lead) == 0; });
}

bool Findings::InvertedP(Leads leads) const
{
    return std::ranges::all_of(leads, [this](Lead lead) { return PPlus(lead) == 0 && PMinus(lead) < 0; });
}

bool Findings::PAbove(float height, Leads leads) const
{
    return std::ranges::all_of(leads, [&](Lead lead) { return params_.PAmp[lead] > height; });
}

bool Findings::SinusP() const
{
    return UprightP({I, II, aVF, V4, V5, V6}) && InvertedP({aVR});
}

bool Findings::PreexcitationP() const
{
    return PPlus(II) > 0 && PMinus(aVR) < 0 && PR() < 120;
}

bool Findings::NormalPR() const
{
    return PR() > 120 && PR() < 200;
}

bool Findings::SAndRBelow(float height, Leads leads) const
{
    return std::ranges::all_of(leads, [&](Lead lead) { return S(lead) + R(lead) < height; });
}

bool Findings::DeepQ(Leads leads) const
{
    return std::ranges::all_of(leads, [this](Lead lead) { return R(lead) / 4 < Q(lead); });
}

bool Findings::SmallQ(Leads leads) const
{
    return std::ranges::all_of(leads, [this](Lead lead) { return 4 * Q(lead) < R(lead); });
}

bool Findings::QAboveR(Leads leads) const
{
    return std::ranges::all_of(leads, [this](Lead lead) { return Q(lead) > R(lead); });
}

bool Findings::SAboveR(Leads leads) const
{
    return std::ranges::all_of(leads, [this](Lead lead) { return S(lead) > R(lead); });
}

bool Findings::QOrSAboveR(Leads leads) const
{
    return std::ranges::all_of(leads, [this](Lead lead) { return Q(lead) > R(lead) || S(lead) > R(lead); });
}

bool Findings::QAndSAboveR(Leads leads) const
{
    return QAboveR(leads) && SAboveR(leads);
}

bool Findings::QAndSBelowR(Leads leads) const
{
    return std::ranges::all_of(leads, [this](Lead lead) { return Q(lead) < R(lead) && S(lead) < R(lead); });
}

bool Findings::LimbLowVoltage() const
{
    return SAndRBelow(0.5F, {I, II, III, aVR, aVL, aVF});
}

bool Findings::STDown(Leads leads) const
{
    return std::ranges::all_of(leads, [this](Lead lead) { return params_.STm[lead] <= -0.05F; });
}

bool Findings::LowT(Leads leads) const
{
    return std::ranges::all_of(leads, [this](Lead lead) { return params_.TAmp[lead] < R(lead) / 10; });
}

}  // namespace ecg
