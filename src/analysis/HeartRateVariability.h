// Heart-rate variability in the time domain: what the intervals between beats of up to 15 minutes tell, without the
// signal.
//
//   R flags ─► ReadRRSeries ─► intervals NN, their histogram, that of their second differences, a summary
//                                  └─► ComputeHrvStats ─► SDNN, index, RMSD, SDSD, the pNN counts
//
// All of it stands in rows of `EcgBlock`, in place of the samples of the view, as 16-bit whole numbers. Nothing but the
// columns named below is written. What stands behind the intervals from before takes part in the last differences, and
// intervals above two seconds are counted in columns that are never cleared.
#pragma once

#include "analysis/AboutFile.h"

namespace ecg::hrv {

// Rows of `EcgBlock`.
enum Row : std::size_t {
    Intervals = 1,            // columns 0 to n - 1: NN in ms
    IntervalHistogram = 2,    // column NN: how many
    DifferenceHistogram = 3,  // column e + `DifferenceZero`: how many, e = NN[i] - 2 NN[i + 1] + NN[i + 2]
    ExceedingCounts = 9,      // columns 0 to 6: successive differences above 10, 20, ... 70 ms
    Deviations = 10,          // columns by `Deviation`
    Summary = 11              // columns by `SummaryColumn`
};

enum Deviation : std::size_t {
    SDNN,   // ms, standard deviation of NN
    Index,  // triangular index: n by the highest count of the histogram
    RMSD,   // ms, root of the mean squared successive difference
    SDSD,   // ms, standard deviation of the successive differences
    DeviationCount
};

enum SummaryColumn : std::size_t {
    Count,             // n, intervals; -1 without a beat
    MostOfAnInterval,  // highest count of a histogram
    MostOfADifference,
    Longest,   // ms; 0 without an interval
    Shortest,  // ms; 10000 without an interval
    Mean,      // ms
    Seconds    // covered
};

inline constexpr std::size_t HistogramColumns = 2001;
inline constexpr int DifferenceZero = 1000;
inline constexpr std::size_t ThresholdCount = 7;
inline constexpr int ThresholdStep = 10;  // ms
inline constexpr std::int16_t Unknown = 10000;

}  // namespace ecg::hrv

namespace ecg {

// Reads the beats of the current record from `BlockStart` on, with any mark beside the flag, until 15 minutes are
// exceeded or 901 beats are found, and fills the rows of intervals, histograms and summary.
void ReadRRSeries(AboutFile& file);

// Fills the rows `Deviations` and `ExceedingCounts` from a block that `ReadRRSeries` has filled. They are `Unknown`
// without an interval; `RMSD` and `SDSD` need two.
void ComputeHrvStats(LeadBlock& block);

}  // namespace ecg
