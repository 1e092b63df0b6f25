#include "analysis/AboutResult.h"
#include "analysis/result/LeadSearch.h"

namespace ecg {
namespace {

LeadLines DelineateLead(const RawRow& raw, int heartRate)
{
    LeadSearch search{.Smooth = SmoothLead(raw, heartRate), .Scale = RateScale(heartRate)};
    FindPeak(search);
    FindQrsOnset(search);
    FindPEnd(search);
    FindPOnset(search);
    FindQrsEnd(search);
    FindTOnset(search);
    FindTEnd(search);
    FindInnerPoints(search);
    ReplaceMissingLines(search);
    return search.Lines;
}

}  // namespace

void Delineate(AboutFile& file, LeadSystem system, BeatResult& result)
{
    const BeatStrip strip = CollectStrip(file, system);
    const auto rate = RateOf(strip.Flags);
    if (!rate)
        return;
    result.Params.HeartRate = static_cast<Byte>(*rate);
    if (*rate == 0)
        return;
    // Place 0 of the window holds slot `CenterSlot` - 500. Lines have always been stored one slot later than that;
    // saved analyses and reports depend on it.
    constexpr int storedBefore = 499;
    for (std::size_t lead = 0; lead < LeadCountOf(system); ++lead) {
        result.Locate[lead] = DelineateLead(strip.Raw[lead], *rate);
        for (std::int32_t& line : result.Locate[lead])
            line += file.CenterSlot - storedBefore;
    }
    UnifyLines(system, result);
    Measure(file, system, result);
}

}  // namespace ecg
