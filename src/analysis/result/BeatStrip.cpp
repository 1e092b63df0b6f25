#include "analysis/result/BeatStrip.h"

#include "core/LeadDerivation.h"

namespace ecg {
namespace {

constexpr int centerPlace = 1000;  // of the centre in the strip of 1999 samples
constexpr int windowPlace = 500;   // of the window's first sample in the strip
constexpr int stripLength = 2000;  // one more than the last place

template <std::size_t Count>
void Put(BeatStrip& strip, std::size_t place, const std::array<std::int16_t, Count>& leads)
{
    for (std::size_t lead = 0; lead < Count; ++lead)
        strip.Raw[lead][place] = leads[lead];
}

void NoteFlag(FlagsAround& flags, int place)
{
    if (flags.Count < FlagsAround::Most)
        flags.Places[flags.Count] = place;
    ++flags.Count;
}

}  // namespace

BeatStrip CollectStrip(const AboutFile& file, LeadSystem system)
{
    const std::int64_t stripStart = std::int64_t{file.CenterSlot} - centerPlace;  // the slot of place 0
    const StoredSlots slots =
        file.ReadSlots(std::max<std::int64_t>(stripStart + 1, FirstSampleSlot), stripStart + stripLength);
    BeatStrip strip;
    auto place = static_cast<int>(slots.First - stripStart);
    for (const RecordSample& sample : slots.Samples) {
        if (HasRFlag(sample, FlagKind::Clean))
            NoteFlag(strip.Flags, place);
        const int inWindow = place++ - windowPlace;
        if (inWindow < 0 || inWindow >= WindowLength)
            continue;
        const auto w = static_cast<std::size_t>(inWindow);
        if (system == LeadSystem::Wilson)
            Put(strip, w, WholeCounts(DeriveWilsonLeads(ToFrame(sample))));
        else
            Put(strip, w, WholeCounts(DeriveFrankLeads(ToFrame(sample))));
    }
    return strip;
}

}  // namespace ecg
