// The operator's commands, the scripts made of them, and the losses they ask for.
#include "box/BoxCommand.h"

#include "box/LineFaults.h"

#include <gtest/gtest.h>

namespace ecg {
namespace {

TEST(BoxCommand, IsReadFromALineOrRefused)
{
    const std::pair<const char*, BoxCommand> cases[] = {
        {"off 1", {BoxAction::ElectrodeOff, 1}},      {"  on\t10 \r", {BoxAction::ElectrodeOn, 10}},
        {"drop 0.5", {BoxAction::Drop, 0.5}},         {"garbage 4096", {BoxAction::Garbage, 4096}},
        {"silence 2.25", {BoxAction::Silence, 2.25}}, {"unplug", {BoxAction::Unplug, 0}},
        {"replug", {BoxAction::Replug, 0}},           {"quit", {BoxAction::Quit, 0}}};
    for (const auto& [line, expected] : cases) {
        const auto command = ParseBoxCommand(line);
        ASSERT_TRUE(command) << line << ": " << command.Reason();
        EXPECT_EQ(*command, expected) << line;
    }
    for (const char* line :
         {"", "Off 3", "off", "off 0", "off 11", "off 2.5", "off x", "off 3 4", "drop -1", "drop 101", "drop nan",
          "garbage 0", "garbage 4097", "garbage 1e99", "silence inf", "silence 3601", "unplug now", "quit 1", "\xFF"})
        EXPECT_FALSE(ParseBoxCommand(line)) << line;
    EXPECT_EQ(ParseBoxCommand("off 11").Reason(), "\"off\" takes a number from 1 to 10");
}

TEST(Script, IsReadInTheOrderOfItsTimesOrRefusedWithTheLine)
{
    const auto script = ParseScript("# electrodes\n\n12.5 off 3   # left arm\r\n0 drop 1\n12.5 on 3\n7 quit");
    ASSERT_TRUE(script) << script.Reason();
    EXPECT_EQ(*script, (std::vector<ScriptStep>{{0, {BoxAction::Drop, 1}},
                                                {7, {BoxAction::Quit, 0}},
                                                {12.5, {BoxAction::ElectrodeOff, 3}},
                                                {12.5, {BoxAction::ElectrodeOn, 3}}}));
    EXPECT_EQ(ParseScript("1 unplug\nsoon quit").Reason(), "script line 2: \"soon\" is no time in seconds");
    EXPECT_EQ(ParseScript("\n\n3 jump").Reason(), "script line 3: unknown command \"jump\"");
    for (const char* text : {"-1 quit", "1e300 quit", "5"})
        EXPECT_FALSE(ParseScript(text)) << text;
}

TEST(LineFaults, LoseTheShareOfBytesTheyAreTold)
{
    LineFaults faults;
    faults.SetDropPercent(1);
    std::vector<std::uint8_t> line;
    faults.Pass(std::vector<std::uint8_t>(100000), line);
    EXPECT_NEAR(static_cast<double>(line.size()), 99000, 400);
}

}  // namespace
}  // namespace ecg
