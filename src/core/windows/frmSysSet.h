// The settings, on four tabs. They are edited in a draft: the confirm button checks it, stores it and lets the program
// use it; closing the window any other way leaves everything as it was.
//
// Controls:
//   SettingTab   the tabs, see their own files
//   Command1     ignore (Escape)
//   Command2     confirm (Enter)
#pragma once

#include "core/SettingsDraft.h"
#include "core/SharedState.h"
#include "platform/MessageBox.h"
#include "platform/Printer.h"
#include "platform/qt/Pictures.h"

#include <QDialog>

class QHBoxLayout;
class QPushButton;
class QTabWidget;

namespace ecg {

class SysSetColourTab;
class SysSetHospitalTab;
class SysSetReportTab;
class SysSetSampleTab;

class frmSysSet final : public QDialog {
public:
    frmSysSet(SharedState& state, MessageBox& messages, Printer& printer, const Pictures& pictures,
              QWidget* parent = nullptr);

private:
    QHBoxLayout* ButtonRow();
    void AddTabs(const Pictures& pictures);
    void ConnectTabs();
    void Confirm();
    bool CheckTimes();
    bool AsksForFactory(const Twin& question);
    void PrintPage();
    void Tell(const Twin& text);

    SharedState& state_;
    MessageBox& messages_;
    Printer& printer_;
    SettingsDraft draft_;
    QTabWidget* SettingTab_;
    QPushButton* Command1_ = nullptr;
    QPushButton* Command2_ = nullptr;
    SysSetHospitalTab* hospital_ = nullptr;
    SysSetSampleTab* sample_ = nullptr;
    SysSetColourTab* colour_ = nullptr;
    SysSetReportTab* report_ = nullptr;
};

}  // namespace ecg
