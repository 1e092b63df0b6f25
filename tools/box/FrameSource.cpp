#include "box/FrameSource.h"

#include "core/Numbers.h"
#include "core/formats/FixedRecordFile.h"
#include "wfdb/RecordingFrames.h"

#include <algorithm>

namespace ecg {
namespace {

constexpr std::int64_t mostFrames = std::int64_t{24} * 3600 * FramesPerSecond;

std::string LowerCase(std::string text)
{
    std::ranges::transform(text, text.begin(),
                           [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    return text;
}

// The stored chest channels lack what the feed of the demonstration file adds.
void AddChestSum(Frame& frame)
{
    constexpr std::size_t firstChest = 2;
    const double sum = (frame[0] + frame[1] + ZeroLevel) / 3.0;
    for (std::size_t i = firstChest; i < frame.size(); ++i)
        frame[i] = static_cast<std::int16_t>(RoundToInt(frame[i] + sum) - ZeroLevel);
}

Outcome<std::vector<Frame>> LoadFrames(const std::filesystem::path& path, bool addChestSum)
{
    using Result = Outcome<std::vector<Frame>>;
    std::error_code error;
    const auto file = std::filesystem::is_regular_file(path, error) ? OpenFile(path, OpenMode::Read) : nullptr;
    if (!file)
        return Result::Failure("cannot open " + path.string());
    FixedRecordFile<RecordSample> records(*file);
    const std::int64_t count = records.Count() - FirstSampleSlot + 1;
    if (count < 1 || count > mostFrames)
        return Result::Failure(path.string() + " does not hold 1 sample to 24 hours");
    std::vector<RecordSample> samples(static_cast<std::size_t>(count));
    samples.resize(records.ReadMany(FirstSampleSlot, samples));

    std::vector<Frame> frames(samples.size());
    for (std::size_t i = 0; i < samples.size(); ++i) {
        frames[i] = ToFrame(samples[i]);
        frames[i][0] = static_cast<std::int16_t>(frames[i][0] & SampleMask);
        if (addChestSum)
            AddChestSum(frames[i]);
        for (std::int16_t& value : frames[i])
            value = std::clamp<std::int16_t>(value, 0, SampleMask);
    }
    return frames;
}

Outcome<FrameSource> LoadWfdb(const std::filesystem::path& path)
{
    using Result = Outcome<FrameSource>;
    const auto recording = LoadRecording(path);
    if (!recording)
        return Result::Failure(recording.Reason());
    FrameSource source{WilsonFrames(*recording), FrankFrames(*recording)};
    if (source.Wilson.empty() && source.Frank.empty())
        return Result::Failure(path.string() + " has neither leads II, III, V1 to V6 nor X, Y and Z");
    CloseLoop(source.Wilson);
    CloseLoop(source.Frank);
    return source;
}

}  // namespace

Outcome<FrameSource> LoadFrameSource(const std::filesystem::path& path)
{
    using Result = Outcome<FrameSource>;
    const std::string name = LowerCase(path.filename().string());
    const std::string extension = LowerCase(path.extension().string());
    if (extension == ".hea")
        return LoadWfdb(path);
    const bool isDemo = name == "ecgtest.dat";
    const bool isWilson = isDemo || extension == ".w";
    const bool isFrank = name == "vcgtest.dat" || extension == ".f";
    if (!isWilson && !isFrank)
        return Result::Failure(path.string() + " is no .hea, .W or .F file, nor EcgTest.dat or VcgTest.dat");
    auto frames = LoadFrames(path, isDemo);
    if (!frames)
        return Result::Failure(frames.Reason());
    FrameSource source;
    (isWilson ? source.Wilson : source.Frank) = std::move(*frames);
    return source;
}

void CloseLoop(std::vector<Frame>& frames)
{
    constexpr std::size_t fadeFrames = FramesPerSecond / 5;
    if (frames.size() < 3 * fadeFrames)
        return;
    const std::size_t tail = frames.size() - fadeFrames;
    for (std::size_t i = 0; i < fadeFrames; ++i) {
        const double newPart = static_cast<double>(i + 1) / (fadeFrames + 1);
        for (std::size_t channel = 0; channel < ChannelCount; ++channel) {
            const double faded = frames[tail + i][channel] * (1 - newPart) + frames[i][channel] * newPart;
            frames[tail + i][channel] = static_cast<std::int16_t>(RoundToInt(faded));
        }
    }
    frames.erase(frames.begin(), frames.begin() + static_cast<std::ptrdiff_t>(fadeFrames));
}

}  // namespace ecg
