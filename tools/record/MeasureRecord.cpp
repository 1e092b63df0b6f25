#include "record/MeasureRecord.h"

#include "analysis/AboutResult.h"
#include "analysis/Diagnose.h"
#include "record/Json.h"
#include "record/OpenedRecord.h"
#include "record/StatisticsJson.h"

#include <algorithm>

namespace ecg {
namespace {

constexpr std::int32_t firstSlot = FirstSampleSlot;

std::string ParamsJson(const MeasuredParams& params)
{
    JsonObject json;
    json.Add("Complex", JsonArray(params.Complex, [](const auto& name) { return Json(name.Text()); }));
    json.Add("HeartRate", Json(params.HeartRate));
    json.Add("Axis", Json(float{params.Axis}));
    const auto add = [&json](const char* name, const auto& values) {
        json.Add(name, JsonArray(values, [](float value) { return Json(value); }));
    };
    add("Pd", params.Pd);
    add("PR", params.PR);
    add("QRSd", params.QRSd);
    add("Td", params.Td);
    add("QT", params.QT);
    add("QTc", params.QTc);
    add("PAmp", params.PAmp);
    add("QAmp", params.QAmp);
    add("RAmp", params.RAmp);
    add("SAmp", params.SAmp);
    add("STm", params.STm);
    add("TAmp", params.TAmp);
    add("PPlus", params.PPlus);
    add("PMinus", params.PMinus);
    add("R2Amp", params.R2Amp);
    add("S2Amp", params.S2Amp);
    add("STJ", params.STJ);
    add("ST20", params.ST20);
    add("ST40", params.ST40);
    add("ST60", params.ST60);
    add("ST80", params.ST80);
    add("TPlus", params.TPlus);
    add("TMinus", params.TMinus);
    return json.Text();
}

// The lines of the diagnosis prompts in both languages.
std::string DiagnosisJson(const MeasuredParams& params, Byte sex)
{
    auto statements = DiagnosticStatements(params, sex);
    if (statements.empty())
        statements.push_back(NormalEcg);
    JsonObject json;
    json.Add("zh", JsonArray(statements, [](const Twin& statement) { return Json(statement.Chinese); }));
    json.Add("en", JsonArray(statements, [](const Twin& statement) { return Json(statement.English); }));
    return json.Text();
}

std::string BeatJson(OpenedRecord& record, BeatResult& result)
{
    AboutFile& file = record.File();
    JsonObject json;
    json.Add("SlotCount", Json(file.SlotCount));
    json.Add("BlockStart", Json(file.BlockStart()));
    json.Add("RFlagList", JsonNumbers(std::span(file.RFlagList).first(record.FlagsInView())));
    json.Add("CenterSlot", Json(file.CenterSlot));
    json.Add("HeartRate", Json(result.Params.HeartRate));
    json.Add("LocateTable", JsonArray(result.Locate, [](const LeadLines& lines) { return JsonNumbers(lines); }));
    json.Add("UnifiedLines", JsonNumbers(result.Unified));
    json.Add("MeasuredParams", ParamsJson(result.Params));
    json.Add("Diagnosis", DiagnosisJson(result.Params, record.State().CurrentHeader.Sex));
    if (record.System() == LeadSystem::Wilson) {  // these use the view up, so they come last
        json.Add("QtStats", QtStatsJson(result));
        json.Add("Hrv", HrvJson(file));
        json.Add("Spectrum", SpectrumJson(file, result.Params.HeartRate));
    }
    return json.Text();
}

std::string MeasuredBeat(OpenedRecord& record, std::int32_t centerSlot)
{
    BeatResult result = record.Measured(centerSlot);
    return BeatJson(record, result);
}

int MeasureAll(OpenedRecord& record, const std::function<void(const std::string&)>& print)
{
    const auto flags = record.AllFlags();
    for (const std::int32_t flag : flags) {
        record.LoadView(std::max(flag - ReviewedSlots / 2, firstSlot));
        print(MeasuredBeat(record, flag));
    }
    return static_cast<int>(flags.size());
}

}  // namespace

Outcome<int> MeasureRecord(const MeasureOptions& options, const std::function<void(const std::string&)>& print)
{
    using Result = Outcome<int>;
    const auto opened = OpenedRecord::Open(options.Record);
    if (!opened)
        return Result::Failure(opened.Reason());
    OpenedRecord& record = **opened;
    if (options.All)
        return MeasureAll(record, print);
    record.LoadView(options.Start.value_or(firstSlot));
    const auto beat = record.Beat(static_cast<std::size_t>(options.Beat.value_or(1)));
    if (options.Beat && !beat)
        return Result::Failure(beat.Reason());
    print(MeasuredBeat(record, beat ? *beat : 0));
    return 1;
}

}  // namespace ecg
