#include "review/EventMarks.h"

#include "core/EventClock.h"
#include "core/Language.h"
#include "core/formats/RecordSample.h"
#include "review/TraceDrawing.h"

#include <algorithm>
#include <optional>

namespace ecg {
namespace {

constexpr double arrowSize = 4;    // mm
constexpr double wordSpace = 1;    // mm between arrow and words
constexpr double wordsDepth = 20;  // mm of the traces that words may lie under

constexpr Twin eventIs{"事件：", "Event: "};
constexpr Twin timeIs{"时间：", "Time: "};
constexpr Twin eventNumber{"事件", "Event "};  // as in the list of events

// The places that are taken, and where the next mark may stand.
class Places {
public:
    // Takes the highest free place of this size between `area.Y` and `bottom`; its upper edge.
    std::optional<double> Take(Rect area, double bottom)
    {
        const auto overlaps = [&area](const Rect& other) {
            return area.X < other.X + other.Width && other.X < area.X + area.Width && area.Y < other.Y + other.Height &&
                   other.Y < area.Y + area.Height;
        };
        for (auto other = std::ranges::find_if(taken_, overlaps); other != taken_.end();
             other = std::ranges::find_if(taken_, overlaps))
            area.Y = other->Y + other->Height;
        if (area.Y + area.Height > bottom)
            return std::nullopt;
        taken_.push_back(area);
        return area.Y;
    }

    const std::vector<Rect>& Taken() const { return taken_; }

private:
    std::vector<Rect> taken_;
};

// Arrow and words, as high up as there is room above `bottom`. False when there is none.
bool DrawMark(Surface& page, const Band& band, double x, const std::string& words, double bottom, Places& places,
              const PageLook& look)
{
    const TextStyle style{look.TextHeight, look.Event, true};
    const double reach = arrowSize / 2 + wordSpace + page.TextWidth(words, style);
    const bool leftwards = x + reach > band.Left + band.Width && x - reach >= band.Left;
    const double left = leftwards ? x - reach : x - arrowSize / 2;
    const double width = reach + arrowSize / 2;
    const auto y = places.Take({left, band.Top - look.Margin, width, look.TextHeight}, bottom);
    if (!y)
        return false;
    page.Fill({left, *y, width, look.TextHeight}, look.Paper);
    const double arrowDrop = (look.TextHeight - arrowSize) / 2;
    page.Picture(look.EventArrow, {x - arrowSize / 2, *y + arrowDrop, arrowSize, arrowSize});
    page.Text({leftwards ? left : x + arrowSize / 2 + wordSpace, *y}, words, style);
    return true;
}

}  // namespace

std::string ExamTimeText(const RecordHeader& header)
{
    return WrittenTime(header.ExamTime.Text());
}

std::string WrittenTime(std::string_view digits)
{
    std::string text = LaidOutTime(digits);
    std::ranges::replace(text, '-', '/');
    return text;
}

std::string TimeOfSlot(const RecordHeader& header, std::int32_t slot)
{
    if (slot <= FirstSampleSlot)
        return ExamTimeText(header);
    return WrittenTime(
        DatedClock(LaidOutTime(header.ExamTime.Text()), slot - static_cast<std::int32_t>(FirstSampleSlot)));
}

std::vector<Rect> DrawEventMarks(Surface& page, const StripLayout& layout, const RecordHeader& header,
                                 std::int32_t blockStart, double speed, bool chinese, const PageLook& look)
{
    Places places;
    for (std::size_t i = 0; i < header.EventPos.size(); ++i) {
        const std::int32_t slot = header.EventPos[i];
        for (const Band& band : layout.Bands) {
            const auto x = PlaceOfSlot(band, slot, blockStart, speed);
            if (slot < blockStart || !x || band.Comparison)
                continue;
            const std::string words =
                eventIs.In(chinese) + header.EventText[i].Text() + "  " + timeIs.In(chinese) + TimeOfSlot(header, slot);
            if (!DrawMark(page, band, *x, words, band.Top + wordsDepth, places, look))
                DrawMark(page, band, *x, eventNumber.In(chinese) + std::to_string(i + 1), TraceAreaHeight, places,
                         look);
            break;
        }
    }
    return places.Taken();
}

}  // namespace ecg
