// What the keys of the main window do, and when they do nothing.
#include "acquisition/MonitorFixture.h"

namespace ecg {
namespace {

using namespace testing;

class KeyPanelTest : public MonitorFixture {};

TEST_F(KeyPanelTest, DeadKeysDoNotEvenMove)
{
    const std::map<ExamState, std::set<int>> dead{{ExamState::Waiting, {key::Event}},
                                                  {ExamState::Ready, {key::Event}},
                                                  {ExamState::Sampling, {key::Setup, key::DataBase, key::BaseLine}}};
    for (const auto& [state, keys] : dead)
        for (int number = -1; number <= 18; ++number) {
            State.ExamState = state;
            View.KeyPictures.clear();
            Keys.OnKeyDown(number);
            Keys.OnKeyUp(number, -1, -1);
            const bool moves = FindKey(number) != nullptr && keys.count(number) == 0;
            EXPECT_EQ(View.KeyPictures.size(), moves ? 2U : 0U) << "key " << number;
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
    EXPECT_THAT(Windows.Closed, ElementsAre(WindowName::frmxECG, WindowName::frmPat));
    EXPECT_TRUE(View.Closed && !Port.IsOpen());
    EXPECT_THAT(Messages.Shown, IsEmpty());
    std::filesystem::remove_all(State.Folders.Data);
    View.Closed = false;
    Keys.PressKey(key::Exit);
    EXPECT_THAT(Messages.Shown, SizeIs(1)) << "the settings cannot be saved";
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
    View.Calls.clear();
    Keys.PressKey(key::Setup);
    EXPECT_THAT(View.Lamps, ElementsAre(Pair(Lamp::Setup, true), Pair(Lamp::Setup, false)));
    EXPECT_THAT(Port.Written, ElementsAre(CommandBytes(37, {}), StopCommand, CommandBytes(21, {2, 0, 0})));
    EXPECT_EQ(View.CaptionSet, LeadSystem::Frank);
    EXPECT_EQ(Monitor.Display().RowHeight(), 650);
    ASSERT_THAT(Grid.Fills, SizeIs(1));
    EXPECT_EQ(Grid.Fills[0].Ink, (Colour{9, 9, 9}));
    EXPECT_THAT(View.Calls, ElementsAre("selectors"));
}

TEST_F(KeyPanelTest, WindowsOverARecordingKeepItsStreamAlsoWhenTheyAreMissing)
{
    State.ExamState = ExamState::Sampling;
    for (const auto& [number, window, context] :
         {std::tuple{key::Help, WindowName::frmZSK, 255}, std::tuple{key::Knowledge, WindowName::frmResult, 254},
          std::tuple{key::Event, WindowName::frmNote, 254}}) {
        Messages.Shown.clear();
        Windows.Opened.clear();
        Keys.PressKey(number);
        Windows.Scripts[window] = [this, expected = context] {
            EXPECT_TRUE(State.KeepStreaming);
            EXPECT_EQ(State.HelpContext, expected);
        };
        Keys.PressKey(number);
        EXPECT_FALSE(State.KeepStreaming);
        EXPECT_EQ(Windows.Opened, std::vector(2, window));
        EXPECT_THAT(Messages.Shown, SizeIs(number == key::Event ? 0 : 1)) << "there is no such window at first";
    }
}

}  // namespace
}  // namespace ecg
