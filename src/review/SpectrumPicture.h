// The plots of the frequency spectrum: two leads with phase shift and impulse response between them, or all twelve.
//
// The values of a spectrum are millimetres on the page: 10 of them, or 7.8 with twelve leads, are 20 uV/Hz.
#pragma once

#include "analysis/Spectrum.h"
#include "review/PageLook.h"

namespace ecg {

// The millimetre grid of the four panels.
void DrawDoubleLeadGrid(Surface& page, const PageLook& look);

// Nothing but axes without a spectrum (`Length` 0).
void DrawDoubleLead(Surface& page, const SpectrumResult& result, bool chinese, const PageLook& look);
void DrawTwelveSpectra(Surface& page, const SpectrumResult& result, const PageLook& look);

// Writes the marks of input lead, output lead and transfer function under their headings, from `at` down. Returns
// the height that they take, in units of `surface`.
double DrawSpectrumMarks(Surface& surface, Point at, const SpectrumResult& result, const TextStyle& style);

}  // namespace ecg
