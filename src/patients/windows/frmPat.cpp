#include "patients/windows/frmPat.h"

#include "core/Labels.h"
#include "patients/PatientRemoval.h"
#include "patients/RecordHeaderFile.h"
#include "patients/windows/HeadedGrid.h"
#include "patients/windows/PatientPanel.h"
#include "patients/windows/ProgressPanel.h"
#include "platform/qt/BusyCursor.h"
#include "platform/qt/Controls.h"
#include "platform/qt/Front.h"

#include <QAction>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QToolButton>

namespace ecg {
namespace {

constexpr Twin windowTitleText{"患者数据库", "Patient Database"};
constexpr Twin noMatch{"没有满足检索条件的患者。", "No patient matches the search."};

constexpr Twin deletePatientsTitle{"确认删除患者资料", "Delete Patient Information"};
constexpr Twin deletePatients{"确认删除选择的患者资料和该患者的所有历史记录吗？\n\n共删除 ",
                              "Delete Selected Patient Information and Record?\n\nDelete "};
constexpr Twin deletePatientsEnd{" 个患者的资料", " Patient Information"};
constexpr ProgressWords deleting{
    {"正在删除选择的患者资料，请稍侯...", "Deleting Selected Patient Information ,Waiting..."},
    {"已经删除", "Already Delete"}};
constexpr Twin subFolder{"在 \\data\\", "Under \\data\\"};
constexpr Twin subFolderEnd{" 下非法拥有子目录\n必须用手工删除它下面的所有子目录！",
                            " ,A SubDirectory Exist\nMust Delete Them Before!"};
constexpr Twin patientStays{"无法删除该患者的文件，患者资料仍然保留。请检查数据文件夹的权限。病历号：",
                            "The files of this patient could not be deleted, and the patient stays. Please check the "
                            "permissions of the data folder. Med No.: "};

constexpr Twin deleteRecordsTitle{"确认删除记录", "Conform Delete Record"};
constexpr Twin deleteRecords{"确认删除选择的 ", "Conform Delete "};
constexpr Twin deleteRecordsEnd{" 条检查记录吗？", " Records?"};
constexpr Twin recordStays{
    "有的检查记录无法删除，仍然保留。请检查数据文件夹的权限。",
    "Some records could not be deleted and stay. Please check the permissions of the data folder."};
constexpr Twin recordUnreadable{"无法读取该检查记录。文件可能已损坏或被删除。",
                                "This record cannot be read. Its file may be damaged or gone."};
constexpr Twin recordUnwritable{"送检单位和床位号没有保存。请检查磁盘空间和文件的权限。",
                                "Class and bed were not stored. Please check the free space and the permissions of the "
                                "file."};

constexpr Twin wrongTypeTitle{"选择的数据文件类型不对", "A Wrong File Type be Selected"};
constexpr Twin wrongType{"用于对照的文件必须为采用Wilson导联体系的波形文件！！！\n而且必须点击文件后才有效！！！\n\n"
                         "按“忽略”，忽略本次选择操作。\n按“确认”，重新选择文件。",
                         "The Reference File MUST Wilson Lead System File!!!\nYou MUST Press The Line!!!\n\n"
                         "Press“Cancel” Key Stop the Step\nPress“OK”Key , Select Other File"};

}  // namespace

frmPat::frmPat(SharedState& state, AboutPat& database, WindowOpener& windows, MessageBox& messages,
               const Pictures& pictures, QWidget* parent)
    : QWidget(parent, Qt::Window),
      state_(state),
      database_(database),
      windows_(windows),
      messages_(messages),
      pictures_(pictures),
      browser_(database),
      patients_(database.Patients, state.Chinese()),
      records_(database.Records),
      PatMenu_(Named(new QMenu(this), "PatMenu")),
      RecMenu_(Named(new QMenu(this), "RecMenu"))
{
    setObjectName("frmPat");
    setWindowTitle(windowTitleText.In(state_.SysInfo));
    // The review that asks for a record is application modal: only a window that is so too takes input over it.
    if (browser_.Picking())
        setWindowModality(Qt::ApplicationModal);
    LayOut();
    MakeMenus();
    ConnectGrids();
    ShowPatients();
    ChoosePatient(database_.SelectedRow());
    PatientTab_->View().setFocus();
}

void frmPat::ConnectGrids()
{
    PatientTab_->OnHeader = [this](int header) { SortPatients(header); };
    PatientTab_->View().OnChosen = [this](int row) { ChoosePatient(patients_.TableRow(row)); };
    RecTab_->OnHeader = [this](int header) { SortRecords(header); };
    RecTab_->View().OnChosen = [this](int row) { ChooseRecord(row); };
    if (browser_.Picking())
        return;
    PatientTab_->View().OnMenu = [this](const QPoint& place) { PatMenu_->popup(place); };
    PatientTab_->View().OnDelete = [this] { Menu1_[2]->trigger(); };
    PatientTab_->View().OnOpen = [this] { Menu1_[1]->trigger(); };
    RecTab_->View().OnMenu = [this](const QPoint& place) { RecMenu_->popup(place); };
    RecTab_->View().OnDelete = [this] { Menu2_[0]->trigger(); };
    RecTab_->View().OnOpen = [this] { Menu2_[1]->trigger(); };
    connect(Menu1_[0], &QAction::triggered, this, [this] { EditPatient(EntryMode::Add); });
    connect(Menu1_[1], &QAction::triggered, this, [this] { EditPatient(EntryMode::Modify); });
    connect(Menu1_[2], &QAction::triggered, this, [this] { DeletePatients(); });
    connect(Menu1_[3], &QAction::triggered, this, [this] { SearchPatients(); });
    connect(Menu2_[0], &QAction::triggered, this, [this] { DeleteRecords(); });
    connect(Menu2_[1], &QAction::triggered, this, [this] { OpenRecord(); });
    connect(Menu2_[2], &QAction::triggered, this, [this] { ChangeClass(); });
}

void frmPat::ShowPatients()
{
    patients_.Refresh();
    if (database_.Patients.RowCount() > 0)
        PatientTab_->SetEmptyText(noMatch.In(state_.SysInfo));
    PatientTab_->SelectRow(patients_.ViewRow(database_.SelectedRow()));
    shownPatients_ = database_.Patients.RowCount();
    ShowCommands();
}

void frmPat::ShowRecords()
{
    records_.Refresh();
    const bool takesFirst = !browser_.Picking() && database_.Records.RowCount() > 0;
    RecTab_->SelectRow(takesFirst ? 0 : NoRow);
    if (takesFirst)
        browser_.ChooseRecord(0);
    ShowCommands();
}

// Without a patient nothing but the search can be done by a button; the first patient is added from the menu. It is
// meant.
void frmPat::ShowCommands()
{
    const bool hasPatient = PatientTab_->CurrentRow() >= 0;
    const bool hasRecord = RecTab_->CurrentRow() >= 0;
    FunKey_[0]->setEnabled(database_.Patients.RowCount() > 0);
    for (const std::size_t command : {1U, 2U}) {
        FunKey_[command]->setEnabled(hasPatient);
        Menu1_[command]->setEnabled(hasPatient);
    }
    for (const std::size_t command : {0U, 1U}) {
        FunKey_[4 + command]->setEnabled(hasRecord);
        Menu2_[command]->setEnabled(hasRecord);
    }
    Menu2_[2]->setEnabled(hasRecord);
}

void frmPat::ChoosePatient(int row)
{
    if (!database_.Patients.HasRow(row)) {
        Label1_->clear();
        details_->Clear();
        database_.Records.Clear();
    } else {
        Label1_->setText(ToQt(browser_.ChoosePatient(row)));
        details_->ShowPatientDetails(browser_.Shown(), database_.Year());
        patients_.RefreshRow(row);
    }
    ShowRecords();
}

void frmPat::ChooseRecord(int viewRow)
{
    browser_.ChooseRecord(viewRow);
    ShowCommands();
}

void frmPat::SortPatients(int header)
{
    const BusyCursor busy;
    database_.SortPatients(header);
    PatientTab_->MarkSorted(header, database_.Patients.SortedDescending());
    ShowPatients();
    ChoosePatient(database_.SelectedRow());
}

void frmPat::SortRecords(int header)
{
    const int row = database_.SortRecords(header, RecTab_->CurrentRow());
    RecTab_->MarkSorted(header, database_.Records.SortedDescending());
    records_.Refresh();
    RecTab_->SelectRow(row);
    ShowCommands();
}

void frmPat::EditPatient(EntryMode mode)
{
    state_.PatInputMode = static_cast<int>(mode);
    windows_.ShowBlocking(WindowName::frmPatInput);
    ShowPatients();
    ChoosePatient(database_.SelectedRow());
}

void frmPat::DeletePatients()
{
    const auto [first, last] = PatientTab_->SelectedRows();
    const auto rows = RowsBetween(database_.Patients, patients_.TableRow(first), patients_.TableRow(last));
    const bool chinese = state_.Chinese();
    if (rows.empty() || !Asks(deletePatientsTitle,
                              deletePatients.In(chinese) + std::to_string(rows.size()) + deletePatientsEnd.In(chinese)))
        return;
    Removal removal;
    {
        const BusyCursor cursor;
        ProgressPanel panel(deleting, chinese, this);
        panel.setObjectName("Picture4");
        panel.adjustSize();
        panel.move(rect().center() - panel.rect().center());
        panel.show();
        busy_ = true;
        removal = RemovePatients(database_, rows, [&](auto done, auto all) { panel.Report(done, all); });
        busy_ = false;
    }
    ShowPatients();
    ChoosePatient(database_.SelectedRow());
    if (removal.Outcome == Removal::End::SubFolder)
        Tell(subFolder.In(chinese) + removal.Number + subFolderEnd.In(chinese));
    if (removal.Outcome == Removal::End::DiskRefused)
        Tell(patientStays.In(chinese) + removal.Number);
}

void frmPat::SearchPatients()
{
    windows_.ShowBlocking(WindowName::frmFindPat);
    const BusyCursor busy;
    FilterPatients(database_.Patients, database_.File, database_.Search, database_.Year());
    ShowPatients();
    PatientTab_->View().setFocus();
}

void frmPat::DeleteRecords()
{
    const auto [first, last] = RecTab_->SelectedRows();
    const int count = first < 0 ? 0 : last - first + 1;
    const bool chinese = state_.Chinese();
    if (count == 0 ||
        !Asks(deleteRecordsTitle, deleteRecords.In(chinese) + std::to_string(count) + deleteRecordsEnd.In(chinese)))
        return;
    const int removed = RemoveRecords(database_, first, last);
    patients_.RefreshRow(database_.SelectedRow());
    ShowRecords();
    if (removed < count)
        Tell(recordStays.In(chinese));
}

void frmPat::OpenRecord()
{
    if (RecTab_->CurrentRow() < 0)
        return;
    browser_.ChooseRecord(RecTab_->CurrentRow());
    state_.RecordOpenMode = 0;
    const bool wilson = state_.RecordPath.ends_with('W') || state_.RecordPath.ends_with('w');
    if (!windows_.Show(wilson ? WindowName::frmxECG : WindowName::frmxVCG))
        Tell(labels::NotInThisVersion.In(state_.SysInfo));
}

// The header is written back also when nothing was changed, and the grid shows the old words until the patient is
// chosen again: both are meant.
void frmPat::ChangeClass()
{
    const auto file = database_.RecordFile(RecTab_->CurrentRow());
    const auto header = ReadRecordHeader(database_.Files(), file);
    if (!header) {
        Tell(recordUnreadable.In(state_.SysInfo));
        return;
    }
    state_.WorkHeader = *header;
    windows_.ShowBlocking(WindowName::frmChangeClass);
    if (!WriteRecordHeader(database_.Files(), file, state_.WorkHeader))
        Tell(recordUnwritable.In(state_.SysInfo));
}

void frmPat::OpenHelp(WindowName window, int context)
{
    state_.HelpContext = context;
    if (!windows_.ShowBlocking(window))
        Tell(labels::NotInThisVersion.In(state_.SysInfo));
}

bool frmPat::Asks(const Twin& title, const std::string& question)
{
    return messages_.Show(question, title.In(state_.SysInfo), MessageButtons::OkCancel);
}

// The question names its buttons.
bool frmPat::WantsAnotherRecord()
{
    return messages_.Show(wrongType.In(state_.SysInfo), wrongTypeTitle.In(state_.SysInfo), MessageButtons::OkIgnore);
}

void frmPat::Tell(const std::string& text)
{
    messages_.Tell(text, windowTitle().toStdString());
}

// An examination may have brought a patient while the main window was in front.
void frmPat::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow() && !busy_ &&
        shownPatients_ != database_.Patients.RowCount()) {
        ShowPatients();
        ChoosePatient(database_.SelectedRow());
    }
}

void frmPat::CloseUnasked()
{
    unasked_ = true;
    browser_.ForgetComparison();
    close();
}

void frmPat::closeEvent(QCloseEvent* event)
{
    const bool asks = browser_.Picking() && !browser_.HasComparison() && !unasked_;
    if (busy_ || (asks && WantsAnotherRecord())) {
        browser_.ForgetComparison();
        event->ignore();
        return;
    }
    browser_.Leave();
    event->accept();
    GiveFrontTo(parentWidget());
}

void frmPat::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        close();
    else if (event->key() == Qt::Key_F1)
        OpenHelp(WindowName::frmZSK, 255);
    else
        QWidget::keyPressEvent(event);
}

}  // namespace ecg
