#include "analysis/HeartRateVariability.h"

#include "core/Numbers.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace ecg {
namespace {

using namespace hrv;

using Row16 = std::span<std::int16_t>;

constexpr int msPerSlot = 2;

std::vector<std::int32_t> BeatSlots(const AboutFile& file)
{
    constexpr std::size_t mostBeats = 901;
    constexpr std::int32_t longestSlots = 450000;  // 15 minutes
    std::vector<std::int32_t> slots;
    file.FindRFlags(file.BlockStart(), FlagKind::Any, [&slots](std::int32_t slot) {
        slots.push_back(slot);
        return slot - slots.front() <= longestSlots && slots.size() < mostBeats;
    });
    return slots;
}

// Adds one and returns the count, which ends at what 16 bits hold.
std::int16_t CountOne(std::int16_t& bin)
{
    if (bin < std::numeric_limits<std::int16_t>::max())
        ++bin;
    return bin;
}

void FillIntervals(std::span<const std::int32_t> slots, LeadBlock& block)
{
    const Row16 intervals = block.Row(Intervals);
    const Row16 histogram = block.Row(IntervalHistogram);
    const Row16 summary = block.Row(Summary);
    std::int16_t nn = 0;
    std::int16_t longest = 0;
    std::int16_t shortest = Unknown;
    std::int16_t most = 0;
    double sum = 0;
    for (std::size_t i = 0; i + 1 < slots.size(); ++i) {
        // Meant: a pause of more than 32 seconds fits no NN, and the interval before it counts once more.
        nn = RoundToInt16(static_cast<double>(slots[i + 1] - slots[i]) * msPerSlot).value_or(nn);
        intervals[i] = nn;
        longest = std::max(longest, nn);
        shortest = std::min(shortest, nn);
        sum += nn;
        // Meant: an interval above 2 seconds adds to a column that nobody clears.
        most = std::max(most, CountOne(histogram[static_cast<std::size_t>(nn)]));
    }
    const double count = static_cast<double>(slots.size()) - 1;
    summary[Count] = static_cast<std::int16_t>(count);
    summary[MostOfAnInterval] = most;
    summary[Longest] = longest;
    summary[Shortest] = shortest;
    summary[Mean] = count > 0 ? static_cast<std::int16_t>(RoundToInt(sum / count)) : std::int16_t{0};
}

// Meant: the last of them takes in the column behind the intervals, whatever stands there.
void FillDifferences(LeadBlock& block)
{
    const Row16 intervals = block.Row(Intervals);
    const Row16 histogram = block.Row(DifferenceHistogram);
    const Row16 summary = block.Row(Summary);
    std::int16_t most = 0;
    for (int i = 0; i + 2 <= summary[Count]; ++i) {
        const Row16 three = intervals.subspan(static_cast<std::size_t>(i), 3);
        const int bin = three[0] + three[2] - 2 * three[1] + DifferenceZero;
        if (bin > 0 && bin < static_cast<int>(HistogramColumns) - 1)
            most = std::max(most, CountOne(histogram[static_cast<std::size_t>(bin)]));
    }
    summary[MostOfADifference] = most;
}

double Square(double value)
{
    return value * value;
}

// The root of the mean of `square` over the first places.
template <class SquareAt>
double RootMean(std::size_t places, SquareAt square)
{
    double sum = 0;
    for (std::size_t i = 0; i < places; ++i)
        sum += square(i);
    return std::sqrt(sum / static_cast<double>(places));
}

void FillDeviations(std::span<const std::int16_t> intervals, std::size_t count, std::int16_t most, Row16 deviations)
{
    const auto difference = [&](std::size_t i) { return intervals[i + 1] - intervals[i]; };
    const auto set = [&](Deviation which, double value) {
        deviations[which] = RoundToInt16(value).value_or(deviations[which]);
    };
    double mean = 0;
    for (const std::int16_t nn : intervals.first(count))
        mean += nn;
    mean /= static_cast<double>(count);
    set(SDNN, RootMean(count, [&](std::size_t i) { return Square(intervals[i] - mean); }));
    set(Index, most == 0 ? 0 : static_cast<double>(count) / most);
    if (count < 2)
        return;
    const std::size_t differences = count - 1;
    set(RMSD, RootMean(differences, [&](std::size_t i) { return Square(difference(i)); }));
    double meanDifference = 0;
    for (std::size_t i = 0; i < differences; ++i)
        meanDifference += difference(i);
    meanDifference /= static_cast<double>(differences);
    // Meant: each deviation loses its fraction before it is squared.
    set(SDSD,
        RootMean(differences, [&](std::size_t i) { return Square(RoundHalfEven(difference(i) - meanDifference)); }));
}

// Meant: the last difference is to the column behind the intervals, whatever stands there.
void FillExceedingCounts(std::span<const std::int16_t> intervals, std::size_t count, Row16 counts)
{
    for (std::size_t i = 0; i < count; ++i) {
        const int difference = std::abs(intervals[i + 1] - intervals[i]);
        for (std::size_t t = 0; t < ThresholdCount; ++t)
            if (difference > static_cast<int>(t + 1) * ThresholdStep)
                CountOne(counts[t]);
    }
}

}  // namespace

void ReadRRSeries(AboutFile& file)
{
    const auto slots = BeatSlots(file);
    LeadBlock& block = file.EcgBlock;
    for (const Row row : {IntervalHistogram, DifferenceHistogram})
        std::ranges::fill(block.Row(row).first(HistogramColumns), std::int16_t{0});
    FillIntervals(slots, block);
    FillDifferences(block);
    // A record with a pause of many hours covers more than 16 bits hold.
    const double seconds = slots.empty() ? 0 : static_cast<double>(slots.back() - slots.front()) / FramesPerSecond;
    block.Row(Summary)[Seconds] = RoundToInt16(seconds).value_or(std::numeric_limits<std::int16_t>::max());
}

void ComputeHrvStats(LeadBlock& block)
{
    const Row16 deviations = block.Row(Deviations).first(DeviationCount);
    const Row16 counts = block.Row(ExceedingCounts).first(ThresholdCount);
    std::ranges::fill(deviations, Unknown);
    std::ranges::fill(counts, Unknown);
    const std::int16_t count = block.Row(Summary)[Count];
    if (count < 1)
        return;
    const auto intervals = block.Row(Intervals).first(static_cast<std::size_t>(count) + 1);
    FillDeviations(intervals, static_cast<std::size_t>(count), block.Row(Summary)[MostOfAnInterval], deviations);
    std::ranges::fill(counts, std::int16_t{0});
    FillExceedingCounts(intervals, static_cast<std::size_t>(count), counts);
}

}  // namespace ecg
