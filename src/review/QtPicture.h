// The colour diagram of QT dispersion: a bar for each lead beside its trace, as long as its QT exceeds the shortest.
#pragma once

#include "analysis/QtDispersion.h"
#include "review/PageLook.h"

namespace ecg {

// Draws the diagram at the right of the trace area, from its line at 181 mm. `params` holds what `ComputeQtStats` left.
void DrawQtDiagram(Surface& page, const MeasuredParams& params, bool chinese, const PageLook& look);

}  // namespace ecg
