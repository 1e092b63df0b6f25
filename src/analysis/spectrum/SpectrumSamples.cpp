#include "analysis/Spectrum.h"
#include "core/LeadDerivation.h"
#include "core/Numbers.h"

namespace ecg {
namespace {

constexpr int decimation = FramesPerSecond / SpectrumRate;

// Slots of the record, from a first flag on.
struct Stretch {
    std::size_t First;  // place in the samples that were read
    int Length;         // samples at `SpectrumRate`
};

// Only so many flags are kept. A record with more in so short a time is damaged.
Stretch FindStretch(std::span<const RecordSample> samples)
{
    constexpr int mostFlags = 101;
    constexpr std::size_t leastSlots = 2001;
    std::size_t first = 0;
    int flags = 0;
    for (std::size_t i = 0; i < samples.size() && flags < mostFlags; ++i) {
        if (!HasRFlag(samples[i], FlagKind::Any))
            continue;
        if (flags++ == 0)
            first = i;
        if (i - first >= leastSlots)
            return {first, RoundToInt(static_cast<double>(i - first) / decimation)};
    }
    return {first, 0};
}

}  // namespace

int ReadSpectrumSamples(AboutFile& file)
{
    constexpr std::int64_t searchedSlots = 4001;
    const StoredSlots slots = file.ReadSlots(file.BlockStart(), file.BlockStart() + searchedSlots);
    const Stretch found = FindStretch(slots.Samples);
    const int length = found.Length - found.Length % 2;
    for (int k = 0; k < length; ++k) {
        const RecordSample& sample = slots.Samples[found.First + static_cast<std::size_t>(k * decimation)];
        const auto leads = WholeCounts(DeriveWilsonLeads(ToFrame(sample)));
        for (std::size_t lead = 0; lead < leads.size(); ++lead)
            file.EcgBlock.Row(lead)[static_cast<std::size_t>(k)] = leads[lead];
    }
    return length;
}

}  // namespace ecg
