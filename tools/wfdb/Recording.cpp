#include "wfdb/Recording.h"

#include "wfdb/WholeFile.h"

#include <algorithm>
#include <limits>
#include <optional>

namespace ecg {
namespace {

constexpr std::int64_t mostHeaderBytes = 1 << 20;
constexpr std::int64_t mostFileBytes = std::int64_t{256} << 20;
constexpr std::int64_t mostValues = std::int64_t{64} << 20;
constexpr double longestSeconds = 24 * 3600;

char LowerCase(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool SameName(std::string_view a, std::string_view b)
{
    return std::ranges::equal(a, b, {}, LowerCase, LowerCase);
}

// Sample `index` of a signal file, counted over all its signals. Nothing for the value that marks "no sample".
class SampleReader {
public:
    SampleReader(WfdbFormat format, std::span<const std::byte> bytes) : format_(format), bytes_(bytes) {}

    std::int64_t Count() const
    {
        const auto size = static_cast<std::int64_t>(bytes_.size());
        if (format_ == WfdbFormat::Integer16)
            return size / 2;
        return size / 3 * 2 + (size % 3 == 2 ? 1 : 0);  // two bytes are enough for the first of a pair
    }

    std::optional<int> At(std::int64_t index) const
    {
        return format_ == WfdbFormat::Integer16 ? Integer16At(static_cast<std::size_t>(index))
                                                : Packed12At(static_cast<std::size_t>(index));
    }

private:
    int Byte(std::size_t i) const { return std::to_integer<int>(bytes_[i]); }

    std::optional<int> Integer16At(std::size_t index) const
    {
        constexpr int noSample = std::numeric_limits<std::int16_t>::min();
        const int value = static_cast<std::int16_t>(Byte(2 * index) | Byte(2 * index + 1) << 8);
        return value == noSample ? std::nullopt : std::optional(value);
    }

    // Three bytes aaaaaaaa bbbbAAAA BBBBBBBB hold the sample AAAAaaaaaaaa and the sample bbbbBBBBBBBB.
    std::optional<int> Packed12At(std::size_t index) const
    {
        constexpr int noSample = -2048;
        const std::size_t pair = index / 2 * 3;
        int value =
            index % 2 == 0 ? Byte(pair) | (Byte(pair + 1) & 0x0F) << 8 : Byte(pair + 2) | (Byte(pair + 1) & 0xF0) << 4;
        if (value > 0x7FF)
            value -= 0x1000;
        return value == noSample ? std::nullopt : std::optional(value);
    }

    WfdbFormat format_;
    std::span<const std::byte> bytes_;
};

// Where the samples of one signal lie: every `Stride`th of a file, from `First`.
struct SignalPlace {
    SampleReader Samples;
    std::int64_t First;
    std::int64_t Stride;
};

Outcome<SignalPlace> LocateSignal(const WfdbHeader& header, std::size_t signal, std::span<const WfdbFile> files)
{
    using Result = Outcome<SignalPlace>;
    const WfdbSignal& wanted = header.Signals[signal];
    const auto file = std::ranges::find(files, wanted.File, &WfdbFile::Name);
    if (file == files.end())
        return Result::Failure("signal file \"" + wanted.File + "\" is missing");

    std::int64_t first = 0;
    std::int64_t stride = 0;
    std::int64_t offset = 0;  // may stand with one signal of the file only
    for (std::size_t i = 0; i < header.Signals.size(); ++i) {
        const WfdbSignal& other = header.Signals[i];
        if (other.File != wanted.File)
            continue;
        if (other.Format != wanted.Format)
            return Result::Failure("signal file \"" + wanted.File + "\" is told to have two formats");
        first += i < signal ? 1 : 0;
        ++stride;
        offset = std::max(offset, other.ByteOffset);
    }
    const std::size_t begin = std::min(static_cast<std::size_t>(offset), file->Bytes.size());
    return SignalPlace{SampleReader(wanted.Format, std::span(file->Bytes).subspan(begin)), first, stride};
}

// Millivolts in one of the signal's units; nothing when that is no voltage.
std::optional<double> MillivoltsPerUnit(std::string_view units)
{
    if (SameName(units, "mV"))
        return 1;
    if (SameName(units, "uV"))
        return 0.001;
    if (SameName(units, "V"))
        return 1000;
    return std::nullopt;
}

std::vector<double> ReadMillivolts(const WfdbSignal& signal, const SignalPlace& place, double millivoltsPerUnit,
                                   std::int64_t length)
{
    std::vector<double> values;
    values.reserve(static_cast<std::size_t>(length));
    double value = 0;
    for (std::int64_t i = 0; i < length; ++i) {
        if (const auto sample = place.Samples.At(place.First + i * place.Stride))
            value = (*sample - signal.Baseline) / signal.Gain * millivoltsPerUnit;
        values.push_back(value);
    }
    return values;
}

}  // namespace

const RecordedSignal* Recording::Find(std::string_view name) const
{
    const auto found = std::ranges::find_if(Signals, [&](const auto& signal) { return SameName(signal.Name, name); });
    return found == Signals.end() ? nullptr : &*found;
}

Outcome<Recording> DecodeRecording(const WfdbHeader& header, std::span<const WfdbFile> files)
{
    using Result = Outcome<Recording>;
    std::vector<SignalPlace> places;
    std::int64_t length = header.Samples > 0 ? header.Samples : std::numeric_limits<std::int64_t>::max();
    for (std::size_t i = 0; i < header.Signals.size(); ++i) {
        auto place = LocateSignal(header, i, files);
        if (!place)
            return Result::Failure(place.Reason());
        length = std::min(length, place->Samples.Count() / place->Stride);
        places.push_back(*place);
    }
    if (length < 1 || places.empty())
        return Result::Failure("the recording has no samples");
    if (length > mostValues / static_cast<std::int64_t>(places.size()))
        return Result::Failure("the recording is too large");
    if (static_cast<double>(length) / header.Rate > longestSeconds)
        return Result::Failure("the recording is longer than 24 hours");

    Recording recording{header.Name, header.Rate, {}, header.Comments};
    for (std::size_t i = 0; i < places.size(); ++i)
        if (const auto scale = MillivoltsPerUnit(header.Signals[i].Units))
            recording.Signals.push_back(
                {header.Signals[i].Name, ReadMillivolts(header.Signals[i], places[i], *scale, length)});
    if (recording.Signals.empty())
        return Result::Failure("the recording has no signal in volts");
    return recording;
}

Outcome<Recording> LoadRecording(const std::filesystem::path& headerPath)
{
    using Result = Outcome<Recording>;
    const auto text = ReadWholeFile(headerPath, mostHeaderBytes);
    if (!text)
        return Result::Failure(text.Reason());
    const auto header = ParseWfdbHeader(AsText(*text));
    if (!header)
        return Result::Failure(headerPath.string() + ": " + header.Reason());

    std::vector<WfdbFile> files;
    for (const WfdbSignal& signal : header->Signals) {
        if (std::ranges::find(files, signal.File, &WfdbFile::Name) != files.end())
            continue;
        auto bytes = ReadWholeFile(headerPath.parent_path() / signal.File, mostFileBytes);
        if (!bytes)
            return Result::Failure(bytes.Reason());
        files.push_back({signal.File, std::move(*bytes)});
    }
    auto recording = DecodeRecording(*header, files);
    return recording ? std::move(recording) : Result::Failure(headerPath.string() + ": " + recording.Reason());
}

}  // namespace ecg
