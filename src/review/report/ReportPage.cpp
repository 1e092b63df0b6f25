#include "review/report/ReportPage.h"

#include "core/PatientNumber.h"
#include "review/EventMarks.h"
#include "review/PageSurface.h"
#include "review/PageTexts.h"
#include "review/ReportTitles.h"
#include "review/ReviewPicture.h"
#include "review/report/PaperText.h"
#include "review/report/ReportPanels.h"

#include <algorithm>
#include <array>

namespace ecg {
namespace {

constexpr Point whiteEdge{3, 1};  // mm of the printable page before the frame
constexpr double framePen = 0.2;  // mm

constexpr double headingPoints = 12;
constexpr double headingTop = 2;     // mm
constexpr double titleTop = 8;       // mm
constexpr double headerTop = 13;     // mm; a rule above the header lines
constexpr double headerBottom = 44;  // mm; and one below them
constexpr double columnMiddle = (ReportColumn + ReportWidth) / 2;

constexpr std::size_t headerLineCount = 8;
constexpr double firstHeaderLine = 14.5;  // mm
constexpr std::size_t upperLines = 4;
constexpr double upperStep = 3.3;  // mm, from line to line
constexpr double lowerStep = 3.5;  // mm

constexpr double bottomRight = 219;           // mm, where the bottom line ends
constexpr double bottomTop = 191;             // mm, of the line below the traces and of the signature
constexpr double englishSignatureLeft = 244;  // mm

constexpr Twin numberIs{"心电图号：", "ECG No.:"};
constexpr Twin nameIs{"患者姓名：", "Name:"};
constexpr Twin sexIs{"性别：", "Sex:"};
constexpr Twin ageIs{"            年龄：", "            Age:"};
constexpr Twin patientIs{"病历：", "Med No.:"};
constexpr Twin bedIs{"   床位：", "     Bed:"};
constexpr Twin departmentIs{"科室：", "Class:"};
constexpr const char* doctorIs = "检查医生：";
constexpr Twin signature{"医生签名：_________________________", "sign：________________"};

// The lines of the header, blank ones between its groups. The doctor who examined is told in Chinese only.
std::array<std::string, headerLineCount> HeaderLines(const SharedState& state, int year)
{
    const bool chinese = state.Chinese();
    const PatientRecord& patient = state.CurrentPatient;
    const RecordHeader& header = state.CurrentHeader;
    return {numberIs.In(chinese) + ReportNumber(state),
            "",
            nameIs.In(chinese) + patient.Name.Text(),
            sexIs.In(chinese) + SexText(patient, chinese) + ageIs.In(chinese) + AgeText(patient, year, chinese),
            "",
            patientIs.In(chinese) + PatientFolderName(patient.No.Text()) + bedIs.In(chinese) + header.Bed.Text(),
            departmentIs.In(chinese) + header.Department.Text(),
            chinese ? doctorIs + ExaminingDoctor(state) : ""};
}

double HeaderLineTop(std::size_t line)
{
    return firstHeaderLine + static_cast<double>(line) * (line < upperLines ? upperStep : lowerStep);
}

// The degrees of the phase shift stand where the frame would be, so that it gives way into the white edge.
double FrameLeft(const ReviewState& view)
{
    constexpr double beforeDegrees = -2;  // mm
    const bool showsPhase = view.Mode == ReviewMode::Spectrum && view.Spectrum == SpectrumLayout::DoubleLead;
    return showsPhase ? beforeDegrees : 0;
}

// The rules of the header reach over its column only: further to the left they would cross the traces.
void DrawFrame(Surface& page, double left, const PageLook& look)
{
    page.SetPenWidth(framePen);
    const std::array<Point, 5> edge{
        {{left, 0}, {ReportWidth, 0}, {ReportWidth, ReportHeight}, {left, ReportHeight}, {left, 0}}};
    page.Polyline(edge, look.Frame);
    page.Line({ReportColumn, 0}, {ReportColumn, ReportHeight}, look.Frame);
    page.Line({left, TraceAreaHeight}, {ReportColumn, TraceAreaHeight}, look.Frame);
    for (const double y : {headerTop, headerBottom})
        page.Line({ReportColumn, y}, {ReportWidth, y}, look.Frame);
}

void DrawHeader(PaperText& text, const RecordReview& review, int year)
{
    const SharedState& state = review.State();
    const TextStyle heading = text.Style(headingPoints, true);
    const auto mode = static_cast<std::size_t>(review.View.Mode);
    text.WriteCentred(columnMiddle, headingTop, state.SysInfo.HospitalName.Text(), heading, ReportColumnRoom);
    text.WriteCentred(columnMiddle, titleTop, reviewtexts::ReportTitles[mode].In(state.SysInfo), heading,
                      ReportColumnRoom);
    const auto lines = HeaderLines(state, year);
    for (std::size_t i = 0; i < lines.size(); ++i)
        text.Write({ReportColumnText, HeaderLineTop(i)}, lines[i], text.Style(BodyPoints), ReportColumnRoom);
}

void DrawFooter(PaperText& text, const RecordReview& review)
{
    const SharedState& state = review.State();
    const TextStyle style = text.Style(BodyPoints);
    text.WriteRight(bottomRight, bottomTop,
                    BottomLine(state.CurrentHeader, review.File.SlotCount, state.Chinese()) +
                        WrittenTime(ReportNumber(state)),
                    style, bottomRight);
    const double left = state.Chinese() ? ReportColumnText : englishSignatureLeft;
    text.Write({left, bottomTop}, signature.In(state.SysInfo), style, ReportColumnText + ReportColumnRoom - left);
}

// What is drawn beside the grid is black when the settings say so.
PageLook ReportLook(const SharedState& state, double speed)
{
    PageLook look = PaperLook(state, speed);
    look.Frame = look.Ink;
    if (state.SysInfo.PrintMono == 1) {
        look.Locate = look.Event = look.Ink;
        look.EventArrow = "event-arrow-black";
    }
    return look;
}

double EdgeOf(double printable, double needed, double wanted)
{
    return std::clamp(printable - needed, 0.0, wanted);
}

}  // namespace

std::string ReportNumber(const SharedState& state)
{
    constexpr std::size_t digits = 14;
    const std::string& path = state.RecordPath;
    const std::size_t folder = path.rfind('\\');
    return path.substr(folder == std::string::npos ? 0 : folder + 1, digits);
}

void DrawReport(Surface& page, const RecordReview& review, int year)
{
    PageSurface paper(
        page, 1, {-EdgeOf(page.Width(), ReportWidth, whiteEdge.X), -EdgeOf(page.Height(), ReportHeight, whiteEdge.Y)});
    PageLook look = ReportLook(review.State(), review.Scale().Speed);
    PaperText text(paper, look.Ink);
    look.TextHeight = text.Style(BodyPoints).Height;
    DrawBack(paper, review, TraceAreaWidth, look);
    DrawContent(paper, review, TraceAreaWidth, look);  // a long lead goes on in further lines: paper has no scroll bar
    DrawFrame(paper, FrameLeft(review.View), look);
    DrawHeader(text, review, year);
    DrawReportPanels(paper, text, review, look, year);
    DrawFooter(text, review);
}

}  // namespace ecg
