#include "wfdb/Header.h"

#include "wfdb/Words.h"

#include <cmath>

namespace ecg {
namespace {

constexpr double defaultGain = 200;  // what the format says for a gain of 0 or none
constexpr double largestGain = 1e9;
constexpr double smallestGain = 1e-6;
constexpr double smallestRate = 1;  // samples a second
constexpr double largestRate = 100000;
constexpr std::size_t mostSignals = 64;
constexpr std::int64_t mostSamples = std::int64_t{1} << 40;

std::string_view Trim(std::string_view text)
{
    constexpr std::string_view blanks = " \t\r";
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

using Reason = std::string;  // empty = all is well

Reason ParseRecordLine(std::string_view line, WfdbHeader& header, std::size_t& signalCount)
{
    const std::string_view name = TakeWord(line);
    if (name.find('/') != std::string_view::npos)
        return "records of several segments are not supported";
    header.Name = name;

    const auto signals = ParseNumber<std::int64_t>(TakeWord(line));
    if (!signals || *signals < 1 || *signals > static_cast<std::int64_t>(mostSignals))
        return "the number of signals must be 1 to " + std::to_string(mostSignals);
    signalCount = static_cast<std::size_t>(*signals);

    std::string_view rateWord = TakeWord(line);
    if (rateWord.empty())
        return {};
    const auto rate = ParseNumber<double>(TakeUntil(rateWord, '/'));  // a counter frequency may follow
    if (!rate || !(*rate >= smallestRate && *rate <= largestRate))
        return "the sampling rate must be 1 to 100000 samples a second";
    header.Rate = *rate;

    const std::string_view samplesWord = TakeWord(line);
    if (samplesWord.empty())
        return {};
    const auto samples = ParseNumber<std::int64_t>(samplesWord);
    if (!samples || *samples < 0 || *samples > mostSamples)
        return "the number of samples is no number";
    header.Samples = *samples;
    return {};
}

// "212", "16+24": the format and the byte offset of the samples.
Reason ParseFormat(std::string_view word, WfdbSignal& signal)
{
    std::string_view offsetWord = word;
    const std::string_view formatWord = TakeUntil(offsetWord, '+');
    if (formatWord.find_first_of("x:") != std::string_view::npos && !formatWord.ends_with("x1"))
        return "several samples an instant and skewed signals are not supported";
    const auto format = ParseNumber<int>(formatWord.substr(0, formatWord.find('x')));
    if (format == static_cast<int>(WfdbFormat::Packed12))
        signal.Format = WfdbFormat::Packed12;
    else if (format == static_cast<int>(WfdbFormat::Integer16))
        signal.Format = WfdbFormat::Integer16;
    else
        return "sample format \"" + std::string(formatWord) + "\" is not supported, only 16 and 212";
    if (formatWord.size() == word.size())
        return {};
    const auto offset = ParseNumber<std::int64_t>(offsetWord);
    if (!offset || *offset < 0 || *offset > mostSamples)
        return "the byte offset is no number";
    signal.ByteOffset = *offset;
    return {};
}

// "200(1024)/mV" with the last two parts optional. `hasBaseline` tells whether the second was there.
Reason ParseGain(std::string_view word, WfdbSignal& signal, bool& hasBaseline)
{
    std::string_view units = word;
    std::string_view number = TakeUntil(units, '/');
    if (!units.empty())
        signal.Units = units;
    hasBaseline = number.ends_with(')');
    if (hasBaseline) {
        std::string_view inner = number.substr(0, number.size() - 1);
        number = TakeUntil(inner, '(');
        const auto baseline = ParseNumber<int>(inner);
        if (!baseline)
            return "the baseline is no number";
        signal.Baseline = *baseline;
    }
    const auto gain = ParseNumber<double>(number);
    if (!gain || !std::isfinite(*gain))
        return "the gain is no number";
    signal.Gain = *gain == 0 ? defaultGain : *gain;
    if (std::fabs(signal.Gain) < smallestGain || std::fabs(signal.Gain) > largestGain)
        return "the gain is out of range";
    return {};
}

Reason ParseSignalLine(std::string_view line, WfdbSignal& signal)
{
    signal.File = TakeWord(line);
    if (signal.File.find('/') != std::string::npos || signal.File == "." || signal.File == "..")
        return "signal file \"" + signal.File + "\" does not lie beside the header";
    if (Reason reason = ParseFormat(TakeWord(line), signal); !reason.empty())
        return reason;

    const std::string_view gainWord = TakeWord(line);
    bool hasBaseline = false;
    if (!gainWord.empty())
        if (Reason reason = ParseGain(gainWord, signal, hasBaseline); !reason.empty())
            return reason;

    TakeWord(line);  // resolution in bits: the format tells enough
    const std::string_view zeroWord = TakeWord(line);
    const auto zero = ParseNumber<int>(zeroWord);
    if (!zeroWord.empty() && !zero)
        return "the ADC zero is no number";
    if (!hasBaseline)
        signal.Baseline = zero.value_or(0);

    constexpr int skippedWords = 3;  // first value, checksum, block size
    for (int i = 0; i < skippedWords; ++i)
        TakeWord(line);
    signal.Name = Trim(line);
    return {};
}

}  // namespace

Outcome<WfdbHeader> ParseWfdbHeader(std::string_view text)
{
    using Result = Outcome<WfdbHeader>;
    WfdbHeader header;
    std::size_t signalCount = 0;
    while (!text.empty()) {
        const std::string_view line = Trim(TakeUntil(text, '\n'));
        if (line.empty())
            continue;
        if (line.front() == '#') {
            header.Comments.emplace_back(Trim(line.substr(1)));
            continue;
        }
        Reason reason;
        if (signalCount == 0)
            reason = ParseRecordLine(line, header, signalCount);
        else if (header.Signals.size() < signalCount)
            reason = ParseSignalLine(line, header.Signals.emplace_back());
        if (!reason.empty())
            return Result::Failure("header line \"" + std::string(line.substr(0, 80)) + "\": " + reason);
    }
    if (signalCount == 0)
        return Result::Failure("the header has no record line");
    if (header.Signals.size() < signalCount)
        return Result::Failure("the header promises " + std::to_string(signalCount) + " signals and describes " +
                               std::to_string(header.Signals.size()));
    return header;
}

}  // namespace ecg
