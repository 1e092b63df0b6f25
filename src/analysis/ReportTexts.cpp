#include "analysis/ReportTexts.h"

#include "core/Numbers.h"

namespace ecg::texts {
namespace {

constexpr const char* ms = " ms";

std::string Whole(double value)
{
    return FormatDecimal(value, 0);
}

}  // namespace

std::array<std::string, QtStatCount> QtLines(const QtStats& stats)
{
    constexpr std::array<const char*, QtStatCount> labels{
        "MaxQT             ：", "MinQT             ：", "AvagQT            ：", "MaxQTc(Bazett)    ：",
        "MinQTc(Bazett)    ：", "QTc(Bazett)       ：", "MaxQTd            ：", "MaxQTcd           ："};
    std::array<std::string, QtStatCount> lines;
    for (std::size_t i = 0; i < lines.size(); ++i)
        lines[i] = labels[i] + std::to_string(stats[i]) + ms;
    return lines;
}

std::vector<std::string> QtDiagramEnds(const QtDiagram& diagram)
{
    const std::string longest = "MaxQT=" + Whole(diagram.Longest) + ms;
    if (diagram.Longest == diagram.Shortest)
        return {"← " + longest};
    return {longest + " →", "← MinQT=" + Whole(diagram.Shortest) + ms};
}

std::string QtOfLead(float milliseconds)
{
    return "：QT= " + Whole(milliseconds) + ms;
}

const char* MarkText(const SpectrumMarks& marks, std::size_t mark)
{
    if (mark == mark::D)
        return marks[mark] ? "+" : "-";
    return marks[mark] ? "+   " : "-   ";
}

std::vector<std::string> HrvLines(const LeadBlock& block, bool chinese)
{
    constexpr double percent = 100;
    constexpr Twin analysed{"分析时间：", "Analysis:"};
    constexpr Twin beats{"心搏总数：", "Beat:"};
    const auto summary = block.Row(hrv::Summary);
    const auto deviations = block.Row(hrv::Deviations);
    const int count = summary[hrv::Count];
    if (count < 1)
        return {};
    const auto line = [](const char* label, int value) { return label + std::to_string(value); };
    std::vector<std::string> lines{line(analysed.In(chinese), summary[hrv::Seconds]) + " s",
                                   line("MaxNN   :", summary[hrv::Longest]) + ms,
                                   line("MinNN   :", summary[hrv::Shortest]) + ms,
                                   line("AvagNN  :", summary[hrv::Mean]) + ms,
                                   line("SDNN    :", deviations[hrv::SDNN]) + ms,
                                   line("HRV     :", deviations[hrv::Index]) + ms,
                                   line("RMSD    :", deviations[hrv::RMSD]) + ms,
                                   line("SDSD    :", deviations[hrv::SDSD]) + ms,
                                   line(beats.In(chinese), count)};
    for (std::size_t t = 0; t < hrv::ThresholdCount; ++t) {
        const int exceeding = block.Row(hrv::ExceedingCounts)[t];
        const std::string label = "pNN" + std::to_string((t + 1) * hrv::ThresholdStep) + ":";
        lines.push_back(line(label.c_str(), exceeding) + "/" + std::to_string(count) + " " +
                        std::to_string(RoundToInt(percent * exceeding / count)) + "%");
    }
    return lines;
}

}  // namespace ecg::texts
