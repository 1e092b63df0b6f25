#include "patients/ExaminationItems.h"

#include "core/Numbers.h"
#include "core/formats/RecordSample.h"

#include <algorithm>
#include <limits>

namespace ecg {
namespace {

// The last sample must still have a slot number.
constexpr std::int32_t mostSamples =
    std::numeric_limits<std::int32_t>::max() - static_cast<std::int32_t>(FirstSampleSlot);

bool TypeSeconds(std::string_view text, std::int32_t& samples)
{
    const auto seconds = ParseDecimal(text);
    if (!seconds)
        return false;
    samples = RoundToInt(std::clamp<double>(*seconds * FramesPerSecond, 0, mostSamples));
    return true;
}

}  // namespace

ExaminationItems::ExaminationItems(const SysInfo& settings) : settings_(settings)
{
    Check(0, true);
}

void ExaminationItems::Check(std::size_t item, bool checked)
{
    if (item >= ExaminationCount)
        return;
    checked_[item] = checked;
    TakeFromItems();
}

void ExaminationItems::TakeFromItems()
{
    wilsonSamples_ = 0;
    frankSamples_ = 0;
    for (std::size_t item = 0; item < ExaminationCount; ++item) {
        std::int32_t& samples = item < WilsonItemCount ? wilsonSamples_ : frankSamples_;
        if (checked_[item])
            samples = std::clamp<std::int32_t>(settings_.SampleTime[item], samples, mostSamples);
    }
}

bool ExaminationItems::TypeWilsonSeconds(std::string_view text)
{
    return TypeSeconds(text, wilsonSamples_);
}

bool ExaminationItems::TypeFrankSeconds(std::string_view text)
{
    return TypeSeconds(text, frankSamples_);
}

}  // namespace ecg
