#include "rate/BeatTable.h"

#include "core/Numbers.h"

namespace ecg {
namespace {

constexpr double slotsPerMinute = 30000;

}  // namespace

Byte RateOfInterval(std::int32_t slots)
{
    const std::int32_t rate = RoundToInt(slotsPerMinute / slots);
    return rate < LowestRate || rate > HighestRate ? RateOutOfRange : static_cast<Byte>(rate);
}

BeatTable ScanBeats(const AboutFile& file)
{
    BeatTable table;
    file.FindRFlags(FirstSampleSlot, FlagKind::Clean, [&table](std::int32_t slot) {
        table.MoreBeats = table.BeatSlots.size() == BeatTable::MostBeats;
        if (!table.MoreBeats)
            table.BeatSlots.push_back(slot);
        return !table.MoreBeats;
    });
    // Slots are found in ascending order, so no interval is 0.
    for (std::size_t i = 1; i < table.BeatSlots.size(); ++i)
        table.BeatRates.push_back(RateOfInterval(table.BeatSlots[i] - table.BeatSlots[i - 1]));
    return table;
}

}  // namespace ecg
