#include "record/MeasureRecord.h"

#include "analysis/AboutResult.h"
#include "analysis/Diagnose.h"
#include "record/Json.h"
#include "record/StatisticsJson.h"

#include <algorithm>

namespace ecg {
namespace {

constexpr std::int32_t viewSlots = 4400;  // 220 mm of paper at 25 mm/s
constexpr std::int32_t firstSlot = FirstSampleSlot;

LeadSystem SystemOf(const std::filesystem::path& record)
{
    const auto ending = record.extension();
    return ending == ".F" || ending == ".f" ? LeadSystem::Frank : LeadSystem::Wilson;
}

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

// A record under review, without a window.
class Review {
public:
    explicit Review(const std::filesystem::path& record) : system_(SystemOf(record)), file_(state_)
    {
        state_.Folders.Data = record.parent_path();
        state_.RecordPath = record.filename().string();
        file_.ReadHeader(WhichRecord::Current);
        file_.CountSlots(WhichRecord::Current);
    }

    std::int32_t SlotCount() const { return file_.SlotCount; }
    std::size_t FlagsInView() const
    {
        return static_cast<std::size_t>(std::ranges::find(file_.RFlagList, 0) - file_.RFlagList.begin());
    }
    std::int32_t Flag(std::size_t place) const { return file_.RFlagList[place]; }

    void LoadView(std::int32_t start)
    {
        state_.BlockStart = start;
        file_.ReadSamples(SampleTarget::View, start, viewSlots);
    }

    // The beat at `centerSlot` in the view, on its own: nothing of a beat before takes part. 0 measures nothing. The view is
    // used up.
    std::string MeasuredBeat(std::int32_t centerSlot)
    {
        file_.CenterSlot = centerSlot;
        BeatResult result;
        if (centerSlot != 0)
            Delineate(file_, system_, result);
        JsonObject json = BeatJson(result);
        if (system_ == LeadSystem::Wilson) {
            json.Add("QtStats", QtStatsJson(result));
            json.Add("Hrv", HrvJson(file_));
            json.Add("Spectrum", SpectrumJson(file_, result.Params.HeartRate));
        }
        return json.Text();
    }

    std::vector<std::int32_t> AllFlags() const
    {
        std::vector<std::int32_t> flags;
        file_.FindRFlags(firstSlot, FlagKind::Clean, [&flags](std::int32_t slot) {
            flags.push_back(slot);
            return true;
        });
        return flags;
    }

private:
    JsonObject BeatJson(const BeatResult& result) const
    {
        JsonObject json;
        json.Add("SlotCount", Json(file_.SlotCount));
        json.Add("BlockStart", Json(state_.BlockStart));
        json.Add("RFlagList", JsonNumbers(std::span(file_.RFlagList).first(FlagsInView())));
        json.Add("CenterSlot", Json(file_.CenterSlot));
        json.Add("HeartRate", Json(result.Params.HeartRate));
        json.Add("LocateTable", JsonArray(result.Locate, [](const LeadLines& lines) { return JsonNumbers(lines); }));
        json.Add("UnifiedLines", JsonNumbers(result.Unified));
        json.Add("MeasuredParams", ParamsJson(result.Params));
        json.Add("Diagnosis", DiagnosisJson(result.Params, state_.CurrentHeader.Sex));
        return json;
    }

    SharedState state_;
    LeadSystem system_;
    AboutFile file_;
};

int MeasureAll(Review& review, const std::function<void(const std::string&)>& print)
{
    const auto flags = review.AllFlags();
    for (const std::int32_t flag : flags) {
        review.LoadView(std::max(flag - viewSlots / 2, firstSlot));
        print(review.MeasuredBeat(flag));
    }
    return static_cast<int>(flags.size());
}

}  // namespace

Outcome<int> MeasureRecord(const MeasureOptions& options, const std::function<void(const std::string&)>& print)
{
    using Result = Outcome<int>;
    std::error_code error;
    if (!std::filesystem::is_regular_file(options.Record, error) || !OpenFile(options.Record, OpenMode::Read))
        return Result::Failure("cannot read " + options.Record.string());
    Review review(options.Record);
    if (review.SlotCount() <= firstSlot)
        return Result::Failure(options.Record.string() + " has no samples");
    if (options.All)
        return MeasureAll(review, print);
    review.LoadView(options.Start.value_or(firstSlot));
    const auto beat = static_cast<std::size_t>(options.Beat.value_or(1));
    if (options.Beat && beat >= review.FlagsInView())
        return Result::Failure("the view has " + std::to_string(review.FlagsInView()) + " beats, none of number " +
                               std::to_string(beat));
    print(review.MeasuredBeat(review.Flag(beat)));
    return 1;
}

}  // namespace ecg
