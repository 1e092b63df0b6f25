// The review of a Wilson record: the traces, the measured values of a beat beside them, and the tools that change what
// is shown. Everything that it shows is decided by `RecordReview`.
//
//   ┌ PicFore on PicBack: traces on their grid ────────────┬ Picture1: ──┬ KeyPic ───┐
//   │     rrBox with the R markers Label2                   │  patient,   │ Command1  │
//   │                                                       │  measured   │ SpdKey .. │
//   │                                                       │  values     │ Command2  │
//   ├ HScroll1: place in the record          Label1: time ──┤             │ Command3  │
//   └ HScroll2: place in a picture wider than the window ───┴─────────────┴ Command4 ─┘
//
// Controls:
//   KeyPic     0 saves the analysis and leaves (Escape), 1 knowledge, 2 help (F1)
//   Command1   review modes; 0 opens ECG_Menu, 1 opens FECG_Menu with DFTLead1 and DFTLead2
//   Command2   0 opens DispMenu, 1 diagnosis, 2 print, 3 events, 4 rate trend
//   Command3   posts the record to the transfer program
//   Command4   exports picture and text
//   SpdKey, AmpKey, LeadKey   show speed, gain and analysis lead, and open their menus
//   DispMenu   DispScale, Rule, DispReset, Auto_Interval, CalibrationMark, SpdMenu, AmpMenu, Para_Lead, LongLead1,
//              LongLead2, Lead_Show; also the menu of the right button on PicFore
//   AddR       of rrBox: R_Add; DelR of a marker: R_Del
//   VScroll1   as HScroll2, downwards
//
// Page Up and Page Down move a view, the arrows a second, Home and End to the ends; Ctrl and an arrow select the next
// beat. They do so wherever the focus is.
#pragma once

#include "core/Language.h"
#include "core/WindowOpener.h"
#include "platform/Clock.h"
#include "platform/MessageBox.h"
#include "platform/qt/Pictures.h"
#include "review/RecordReview.h"

#include <QWidget>

#include <array>
#include <functional>
#include <vector>

class QAction;
class QGridLayout;
class QHBoxLayout;
class QLabel;
class QMenu;
class QPushButton;
class QScrollBar;
class QVBoxLayout;

namespace ecg {

class PictureKey;
class SurfaceBox;
class TraceView;

class frmxECG final : public QWidget {
public:
    frmxECG(SharedState& state, RecordReview& review, WindowOpener& windows, MessageBox& messages, Clock& clock,
            const Pictures& pictures, QWidget* parent = nullptr);

    // Begins the review of the record. False when there is none to review, which the user has then been told; the
    // window is not to be shown.
    bool Open();

    // What this window offers but others do; a key without its routine is disabled. Set before `Open`.
    std::function<void()> OnPrint;
    std::function<void()> OnPost;
    std::function<void()> OnExport;

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    // Values of `HelpContext`.
    static constexpr int KnowledgeCode = 255;
    static constexpr int HelpCode = 254;

    // frmxECGLayout.cpp
    void LayOut();
    QGridLayout* MakePicture();
    QVBoxLayout* MakeTools();
    QHBoxLayout* MakeKeys();
    QPushButton* MakeTool(const char* name, int index, const char* text);
    void MakeModeKeys(QVBoxLayout& column);
    void MakeScaleKeys(QVBoxLayout& column);
    void MakeCommands(QVBoxLayout& column);
    void ConnectView();
    void ShowCommands();

    // frmxECGMenus.cpp
    void MakeMenus();
    void MakeFormMenus();
    void MakeDisplayMenu();
    void MakeFlagMenus();
    QMenu* MakeChoices(const char* name, const Twin& title, const std::vector<QString>& items,
                       std::function<void(std::size_t)> choose);
    QAction* MakeSwitch(const char* name, const Twin& text, std::function<void(bool)> switched);
    void MakeLeadSwitches();
    void CheckMenus();

    // frmxECGScroll.cpp
    void ConnectScrollBars();
    void Step(double mm);
    void ScrollTo(int value);
    void StepBar(int action);
    void ShowPlace();
    void ShowTime();
    void ShowScrollBars();

    // frmxECG.cpp
    void Exit();
    void SetMode(ReviewMode mode);
    void SetForm(EcgForm form);
    bool ChooseComparison();
    bool PickRecord();
    void SetDisplayScale(std::size_t index);
    void ChooseLongLead(std::size_t which, std::size_t lead);
    void SelectBeat(std::size_t beat);
    void StepBeat(int step);
    void SwitchRule(bool on);
    void OpenEvents();
    void OpenTrend();
    void OpenHelp(WindowName window, int context);
    void OpenWindow(WindowName window);
    void FollowBlockStart(std::int32_t before);

    void Changed(bool read);      // after a change of the view: shows it, or says that it could not be read
    void Moved(bool read);        // after a change of place or beat alone
    void FlagChanged(bool done);  // after a correction of flags
    void ShowView();
    void ShowBeat();
    void Tell(const Twin& text);

    SharedState& state_;
    RecordReview& review_;
    WindowOpener& windows_;
    MessageBox& messages_;
    Clock& clock_;
    const Pictures& pictures_;
    bool picking_ = false;  // the record to compare with is being chosen
    int flagX_ = 0;         // pixels of rrBox where a flag is to be added

    TraceView* PicFore_;
    SurfaceBox* Picture1_ = nullptr;
    QScrollBar* HScroll1_ = nullptr;
    QScrollBar* HScroll2_ = nullptr;
    QScrollBar* VScroll1_ = nullptr;
    QLabel* Label1_ = nullptr;
    std::array<PictureKey*, 3> KeyPic_{};
    std::array<QPushButton*, ReviewModeCount> Command1_{};
    std::array<QPushButton*, 5> Command2_{};
    QPushButton* Command3_ = nullptr;
    QPushButton* Command4_ = nullptr;
    QPushButton* SpdKey_ = nullptr;
    QPushButton* AmpKey_ = nullptr;
    QPushButton* LeadKey_ = nullptr;
    QMenu* ECG_Menu_ = nullptr;
    QMenu* FECG_Menu_ = nullptr;
    std::array<QMenu*, 2> DFTLead_{};
    QMenu* DispMenu_ = nullptr;
    QMenu* DispScale_ = nullptr;
    QMenu* SpdMenu_ = nullptr;
    QMenu* AmpMenu_ = nullptr;
    QMenu* Para_Lead_ = nullptr;
    std::array<QMenu*, 2> LongLead_{};
    QMenu* Lead_Show_ = nullptr;
    QMenu* AddR_ = nullptr;
    QMenu* DelR_ = nullptr;
    QAction* Rule_ = nullptr;
    std::vector<QAction*> traceTools_;  // of DispMenu: what modes without traces have no use for
};

}  // namespace ecg
