#include "core/SettingsDraft.h"

#include "core/Numbers.h"
#include "core/formats/RecordSample.h"

namespace ecg {
namespace {

static_assert(MostSampleSeconds <= INT32_MAX / FramesPerSecond);

void Repair(Byte& value, int count, Byte factory)
{
    if (value >= count)
        value = factory;
}

void RepairSwitch(Byte& value)
{
    value = value == 1 ? 1 : 0;
}

void RepairChoices(SysInfo& settings)
{
    SysInfo factory;
    LoadFactorySettings(factory, FactoryGroup::All, false);
    for (std::size_t i = 0; i < FilterChoiceCounts.size(); ++i)
        Repair(settings.FilterIndex[i], FilterChoiceCounts[i], factory.FilterIndex[i]);
    for (Byte& shown : settings.LeadShow)
        RepairSwitch(shown);
    RepairSwitch(settings.LeadPrompt);
    RepairSwitch(settings.PrintQuality);
    RepairSwitch(settings.PrintMono);
    RepairSwitch(settings.PrintPortrait);
    Repair(settings.GridHue, HueCount, factory.GridHue);
    Repair(settings.Depth5mmColour, ColourDepthCount, factory.Depth5mmColour);
    Repair(settings.Depth1mmColour, ColourDepthCount, factory.Depth1mmColour);
    Repair(settings.Depth5mmMono, MonoDepthCount, factory.Depth5mmMono);
    Repair(settings.Depth1mmMono, MonoDepthCount, factory.Depth1mmMono);
}

void RepairTimes(SysInfo& settings)
{
    SysInfo factory;
    LoadFactorySettings(factory, FactoryGroup::Sampling, false);
    for (std::size_t i = 0; i < ExaminationCount; ++i) {
        const std::int32_t frames = settings.SampleTime[i];
        if (frames < LeastSampleSeconds * FramesPerSecond || frames > MostSampleSeconds * FramesPerSecond)
            settings.SampleTime[i] = factory.SampleTime[i];
    }
}

}  // namespace

std::string SecondsText(std::int32_t frames)
{
    constexpr int decimalsOfAFrame = 3;
    const bool whole = frames % FramesPerSecond == 0;
    return FormatDecimal(static_cast<double>(frames) / FramesPerSecond, whole ? 0 : decimalsOfAFrame);
}

std::optional<SecondsFault> CheckSeconds(std::string_view typed)
{
    const auto seconds = ParseDecimal(typed);
    if (!seconds)
        return SecondsFault::NotANumber;
    if (*seconds < LeastSampleSeconds)
        return SecondsFault::TooShort;
    if (*seconds > MostSampleSeconds)
        return SecondsFault::TooLong;
    return std::nullopt;
}

bool IsInGroup(std::size_t lead, LeadGroup group)
{
    constexpr std::size_t limbLeads = 6;
    return group == LeadGroup::All || (lead < limbLeads) == (group == LeadGroup::Limb);
}

SettingsDraft::SettingsDraft(const SysInfo& settings) : Values(settings)
{
    RepairChoices(Values);
    RepairTimes(Values);
    ShowSeconds();
}

void SettingsDraft::ShowSeconds()
{
    for (std::size_t i = 0; i < ExaminationCount; ++i)
        Seconds[i] = SecondsText(Values.SampleTime[i]);
}

void SettingsDraft::LoadFactory(FactoryGroup group, bool printerHasColour)
{
    LoadFactorySettings(Values, group, printerHasColour);
    if (group == FactoryGroup::Sampling || group == FactoryGroup::All)
        ShowSeconds();
}

std::optional<SettingsDraft::Refusal> SettingsDraft::Check() const
{
    for (std::size_t i = 0; i < ExaminationCount; ++i)
        if (const auto fault = CheckSeconds(Seconds[i]))
            return Refusal{*fault, i};
    return std::nullopt;
}

SysInfo SettingsDraft::Accepted() const
{
    SysInfo settings = Values;
    for (std::size_t i = 0; i < ExaminationCount; ++i)
        if (!CheckSeconds(Seconds[i]))
            settings.SampleTime[i] = RoundToInt(*ParseDecimal(Seconds[i]) * FramesPerSecond);
    return settings;
}

}  // namespace ecg
