#include "wfdb/Annotations.h"

#include <algorithm>
#include <array>

namespace ecg {
namespace {

constexpr int skipCode = 59;       // a 32-bit interval follows, high word first
constexpr int firstModifier = 60;  // NUM, SUB, CHN: belong to the annotation before them
constexpr int auxCode = 63;        // as many bytes of text follow as its interval says, padded to an even count
constexpr int intervalBits = 10;
constexpr std::uint16_t intervalMask = (1 << intervalBits) - 1;

class WordReader {
public:
    explicit WordReader(std::span<const std::byte> bytes) : bytes_(bytes) {}

    bool Has(std::size_t words) const { return bytes_.size() / 2 >= words; }

    std::uint16_t Take()
    {
        const auto low = std::to_integer<unsigned>(bytes_[0]);
        const auto high = std::to_integer<unsigned>(bytes_[1]);
        bytes_ = bytes_.subspan(2);
        return static_cast<std::uint16_t>(low | high << 8);
    }

    void Skip(std::size_t bytes) { bytes_ = bytes_.subspan(std::min(bytes, bytes_.size())); }

private:
    std::span<const std::byte> bytes_;
};

}  // namespace

std::vector<Annotation> ParseAnnotations(std::span<const std::byte> bytes)
{
    std::vector<Annotation> annotations;
    WordReader words(bytes);
    std::int64_t sample = 0;
    while (words.Has(1)) {
        const std::uint16_t word = words.Take();
        if (word == 0)
            break;
        const int code = word >> intervalBits;
        const std::size_t interval = word & intervalMask;
        if (code == skipCode) {
            if (!words.Has(2))
                break;
            const std::uint32_t high = words.Take();
            sample += static_cast<std::int32_t>(high << 16 | words.Take());
        } else if (code == auxCode) {
            words.Skip(interval + interval % 2);
        } else if (code < firstModifier) {
            sample += static_cast<std::int64_t>(interval);
            if (code != 0)
                annotations.push_back({sample, code});
        }
    }
    return annotations;
}

bool IsBeat(int code)
{
    constexpr std::array otherBeats{25, 30, 34, 35, 38, 41};
    return (code >= 1 && code <= 13) || std::ranges::find(otherBeats, code) != otherBeats.end();
}

}  // namespace ecg
