// The frequency-spectrum electrocardiogram: a whole number of heart cycles taken apart into harmonics.
//
//   record ─► ReadSpectrumSamples ─► EcgBlock: N samples at 50 Hz, from R flag to R flag
//                                       ├─ twelve leads ─► Spectrum
//                                       └─ double lead ──► Spectrum of both ────────────────► marks of each lead
//                                              └─ output / input ─► PhaseShift, ImpulseResp ─► marks D, F, M, RSR, CSR
//
// The stretch begins and ends at a beat, so that the harmonics of a steady rhythm fall on bins and do not leak: five
// cycles give one at every fifth bin. Bin k is k × 50 / N Hz.
#pragma once

#include "analysis/AboutFile.h"

#include <array>

namespace ecg {

inline constexpr int SpectrumRate = 50;  // samples a second
inline constexpr int ShortestSpectrum = 10;
inline constexpr int LongestSpectrum = 400;  // 8 seconds
inline constexpr std::size_t SpectrumBins = 513;

using BinValues = std::array<float, SpectrumBins>;

enum class SpectrumLayout { TwelveLeads, DoubleLead };
enum class SpectrumGroup : std::size_t { Input, Output };

// The marks. Those of the input lead are the first five, those of the output lead the next five.
namespace mark {
enum Index : std::size_t {
    H,       // first harmonic lower than the second
    U,       // uneven spacing of harmonics
    N,       // first harmonic above one and a half of the heart rate
    APlus,   // first and second harmonic high
    AMinus,  // a harmonic from the fifth on higher than the first
    D = 10,  // phase shift above 90 degrees between 6 and 20 Hz
    F,       // impulse response at least as deep as it is high
    M,       // never set
    RSR,     // always set
    CSR,     // never set
    Total
};
}

inline constexpr std::size_t MarksOfGroup = 5;

using SpectrumMarks = std::array<bool, mark::Total>;

// The last spectra that were computed. What a computation does not reach stays as it was.
struct SpectrumResult {
    int Length = 0;                                     // N, even; 0 before the first
    std::array<BinValues, WilsonLeadCount> Spectrum{};  // magnitude by lead and bin, 0 from bin N/2 on
    BinValues PhaseShift{};                             // of output to input by bin; 40 is 180 degrees
    BinValues ImpulseResp{};                            // N places, moment 0 at N/2; its peak is 40 or -40
    SpectrumMarks Marks{};
    std::array<std::size_t, 2> DftLeads{lead::II, lead::V5};  // input, output; below `WilsonLeadCount`
};

// Reads the samples on view, computes their spectra and, in the double-lead layout, sets the marks. `heartRate` is 0
// when unknown. False, and `result` as it was, when the 8 seconds from `BlockStart` on hold no beat that is more than 4
// seconds behind the first.
bool AnalyseSpectrum(AboutFile& file, SpectrumLayout layout, int heartRate, SpectrumResult& result);

// The steps of it.

// Takes every tenth sample of twelve leads, from the first R flag of the view (with any mark beside it) to the first
// one that is more than 4 seconds behind it, into `EcgBlock` from column 0 on. Returns N, even, at most
// `LongestSpectrum`; 0 without such flags, and `EcgBlock` is as it was. There is no filter against aliases.
int ReadSpectrumSamples(AboutFile& file);

// Computes from the first `length` columns of `block`: all leads, or the two `DftLeads` with phase and impulse
// response. `length` is even; outside `ShortestSpectrum` to `LongestSpectrum` nothing is computed.
void ComputeSpectrum(const LeadBlock& block, int length, SpectrumLayout layout, SpectrumResult& result);

// Sets the five marks of a lead of `DftLeads` from its spectrum.
void ClassifySpectrum(SpectrumGroup group, int heartRate, SpectrumResult& result);

// Sets the marks D to CSR from phase shift and impulse response.
void ClassifyTransfer(SpectrumResult& result);

}  // namespace ecg
