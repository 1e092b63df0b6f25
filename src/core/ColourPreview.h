// The picture by which the colours of the live display are chosen: its paper, its grid and a wave on it.
#pragma once

#include "core/formats/SysInfo.h"
#include "platform/Surface.h"

#include <array>
#include <cstddef>
#include <filesystem>
#include <vector>

namespace ecg {

inline constexpr const char* PreviewWaveFileName = "Color.dat";

// The six colours that can be chosen, in the order in which they are listed.
enum class DisplayColour { Watch, Save, Reset, Paper, Grid5mm, Grid1mm };
inline constexpr std::array<Rgb SysInfo::*, 6> DisplayColours{&SysInfo::TraceWatch, &SysInfo::TraceSave,
                                                              &SysInfo::TraceReset, &SysInfo::PaperBack,
                                                              &SysInfo::Grid5mm,    &SysInfo::Grid1mm};

inline Rgb& ColourOf(SysInfo& settings, DisplayColour colour)
{
    return settings.*DisplayColours[static_cast<std::size_t>(colour)];
}

inline const Rgb& ColourOf(const SysInfo& settings, DisplayColour colour)
{
    return settings.*DisplayColours[static_cast<std::size_t>(colour)];
}

// The heights, in pixels from the top, of up to `columns` columns of the sample wave: each column is the third sample
// after the one before it. A file that is missing or too short gives fewer columns, or none.
std::vector<int> ReadPreviewWave(const std::filesystem::path& file, std::size_t columns);

// Draws paper, grid and wave over the whole of `surface` (pixels). The wave is drawn in the trace colour that is being
// adjusted, and as a watched trace while the paper or the grid is.
void DrawColourPreview(Surface& surface, const SysInfo& settings, DisplayColour adjusted, const std::vector<int>& wave);

}  // namespace ecg
