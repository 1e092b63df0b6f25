#include "analysis/AboutFile.h"

#include "core/LeadDerivation.h"
#include "core/Numbers.h"
#include "core/formats/FixedRecordFile.h"

#include <algorithm>

namespace ecg {
namespace {

// Of any record, so that slot numbers near the end can be added to; 46 days.
constexpr double mostSlots = 2e9;

// Column 0 of the block is the slot `start`.
template <class Derive>
void PutLeads(LeadBlock& block, std::int64_t start, const StoredSlots& slots, Derive derive)
{
    auto column = static_cast<std::size_t>(slots.First - start);
    for (const RecordSample& sample : slots.Samples) {
        const auto leads = WholeCounts(derive(ToFrame(sample)));
        for (std::size_t lead = 0; lead < leads.size(); ++lead)
            block.Row(lead)[column] = leads[lead];
        ++column;
    }
}

}  // namespace

std::unique_ptr<ByteFile> AboutFile::Open(WhichRecord which, OpenMode mode) const
{
    return open_(state_.Folders.File(which == WhichRecord::Current ? state_.RecordPath : state_.ComparePath), mode);
}

bool AboutFile::ReadHeader(WhichRecord which)
{
    RecordHeader& header = which == WhichRecord::Current ? state_.CurrentHeader : CompareHeader;
    const auto file = Open(which, OpenMode::Read);
    const auto stored = file ? FixedRecordFile<RecordHeader>(*file).Read(1) : std::nullopt;
    header = stored.value_or(RecordHeader{});
    return stored.has_value();
}

bool AboutFile::WriteHeader()
{
    // Opening for writing would make a file that is not there.
    const auto present = Open(WhichRecord::Current, OpenMode::Read);
    if (!present || FixedRecordFile<RecordHeader>(*present).Count() < 1)
        return false;
    const auto file = Open(WhichRecord::Current, OpenMode::ReadWrite);
    return file && FixedRecordFile<RecordHeader>(*file).Write(1, state_.CurrentHeader) && file->Flush();
}

void AboutFile::CountSlots(WhichRecord which)
{
    const auto file = Open(which, OpenMode::Read);
    const double slots = file ? static_cast<double>(file->Size()) / sizeof(RecordSample) : 0;
    (which == WhichRecord::Current ? SlotCount : CompareSlotCount) = RoundToInt(std::min(slots, mostSlots));
}

StoredSlots AboutFile::ReadSlots(std::int64_t first, std::int64_t end) const
{
    return ReadSlots(WhichRecord::Current, first, end);
}

StoredSlots AboutFile::ReadSlots(WhichRecord which, std::int64_t first, std::int64_t end) const
{
    StoredSlots slots{std::max<std::int64_t>(first, 1), {}};
    end = std::min<std::int64_t>(end, which == WhichRecord::Current ? SlotCount : CompareSlotCount);
    const auto file = slots.First < end ? Open(which, OpenMode::Read) : nullptr;
    if (!file)
        return slots;
    slots.Samples.resize(static_cast<std::size_t>(end - slots.First));
    slots.Samples.resize(FixedRecordFile<RecordSample>(*file).ReadMany(slots.First, slots.Samples));
    return slots;
}

LeadBlock& AboutFile::BlockOf(SampleTarget target)
{
    switch (target) {
    case SampleTarget::View:
        return EcgBlock;
    case SampleTarget::Comparison:
        return CompareBlock;
    case SampleTarget::Window:
    case SampleTarget::FrankWindow:
        break;
    }
    return WindowBlock;
}

void AboutFile::ReadSamples(SampleTarget target, std::int32_t start, std::int32_t count)
{
    LeadBlock& block = BlockOf(target);
    block.Clear();
    count = std::clamp(count, 0, static_cast<std::int32_t>(block.Columns()));
    const auto which = target == SampleTarget::Comparison ? WhichRecord::Comparison : WhichRecord::Current;
    const StoredSlots slots = ReadSlots(which, start, std::int64_t{start} + count);
    if (target == SampleTarget::FrankWindow)
        PutLeads(block, start, slots, DeriveFrankLeads);
    else
        PutLeads(block, start, slots, DeriveWilsonLeads);
    if (target != SampleTarget::View)
        return;
    RFlagList.fill(0);
    std::size_t flags = 0;
    for (std::size_t i = 0; i < slots.Samples.size() && flags < RFlagList.size(); ++i)
        if (HasRFlag(slots.Samples[i], FlagKind::Clean))
            RFlagList[flags++] = static_cast<std::int32_t>(slots.First + static_cast<std::int64_t>(i));
}

void AboutFile::ReadFrankView()
{
    EcgBlock.Clear();
    const std::int64_t start = BlockStart();
    PutLeads(EcgBlock, start, ReadSlots(start, start + static_cast<std::int64_t>(ViewColumns)), DeriveFrankLeads);
}

bool AboutFile::SetRFlag(FlagAction action, std::int32_t slot)
{
    const auto present = Open(WhichRecord::Current, OpenMode::Read);
    if (!present || slot < FirstSampleSlot)
        return false;
    auto sample = FixedRecordFile<RecordSample>(*present).Read(slot);
    if (!sample)
        return false;
    const int word = sample->Words[0];
    sample->Words[0] = static_cast<std::int16_t>(action == FlagAction::Set ? word | BeatMark : word & ~BeatMark);
    const auto file = Open(WhichRecord::Current, OpenMode::ReadWrite);
    return file && FixedRecordFile<RecordSample>(*file).Write(slot, *sample) && file->Flush();
}

void AboutFile::FindRFlags(std::int32_t start, FlagKind kind, const FlagVisitor& visit) const
{
    constexpr std::size_t slotsPerRead = 16384;  // 256 KB: large enough to read fast, small enough for the cache
    const auto file = Open(WhichRecord::Current, OpenMode::Read);
    if (!file)
        return;
    FixedRecordFile<RecordSample> slots(*file);
    std::vector<RecordSample> block(slotsPerRead);
    std::int64_t next = std::max<std::int64_t>(start, FirstSampleSlot);
    while (next < SlotCount) {
        const auto wanted = std::min(slotsPerRead, static_cast<std::size_t>(SlotCount - next));
        const std::size_t count = slots.ReadMany(next, std::span(block).first(wanted));
        for (std::size_t i = 0; i < count; ++i)
            if (HasRFlag(block[i], kind) && !visit(static_cast<std::int32_t>(next + static_cast<std::int64_t>(i))))
                return;
        if (count < wanted)
            return;
        next += static_cast<std::int64_t>(count);
    }
}

}  // namespace ecg
