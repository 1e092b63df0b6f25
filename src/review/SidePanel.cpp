#include "review/SidePanel.h"

#include "analysis/ReportTexts.h"
#include "core/Language.h"
#include "review/EventMarks.h"
#include "review/MeasurementPanel.h"
#include "review/PageTexts.h"
#include "review/SpectrumPicture.h"

namespace ecg {
namespace {

constexpr double margin = 6;          // pixels
constexpr double lineHeight = 20;     // pixels
constexpr double rowHeight = 18;      // pixels, of the words in a line of a table
constexpr double headingHeight = 24;  // pixels
constexpr Colour paper{246, 248, 238};
constexpr Colour ink{38, 46, 28};
constexpr Colour rule{125, 134, 96};

constexpr Twin numberIs{"病历号：", "Med No.: "};
constexpr Twin bedIs{"床位：", "Bed: "};
constexpr Twin classIs{"科室：", "Class: "};
constexpr Twin noSpectrum{"此处没有 4 秒以上的连续心搏， 无法计算频谱。",
                          "There are no beats for 4 seconds here: no spectrum."};
constexpr Twin earlierSpectrum{"此处没有 4 秒以上的连续心搏， 仍显示原来的频谱。",
                               "There are no beats for 4 seconds here: the spectrum is the one from before."};

const TextStyle words{lineHeight, ink};
const TextStyle rows{rowHeight, ink};
const TextStyle heading{headingHeight, ink, true};

// Writes lines downwards; a line that is too long goes on below, broken at its blanks.
class Writer {
public:
    explicit Writer(Surface& surface) : surface_(surface) {}

    void Write(const std::string& text, const TextStyle& style)
    {
        std::size_t begin = 0;
        while (begin < text.size()) {
            const std::size_t end = LineEnd(text, begin, style);
            surface_.Text({margin, y_}, text.substr(begin, end - begin), style);
            y_ += style.Height;
            begin = text.find_first_not_of(' ', end);
        }
    }

    // A line of a label and a value: the label to the left, the value to the right.
    void WriteRow(const std::string& line)
    {
        const PanelRow row = SplitLine(line);
        surface_.Text({margin, y_}, row.Label, rows);
        surface_.Text({margin + Width() - surface_.TextWidth(row.Value, rows), y_}, row.Value, rows);
        y_ += lineHeight;
    }

    void Rule()
    {
        y_ += margin;
        surface_.Line({margin, y_}, {surface_.Width() - margin, y_}, rule);
        y_ += margin;
    }

    Rect Rest() const { return {margin, y_, Width(), surface_.Height() - y_}; }

private:
    double Width() const { return surface_.Width() - 2 * margin; }

    // A single word that is too long is not broken.
    std::size_t LineEnd(const std::string& text, std::size_t begin, const TextStyle& style) const
    {
        std::size_t end = text.find(' ', begin);
        for (std::size_t next = end; next != std::string::npos; end = next) {
            next = text.find(' ', next + 1);
            const std::size_t length = (next == std::string::npos ? text.size() : next) - begin;
            if (surface_.TextWidth(text.substr(begin, length), style) > Width())
                return end;
        }
        return text.size();
    }

    Surface& surface_;
    double y_ = margin;
};

void AddUnlessBlank(std::vector<std::string>& lines, const char* label, const std::string& value)
{
    if (!value.empty())
        lines.push_back(label + value);
}

void DrawMeasurement(Surface& surface, Writer& writer, const RecordReview& review, int year)
{
    if (review.View.Form == EcgForm::Contrast) {
        for (const std::string& line :
             ComparisonLines(review.State(), review.File.CompareHeader, review.File.CompareSlotCount, year))
            writer.Write(line, words);
        return;
    }
    writer.Write(ComplexHeading(review.Result, review.View.AnalysisLead), heading);
    DrawPanelRows(surface, writer.Rest(), lineHeight, MeasurementRows(review.Result, review.View.AnalysisLead), words);
}

void DrawSpectrum(Surface& surface, Writer& writer, const RecordReview& review)
{
    writer.Write(SpectrumNote(review), words);
    if (review.View.Spectrum == SpectrumLayout::DoubleLead && review.Spectrum.Length > 0)
        DrawSpectrumMarks(surface, {writer.Rest().X, writer.Rest().Y}, review.Spectrum, words);
}

}  // namespace

std::string SpectrumNote(const RecordReview& review)
{
    if (review.SpectrumIsOfView)
        return {};
    return (review.Spectrum.Length == 0 ? noSpectrum : earlierSpectrum).In(review.State().Chinese());
}

std::vector<std::string> PatientLines(const SharedState& state, int year)
{
    const bool chinese = state.Chinese();
    const PatientRecord& patient = state.CurrentPatient;
    std::vector<std::string> lines;
    AddUnlessBlank(lines, "", patient.Name.Text());
    AddUnlessBlank(lines, "", SexText(patient, chinese) + "  " + AgeText(patient, year, chinese));
    AddUnlessBlank(lines, numberIs.In(chinese), patient.No.Text());
    AddUnlessBlank(lines, bedIs.In(chinese), state.CurrentHeader.Bed.Text());
    AddUnlessBlank(lines, classIs.In(chinese), state.CurrentHeader.Department.Text());
    AddUnlessBlank(lines, "", ExamTimeText(state.CurrentHeader));
    return lines;
}

void DrawSidePanel(Surface& surface, const RecordReview& review, int year)
{
    surface.Fill({0, 0, surface.Width(), surface.Height()}, paper);
    surface.SetPenWidth(1);
    Writer writer(surface);
    const auto lines = PatientLines(review.State(), year);
    for (std::size_t i = 0; i < lines.size(); ++i)
        writer.Write(lines[i], i == 0 ? heading : words);
    writer.Rule();
    switch (review.View.Mode) {
    case ReviewMode::Ecg:
        DrawMeasurement(surface, writer, review, year);
        break;
    case ReviewMode::Spectrum:
        DrawSpectrum(surface, writer, review);
        break;
    case ReviewMode::QtDispersion:
        for (const std::string& line : texts::QtLines(review.Qt))
            writer.WriteRow(line);
        break;
    case ReviewMode::Variability:
        for (const std::string& line : texts::HrvLines(review.File.EcgBlock, review.State().Chinese()))
            writer.WriteRow(line);
        break;
    case ReviewMode::Pacing:
        break;
    }
}

}  // namespace ecg
