#include "record/OpenedRecord.h"

#include <algorithm>

namespace ecg {
namespace {

constexpr std::int32_t firstSlot = FirstSampleSlot;

LeadSystem SystemOf(const std::filesystem::path& record)
{
    const auto ending = record.extension();
    return ending == ".F" || ending == ".f" ? LeadSystem::Frank : LeadSystem::Wilson;
}

}  // namespace

OpenedRecord::OpenedRecord(const std::filesystem::path& record) : system_(SystemOf(record)), file_(state_)
{
    state_.Folders.Data = record.parent_path();
    state_.RecordPath = record.filename().string();
    file_.ReadHeader(WhichRecord::Current);
    file_.CountSlots(WhichRecord::Current);
}

Outcome<std::unique_ptr<OpenedRecord>> OpenedRecord::Open(const std::filesystem::path& record)
{
    using Result = Outcome<std::unique_ptr<OpenedRecord>>;
    std::error_code error;
    if (!std::filesystem::is_regular_file(record, error) || !OpenFile(record, OpenMode::Read))
        return Result::Failure("cannot read " + record.string());
    std::unique_ptr<OpenedRecord> opened(new OpenedRecord(record));
    if (opened->file_.SlotCount <= firstSlot)
        return Result::Failure(record.string() + " has no samples");
    return opened;
}

void OpenedRecord::LoadView(std::int32_t start)
{
    state_.BlockStart = start;
    file_.ReadSamples(SampleTarget::View, start, ReviewedSlots);
}

std::size_t OpenedRecord::FlagsInView() const
{
    return static_cast<std::size_t>(std::ranges::find(file_.RFlagList, 0) - file_.RFlagList.begin());
}

Outcome<std::int32_t> OpenedRecord::Beat(std::size_t place) const
{
    if (place < FlagsInView())
        return file_.RFlagList[place];
    return Outcome<std::int32_t>::Failure("the view has " + std::to_string(FlagsInView()) + " beats, none of number " +
                                          std::to_string(place));
}

BeatResult OpenedRecord::Measured(std::int32_t centerSlot)
{
    file_.CenterSlot = centerSlot;
    BeatResult result;
    if (centerSlot != 0)
        Delineate(file_, system_, result);
    return result;
}

std::vector<std::int32_t> OpenedRecord::AllFlags() const
{
    std::vector<std::int32_t> flags;
    file_.FindRFlags(firstSlot, FlagKind::Clean, [&flags](std::int32_t slot) {
        flags.push_back(slot);
        return true;
    });
    return flags;
}

}  // namespace ecg
