#include "analysis/QtDispersion.h"

#include "analysis/AboutResult.h"
#include "core/Numbers.h"

#include <algorithm>

namespace ecg {

QtStats ComputeQtStats(BeatResult& result)
{
    constexpr double msPerSlot = 2;
    auto& qt = result.Params.QT;
    // No QT lies outside these; one of lines that were never set does, and is no extreme.
    float longest = -NotMeasured;
    float shortest = NotMeasured;
    double sum = 0;
    for (std::size_t lead = 0; lead < WilsonLeadCount; ++lead) {
        const double slots = static_cast<double>(result.Locate[lead][TOff]) - result.Unified[QrsOn];
        qt[lead] = static_cast<float>(slots * msPerSlot);
        longest = std::max<float>(longest, qt[lead]);
        shortest = std::min<float>(shortest, qt[lead]);
        sum += qt[lead];
    }
    qt[ShortestQt] = shortest;
    qt[LongestQt] = longest;

    QtStats stats;
    stats.fill(NotComputed);
    const int heartRate = result.Params.HeartRate;
    if (heartRate == 0)
        return stats;
    const double mean = sum / WilsonLeadCount;
    const double spread = double{longest} - shortest;
    const double scale = RateScale(heartRate);
    const auto set = [&stats](QtStat stat, double ms) { stats[stat] = RoundToInt16(ms).value_or(NotComputed); };
    set(MaxQT, longest);
    set(MinQT, shortest);
    set(AvagQT, mean);
    set(MaxQTd, spread);
    set(MaxQTc, longest / scale);
    set(MinQTc, shortest / scale);
    set(QTcMean, mean / scale);
    set(MaxQTcd, spread / scale);
    return stats;
}

QtDiagram DiagramOfQt(const MeasuredParams& params)
{
    constexpr double longestBarMm = 38;
    constexpr double standingOutMs = 51;
    QtDiagram diagram{params.QT[ShortestQt], params.QT[LongestQt], {}};
    const double spread = double{diagram.Longest} - diagram.Shortest;
    const double mmPerMs = spread == 0 ? 0 : longestBarMm / spread;
    for (std::size_t lead = 0; lead < WilsonLeadCount; ++lead) {
        const double rise = RoundHalfEven(double{params.QT[lead]} - diagram.Shortest);
        diagram.Bars[lead] = {rise, mmPerMs * rise, rise >= standingOutMs};
    }
    return diagram;
}

}  // namespace ecg
