// The heart-rate trend of a record as it is looked at: which beats are in view, where the cursor stands, what it reads.
//
//   BeatRates  ─────────────┬───────────────────────────┬─────────────
//                      ViewOffset                  499 columns on
//                           └──────────▲────────────────┘
//                                    cursor, an arrow of 15 pixels: column 1 to 515
//
// A column is a pixel is a beat.
#pragma once

#include "core/formats/RecordHeader.h"
#include "rate/BeatTable.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>

namespace ecg {

// The columns of the curve that are in view.
struct RateView {
    static constexpr std::size_t Columns = 499;

    std::span<const Byte> Rates{};
    int PointsShown = 0;  // columns that are not empty
    int Highest = 0;      // beats a minute, of the columns that are not empty
    int Lowest = RateOutOfRange;
};

// A marked moment near the cursor.
struct NearEvent {
    std::string Time;
    std::string Text;
};

class RateTrend {
public:
    static constexpr int ScrollRange = 32767;  // values of the scroll bar: 0 to this
    static constexpr int CursorFirst = -6;     // pixels, left edge of the arrow
    static constexpr int CursorLast = 508;
    static constexpr int CursorTip = 7;  // pixels from the left edge of the arrow to the column it points at

    // Times and events are those of `header`. The view starts at the first beat, and so does the cursor.
    RateTrend(const RecordHeader& header, BeatTable beats);
    RateTrend(const RateTrend&) = delete;
    RateTrend& operator=(const RateTrend&) = delete;

    const BeatTable& Beats() const { return beats_; }
    bool HasRates() const { return !beats_.BeatRates.empty(); }  // there are two beats or more
    const RateView& View() const { return view_; }
    std::int32_t ViewOffset() const { return viewOffset_; }

    // The view begins at the beat that lies `value` / `ScrollRange` of the way; other values count as the nearest end.
    void Scroll(int value);

    // How far the scroll bar goes for so many beats; 1 at the least.
    int ScrollStep(int beats) const;

    // Moves the cursor by so many pixels, as far as it goes.
    void MoveCursor(int pixels);
    int CursorLeft() const { return cursorLeft_; }
    int CursorColumn() const { return cursorLeft_ + CursorTip; }

    // The slot and the rate of the beat at the cursor; nothing when the cursor's column lies beyond the number of
    // points shown. An empty column in front of a point takes one from the reach of the cursor.
    std::optional<std::int32_t> CursorSlot() const;
    std::optional<Byte> CursorRate() const;

    // Clock times: of the first sample, of a beat (the start's for a beat in the first sample).
    std::string StartTime() const;
    std::string TimeOf(std::int32_t slot) const;

    // The first event of the table that lies less than 2.5 seconds from `slot`.
    std::optional<NearEvent> EventNear(std::int32_t slot) const;

    // Where a view begins that has the beat at `slot` 2.5 seconds from its left end: slot 300 at the least.
    static std::int32_t BlockStartFor(std::int32_t slot);

private:
    std::optional<std::size_t> CursorBeat() const;

    const RecordHeader& header_;
    BeatTable beats_;
    RateView view_;
    std::int32_t viewOffset_ = 0;
    int cursorLeft_ = CursorFirst;
};

}  // namespace ecg
