// What the reports write of QT dispersion, spectrum and heart-rate variability, word for word. Colons, blanks and
// unusual spellings are those of the printed forms that hospitals file.
#pragma once

#include "analysis/HeartRateVariability.h"
#include "analysis/QtDispersion.h"
#include "analysis/Spectrum.h"
#include "core/Language.h"

#include <array>
#include <string>
#include <vector>

namespace ecg::texts {

// QT dispersion.
inline constexpr Twin QtDiagramTitle{"QT离散度色谱图", "QT ColorDiaGram"};

std::array<std::string, QtStatCount> QtLines(const QtStats& stats);

// Beside the ends of the diagram: the longest, and the shortest unless all are equal.
std::vector<std::string> QtDiagramEnds(const QtDiagram& diagram);

// Beside the bar of a lead, behind its name.
std::string QtOfLead(float ms);

// Spectrum.
inline constexpr Twin InputLead{"输入导联", "Input Lead"};
inline constexpr Twin OutputLead{"输出导联", "Output Lead"};
inline constexpr Twin PowerSpectrum{" 功率谱(X-Hz，Y-uV/Hz)", " Power Spectrum(Hz,uV/Hz)"};  // behind the lead's name
inline constexpr const char* SpectrumUnit = "×20uV/Hz";
inline constexpr Twin PhaseShift{"相移(X-Hz，Y-Deg)", "Phase Shift(X-Hz，Y-Deg)"};
inline constexpr Twin ImpulseResponse{"脉冲响应", "Palse Response"};
inline constexpr const char* LeadMarksHeading = "H   U   N   A+  A-";
inline constexpr const char* PhaseMarkHeading = "D";
inline constexpr const char* ImpulseMarksHeading = "F   M   RSR CSR";

// A mark in its column; D stands alone and has no blanks behind it.
const char* MarkText(const SpectrumMarks& marks, std::size_t mark);

// Heart-rate variability.
inline constexpr Twin IntervalHistogram{"归一化RR间期直方图（归一化参数/s）", "Normalize RR Interval Interval"};
inline constexpr Twin DifferenceHistogram{"归一化RR间期差值直方图（归一化参数/s）",
                                          "Normalize RR Interval Difference Interval"};
inline constexpr Twin IntervalScatter{"RR间期散点图（s/s）", "RR Interval Dot Diagram"};
inline constexpr Twin DifferenceScatter{"RR间期差值散点图（s/s）", "RR Interval Dot Difference Diagram"};
inline constexpr Twin RateTrend{"心率趋势图（bpm/心搏）", "HR Trend Diagram"};

// The table of the report, from a block that `ComputeHrvStats` has filled. No line without an interval.
std::vector<std::string> HrvLines(const LeadBlock& block, bool chinese);

}  // namespace ecg::texts
