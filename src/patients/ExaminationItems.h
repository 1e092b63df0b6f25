// Which examinations a sampling is for, and how long it therefore lasts: as long as its longest item, apart for the two
// lead systems.
#pragma once

#include "core/formats/SysInfo.h"

#include <array>
#include <cstdint>
#include <string_view>

namespace ecg {

inline constexpr std::size_t WilsonItemCount = 5;  // the first of the nine items; the others are Frank

class ExaminationItems {
public:
    // Begins with the ordinary ECG alone. `settings` must outlive this object.
    explicit ExaminationItems(const SysInfo& settings);

    bool Checked(std::size_t item) const { return item < ExaminationCount && checked_[item]; }

    // Takes both sample counts from the settings anew. An item from 9 on is passed over.
    void Check(std::size_t item, bool checked);

    // Samples at 500 a second; 0 when no item of the system is checked.
    std::int32_t WilsonSamples() const { return wilsonSamples_; }
    std::int32_t FrankSamples() const { return frankSamples_; }

    // A time typed in seconds, rounded to whole samples, from 0 to the longest that a record can hold. False when the
    // text is no number; the count then stays.
    bool TypeWilsonSeconds(std::string_view text);
    bool TypeFrankSeconds(std::string_view text);

private:
    void TakeFromItems();

    const SysInfo& settings_;
    std::array<bool, ExaminationCount> checked_{};
    std::int32_t wilsonSamples_ = 0;
    std::int32_t frankSamples_ = 0;
};

}  // namespace ecg
