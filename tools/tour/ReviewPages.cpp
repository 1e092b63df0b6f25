// Reports of a review on paper and as files.
#include "printing/PdfPage.h"
#include "tour/ReviewScene.h"

#include <fstream>

namespace ecg {
namespace {

constexpr int longestPrintMs = 60000;
constexpr int pageDpi = 120;

// The page that was sent to the printer last.
void TakePage(const ReviewScene& scene, const QString& name)
{
    std::optional<PrintedDocument> document;
    scene.Tour.WaitUntil([&] { return (document = scene.Queue.Take()).has_value(); }, longestPrintMs);
    const PdfFacts facts = document ? ReadPdf(document->Printed) : PdfFacts();
    scene.Tour.Check(facts.Pages == 1 && facts.WidthMm > facts.HeightMm, "the printer made one page across: " + name);
    scene.Tour.Picture(document ? PdfPicture(document->Printed, pageDpi) : QImage(),
                       "page-" + name + "-" + scene.Language);
}

void PrintFirst(const ReviewScene& scene, const QString& name)
{
    if (!scene.Queue.IsOk())
        return;
    scene.Tour.Click(scene.Window, "Command2_2");
    TakePage(scene, name);
}

// A report of this record was printed before: the window asks.
void PrintAgain(const ReviewScene& scene, const QString& name)
{
    if (!scene.Queue.IsOk())
        return;
    TourDriver& tour = scene.Tour;
    const auto print = [&] { tour.Click(scene.Window, "Command2_2"); };
    tour.InWindow("frmMsg", print, [&](QWidget& question) {
        tour.Picture(question, "print-again-" + name + "-" + scene.Language);
        tour.Click(question, "Command1_0");
    });
    TakePage(scene, name);
}

}  // namespace

void PlayPrinting(const ReviewScene& scene)
{
    PrintFirst(scene, "ecg");
    scene.Choose("Command1_1", {"FECG_Menu_0"});
    PrintAgain(scene, "spectrum-two-leads");
    scene.Choose("Command1_1", {"FECG_Menu_1"});
    PrintAgain(scene, "spectrum-twelve-leads");
    scene.Tour.Click(scene.Window, "Command1_2");
    PrintAgain(scene, "qt");
    scene.Choose("Command1_0", {"ECG_Menu_4"});
    PrintAgain(scene, "ecg-4x3-and-2");
    scene.Choose("Command1_0", {"ECG_Menu_0"});
}

void PlayVariabilityPage(const ReviewScene& scene)
{
    scene.Tour.Click(scene.Window, "Command1_3");
    scene.Picture("variability-of-half-an-hour");
    PrintFirst(scene, "variability");
}

void PlayExport(const ReviewScene& scene)
{
    TourDriver& tour = scene.Tour;
    const SharedState& state = scene.State();
    const auto folder = state.Folders.Program / ("export-" + scene.Language.toStdString());
    std::filesystem::create_directories(folder);
    std::ofstream(state.Folders.Program / "FileDir.txt") << folder.string() << "\n";
    tour.Agree([&] { tour.Click(scene.Window, "Command4"); }, "review-exported-" + scene.Language);
    std::error_code error;
    const auto stem = folder / state.CurrentPatient.No.Text();
    for (const char* extension : {".bmp", ".txt", ".pdf"})
        tour.Check(std::filesystem::file_size(stem.string() + extension, error) > 0 && !error,
                   QString("the export holds a file ") + extension);
    tour.Picture(QImage(QString::fromStdString(stem.string() + ".bmp")), "exported-picture-" + scene.Language);
}

}  // namespace ecg
