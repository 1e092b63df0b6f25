// What the keys of the main window do, and when they do nothing.
#include "acquisition/MonitorFixture.h"

namespace ecg {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

class KeyPanelTest : public MonitorFixture {};

TEST_F(KeyPanelTest, AKeyActsOnlyWhenItIsReleasedInside)
{
    const KeyEntry& entry = *FindKey(key::Freeze);
    const std::vector<std::tuple<int, int, bool>> releases{{0, 0, true},
                                                           {entry.Width - 1, entry.Height - 1, true},
                                                           {entry.Width, 0, false},
                                                           {0, entry.Height, false},
                                                           {-1, 0, false},
                                                           {0, -1, false}};
    for (const auto& [x, y, acts] : releases) {
        View.KeyPictures.clear();
        View.Lamps.clear();
        Keys.OnKeyDown(key::Freeze);
        EXPECT_THAT(View.Lamps, IsEmpty()) << "nothing happens before the release";
        Keys.OnKeyUp(key::Freeze, x, y);
        EXPECT_EQ(View.Lamps.size(), acts ? 1U : 0U) << x << " " << y;
        EXPECT_THAT(View.KeyPictures, ElementsAre(Pair(key::Freeze, true), Pair(key::Freeze, false)));
    }
}

TEST_F(KeyPanelTest, DeadKeysDoNotEvenMove)
{
    const std::map<ExamState, std::vector<int>> dead{{ExamState::Waiting, {key::Event}},
                                                     {ExamState::Ready, {key::Event}},
                                                     {ExamState::Sampling, {key::Setup, key::DataBase, key::BaseLine}}};
    for (const auto& [state, keys] : dead) {
        State.ExamState = state;
        View.KeyPictures.clear();
        for (int number = -1; number <= 18; ++number) {
            Keys.OnKeyDown(number);
            Keys.OnKeyUp(number, -1, -1);
            const bool moves = FindKey(number) != nullptr && std::count(keys.begin(), keys.end(), number) == 0;
            EXPECT_EQ(View.KeyPictures.size(), moves ? 2U : 0U) << "key " << number;
            View.KeyPictures.clear();
        }
    }
    EXPECT_THAT(Windows.Opened, IsEmpty());
}

TEST_F(KeyPanelTest, ExitSavesTheSettingsAndStopsEverything)
{
    StartBox();
    State.SysInfo.GainIndex = 2;
    Keys.PressKey(key::Exit);
    SysInfo stored;
    ASSERT_TRUE(ReadSettings(State.SettingsFile(), stored));
    EXPECT_EQ(stored.GainIndex, 2);
    EXPECT_THAT(Port.Written, ElementsAre(StopCommand));
    EXPECT_FALSE(Port.IsOpen());
    EXPECT_THAT(Windows.Closed, ElementsAre(WindowName::frmPat));
    EXPECT_TRUE(View.Closed);
    EXPECT_THAT(Messages.Shown, IsEmpty());
}

TEST_F(KeyPanelTest, ExitSaysWhenTheSettingsCannotBeSaved)
{
    std::filesystem::remove_all(State.Folders.Data);
    Keys.PressKey(key::Exit);
    EXPECT_EQ(Messages.Shown.size(), 1U);
    EXPECT_TRUE(View.Closed);
}

TEST_F(KeyPanelTest, SetupAppliesWhatWasChangedBeneathTheSelectors)
{
    StartBox();
    Windows.Scripts[WindowName::frmSysSet] = [this] {
        EXPECT_THAT(View.Lamps, ElementsAre(Pair(Lamp::Setup, true)));
        State.SysInfo.LeadSystem = 1;
        State.SysInfo.FilterOn = {0, 0, 0};
        State.SysInfo.LeadShow.fill(0);
        State.SysInfo.PaperBack = {9, 9, 9};
    };
    Keys.PressKey(key::Setup);
    EXPECT_THAT(View.Lamps, ElementsAre(Pair(Lamp::Setup, true), Pair(Lamp::Setup, false)));
    EXPECT_THAT(Port.Written, ElementsAre(CommandBytes(37, {}), StopCommand, CommandBytes(21, {2, 0, 0})));
    EXPECT_EQ(View.CaptionSet, LeadSystem::Frank);
    EXPECT_EQ(Monitor.Display().RowHeight(), 650);
    EXPECT_EQ(Grid.Fills.front().Ink, (Colour{9, 9, 9}));
    EXPECT_THAT(View.Calls, ElementsAre("selectors"));
}

TEST_F(KeyPanelTest, WindowsOverARecordingKeepItsStreamAlsoWhenTheyAreMissing)
{
    for (const auto& [number, window, context] :
         {std::tuple{key::Help, WindowName::frmZSK, 255}, std::tuple{key::Knowledge, WindowName::frmResult, 254},
          std::tuple{key::Event, WindowName::frmNote, 254}}) {
        State.ExamState = number == key::Event ? ExamState::Sampling : ExamState::Waiting;
        Keys.PressKey(number);
        EXPECT_EQ(Messages.Shown.size(), 1U) << "there is no such window";
        Messages.Shown.clear();
        Windows.Scripts[window] = [this, expected = context] {
            EXPECT_TRUE(State.KeepStreaming);
            EXPECT_EQ(State.HelpContext, expected);
        };
        Keys.PressKey(number);
        EXPECT_FALSE(State.KeepStreaming);
        EXPECT_EQ(Windows.Opened, std::vector(2, window));
        Windows.Opened.clear();
    }
    EXPECT_THAT(Messages.Shown, IsEmpty());
}

} // namespace
} // namespace ecg
