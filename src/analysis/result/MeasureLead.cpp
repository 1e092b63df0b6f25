#include "analysis/result/MeasureSteps.h"

#include <algorithm>
#include <cmath>

namespace ecg {
namespace {

constexpr float leastWave = 0.01F;  // mV: anything smaller is no wave

// The part of a walk upward that lies in the row.
Scan Inside(const SampleRow& row, int from, int to)
{
    return Up(std::max(from, 0), std::min(to, row.Size() - 1));
}

// A single sample; 0 outside the row.
double SampleAt(const SampleRow& row, int column)
{
    return column >= 0 && column < row.Size() ? row[column] : 0;
}

double Sum(const SampleRow& row, int from, int to)
{
    double sum = 0;
    for (const int column : Inside(row, from, to))
        sum += row[column];
    return sum;
}

// The isoelectric level: the mean of the ten samples up to the QRS onset; 0 when P runs into QRS.
float LevelBefore(const SampleRow& row, const Columns& lines)
{
    constexpr int samples = 10;
    if (lines[POff] > lines[QrsOn])
        return 0;
    return static_cast<float>(Sum(row, lines[QrsOn] - samples + 1, lines[QrsOn]) / samples);
}

struct Wave {
    float Plus;   // upward part, 0 or more
    float Minus;  // downward part, 0 or less
    float Whole;  // peak to peak
};

// P and T: of their two parts one that is below a tenth of the other is none. The upward part is looked at first.
Wave MeasureWave(const SampleRow& row, int from, int to, float level)
{
    constexpr double part = 10;
    const Extremes found = FindExtremes(row, Inside(row, from, to));
    Wave wave{std::max(Millivolts(double{found.Highest} - level), 0.0F),
              std::min(Millivolts(double{found.Lowest} - level), 0.0F),
              Millivolts(double{found.Highest} - found.Lowest)};
    if (wave.Plus < -wave.Minus / part)
        wave.Plus = 0;
    if (-wave.Minus < wave.Plus / part)
        wave.Minus = 0;
    return wave;
}

float QAmplitude(const SampleRow& row, const Columns& lines, float level)
{
    if (lines[QPoint] < lines[QrsOn])
        return 0;
    const float q = Millivolts(SampleAt(row, lines[QPoint]) - level);
    return q <= 0 && -q >= leastWave ? q : 0;
}

struct SecondWaves {
    float R = 0;
    float S = 0;
};

// R' and S' behind the tail of R. S' must stand out from what is 20 ms to either side of it.
SecondWaves MeasureSecondWaves(const SampleRow& row, const Columns& lines, float level)
{
    constexpr int reach = 10;
    constexpr float leastDepth = 3;  // counts
    if (lines[RTail] >= lines[QrsOff])
        return {};
    const Extremes found = FindExtremes(row, Inside(row, lines[RTail], lines[QrsOff]));
    SecondWaves waves{Millivolts(double{found.Highest} - level), Millivolts(double{found.Lowest} - level)};
    if (std::fabs(waves.R) < leastWave)
        waves.R = 0;
    const int at = found.LowestAt;
    if (!(row[at - reach] - row[at] >= leastDepth && row[at + reach] - row[at] >= leastDepth))
        waves.S = 0;
    return waves;
}

void MeasureQrs(const SampleRow& row, const Columns& lines, float level, std::size_t lead, MeasuredParams& params)
{
    const int rEnd = lines[RTail] < lines[QrsOff] ? lines[SPoint] : lines[QrsOff];
    const Extremes r = FindExtremes(row, Inside(row, lines[QPoint], rEnd));
    const float s = Millivolts(SampleAt(row, lines[SPoint]) - level);
    const SecondWaves second = MeasureSecondWaves(row, lines, level);
    params.RAmp[lead] = Millivolts(double{r.Highest} - level);
    params.SAmp[lead] = s;
    // Meant: a lead without an S loses its Q, and its S keeps the small or positive value. The names of complexes and
    // the diagnosis rules are tuned to that.
    const bool hasNoS = std::fabs(s) < leastWave || s > 0;
    params.QAmp[lead] = hasNoS ? 0 : QAmplitude(row, lines, level);
    params.R2Amp[lead] = second.R;
    params.S2Amp[lead] = second.S;
}

void MeasureSt(const SampleRow& row, const Columns& lines, float level, std::size_t lead, MeasuredParams& params)
{
    const int end = lines[QrsOff];
    const int samples = lines[TOn] - end + 1;
    const auto mean = samples > 0 ? static_cast<float>(Sum(row, end, lines[TOn]) / samples) : 0.0F;
    params.STm[lead] = Millivolts(double{mean} - level);
    constexpr int twentyMs = 10;  // samples
    int column = end;
    for (auto* const st : {&params.STJ, &params.ST20, &params.ST40, &params.ST60, &params.ST80}) {
        (*st)[lead] = Millivolts(SampleAt(row, column) - level);
        column += twentyMs;
    }
}

}  // namespace

void MeasureLead(const SampleRow& row, const Columns& lines, std::size_t lead, MeasuredParams& params)
{
    const float level = LevelBefore(row, lines);
    const Wave p = MeasureWave(row, lines[POn], lines[POff], level);
    params.PPlus[lead] = p.Plus;
    params.PMinus[lead] = p.Minus;
    params.PAmp[lead] = p.Whole;
    MeasureQrs(row, lines, level, lead, params);
    MeasureSt(row, lines, level, lead, params);
    const Wave t = MeasureWave(row, lines[TOn], lines[TOff], level);
    params.TPlus[lead] = t.Plus;
    params.TMinus[lead] = t.Minus;
    params.TAmp[lead] = t.Whole;
    params.Complex[lead].Set(ComplexName(lead, params));
}

}  // namespace ecg
