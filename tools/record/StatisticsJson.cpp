#include "record/StatisticsJson.h"

#include "analysis/HeartRateVariability.h"
#include "analysis/QtDispersion.h"
#include "analysis/Spectrum.h"
#include "record/Json.h"

namespace ecg {

// By value: the statistics take the place of the QT of each lead.
std::string QtStatsJson(BeatResult result)
{
    return JsonNumbers(ComputeQtStats(result));
}

std::string HrvJson(AboutFile& file)
{
    ReadRRSeries(file);
    ComputeHrvStats(file.EcgBlock);
    const auto summary = file.EcgBlock.Row(hrv::Summary);
    const auto deviations = file.EcgBlock.Row(hrv::Deviations);
    JsonObject json;
    json.Add("Analysis", Json(summary[hrv::Seconds]));
    json.Add("MaxNN", Json(summary[hrv::Longest]));
    json.Add("MinNN", Json(summary[hrv::Shortest]));
    json.Add("AvagNN", Json(summary[hrv::Mean]));
    json.Add("SDNN", Json(deviations[hrv::SDNN]));
    json.Add("HRV", Json(deviations[hrv::Index]));
    json.Add("RMSD", Json(deviations[hrv::RMSD]));
    json.Add("SDSD", Json(deviations[hrv::SDSD]));
    json.Add("Beat", Json(summary[hrv::Count]));
    for (std::size_t t = 0; t < hrv::ThresholdCount; ++t)
        json.Add("pNN" + std::to_string((t + 1) * hrv::ThresholdStep),
                 Json(file.EcgBlock.Row(hrv::ExceedingCounts)[t]));
    json.Add("MostOfAnInterval", Json(summary[hrv::MostOfAnInterval]));
    json.Add("MostOfADifference", Json(summary[hrv::MostOfADifference]));
    return json.Text();
}

std::string SpectrumJson(AboutFile& file, int heartRate)
{
    SpectrumResult result;
    AnalyseSpectrum(file, SpectrumLayout::DoubleLead, heartRate, result);
    ComputeSpectrum(file.EcgBlock, result.Length, SpectrumLayout::TwelveLeads, result);
    const auto bins = static_cast<std::size_t>(result.Length / 2);
    JsonObject json;
    json.Add("N", Json(result.Length));
    json.Add("Marks", JsonArray(result.Marks, [](bool set) { return Json(set ? 1 : 0); }));
    json.Add("Magnitudes", JsonArray(result.Spectrum, [bins](const BinValues& magnitudes) {
                 return JsonNumbers(std::span(magnitudes).first(bins));
             }));
    return json.Text();
}

}  // namespace ecg
