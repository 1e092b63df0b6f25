// The five plots of heart-rate variability: two histograms, two scatter plots, and the rate from beat to beat.
#pragma once

#include "analysis/HeartRateVariability.h"
#include "review/PageLook.h"

namespace ecg {

// Draws what `ReadRRSeries` left in `block` over the trace area. Without an interval there are only empty axes. Every
// axis but the rate's takes in all the data.
void DrawHrvPlots(Surface& page, const LeadBlock& block, bool chinese, const PageLook& look);

}  // namespace ecg
