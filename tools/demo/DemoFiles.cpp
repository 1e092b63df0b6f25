#include "demo/DemoFiles.h"

#include "core/Numbers.h"
#include "core/formats/RecordHeader.h"
#include "demo/SyntheticEcg.h"
#include "demo/TwelveLeads.h"
#include "platform/ByteFile.h"

#include <algorithm>
#include <cstring>

namespace ecg {
namespace {

// The preview shows 2396 counts at height 75 of about 100 and 20 counts a pixel, so that a millivolt is 55 pixels
// high and the wave stands in the middle of the picture.
constexpr int previewZero = 2396;  // counts
constexpr double previewCountsPerMillivolt = 1100;
constexpr EcgOptions previewOptions{
    .Seconds = 8, .BeatsPerMinute = 75, .RateVariation = 0, .Breathing = 0, .NoiseMicrovolts = 0};

RecordHeader DemoHeader()
{
    RecordHeader header;
    header.ExamTime.Set("20240101080000");
    header.GainIndex = 1;
    header.SpeedIndex = 1;
    header.FilterFlags.fill(1);
    header.LeadFlags.fill(1);
    header.Name.Set("Demo");
    header.BirthYear.Set("1984");
    header.Height = 172;
    header.Weight = 68;
    return header;
}

std::vector<std::byte> FileOf(const std::vector<Frame>& frames)
{
    constexpr std::size_t headerArea = (FirstSampleSlot - 1) * sizeof(RecordSample);
    std::vector<RecordSample> samples(frames.size());
    std::transform(frames.begin(), frames.end(), samples.begin(), ToSample);
    std::vector<std::byte> file(headerArea + samples.size() * sizeof(RecordSample));
    const RecordHeader header = DemoHeader();
    std::memcpy(file.data(), &header, sizeof header);
    std::memcpy(file.data() + headerArea, samples.data(), samples.size() * sizeof(RecordSample));
    return file;
}

}  // namespace

Frame ChestAgainstFoot(const Frame& wilson)
{
    const int limbSum = wilson[0] + wilson[1] + ZeroLevel;
    Frame stored = wilson;
    for (std::size_t channel = 2; channel < stored.size(); ++channel)
        stored[channel] = static_cast<std::int16_t>(wilson[channel] + ZeroLevel - RoundToInt(limbSum / 3.0));
    return stored;
}

std::vector<std::byte> WilsonDemoFile()
{
    std::vector<Frame> frames = SyntheticEcg(EcgOptions{}).WilsonFrames();
    std::transform(frames.begin(), frames.end(), frames.begin(), ChestAgainstFoot);
    return FileOf(frames);
}

std::vector<std::byte> FrankDemoFile()
{
    return FileOf(SyntheticEcg(EcgOptions{}).FrankFrames());
}

std::vector<std::byte> PreviewFile()
{
    constexpr double start = -0.3;  // seconds; the preview's first column then stands before a P wave
    const HeartModel heart(previewOptions);
    Frame quiet;
    quiet.fill(ZeroLevel);
    std::vector<Frame> frames(static_cast<std::size_t>(previewOptions.Seconds) * FramesPerSecond, quiet);
    for (std::size_t i = 0; i < frames.size(); ++i) {
        const double leadII = WilsonFromFrank(heart.At(start + static_cast<double>(i) / FramesPerSecond)).II;
        frames[i][0] = static_cast<std::int16_t>(RoundToInt(previewZero + leadII * previewCountsPerMillivolt));
    }
    return FileOf(frames);
}

std::vector<std::filesystem::path> WriteDemoFiles(const std::filesystem::path& folder)
{
    std::error_code error;  // a folder that cannot be made shows in the files that cannot be written
    std::filesystem::create_directories(folder, error);
    std::vector<std::filesystem::path> failed;
    const auto write = [&](const char* name, const std::vector<std::byte>& bytes) {
        if (!ReplaceFile(folder / name, bytes))
            failed.push_back(folder / name);
    };
    write("EcgTest.dat", WilsonDemoFile());
    write("VcgTest.dat", FrankDemoFile());
    write("Color.dat", PreviewFile());
    return failed;
}

}  // namespace ecg
