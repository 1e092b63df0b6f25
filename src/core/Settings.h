// Reading, writing and factory values of the settings, and what is derived from them.
#pragma once

#include "core/formats/SysInfo.h"
#include "platform/Surface.h"

#include <array>
#include <filesystem>

namespace ecg {

inline constexpr const char* SettingsFileName = "Sysinfo.par";

enum class FactoryGroup {
    Sampling = 0,  // from `LeadSystem` to `SystemControlTime`
    Report = 1,    // the print fields
    Colours = 2,   // the six colours
    All = 3
};

// Sets the fields of `group`. Hospital, department and doctor names and the language belong to no group.
// `printerHasColour` decides the factory value of `PrintMono`.
void LoadFactorySettings(SysInfo& settings, FactoryGroup group, bool printerHasColour);

// Overwrites `settings` with the file as far as it goes: a short file leaves the rest as it was, bytes behind the
// record are ignored. False when there is no file.
bool ReadSettings(const std::filesystem::path& file, SysInfo& settings);

// False when the settings could not be brought to the disk; the old file then still stands.
bool WriteSettings(const std::filesystem::path& file, const SysInfo& settings);

struct PrintColours {
    Colour Grid5mm;
    Colour Grid1mm;
};

// The grid colours of reports. A depth or hue outside its range counts as its factory value.
PrintColours DerivePrintColours(const SysInfo& settings);

// The colour of one grid line on paper at a given depth, for the test page as well.
Colour MonoGrid5mm(int depth);
Colour MonoGrid1mm(int depth);
Colour HueGrid5mm(int hue, int depth);
Colour HueGrid1mm(int hue, int depth);

inline constexpr int MonoDepthCount = 8;
inline constexpr int ColourDepthCount = 4;
inline constexpr int HueCount = 3;  // red, green, blue

// How many settings each filter offers: AC, baseline, muscle.
inline constexpr std::array<int, 3> FilterChoiceCounts{2, 4, 6};

inline constexpr int LiveGainCount = 3;
inline constexpr int LiveSpeedCount = 3;

// Indices of the live display; what the file holds outside its range falls back to the factory value.
std::size_t LiveGainIndex(const SysInfo& settings);
std::size_t LiveSpeedIndex(const SysInfo& settings);

enum class LeadSystem { Wilson = 0, Frank = 1 };

// Any stored value but 1 is Wilson.
inline LeadSystem LeadSystemOf(const SysInfo& settings)
{
    return settings.LeadSystem == 1 ? LeadSystem::Frank : LeadSystem::Wilson;
}

inline Colour ToColour(const Rgb& rgb)
{
    return {rgb.R, rgb.G, rgb.B};
}

}  // namespace ecg
