// The words in which the diagnosis rules are written: what can be asked of the measured values of a beat.
//
// Amplitudes are millivolts, times milliseconds; the depths of Q and S are magnitudes. A question about several leads
// is answered yes when it holds in each of them. "Above" and "below" leave out the limit itself.
#pragma once

#include "analysis/BeatResult.h"

#include <cfloat>
#include <initializer_list>

namespace ecg {

// Sums and products of the rules are 32-bit floats, rounded one by one, so that any two builds decide alike.
static_assert(FLT_EVAL_METHOD == 0);

class Findings {
public:
    using Lead = lead::Index;
    using Leads = std::initializer_list<Lead>;

    Findings(const MeasuredParams& params, Byte sex) : params_(params), sex_(sex) {}

    // A value other than these two is neither.
    bool IsMale() const { return sex_ == 0; }
    bool IsFemale() const { return sex_ == 1; }

    // Of the whole beat.
    int HeartRate() const { return params_.HeartRate; }
    float Axis() const { return params_.Axis; }
    float PR() const { return params_.PR[AllLeads]; }
    float QRSd() const { return params_.QRSd[AllLeads]; }

    // Of one lead.
    float QRSd(Lead lead) const { return params_.QRSd[lead]; }
    float PPlus(Lead lead) const { return params_.PPlus[lead]; }
    float PMinus(Lead lead) const { return params_.PMinus[lead]; }
    float Q(Lead lead) const;
    float R(Lead lead) const { return params_.RAmp[lead]; }
    float S(Lead lead) const;
    float R2(Lead lead) const { return params_.R2Amp[lead]; }

    // P waves.
    bool UprightP(Leads leads) const;   // upward without a downward part
    bool InvertedP(Leads leads) const;  // downward without an upward part
    bool PAbove(float height, Leads leads) const;
    bool SinusP() const;
    bool PreexcitationP() const;  // led from the sinus node, and early on its way
    bool NormalPR() const;

    // Waves of the QRS complex against its R.
    bool SAndRBelow(float height, Leads leads) const;  // their sum
    bool DeepQ(Leads leads) const;                     // more than a quarter of R
    bool SmallQ(Leads leads) const;                    // less than a quarter of R
    bool QAboveR(Leads leads) const;
    bool SAboveR(Leads leads) const;
    bool QOrSAboveR(Leads leads) const;
    bool QAndSAboveR(Leads leads) const;
    bool QAndSBelowR(Leads leads) const;
    bool LimbLowVoltage() const;

    // Behind it.
    bool STDown(Leads leads) const;
    bool LowT(Leads leads) const;  // less than a tenth of R

private:
    const MeasuredParams& params_;
    Byte sex_;
};

}  // namespace ecg
