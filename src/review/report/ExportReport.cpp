#include "review/report/ExportReport.h"

#include "core/formats/CodePage.h"
#include "platform/ByteFile.h"
#include "platform/FileSystem.h"
#include "review/PageTexts.h"
#include "review/report/PrintReport.h"
#include "review/report/ReportPage.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>

namespace ecg {
namespace {

constexpr const char* folderFile = "FileDir.txt";
constexpr std::size_t longestFolderLine = 4096;  // bytes
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
constexpr const char* lineEnd = "\r\n";

// A path that an editor of today wrote is UTF-8, one of old is GBK.
std::string ToUtf8(const std::string& line)
{
    const bool utf8 = Utf8FromGbk(GbkFromUtf8(line)) == line;
    return utf8 ? line : Utf8FromGbk(line);
}

std::string FirstLine(const std::filesystem::path& path)
{
    const auto file = OpenFile(path, OpenMode::Read);
    if (!file)
        return {};
    std::array<char, longestFolderLine> bytes{};
    std::string line(bytes.data(), file->ReadAt(0, std::as_writable_bytes(std::span(bytes))));
    if (line.starts_with(byteOrderMark))
        line.erase(0, byteOrderMark.size());
    line.erase(std::min(line.find_first_of(std::string_view("\r\n\0", 3)), line.size()));
    line.erase(0, std::min(line.find_first_not_of(' '), line.size()));
    line.erase(line.find_last_not_of(' ') + 1);
    return line;
}

std::optional<std::filesystem::path> ExportFolder(const std::filesystem::path& program)
{
    std::string line = ToUtf8(FirstLine(program / folderFile));
    std::ranges::replace(line, '\\', '/');
    const std::filesystem::path folder = program / line;  // an absolute one stands for itself
    if (line.empty() || !IsFolder(folder))
        return std::nullopt;
    return folder;
}

// The medical number, so written that it stays in the folder; without one, the number of the report.
std::string FileStem(const SharedState& state)
{
    std::string stem = state.CurrentPatient.No.Text();
    stem.erase(0, std::min(stem.find_first_not_of(' '), stem.size()));
    std::ranges::replace_if(
        stem, [](char c) { return c == '/' || c == '\\' || (c >= 0 && c < ' '); }, '_');
    return stem.empty() ? ReportNumber(state) : stem;
}

bool WriteText(const std::filesystem::path& path, const SharedState& state, ReviewMode mode)
{
    const std::string text = state.CurrentHeader.DoctorNote[static_cast<std::size_t>(mode)].Text() + lineEnd +
                             "检查日期 " + ReportNumber(state) + lineEnd + "检查医生 " + ExaminingDoctor(state) +
                             lineEnd;
    const std::string gbk = GbkFromUtf8(text);
    return ReplaceFile(path, std::as_bytes(std::span(gbk)));
}

}  // namespace

ReportExport ExportReport(const RecordReview& review, ReportExporter& exporter, int year)
{
    const SharedState& state = review.State();
    const auto folder = ExportFolder(state.Folders.Program);
    if (!folder)
        return ReportExport::NoFolder;
    const auto fileOf = [path = *folder / FileStem(state)](const char* extension) {
        return std::filesystem::path(path.string() + extension);
    };
    const bool picture = exporter.SavePicture(fileOf(".bmp"));
    const bool text = WriteText(fileOf(".txt"), state, review.View.Mode);
    const auto pdf = exporter.PdfPrinter(fileOf(".pdf"));
    const bool page = pdf && SendReport(*pdf, review, year);
    return picture && text && page ? ReportExport::Exported : ReportExport::Failed;
}

}  // namespace ecg
