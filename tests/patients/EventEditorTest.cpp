// Editing the events of a record: which slot a new one takes, what is stored, what is left alone.
#include "patients/EventEditor.h"

#include "patients/RecordTable.h"

#include <gmock/gmock.h>
#include <span>

namespace ecg {
namespace {

constexpr std::int32_t onView = 9000;  // slot

RecordHeader TwoEvents()
{
    RecordHeader header;
    header.ExamTime.Set("20260309080500");
    header.EventPos[0] = 300 + 1000;
    header.EventText[0].Set("胸痛");
    header.EventPos[2] = 200;
    header.EventText[2].Set("early");
    header.EventText[4].Set("left behind");
    return header;
}

RecordHeader Stored(const EventEditor& editor, std::int32_t blockStart = onView)
{
    RecordHeader header = TwoEvents();
    editor.StoreInto(header, blockStart);
    return header;
}

TEST(EventEditor, ShowsTheEventsOfTheHeader)
{
    const EventEditor editor(TwoEvents());
    EXPECT_EQ(editor.Time(1), "2026/03/09 08:05:02");
    EXPECT_EQ(editor.Text(1), "胸痛");
    EXPECT_EQ(editor.Position(1), 1300);
    EXPECT_EQ(editor.Time(3) + editor.Text(3), "early");  // lies before the first sample
    EXPECT_EQ(editor.Time(5) + editor.Text(5), "");
    for (const int row : {-1, 0, 47})
        EXPECT_TRUE(editor.Text(row).empty() && editor.Time(row).empty() && !editor.Position(row)) << row;
    EXPECT_FALSE(editor.Dirty());
}

TEST(EventEditor, NewEventsTakeThePositionOnViewWhichIsASlot)
{
    EventEditor editor(TwoEvents());
    editor.SetText(*editor.FreeRow(), "一二三四五六七八九十一二");
    EXPECT_TRUE(editor.Dirty());
    EXPECT_EQ(editor.Text(2), "一二三四五六七八九十一") << "as it will be stored";
    EXPECT_FALSE(editor.Position(2));
    const RecordHeader stored = Stored(editor);
    EXPECT_THAT(std::span(stored.EventPos).first(5), testing::ElementsAre(1300, onView, 200, 0, 0));
    EXPECT_EQ(EventCount(stored), 3);
    EXPECT_EQ(Stored(editor, 0).EventPos[1], 1);
    EXPECT_TRUE(stored.EventText[4].IsBlank()) << "what was left behind without a position";
}

TEST(EventEditor, EventsOfARecordingThatIsGoneAreNotStored)
{
    EventEditor editor(TwoEvents());
    editor.SetText(2, "new");
    RecordHeader again;
    again.ExamTime.Set("20260309080600");
    editor.StoreInto(again, onView);
    EXPECT_EQ(again.EventPos[1], onView);
    for (const std::size_t old : {0U, 2U})
        EXPECT_TRUE(again.EventPos[old] == 0 && again.EventText[old].IsBlank()) << old;
}

TEST(EventEditor, AnEmptiedTextFreesItsSlotAndLeavesAGap)
{
    EventEditor editor(TwoEvents());
    editor.SetText(1, "胸痛");
    EXPECT_FALSE(editor.Dirty());
    editor.SetText(1, "");
    editor.SetText(47, "x");
    const RecordHeader stored = Stored(editor);
    EXPECT_EQ(stored.EventPos[0], 0);
    EXPECT_EQ(EventCount(stored), 0);
    EXPECT_EQ(EventEditor(stored).Text(3), "early");
}

}  // namespace
}  // namespace ecg
