#include "record/PlotBeat.h"

#include "core/Labels.h"
#include "core/Numbers.h"
#include "record/OpenedRecord.h"

#include <algorithm>

namespace ecg {
namespace {

constexpr std::int32_t before = 200;  // slots shown on either side of the R flag
constexpr std::int32_t behind = 300;
constexpr int leadsInARow = 4;
constexpr double panelWidth = 300;  // pixels
constexpr double panelHeight = 150;
constexpr double top = 16;  // room for the lead's name
constexpr double bottom = panelHeight - 8;

constexpr std::array<const char*, UnifiedLineCount> lineColours{"#1a7f37", "#1a7f37", "#0b57d0",
                                                                "#0b57d0", "#c5221f", "#c5221f"};

double XOf(std::int32_t slot, std::int32_t first)
{
    return (slot - first) * panelWidth / (before + behind);
}

std::string Number(double value)
{
    return FormatDecimal(value, 1);
}

std::string Trace(std::span<const std::int16_t> samples)
{
    const auto [lowest, highest] = std::ranges::minmax(samples);
    const double scale = (bottom - top) / std::max(highest - lowest, 1);
    std::string points;
    for (std::size_t i = 0; i < samples.size(); ++i)
        points +=
            Number(XOf(static_cast<std::int32_t>(i), 0)) + "," + Number(bottom - (samples[i] - lowest) * scale) + " ";
    return "<polyline points=\"" + points + "\" fill=\"none\" stroke=\"black\"/>\n";
}

std::string Lines(const LeadLines& lines, std::int32_t first)
{
    std::string svg;
    for (std::size_t line = 0; line < lineColours.size(); ++line) {
        if (lines[line] < first || lines[line] >= first + before + behind)
            continue;
        const std::string x = Number(XOf(lines[line], first));
        svg += "<path d=\"M" + x + " " + Number(top) + "V" + Number(panelHeight) + "\" stroke=\"" + lineColours[line] +
               "\"/>\n";
    }
    return svg;
}

std::string Panel(OpenedRecord& record, const BeatResult& beat, std::size_t lead, std::int32_t first)
{
    const bool frank = record.System() == LeadSystem::Frank;
    const auto column = static_cast<std::size_t>(first - record.File().BlockStart());
    const auto samples = record.File().EcgBlock.Row(lead).subspan(column, before + behind);
    const int place = static_cast<int>(lead);
    return "<g transform=\"translate(" + Number(place % leadsInARow * panelWidth) + " " +
           Number(place / leadsInARow * panelHeight) + ")\">\n<rect width=\"" + Number(panelWidth) + "\" height=\"" +
           Number(panelHeight) + "\" fill=\"white\" stroke=\"#cccccc\"/>\n" + Lines(beat.Locate[lead], first) +
           Trace(samples) + "<text x=\"5\" y=\"13\">" + (frank ? labels::VectorLeads[lead] : labels::Leads[lead]) +
           "</text>\n</g>\n";
}

}  // namespace

Outcome<std::string> PlotBeat(const MeasureOptions& options)
{
    using Result = Outcome<std::string>;
    const auto opened = OpenedRecord::Open(options.Record);
    if (!opened)
        return Result::Failure(opened.Reason());
    OpenedRecord& record = **opened;
    record.LoadView(options.Start.value_or(FirstSampleSlot));
    const auto center = record.Beat(static_cast<std::size_t>(options.Beat.value_or(1)));
    if (!center)
        return Result::Failure(center.Reason());
    const BeatResult beat = record.Measured(*center);
    const std::size_t leads = LeadCountOf(record.System());
    const std::size_t rows = (leads + leadsInARow - 1) / leadsInARow;
    std::string svg = "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" + Number(leadsInARow * panelWidth) +
                      "\" height=\"" + Number(static_cast<double>(rows) * panelHeight) +
                      "\" font-family=\"sans-serif\" font-size=\"12\">\n";
    const std::int32_t first = std::max(*center - before, record.File().BlockStart());
    for (std::size_t lead = 0; lead < leads; ++lead)
        svg += Panel(record, beat, lead, first);
    return svg + "</svg>\n";
}

}  // namespace ecg
