#include "analysis/AboutResult.h"
#include "analysis/result/MeasureSteps.h"
#include "core/Numbers.h"

#include <algorithm>

namespace ecg {
namespace {

constexpr double msPerSlot = 2;

// Lines as columns of a block that begins at `start`; nothing when one of the first six lies before it. Lines that no
// record can have stay far behind every block.
template <std::size_t Count>
std::optional<Columns> ColumnsOf(const std::array<std::int32_t, Count>& lines, std::int32_t start)
{
    constexpr std::int64_t farBehind = 1'000'000'000;
    Columns columns{};
    for (std::size_t line = 0; line < Count; ++line) {
        const std::int64_t column = std::int64_t{lines[line]} - start;
        if (line < UnifiedLineCount && column < 0)
            return std::nullopt;
        columns[line] = static_cast<int>(std::clamp(column, -farBehind, farBehind));
    }
    return columns;
}

// The durations of a lead, or of all leads in entry `AllLeads`.
template <std::size_t Count>
void MeasureDurations(const std::array<std::int32_t, Count>& lines, std::size_t entry, MeasuredParams& params)
{
    const auto ms = [&](LocateLine from, LocateLine to) {
        return (static_cast<double>(lines[to]) - lines[from]) * msPerSlot;
    };
    const double qt = ms(QrsOn, TOff);
    params.Pd[entry] = static_cast<float>(ms(POn, POff));
    params.PR[entry] = static_cast<float>(ms(POn, QrsOn));
    params.QRSd[entry] = static_cast<float>(ms(QrsOn, QrsOff));
    params.Td[entry] = static_cast<float>(ms(TOn, TOff));
    params.QT[entry] = static_cast<float>(qt);
    // Bazett (1920).
    if (params.HeartRate != 0)
        params.QTc[entry] = static_cast<float>(RoundHalfEven(qt / RateScale(params.HeartRate)));
}

}  // namespace

MeasuredParams UnmeasuredParams()
{
    MeasuredParams params;
    params.Axis = NotMeasured;
    for (auto* const values : {&params.Pd, &params.PR, &params.QRSd, &params.Td})
        values->fill(Float32(NotMeasured));
    for (auto* const values : {&params.QT, &params.QTc})
        values->fill(Float32(NotMeasured));
    for (auto* const values : {&params.PAmp, &params.QAmp, &params.RAmp, &params.SAmp, &params.STm, &params.TAmp,
                               &params.PPlus, &params.PMinus, &params.R2Amp, &params.S2Amp, &params.STJ, &params.ST20,
                               &params.ST40, &params.ST60, &params.ST80, &params.TPlus, &params.TMinus})
        values->fill(Float32(NotMeasured));
    params.Unused.fill(Float32(NotMeasured));
    return params;
}

void Measure(AboutFile& file, LeadSystem system, BeatResult& result)
{
    if (system == LeadSystem::Frank)
        file.ReadFrankView();
    const auto unified = ColumnsOf(result.Unified, file.BlockStart());
    if (!unified)
        return;
    MeasureDurations(result.Unified, AllLeads, result.Params);
    for (std::size_t lead = 0; lead < LeadCountOf(system); ++lead) {
        const auto lines = ColumnsOf(result.Locate[lead], file.BlockStart());
        if (!lines)
            return;
        MeasureDurations(result.Locate[lead], lead, result.Params);
        MeasureLead(SampleRow(file.EcgBlock.Row(lead)), *lines, lead, result.Params);
    }
    if (system == LeadSystem::Wilson)
        result.Params.Axis = QrsAxis(SampleRow(file.EcgBlock.Row(lead::I)), SampleRow(file.EcgBlock.Row(lead::III)),
                                     (*unified)[QrsOn], (*unified)[QrsOff]);
}

}  // namespace ecg
