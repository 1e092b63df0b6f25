// Draws the heart-rate trend, in pixels of the design size.
//
//        33                                      533
//     8  240 ┌──────────────────────────────────┐ ── 最大 118
//        210 │     .   ..                        │
//        ... │  |||||||||||||||||||||            │ ── 最小 62
//   248   30 └──────────────────────────────────┘
//            0      50      100     ...        500  心搏
//     `Picture2`, 552 by 272 ───────────────────────┴ `Picture3`, 112 by 272
//
// The box is 500 columns wide and begins where the first column of the curve is, at `FirstColumn`.
#pragma once

#include "platform/Surface.h"
#include "rate/RateTrend.h"

namespace ecg {

inline constexpr int FirstColumn = 33;     // x of the first beat in view
inline constexpr int TrendWidth = 552;     // of `Picture2`
inline constexpr int CaptionsWidth = 112;  // of `Picture3`
inline constexpr int TrendHeight = 272;    // of both
inline constexpr Colour TrendGround{20, 26, 19};

// Clears `Picture2` and draws the box, rates up its left side and columns along its lower one.
void DrawAxes(Surface& picture);

// A green bar for each column of the view; one without a rate stays empty.
void DrawTrend(Surface& picture, const RateView& view);

// A thin line at `column` (1 is the first), for the bars to cover.
void DrawCursor(Surface& picture, int column);

// y of the line that marks a rate in `Picture3`. Its zero lies `MarkerZero` pixels below the top of `Picture2`.
inline constexpr int MarkerZero = 11;
double MarkerTop(int rate);

// `Picture3`: the lines that mark the highest and the lowest rate in view, with their captions, and the name of the
// lower axis. A view without a point has no marks.
void DrawCaptions(Surface& picture, const RateView& view, bool chinese);

}  // namespace ecg
