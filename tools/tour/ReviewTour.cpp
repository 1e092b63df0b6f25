#include "tour/ReviewTour.h"

#include "core/Labels.h"
#include "record/ImportRecording.h"
#include "tour/ReviewScene.h"

#include <QAction>
#include <QTest>

#include <array>
#include <cstdio>

namespace ecg {
namespace {

struct Recording {
    const char* Header;
    const char* Number;  // of its patient, as the grid shows it
    const char* Name;
    const char* Age;
};
constexpr Recording twelveLeads{"s0010_re.hea", "000001001", "李秋实", "63"};  // 38 s
constexpr Recording halfHour{"100.hea", "000001002", "陈立春", "69"};          // two leads

std::filesystem::path HeaderOf(const Recording& recording)
{
    return std::filesystem::path(ECG_SHARED_DATA) / recording.Header;
}

QWidget& OpenDatabase(TourDriver& tour, Workstation& workstation)
{
    tour.Click(workstation.MainWindow(), "KeyPic_11");
    tour.Wait(300);
    return tour.Window("frmPat");
}

// The patient of a recording, or the one examined last where there is none.
int RowOfPatient(TourDriver& tour, const QWidget& database, const Recording& recording)
{
    const int row = tour.RowOf(database, "PatientTab", recording.Number);
    return row >= 0 ? row : tour.RowOf(database, "PatientTab", "RUVO00000");
}

void EnterName(TourDriver& tour, QWidget& database, const Recording& recording)
{
    tour.ClickRow(database, "PatientTab", RowOfPatient(tour, database, recording));
    tour.InWindow(
        "frmPatInput", [&] { tour.Click(database, "FunKey_1"); },
        [&](QWidget& entry) {
            tour.Type(entry, "Text1_0", recording.Name);
            tour.Type(entry, "Text1_1", recording.Age);
            tour.Click(entry, "Command1_1");
        });
}

// The patient's first record in review.
QWidget& OpenReview(TourDriver& tour, QWidget& database, int row)
{
    tour.ClickRow(database, "PatientTab", row);
    tour.ClickRow(database, "RecTab", 0);
    tour.Click(database, "FunKey_5");
    tour.Wait(300);
    return tour.Window("frmxECG");
}

bool IsChecked(const ReviewScene& scene, const char* entry)
{
    return scene.Tour.Find<QAction>(scene.Window, entry).isChecked();
}

void OpenPicking(const ReviewScene& scene, const std::function<void(QWidget&)>& pick)
{
    scene.Tour.InWindow(
        "frmPat", [&] { scene.Choose("Command1_0", {"ECG_Menu_6"}); }, pick);
}

// The contrast form, first without choosing a record to compare with.
void PlayContrast(const ReviewScene& scene)
{
    TourDriver& tour = scene.Tour;
    const std::string record = scene.State().RecordPath;
    OpenPicking(scene, [&](QWidget& database) {
        tour.Decline([&] { tour.Click(database, "KeyPic_0"); }, "review-contrast-cancelled-" + scene.Language);
    });
    tour.Check(IsChecked(scene, "ECG_Menu_5"), "without a record to compare with the form stays");
    OpenPicking(scene, [&](QWidget& database) {
        tour.ClickRow(database, "PatientTab", RowOfPatient(tour, database, halfHour));
        tour.ClickRow(database, "RecTab", 0);
        tour.Picture(database, "review-contrast-choice-" + scene.Language);
        tour.Click(database, "KeyPic_0");
    });
    tour.Check(IsChecked(scene, "ECG_Menu_6") && scene.State().ComparePath.ends_with(".W"),
               "two records stand side by side");
    scene.Picture("contrast");
    tour.Check(scene.State().RecordPath == record, "the record in review is still the same");
}

// What this version does not have yet is there, but says so.
void PlayKeys(const ReviewScene& scene)
{
    for (const char* key : {"KeyPic_1", "KeyPic_2", "Command2_1"}) {
        const QWidget& control = scene.Tour.Find(scene.Window, key);
        scene.Tour.Check(!control.isEnabled() &&
                             control.toolTip() == labels::NotInThisVersion.In(scene.State().SysInfo),
                         QString("key %1 is disabled and says why").arg(key));
    }
}

void PlayFirstRecord(const ReviewScene& scene)
{
    scene.Picture("opened");
    PlayKeys(scene);
    PlayForms(scene);
    PlayContrast(scene);
    scene.Choose("Command1_0", {"ECG_Menu_0"});
    PlayModes(scene);
    PlayDisplay(scene);
    PlayRule(scene);
    PlayFlags(scene);
    PlayPrinting(scene);
    PlayExport(scene);
}

// The analysis is left by its key, and taken up again.
void PlaySaving(TourDriver& tour, Workstation& workstation, QWidget& review, QWidget& database, int row)
{
    QTest::keyClick(&review, Qt::Key_Right);
    QTest::keyClick(&review, Qt::Key_Right);
    const std::int32_t start = workstation.State().BlockStart;
    tour.Click(review, "KeyPic_0");
    tour.Check(!review.isVisible(), "key 0 closes the review");
    workstation.State().BlockStart = 0;
    QWidget& again = OpenReview(tour, database, row);
    tour.Check(start > FirstSampleSlot && workstation.State().BlockStart == start, "the saved analysis stands");
    QTest::keyClick(&again, Qt::Key_Home);
    tour.Click(again, "KeyPic_0");
}

}  // namespace

bool ImportRecordings(const std::filesystem::path& data)
{
    SystemClock clock;
    DiskFileSystem files;
    for (const Recording& recording : {twelveLeads, halfHour}) {
        if (!std::filesystem::exists(HeaderOf(recording)))
            continue;
        const auto record = ImportRecording(
            {.Header = HeaderOf(recording), .DataFolder = data, .Patient = recording.Number, .System = {}}, clock,
            files);
        if (!record)
            std::fprintf(stderr, "ecg-tour: %s: %s\n", recording.Header, record.Reason().c_str());
        if (!record)
            return false;
    }
    return true;
}

void PlayForms(const ReviewScene& scene)
{
    constexpr std::array<const char*, 6> names{"12x1", "6x2", "4x3", "4x3-and-1", "4x3-and-2", "2x1"};
    for (std::size_t form = names.size(); form-- > 0;) {
        const QImage before = scene.Traces();
        scene.Choose("Command1_0", {QString("ECG_Menu_%1").arg(form)}, form == 5 ? "forms" : "");
        scene.Picture(QString("form-") + names[form]);
        scene.Tour.Check(scene.Traces() != before, QString("form %1 shows").arg(names[form]));
    }
    scene.Choose("Command1_0", {"ECG_Menu_5"});
}

void PlayModes(const ReviewScene& scene)
{
    scene.Choose("Command1_1", {"FECG_Menu_0"}, "spectrum");
    scene.Picture("spectrum-two-leads");
    const QImage before = scene.Traces();
    scene.Choose("Command1_1", {"DFTLead1", "DFTLead1_6"});
    scene.Choose("Command1_1", {"DFTLead2", "DFTLead2_9"}, "output-lead");
    scene.Picture("spectrum-other-leads");
    scene.Tour.Check(scene.Traces() != before, "other leads have another spectrum");
    scene.Choose("Command1_1", {"FECG_Menu_1"});
    scene.Picture("spectrum-twelve-leads");
    for (const auto& [key, mode] :
         {std::pair("Command1_2", "qt"), std::pair("Command1_3", "variability"), std::pair("Command1_4", "pacing")}) {
        const QImage last = scene.Traces();
        scene.Tour.Click(scene.Window, key);
        scene.Picture(mode);
        scene.Tour.Check(scene.Traces() != last, QString("mode %1 shows").arg(mode));
    }
    scene.Choose("Command1_0", {"ECG_Menu_0"});
}

void PlayReview(TourDriver& tour, Workstation& workstation, PrintQueue& queue, const QString& language)
{
    QWidget& database = OpenDatabase(tour, workstation);
    EnterName(tour, database, halfHour);
    EnterName(tour, database, twelveLeads);
    const int first = RowOfPatient(tour, database, twelveLeads);
    QWidget& review = OpenReview(tour, database, first);
    PlayFirstRecord({tour, workstation, queue, language, review});

    // Choosing a record to compare with has made the database window anew.
    QWidget& databaseAgain = tour.Window("frmPat");
    PlaySaving(tour, workstation, tour.Window("frmxECG"), databaseAgain, first);
    QWidget& longReview = OpenReview(tour, databaseAgain, RowOfPatient(tour, databaseAgain, halfHour));
    const ReviewScene scene{tour, workstation, queue, language, longReview};
    PlayJumps(scene);
    PlayVariabilityPage(scene);
    tour.Click(longReview, "KeyPic_0");
    tour.Click(databaseAgain, "KeyPic_0");
    tour.Check(!databaseAgain.isVisible(), "the database closes behind the review");
}

}  // namespace ecg
