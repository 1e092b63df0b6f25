// Samples of twelve leads in memory: a row for each lead, a column for each slot, whole counts around 0.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <vector>

namespace ecg {

// The rows of a Wilson record. A Frank record has X, Y, Z in the first three.
namespace lead {
enum Index : std::size_t { I, II, III, aVR, aVL, aVF, V1, V2, V3, V4, V5, V6 };
}

inline constexpr std::size_t WilsonLeadCount = 12;
inline constexpr std::size_t FrankLeadCount = 3;

class LeadBlock {
public:
    // All samples are 0.
    explicit LeadBlock(std::size_t columns) : columns_(columns), samples_(WilsonLeadCount * columns) {}

    std::size_t Columns() const { return columns_; }

    // The samples of `lead`, below `WilsonLeadCount`.
    std::span<std::int16_t> Row(std::size_t lead) { return std::span(samples_).subspan(lead * columns_, columns_); }
    std::span<const std::int16_t> Row(std::size_t lead) const
    {
        return std::span(samples_).subspan(lead * columns_, columns_);
    }

    void Clear() { std::memset(samples_.data(), 0, samples_.size() * sizeof(std::int16_t)); }

private:
    std::size_t columns_;
    std::vector<std::int16_t> samples_;
};

}  // namespace ecg
