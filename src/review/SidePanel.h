// The panel beside the traces on the screen: whose record it is, and what is measured of it or compared with it.
#pragma once

#include "platform/Surface.h"
#include "review/RecordReview.h"

#include <string>
#include <vector>

namespace ecg {

// Name, sex and age, number, bed, department, and the time of the examination; what is blank is left out.
std::vector<std::string> PatientLines(const SharedState& state, int year);

// Says that the spectrum shown is not one of the view; "" when it is.
std::string SpectrumNote(const RecordReview& review);

// Draws the panel over the whole of `surface`, in pixels of the design resolution.
void DrawSidePanel(Surface& surface, const RecordReview& review, int year);

}  // namespace ecg
