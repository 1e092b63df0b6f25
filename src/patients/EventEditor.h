// The event table of a record as the event window edits it: 46 slots, each with a position in the record and a text.
//
// The editor works on its own copy of the table; the caller has it stored with `StoreInto`. An event entered while the
// window is open has no position until then, and takes the one that is on view: all new events share it.
#pragma once

#include "core/formats/RecordHeader.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace ecg {

inline constexpr int EventSlotCount = 46;

class EventEditor {
public:
    // Row `n` (1 to 46) is slot n of the table of `header`.
    explicit EventEditor(const RecordHeader& header);

    // The event's clock time; "" for a free slot, a new event, and one before the first sample.
    std::string Time(int row) const;
    std::string Text(int row) const;

    bool Dirty() const { return dirty_; }  // a text was changed

    // The first row that neither has a time nor a text; nothing when all are taken.
    std::optional<int> FreeRow() const;

    // A text longer than 22 bytes is cut. An empty one frees the slot when the table is stored.
    void SetText(int row, std::string_view text);

    // The slot of the record file where the event of `row` lies; nothing for a row without one.
    std::optional<std::int32_t> Position(int row) const;

    // Puts the edited table into `header`; new events lie at `blockStart`, the slot on view, 1 at the least. A header
    // of another examination time takes the new events alone: sampling began again, and the older ones lay in the
    // recording that is gone.
    void StoreInto(RecordHeader& header, std::int32_t blockStart) const;

private:
    bool HasRow(int row) const { return row >= 1 && row <= EventSlotCount; }

    RecordHeader header_;
    bool dirty_ = false;
};

}  // namespace ecg
