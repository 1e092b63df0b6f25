// Writes the inputs that fuzzing starts from: `fuzz_seeds FOLDER` fills FOLDER/decoder and FOLDER/settings.
#include "core/Settings.h"
#include "core/formats/RecordSample.h"

#include <array>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace ecg::fuzz {
namespace {

using Bytes = std::vector<std::uint8_t>;

bool Write(const std::filesystem::path& file, const Bytes& bytes)
{
    std::ofstream out(file, std::ios::binary);
    out.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    return out.good();
}

// A lead-off frame with the electrodes of `flags` off (flag n is bit n), or a status frame with filters of `flags`.
void AppendFrame(Bytes& bytes, std::uint8_t key, bool status, unsigned flags, int value)
{
    for (unsigned n = 0; n < 2 * ChannelCount; ++n) {
        const unsigned start = n == 0 ? 0x80U | (status ? 0x40U : 0U) : (flags >> n & 1U) << 6;
        const int data = n % 2 == 0 ? value / 64 : value % 64;
        bytes.push_back(static_cast<std::uint8_t>((start | static_cast<unsigned>(data)) ^ key));
    }
}

// All electrodes come on, one goes off and comes back, filters change, and a byte is lost on the way.
Bytes StreamSeed(std::uint8_t key, std::uint8_t system, std::uint8_t chunk)
{
    constexpr unsigned limbOff = 1U << 2;
    constexpr unsigned chestOff = 1U << 7;
    constexpr unsigned someFilters = 0x155U << 1;
    Bytes bytes{key, system, chunk};
    for (const unsigned off : {0U, limbOff, 0U, chestOff, 0U})
        AppendFrame(bytes, key, false, off, 1000 + static_cast<int>(off));
    AppendFrame(bytes, key, true, someFilters, 4095);
    bytes.pop_back();
    AppendFrame(bytes, key, false, 0, 0);
    return bytes;
}

// Long enough for a beat: a step after a quiet stretch.
Bytes BeatSeed()
{
    constexpr int quietFrames = 150;
    Bytes bytes{0, 0, 15};
    for (int i = 0; i <= quietFrames + 2; ++i)
        AppendFrame(bytes, 0, false, 0, i > quietFrames ? 3000 : 2048);
    return bytes;
}

bool WriteStreams(const std::filesystem::path& folder)
{
    std::filesystem::create_directories(folder);
    return Write(folder / "wilson", StreamSeed(0x5A, 0, 15)) && Write(folder / "frank", StreamSeed(0xC3, 1, 0)) &&
           Write(folder / "unscrambled", StreamSeed(0, 0, 255)) && Write(folder / "beat", BeatSeed());
}

bool WriteSettingsFiles(const std::filesystem::path& folder)
{
    std::filesystem::create_directories(folder);
    SysInfo settings;
    LoadFactorySettings(settings, FactoryGroup::All, true);
    settings.HospitalName.Set("人民医院 General");
    settings.DoctorNames[0].Set("王医生");
    const auto* first = reinterpret_cast<const std::uint8_t*>(&settings);
    const Bytes whole(first, first + sizeof settings);
    Bytes longer = whole;
    longer.resize(longer.size() + 100, 0xFF);
    const Bytes half(whole.begin(), whole.begin() + sizeof settings / 2);
    return Write(folder / "whole", whole) && Write(folder / "longer", longer) && Write(folder / "half", half) &&
           Write(folder / "ones", Bytes(sizeof settings, 0xFF)) && Write(folder / "empty", {});
}

} // namespace
} // namespace ecg::fuzz

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fputs("usage: fuzz_seeds FOLDER\n", stderr);
        return 2;
    }
    const std::filesystem::path folder = argv[1];
    const bool written =
        ecg::fuzz::WriteStreams(folder / "decoder") && ecg::fuzz::WriteSettingsFiles(folder / "settings");
    if (!written)
        std::fprintf(stderr, "could not write the seeds into %s\n", argv[1]);
    return written ? 0 : 1;
}
