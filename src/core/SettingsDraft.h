// The settings while they are edited: a copy that nothing else sees until it is accepted.
//
// Values that the program could not run with (a damaged file) are shown as their factory values, so that every choice
// of the window has one that is valid.
#pragma once

#include "core/Settings.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace ecg {

inline constexpr int LeastSampleSeconds = 10;
inline constexpr int MostSampleSeconds = 4294967;  // what a 32-bit count of frames holds: 49 days

enum class SecondsFault { NotANumber, TooShort, TooLong };

// One sampling time as it was typed, for example "15" or "0.5", blanks around it allowed.
std::optional<SecondsFault> CheckSeconds(std::string_view typed);

// Seconds with as many decimals as the frames need: 7500 frames are "15", 7501 are "15.002".
std::string SecondsText(std::int32_t frames);

enum class LeadGroup { Limb, Chest, All };

// Whether lead 0 to 11 is among the leads that the shortcut for `group` shows; it hides the others.
bool IsInGroup(std::size_t lead, LeadGroup group);

class SettingsDraft {
public:
    explicit SettingsDraft(const SysInfo& settings);

    // The choices, for the controls to show and to fill. The sampling times in it are not up to date: see `Seconds`.
    SysInfo Values;

    // The sampling times as they stand in their boxes.
    std::array<std::string, ExaminationCount> Seconds;

    void LoadFactory(FactoryGroup group, bool printerHasColour);

    struct Refusal {
        SecondsFault Fault;
        std::size_t Box;  // index of the examination
    };

    // The first sampling time that cannot be taken, if any.
    std::optional<Refusal> Check() const;

    // The settings that were chosen. Only for a draft that `Check` accepts; a refused time keeps its old value.
    SysInfo Accepted() const;

private:
    void ShowSeconds();
};

}  // namespace ecg
