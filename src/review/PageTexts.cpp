#include "review/PageTexts.h"

#include "core/Labels.h"
#include "core/Numbers.h"
#include "core/formats/RecordSample.h"
#include "review/EventMarks.h"
#include "review/ReviewState.h"

#include <algorithm>
#include <array>

namespace ecg {
namespace {

constexpr int earliestBirth = 1900;

constexpr Twin years{"岁", " years"};
constexpr Twin filterIs{"    滤波器：", "    Filter:"};
constexpr Twin sampleIs{"    采样：", "    Sample:"};
constexpr std::array<const char*, 3> filterNames{"AC", " MF", " DF"};  // by place, whatever selector set it

constexpr Twin comparisonHeading{"（用于对照的患者资料）", "(Patient Information for Contrast)"};
constexpr Twin nameIs{"患者姓名： ", "Name: "};
constexpr Twin sexIs{"患者性别： ", "Sex: "};
constexpr Twin ageIs{"患者年龄： ", "Age: "};
constexpr Twin lengthIs{"检查时长： ", "Duration"};
constexpr Twin timeIs{"检查时间： ", "Time: "};
constexpr Twin seconds{" 秒", " s"};

std::string WholeSeconds(std::int32_t slotCount)
{
    const auto samples = static_cast<double>(std::max<std::int64_t>(slotCount - FirstSampleSlot, 0));
    return std::to_string(RoundToInt(samples / FramesPerSecond));
}

}  // namespace

std::string AgeText(const PatientRecord& patient, int year, bool chinese)
{
    const std::string entered = patient.BirthYear.Text();
    const auto born = ParseDecimal(entered);
    if (!born || *born < earliestBirth || *born >= year)
        return entered;
    return std::to_string(year - RoundToInt(*born)) + years.In(chinese);
}

std::string SexText(const PatientRecord& patient, bool chinese)
{
    return patient.Sex < labels::Sexes.size() ? labels::Sexes[patient.Sex].In(chinese) : "";
}

std::string ExaminingDoctor(const SharedState& state)
{
    const std::string recorded = state.CurrentHeader.Doctor.Text();
    return recorded.empty() ? state.DoctorName : recorded;
}

std::string BottomLine(const RecordHeader& header, std::int32_t slotCount, bool chinese)
{
    std::string line = std::string(labels::Gains[ReviewGainIndex(header)]) + "    " +
                       labels::Speeds[ReviewSpeedIndex(header)] + filterIs.In(chinese);
    for (std::size_t i = 0; i < filterNames.size(); ++i)
        if (header.FilterFlags[i] != 0)
            line += filterNames[i];
    return line + sampleIs.In(chinese) + WholeSeconds(slotCount) + "s    ";
}

std::vector<std::string> ComparisonLines(const SharedState& state, const RecordHeader& comparison,
                                         std::int32_t slotCount, int year)
{
    const bool chinese = state.Chinese();
    const PatientRecord& patient = state.ReferencePatient;
    return {comparisonHeading.In(chinese),
            nameIs.In(chinese) + patient.Name.Text(),
            sexIs.In(chinese) + SexText(patient, chinese),
            ageIs.In(chinese) + AgeText(patient, year, chinese),
            lengthIs.In(chinese) + (chinese ? "" : std::string(": ")) + WholeSeconds(slotCount) + seconds.In(chinese),
            timeIs.In(chinese) + ExamTimeText(comparison)};
}

}  // namespace ecg
