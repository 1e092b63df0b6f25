#include "tour/PatientTour.h"

#include "core/PatientNumber.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QTabWidget>
#include <QTableView>
#include <QTest>

namespace ecg {
namespace {

constexpr int examinationMs = 15000;  // ten seconds of sampling, with some grace
constexpr std::uintmax_t tenSecondsBytes = 4784 + 5000 * 16;
constexpr const char* renamed = "张小明";  // the patient who is added, changed and deleted

void Trigger(TourDriver& tour, QWidget& window, const char* menu)
{
    tour.Find<QAction>(window, menu).trigger();
}

void ShowBothPages(TourDriver& tour, QWidget& entry, const QString& name)
{
    auto& pages = tour.Find<QTabWidget>(entry, "SSTab1");
    pages.setCurrentIndex(0);
    tour.Picture(entry, name + "-1");
    pages.setCurrentIndex(1);
    tour.Wait(200);
    tour.Picture(entry, name + "-2");
    pages.setCurrentIndex(0);
}

void EnterPatient(TourDriver& tour, QWidget& entry)
{
    tour.Click(entry, "Command2");
    tour.Type(entry, "Text1_0", "张晓明");
    tour.Type(entry, "Text1_1", "58");
    tour.Type(entry, "Text1_2", "172");
    tour.Type(entry, "Text1_3", "68");
    tour.Type(entry, "Text1_4", "北京市西城区西直门南大街11号");
    tour.Type(entry, "Text1_6", "010-88326666");
}

void PlayEntry(TourDriver& tour, QWidget& entry, const QString& language)
{
    tour.Picture(entry, "examination-without-a-number-" + language);
    EnterPatient(tour, entry);
    tour.Type(entry, "Text1_15", "12-3");
    tour.Type(entry, "Text2_0", "10");
    tour.Type(entry, "Text2_1", "10");
    ShowBothPages(tour, entry, "examination-set-up-" + language);
    tour.Click(entry, "Command1_1");
}

void PlayElectrodes(TourDriver& tour, QWidget& prompt, const QString& name)
{
    tour.Picture(prompt, name);
    QTest::keyClick(&prompt, Qt::Key_Return);
}

void PlayEvent(TourDriver& tour, QWidget& window, const QString& language)
{
    tour.InWindow(
        "frmNote", [&] { tour.Click(window, "KeyPic_13"); },
        [&](QWidget& note) {
            Trigger(tour, note, "AddNoteMenu");
            tour.Type(note, "Text3", "胸闷，心悸");
            tour.Picture(note, "event-" + language);
            tour.Click(note, "Command1_1");
        });
}

// From the key to the window that shows the record, which is left again.
void PlaySampling(TourDriver& tour, Workstation& workstation, const QString& name,
                  const std::function<void()>& meanwhile)
{
    QWidget& window = workstation.MainWindow();
    const SharedState& state = workstation.State();
    const bool wilson = LeadSystemOf(state.SysInfo) == LeadSystem::Wilson;
    bool finished = false;
    const auto sample = [&] {
        tour.Click(window, "KeyPic_16");
        tour.Wait(3000);
        meanwhile();
        tour.Wait(3000);
        tour.Picture(window, name);
        tour.WaitUntil([&finished] { return finished; }, examinationMs);
    };
    tour.InWindow(wilson ? "frmxECG" : "frmMsg", sample, [&](QWidget& record) {
        tour.Picture(record, name + "-finished");
        finished = true;
        tour.Click(record, wilson ? "KeyPic_0" : "Command1_0");
    });
    std::error_code error;
    tour.Check(std::filesystem::file_size(state.Folders.File(state.RecordPath), error) == tenSecondsBytes,
               QString("the record holds 10 seconds: ") + QString::fromStdString(state.RecordPath));
}

void PlayAddAndModify(TourDriver& tour, QWidget& database, const QString& language)
{
    const auto& rows = *tour.Find<QTableView>(database, "PatientTab").model();
    const int before = rows.rowCount();
    tour.InWindow(
        "frmPatInput", [&] { tour.Click(database, "FunKey_0"); },
        [&](QWidget& entry) {
            EnterPatient(tour, entry);
            ShowBothPages(tour, entry, "add-" + language);
            tour.Click(entry, "Command1_1");
        });
    tour.Check(rows.rowCount() == before + 1, "a patient was added");
    tour.InWindow(
        "frmPatInput", [&] { tour.Click(database, "FunKey_1"); },
        [&](QWidget& entry) {
            tour.Type(entry, "Text1_0", renamed);
            tour.Picture(entry, "modify-" + language);
            tour.Click(entry, "Command1_1");
        });
    tour.Check(tour.Find<QLabel>(database, "Label3_1").text() == renamed, "the new name shows");
}

// By a name, and again without a condition.
void PlaySearch(TourDriver& tour, QWidget& database, const QString& language)
{
    const auto& rows = *tour.Find<QTableView>(database, "PatientTab").model();
    const int all = rows.rowCount();
    const auto search = [&] { tour.Click(database, "FunKey_3"); };
    tour.InWindow("frmFindPat", search, [&](QWidget& find) {
        QTest::mouseClick(&tour.Find(find, "Check1_1"), Qt::LeftButton, {}, {8, 8});
        tour.Type(find, "Text1_1", "张*");
        tour.Picture(find, "search-" + language);
        tour.Click(find, "Command1_1");
    });
    tour.Picture(database, "found-" + language);
    tour.InWindow("frmFindPat", search, [&](QWidget& find) {
        tour.Click(find, "Command1_0");
        tour.Click(find, "Command1_1");
    });
    tour.Check(rows.rowCount() == all, "without a condition all patients are listed");
}

void PlayBed(TourDriver& tour, QWidget& database, const QString& language)
{
    tour.InWindow(
        "frmChangeClass", [&] { Trigger(tour, database, "Menu2_2"); },
        [&](QWidget& window) {
            tour.Picture(window, "class-and-bed-" + language);
            tour.Click(window, "Command1_1");
        });
}

void PlaySorting(TourDriver& tour, QWidget& database, const QString& language)
{
    tour.Click(database, "Command1_1");
    tour.Click(database, "Command1_1");
    tour.Picture(database, "sorted-" + language);
}

}  // namespace

void PlayDoubleExamination(TourDriver& tour, Workstation& workstation, const QString& language)
{
    QWidget& window = workstation.MainWindow();
    const auto entry = [&] {
        tour.InWindow(
            "frmPatInput", [&] { tour.Click(window, "KeyPic_16"); },
            [&](QWidget& input) { PlayEntry(tour, input, language); });
    };
    tour.InWindow("frmAskSamp", entry,
                  [&](QWidget& prompt) { PlayElectrodes(tour, prompt, "electrodes-wilson-" + language); });
    tour.Check(workstation.State().ExamState == ExamState::Ready, "the patient is ready to be sampled");
    tour.Picture(window, "ready-" + language);
    const auto wilson = [&] {
        PlaySampling(tour, workstation, "sampling-wilson-" + language, [&] { PlayEvent(tour, window, language); });
    };
    tour.InWindow("frmAskSamp", wilson,
                  [&](QWidget& prompt) { PlayElectrodes(tour, prompt, "electrodes-frank-" + language); });
    PlaySampling(tour, workstation, "sampling-frank-" + language, [] {});
    tour.Check(workstation.State().ExamState == ExamState::Waiting, "the examination is over");
}

void PlayDatabase(TourDriver& tour, Workstation& workstation, const QString& language)
{
    tour.Click(workstation.MainWindow(), "KeyPic_11");
    tour.Wait(300);
    QWidget& database = tour.Window("frmPat");
    const auto& rows = *tour.Find<QTableView>(database, "PatientTab").model();
    const int before = rows.rowCount();
    const auto examined = QString::fromStdString(PatientFolderName(workstation.State().CurrentPatient.No.Text()));
    tour.Picture(database, "database-" + language);

    PlayAddAndModify(tour, database, language);
    PlaySearch(tour, database, language);
    tour.Wait(200);
    tour.ClickRow(database, "PatientTab", tour.RowOf(database, "PatientTab", examined));
    PlayBed(tour, database, language);
    PlaySorting(tour, database, language);
    tour.ClickRow(database, "PatientTab", tour.RowOf(database, "PatientTab", renamed));
    tour.Agree([&] { tour.Click(database, "FunKey_2"); }, "delete-" + language);
    tour.Check(rows.rowCount() == before, "a patient was deleted");
    tour.Click(database, "KeyPic_0");
    tour.Check(!database.isVisible(), "the database closes");
}

}  // namespace ecg
