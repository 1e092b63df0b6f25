// The database window: the patients, the chosen one's details and records, and the commands on them. Opened for
// picking, it only finds a record to compare with.
//
//   ┌ Picture1: what can be done here ──────────────────────── KeyPic ┐
//   ├ FunKey: commands ───────────────────────────────────────────────┤
//   │ PatientTab                        │ PatTitle, Label3: details   │
//   │ Label1_1: the chosen patient      │                             │
//   ├ RecTab: records of the chosen patient ──────────────────────────┤
//   └─────────────────────────────────────────────────────────────────┘
//
// Controls:
//   Command1, Command2   header buttons of PatientTab and RecTab: sort
//   FunKey    0 add, 1 modify, 2 delete, 3 search a patient; 4 delete, 5 open a record
//   Menu1     0 to 3 as FunKey, in PatMenu, the right button's menu of PatientTab
//   Menu2     0 delete, 1 open, 2 class and bed of a record, in RecMenu
//   KeyPic    0 exit (Escape), 1 help (F1), 2 knowledge
//   Picture4  progress of a long deletion
#pragma once

#include "core/SharedState.h"
#include "core/WindowOpener.h"
#include "patients/PatientBrowser.h"
#include "patients/PatientEntry.h"
#include "patients/windows/GridModels.h"
#include "platform/MessageBox.h"
#include "platform/qt/Pictures.h"

#include <QWidget>

#include <array>

class QAction;
class QHBoxLayout;
class QLabel;
class QMenu;
class QToolButton;

namespace ecg {

class HeadedGrid;
class PatientPanel;

class frmPat final : public QWidget {
public:
    // `database` must be activated, and outlive this window like all others.
    frmPat(SharedState& state, AboutPat& database, WindowOpener& windows, MessageBox& messages,
           const Pictures& pictures, QWidget* parent = nullptr);

    // Closes without a question: the program needs the database, or ends.
    void CloseUnasked();

protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void LayOut();
    QWidget* MakeStrip();
    QWidget* MakeCommands();
    QWidget* MakePatients();
    void AddKeys(QHBoxLayout& row);
    void MakeMenus();
    void ConnectGrids();
    void SetTabOrder();

    void ShowPatients();  // the grid, as the table is now
    void ShowRecords();
    void ShowCommands();
    void ChoosePatient(int row);
    void ChooseRecord(int viewRow);
    void SortPatients(int header);
    void SortRecords(int header);

    void EditPatient(EntryMode mode);
    void DeletePatients();
    void SearchPatients();
    void DeleteRecords();
    void OpenRecord();
    void ChangeClass();
    void OpenHelp(WindowName window, int context);

    bool Asks(const Twin& title, const std::string& question);
    bool WantsAnotherRecord();
    void Tell(const std::string& text);

    SharedState& state_;
    AboutPat& database_;
    WindowOpener& windows_;
    MessageBox& messages_;
    const Pictures& pictures_;
    PatientBrowser browser_;
    PatientTabModel patients_;
    RecTabModel records_;
    int shownPatients_ = 0;  // rows of the table when the grid was filled
    bool busy_ = false;      // a long deletion runs
    bool unasked_ = false;

    HeadedGrid* PatientTab_ = nullptr;
    HeadedGrid* RecTab_ = nullptr;
    PatientPanel* details_ = nullptr;
    QLabel* Label1_ = nullptr;
    std::array<QToolButton*, 6> FunKey_{};
    QMenu* PatMenu_;
    QMenu* RecMenu_;
    std::array<QAction*, 4> Menu1_{};
    std::array<QAction*, 3> Menu2_{};
};

}  // namespace ecg
