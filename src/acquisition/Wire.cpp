#include "acquisition/Wire.h"

#include <algorithm>
#include <numeric>

namespace ecg::wire {
namespace {

constexpr std::array<std::uint8_t, 4> commandMagic{'R', 'U', 'V', 'O'};
constexpr std::array<std::uint8_t, 4> replyMagic{'T', 'O', 'L', 'M'};

constexpr std::size_t codeByte = 4;
constexpr std::size_t firstParameterByte = 5;
constexpr std::size_t parameterCount = 3;
constexpr std::size_t keyByte = 13;

constexpr std::array<std::uint8_t, 2> acCodes{12, 10};
constexpr std::array<std::uint8_t, 4> baselineCodes{10, 6, 4, 2};
constexpr std::array<std::uint8_t, 6> muscleCodes{21, 15, 12, 10, 9, 7};

constexpr std::array<const char*, 3> acLabels{"关", "50Hz", "60Hz"};
constexpr std::array<const char*, 5> baselineLabels{"3.3s", "1.6s", "0.8s", "0.5s", "0.3s"};
constexpr std::array<const char*, 7> muscleLabels{"关", "26Hz", "36Hz", "45Hz", "54Hz", "60Hz", "77Hz"};

template <class T>
std::optional<T> Entry(std::span<const T> table, std::size_t index)
{
    return index < table.size() ? std::optional(table[index]) : std::nullopt;
}

}  // namespace

std::uint8_t Checksum(std::span<const std::uint8_t> bytes)
{
    return static_cast<std::uint8_t>(std::accumulate(bytes.begin(), bytes.end(), 0U));
}

CommandPacket::CommandPacket()
{
    std::copy(commandMagic.begin(), commandMagic.end(), bytes_.begin());
}

void CommandPacket::SetParameter(std::size_t index, std::uint8_t value)
{
    if (index < parameterCount)
        bytes_[firstParameterByte + index] = value;
}

std::array<std::uint8_t, CommandSize> CommandPacket::Finish(Command command)
{
    bytes_[codeByte] = static_cast<std::uint8_t>(command);
    bytes_.back() = Checksum(std::span(bytes_).first(CommandSize - 1));
    const auto packet = bytes_;
    bytes_[codeByte] = 0;
    return packet;
}

bool HasIdentificationMagic(std::span<const std::uint8_t> bytes)
{
    return bytes.size() >= replyMagic.size() && std::equal(replyMagic.begin(), replyMagic.end(), bytes.begin());
}

std::optional<std::uint8_t> IdentifiedKey(std::span<const std::uint8_t> reply)
{
    if (reply.size() < IdentificationSize || !HasIdentificationMagic(reply))
        return std::nullopt;
    if (Checksum(reply.first(IdentificationSize - 1)) != reply[IdentificationSize - 1])
        return std::nullopt;
    return reply[keyByte];
}

std::optional<std::uint8_t> FilterCode(Filter filter, std::size_t index)
{
    switch (filter) {
    case Filter::Ac:
        return Entry<std::uint8_t>(acCodes, index);
    case Filter::Baseline:
        return Entry<std::uint8_t>(baselineCodes, index);
    case Filter::Muscle:
        return Entry<std::uint8_t>(muscleCodes, index);
    }
    return std::nullopt;
}

const char* FilterStateLabel(Filter filter, int code)
{
    const auto index = static_cast<std::size_t>(code);
    switch (filter) {
    case Filter::Ac:
        return Entry<const char*>(acLabels, index).value_or(nullptr);
    case Filter::Baseline:
        return Entry<const char*>(baselineLabels, index).value_or(nullptr);
    case Filter::Muscle:
        return Entry<const char*>(muscleLabels, index).value_or(nullptr);
    }
    return nullptr;
}

}  // namespace ecg::wire
