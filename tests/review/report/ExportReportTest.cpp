// The files of an export: where they lie, and what the text says byte for byte.
#include "review/report/ExportReport.h"

#include "review/ReviewFixture.h"
#include "support/FileBytes.h"
#include "support/RecordingSurface.h"

#include <gtest/gtest.h>

#include <fstream>

namespace ecg {
namespace {

class RecordingExporter final : public ReportExporter {
public:
    bool SavePicture(const std::filesystem::path& bitmap) override
    {
        Bitmap = bitmap;
        return Works;
    }
    std::unique_ptr<Printer> PdfPrinter(const std::filesystem::path& pdf) override
    {
        Pdf = pdf;
        return std::make_unique<RecordingPrinter>();
    }

    bool Works = true;
    std::filesystem::path Bitmap;
    std::filesystem::path Pdf;
};

class ExportReportTest : public testing::Test {
protected:
    ExportReportTest()
    {
        record_.Header.DoctorNote[0].Set("窦性心律");
        record_.Header.Doctor.Set("王");
        record_.Store(FlaggedSilence(1000));
        record_.Review.Open();
    }

    // Names a folder in FileDir.txt, as the bytes of the file, and exports.
    ReportExport ExportTo(const std::string& bytes)
    {
        std::ofstream(Program() / "FileDir.txt", std::ios::binary) << bytes;
        return ExportReport(record_.Review, exporter_, 2026);
    }
    const std::filesystem::path& Program() const { return record_.State.Folders.Program; }

    ReviewRecord record_;
    RecordingExporter exporter_;
};

TEST_F(ExportReportTest, WritesPictureTextAndPageIntoTheNamedFolder)
{
    const auto folder = Program() / "出口" / "b";
    std::filesystem::create_directories(folder);
    const std::string text = GbkFromUtf8("窦性心律\r\n检查日期 20260309080507\r\n检查医生 王\r\n");
    for (const std::string& line : {std::string("出口\\b"), "\xEF\xBB\xBF" + std::string(" 出口/b \r\nsecond line"),
                                    GbkFromUtf8("出口\\b\r\n"), folder.string() + "\n"}) {
        std::ofstream(folder / "1.txt")
            << "of an earlier export, and longer than what replaces it, so that a rest shows";
        EXPECT_EQ(ExportTo(line), ReportExport::Exported) << line;
        EXPECT_EQ(exporter_.Bitmap, folder / "1.bmp");
        EXPECT_EQ(exporter_.Pdf, folder / "1.pdf");
        EXPECT_EQ(FileBytes(folder / "1.txt"), text);
    }
}

TEST_F(ExportReportTest, SaysWhenThereIsNoFolderOrAFileIsMissing)
{
    EXPECT_EQ(ExportReport(record_.Review, exporter_, 2026), ReportExport::NoFolder);
    for (const char* line : {"", "\r\n.", "no such folder"})
        EXPECT_EQ(ExportTo(line), ReportExport::NoFolder) << line;
    exporter_.Works = false;
    EXPECT_EQ(ExportTo("."), ReportExport::Failed);
    EXPECT_TRUE(std::filesystem::exists(Program() / "1.txt")) << "what can be written is";
}

TEST_F(ExportReportTest, StaysInTheFolderWhateverTheNumber)
{
    record_.State.CurrentPatient.No.Set("..\\/x");
    EXPECT_EQ(ExportTo("."), ReportExport::Exported);
    EXPECT_EQ(exporter_.Pdf.filename(), "..__x.pdf");
    EXPECT_EQ(exporter_.Pdf.parent_path().lexically_normal(), (Program() / "").lexically_normal());
    record_.State.CurrentPatient.No.Set("");
    ExportTo(".");
    EXPECT_EQ(exporter_.Pdf.filename(), "20260309080507.pdf");
}

}  // namespace
}  // namespace ecg
