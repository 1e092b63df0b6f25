#include "acquisition/ExamLabels.h"

#include "core/Language.h"
#include "core/Numbers.h"
#include "core/PatientNumber.h"
#include "core/formats/RecordSample.h"

namespace ecg {
namespace {

constexpr int tickerStep = 5;
constexpr int tickerEnd = 924;

constexpr Twin byHand{"手控", "Control By Man"};

// With as many decimals as the time needs: it is entered in seconds, and fractions of one are allowed.
std::string Seconds(std::int32_t frames)
{
    std::string text = FormatDecimal(static_cast<double>(frames) / FramesPerSecond, 3);
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.')
        text.pop_back();
    return text + "s";
}

const char* Prefix(LeadSystem system)
{
    return system == LeadSystem::Wilson ? "WLS:" : "FLS:";
}

std::string TickerText(const SharedState& state)
{
    if (state.SysInfo.SystemControlTime != 1)
        return std::string("<< ") + byHand.In(state.Chinese());
    const char* system = LeadSystemOf(state.SysInfo) == LeadSystem::Wilson ? "<< W" : "<< F";
    return system + Seconds(state.SysInfo.SampleLimit);
}

}  // namespace

ExamLabels DescribeExamination(const SharedState& state)
{
    constexpr std::array<Twin, 3> titles{
        {{"等待检查", "Wait For"}, {"等待采样", "Wait ..."}, {"正在采样", "Sample ..."}}};
    const bool chinese = state.Chinese();
    ExamLabels labels;
    labels.Title = titles[static_cast<std::size_t>(state.ExamState)].In(chinese);
    if (state.ExamState == ExamState::Waiting) {
        labels.Number = "---------";
        labels.Name = "------";
        labels.WilsonTime = "WLS:----";
        labels.FrankTime = "FLS:----";
        return labels;
    }
    labels.Number = PatientFolderName(state.CurrentPatient.No.Text());
    labels.Name = state.CurrentPatient.Name.Text();
    if (labels.Name.empty())
        labels.Name = Twin{"无患者姓名", "No Patient Name"}.In(chinese);
    const bool timed = state.SysInfo.SystemControlTime == 1;
    labels.WilsonTime = Prefix(LeadSystem::Wilson) + (timed ? Seconds(state.WilsonSamples) : byHand.In(chinese));
    labels.FrankTime = Prefix(LeadSystem::Frank) + (timed ? Seconds(state.FrankSamples) : byHand.In(chinese));
    if (state.ExamState == ExamState::Sampling)
        labels.Ticker = TickerText(state);
    return labels;
}

std::string SampledTimeText(LeadSystem system, std::int32_t frames)
{
    return Prefix(system) + FormatDecimal(static_cast<double>(frames) / FramesPerSecond, 1) + "s";
}

int NextTickerLeft(int left)
{
    const int next = left - tickerStep;
    return next <= tickerEnd ? TickerStart : next;
}

}  // namespace ecg
