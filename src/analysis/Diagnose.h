// Diagnosis prompts: what the measured values of a beat suggest, for the doctor to take over or not.
//
//   MeasuredParams, sex ─► 30 rules, in order, each by itself ─► statements, one a line
//
// The rules are a table in `diagnosis/Diagnose.cpp`, in the words of `diagnosis/Findings.h`.
#pragma once

#include "core/Language.h"
#include "core/formats/MeasuredParams.h"

#include <string>
#include <vector>

namespace ecg {

// Said when no rule fires at all: a healthy beat is "Normal sinus rhythm" alone. The English is spelled like that on
// all reports.
inline constexpr Twin NormalEcg{"正常心电图", "Normal ecectrocaodiogram"};

// The statements of the rules that fire, in the order of the rules; none for a beat of which there is nothing to say.
// `sex` as in `PatientRecord`.
//
// Any values will do. One that was not measured is compared like any other, as 10000 or as a heart rate of 0.
std::vector<Twin> DiagnosticStatements(const MeasuredParams& params, Byte sex);

// The same as a text, UTF-8: each statement with CR LF behind it, or `NormalEcg` alone without.
std::string Diagnose(const MeasuredParams& params, Byte sex, bool chinese);

}  // namespace ecg
