#include "patients/EventEditor.h"

#include "core/EventClock.h"
#include "core/formats/RecordSample.h"

#include <algorithm>

namespace ecg {
namespace {

std::size_t SlotOf(int row)
{
    return static_cast<std::size_t>(row - 1);
}

}  // namespace

EventEditor::EventEditor(const RecordHeader& header) : header_(header)
{
    // A text in a free slot is a leftover that was never shown.
    for (int row = 1; row <= EventSlotCount; ++row)
        if (!Position(row))
            header_.EventText[SlotOf(row)].Set("");
}

std::string EventEditor::Time(int row) const
{
    const auto position = Position(row);
    if (!position)
        return {};
    return EventClock(LaidOutTime(header_.ExamTime.Text()), *position - static_cast<std::int32_t>(FirstSampleSlot));
}

std::string EventEditor::Text(int row) const
{
    return HasRow(row) ? header_.EventText[SlotOf(row)].Text() : std::string{};
}

std::optional<int> EventEditor::FreeRow() const
{
    for (int row = 1; row <= EventSlotCount; ++row)
        if (!Position(row) && Text(row).empty())
            return row;
    return std::nullopt;
}

void EventEditor::SetText(int row, std::string_view text)
{
    if (!HasRow(row) || Text(row) == text)
        return;
    header_.EventText[SlotOf(row)].Set(text);
    dirty_ = true;
}

std::optional<std::int32_t> EventEditor::Position(int row) const
{
    if (!HasRow(row) || header_.EventPos[SlotOf(row)] < 1)
        return std::nullopt;
    return header_.EventPos[SlotOf(row)];
}

void EventEditor::StoreInto(RecordHeader& header, std::int32_t blockStart) const
{
    const bool sameRecording = header.ExamTime == header_.ExamTime;
    for (int row = 1; row <= EventSlotCount; ++row) {
        const std::size_t slot = SlotOf(row);
        const auto position = Position(row);
        const bool kept = !Text(row).empty() && (sameRecording || !position);
        header.EventText[slot] = kept ? header_.EventText[slot] : FixedText<22>{};
        header.EventPos[slot] = kept ? position.value_or(std::max(blockStart, 1)) : 0;
    }
}

}  // namespace ecg
