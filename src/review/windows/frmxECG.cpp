#include "review/windows/frmxECG.h"

#include "core/Labels.h"
#include "platform/qt/Controls.h"
#include "platform/qt/Front.h"
#include "platform/qt/SurfaceBox.h"
#include "review/EventMarks.h"
#include "review/TraceDrawing.h"
#include "review/windows/ReviewTexts.h"
#include "review/windows/TraceView.h"

#include <QAction>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLayout>
#include <QMenu>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalBlocker>

#include <algorithm>
#include <cmath>
#include <tuple>
#include <utility>

namespace ecg {
namespace {

constexpr int pickingMode = 2;   // of `PatWindowMode`: a record is chosen for comparison
constexpr int reviewEvents = 6;  // of `EventMode`: the events of a record in review
constexpr const char* noComparison = "Cancel";
constexpr int smallestDisplayScale = 3;  // pixels a mm

constexpr Twin emptyRecord{"该文件是空文件，建议删除该文件", "This file is empty. It is best deleted."};
constexpr Twin unreadableRecord{"无法打开该检查记录。文件可能已被删除。",
                                "This record cannot be opened. Its file may be gone."};
constexpr Twin recordLost{
    "记录文件已被删除、变短或无法读取。现在显示的仍是原来的波形。",
    "The file of the record is gone, shorter than before or cannot be read.\nThe traces shown are "
    "the ones from before."};
constexpr Twin flagRefused{"R波标记没有写入记录文件。请检查磁盘空间和文件的权限。",
                           "The R-wave flag was not written to the record.\nPlease check the free space and the "
                           "permissions of the file."};
constexpr Twin saveRefused{
    "分析结果没有写入记录文件。请检查磁盘空间和文件的权限。\n仍然退出吗？",
    "The analysis was not written to the record.\nPlease check the free space and the permissions "
    "of the file.\nLeave all the same?"};
constexpr Twin comparisonEmpty{"选择的对照记录没有波形数据。", "The record chosen for contrast has no samples."};

constexpr std::array<Twin, 2> sameLongLead{{{"与第二长导联选择了相同的导联\n需要选择同样导联的长导联，请使用4×3＋1格式",
                                             "Selecting the same lead as second-lead\nor you can select 4*3+1 form"},
                                            {"与第一长导联选择了相同的导联\n需要选择同样导联的长导联，请使用4×3＋1格式",
                                             "Selecting the same lead as first-lead\nor you can select 4*3+1 form"}}};
constexpr Twin longLeadsReset{"当前第一和第二长导联为同一导联\n系统将恢复为缺省的 II 和 V5 导联",
                              "First and second lead are same lead\nSystem will set II and V5 lead"};

}  // namespace

frmxECG::frmxECG(SharedState& state, RecordReview& review, WindowOpener& windows, MessageBox& messages, Clock& clock,
                 const Pictures& pictures, QWidget* parent)
    : QWidget(parent, Qt::Window),
      state_(state),
      review_(review),
      windows_(windows),
      messages_(messages),
      clock_(clock),
      pictures_(pictures),
      PicFore_(new TraceView(review, pictures, this))
{
    setObjectName("frmxECG");
    setWindowTitle(reviewtexts::WindowTitle.In(state_.SysInfo));
    MakeMenus();
    LayOut();
    ConnectView();
}

bool frmxECG::Open()
{
    ShowCommands();
    switch (review_.Open()) {
    case RecordReview::Opening::Empty:
        Tell(emptyRecord);
        return false;
    case RecordReview::Opening::Unreadable:
        Tell(unreadableRecord);
        return false;
    case RecordReview::Opening::Opened:
        break;
    }
    layout()->activate();  // the scroll bars depend on the size
    ShowView();
    HScroll1_->setFocus();
    return true;
}

void frmxECG::Exit()
{
    if (!review_.Save() &&
        !messages_.Show(saveRefused.In(state_.SysInfo), windowTitle().toStdString(), MessageButtons::YesNo))
        return;
    windows_.Close(WindowName::frmZSK);
    close();
}

void frmxECG::Leave()
{
    picking_ = false;
    close();
}

// Left otherwise than by its key the window keeps no analysis: what is under review stands as it was saved last.
void frmxECG::closeEvent(QCloseEvent* event)
{
    if (picking_) {
        event->ignore();
        return;
    }
    event->accept();
    state_.WilsonSamples = 0;  // with the review the Wilson half of an examination is over
    GiveFrontTo(parentWidget());
}

void frmxECG::SetMode(ReviewMode mode)
{
    Changed(review_.SetMode(mode));
}

void frmxECG::SetForm(EcgForm form)
{
    if (form == EcgForm::Contrast && !ChooseComparison()) {
        CheckMenus();
        return;
    }
    if (form == EcgForm::Columns4x3And2 && review_.SeparateLongLeads())
        Tell(longLeadsReset);
    Changed(review_.SetMode(ReviewMode::Ecg) && review_.SetForm(form));
}

// The database window chooses. It is made anew for picking; when the record in review came from it, it stands there again
// afterwards. It takes up a patient and a record when it opens, but here the ones in review stay. Events go on meanwhile, but
// this window takes none.
bool frmxECG::ChooseComparison()
{
    const auto inReview = std::tuple(state_.RecordPath, state_.CurrentRecordFile, state_.CurrentPatient);
    windows_.Close(WindowName::frmPat);
    state_.ComparePath.clear();
    state_.PatWindowMode = pickingMode;
    picking_ = true;
    setEnabled(false);
    const bool shown = windows_.Show(WindowName::frmPat);
    while (shown && picking_ && state_.ComparePath.empty())
        windows_.PumpMessages();
    setEnabled(true);
    state_.PatWindowMode = 0;
    if (!std::exchange(picking_, false))
        return false;
    if (state_.RecordOpenMode == 0)
        windows_.Show(WindowName::frmPat);
    std::tie(state_.RecordPath, state_.CurrentRecordFile, state_.CurrentPatient) = inReview;
    raise();
    activateWindow();
    if (!shown || state_.ComparePath == noComparison)
        return false;
    const bool usable = review_.OpenComparison();
    if (!usable)
        Tell(comparisonEmpty);
    return usable;
}

void frmxECG::SetDisplayScale(std::size_t index)
{
    review_.View.DisplayScale = smallestDisplayScale + static_cast<int>(index);
    ShowView();
}

void frmxECG::ChooseLongLead(std::size_t which, std::size_t lead)
{
    if (!review_.ChooseLongLead(which, lead))
        Tell(sameLongLead[which]);
    ShowView();
}

void frmxECG::SelectBeat(std::size_t beat)
{
    Moved(review_.SelectBeat(beat));
}

void frmxECG::StepBeat(int step)
{
    const auto beat = static_cast<std::ptrdiff_t>(review_.View.SelectedBeat) + step;
    if (beat >= 0 && review_.View.Mode == ReviewMode::Ecg)
        SelectBeat(static_cast<std::size_t>(beat));
}

void frmxECG::Step(double mm)
{
    const std::int32_t samples = ecg::SamplesInView(std::fabs(mm), review_.Scale().Speed);
    const std::int32_t last = StartOfScroll(ScrollRange, review_.File.SlotCount, review_.SamplesInView());
    const std::int32_t start = state_.BlockStart + (mm < 0 ? -samples : samples);
    Moved(review_.MoveTo(std::min(start, std::max(last, state_.BlockStart))));
}

void frmxECG::SwitchRule(bool on)
{
    review_.View.Rule.Switch(on);
    PicFore_->setCursor(on ? Qt::CrossCursor : Qt::ArrowCursor);
    Rule_->setChecked(on);
    PicFore_->RedrawTraces();
}

void frmxECG::OpenEvents()
{
    const std::int32_t before = state_.BlockStart;
    state_.EventMode = reviewEvents;
    OpenWindow(WindowName::frmNote);
    FollowBlockStart(before);
}

void frmxECG::OpenTrend()
{
    const std::int32_t before = state_.BlockStart;
    OpenWindow(WindowName::frmRate);
    FollowBlockStart(before);
}

// The window before may have left another start in the shared state. It counts only if the record can be read there.
void frmxECG::FollowBlockStart(std::int32_t before)
{
    const std::int32_t start = std::exchange(state_.BlockStart, before);
    Moved(start == before || review_.MoveTo(start));
}

void frmxECG::OpenHelp(WindowName window, int context)
{
    state_.HelpContext = context;
    OpenWindow(window);
}

void frmxECG::OpenWindow(WindowName window)
{
    state_.ReviewMode = static_cast<int>(review_.View.Mode);
    if (!windows_.ShowBlocking(window))
        Tell(labels::NotInThisVersion);
}

void frmxECG::Changed(bool read)
{
    ShowView();
    if (!read)
        Tell(recordLost);
}

void frmxECG::Moved(bool read)
{
    ShowPlace();
    ShowBeat();
    if (!read)
        Tell(recordLost);
}

void frmxECG::FlagChanged(bool done)
{
    ShowBeat();
    if (!done)
        Tell(flagRefused);
}

void frmxECG::ShowView()
{
    CheckMenus();
    ShowScrollBars();
    ShowPlace();
    PicFore_->RedrawAll();
    Picture1_->update();
}

// The same grid with other traces or marks on it.
void frmxECG::ShowBeat()
{
    PicFore_->RedrawTraces();
    Picture1_->update();
}

void frmxECG::ShowPlace()
{
    const int value = review_.ScrollValue();
    if (value >= 0) {
        const QSignalBlocker quiet(HScroll1_);
        HScroll1_->setValue(value);
    }
    Label1_->setText(ToQt(TimeOfSlot(state_.CurrentHeader, state_.BlockStart)));
}

void frmxECG::ShowScrollBars()
{
    const QSize left = (PicFore_->PictureSize() - PicFore_->size()).expandedTo({0, 0});
    const QSignalBlocker quietAcross(HScroll2_);
    const QSignalBlocker quietDown(VScroll1_);
    HScroll2_->setRange(0, left.width());
    HScroll2_->setPageStep(PicFore_->width());
    HScroll2_->setVisible(left.width() > 0);
    VScroll1_->setRange(0, left.height());
    VScroll1_->setPageStep(PicFore_->height());
    VScroll1_->setVisible(left.height() > 0);
    PicFore_->SetOffset(PicFore_->Offset());
    HScroll2_->setValue(PicFore_->Offset().x());
    VScroll1_->setValue(PicFore_->Offset().y());
}

void frmxECG::Tell(const Twin& text)
{
    messages_.Tell(text.In(state_.SysInfo), windowTitle().toStdString());
}

void frmxECG::keyPressEvent(QKeyEvent* event)
{
    const double view = ViewWidth(review_.View);
    const double second = review_.Scale().Speed;
    const bool beats = event->modifiers().testFlag(Qt::ControlModifier);
    switch (event->key()) {
    case Qt::Key_Escape:
        return review_.View.Rule.On ? SwitchRule(false) : Exit();
    case Qt::Key_F1:
        return OpenHelp(WindowName::frmResult, HelpCode);
    case Qt::Key_PageUp:
        return Step(-view);
    case Qt::Key_PageDown:
        return Step(view);
    case Qt::Key_Left:
        return beats ? StepBeat(-1) : Step(-second);
    case Qt::Key_Right:
        return beats ? StepBeat(1) : Step(second);
    case Qt::Key_Home:
        return Moved(review_.ScrollTo(0));
    case Qt::Key_End:
        return Moved(review_.ScrollTo(ScrollRange));
    default:
        QWidget::keyPressEvent(event);
    }
}

}  // namespace ecg
