#include "review/windows/frmxECG.h"

#include "core/Labels.h"
#include "platform/qt/Front.h"
#include "platform/qt/SurfaceBox.h"
#include "review/windows/ReviewTexts.h"
#include "review/windows/TraceView.h"

#include <QCloseEvent>
#include <QLayout>
#include <QScrollBar>

#include <algorithm>
#include <tuple>
#include <utility>

namespace ecg {
namespace {

constexpr Twin emptyRecord{"该文件是空文件，建议删除该文件", "The File is empty, Please delete it"};
constexpr Twin unreadableRecord{"无法打开该检查记录。文件可能已被删除。",
                                "This record cannot be opened. Its file may be gone."};
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
    // Patient and record are shared: nothing may choose others, nor begin an examination, while these are in review.
    setWindowModality(Qt::ApplicationModal);
    MakeMenus();
    LayOut();
    ConnectView();
    ConnectScrollBars();
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

// Left otherwise than by its key the window keeps no analysis: what is under review stands as it was saved last.
void frmxECG::closeEvent(QCloseEvent* event)
{
    event->accept();
    picking_ = false;
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

// A choice that is none leaves the comparison that was there.
bool frmxECG::ChooseComparison()
{
    const std::string pathBefore = state_.ComparePath;
    const PatientRecord patientBefore = state_.ReferencePatient;
    if (PickRecord()) {
        if (review_.OpenComparison())
            return true;
        Tell(comparisonEmpty);
    }
    state_.ComparePath = pathBefore;
    state_.ReferencePatient = patientBefore;
    return false;
}

// The database window chooses. It is made anew for picking; when the record in review came from it, it stands there
// again afterwards, which chooses patient and record anew: those under review are put back. Events go on meanwhile.
bool frmxECG::PickRecord()
{
    const auto inReview = std::tuple(state_.RecordPath, state_.CurrentRecordFile, state_.CurrentPatient);
    windows_.Close(WindowName::frmPat);
    state_.ComparePath.clear();
    state_.PatWindowMode = PicksComparison;
    picking_ = true;
    const bool shown = windows_.Show(WindowName::frmPat);
    while (shown && picking_ && state_.ComparePath.empty())
        windows_.PumpMessages();
    state_.PatWindowMode = ManagesPatients;
    if (!std::exchange(picking_, false))
        return false;
    if (state_.RecordOpenMode == 0)
        windows_.Show(WindowName::frmPat);
    std::tie(state_.RecordPath, state_.CurrentRecordFile, state_.CurrentPatient) = inReview;
    raise();
    activateWindow();
    return shown && state_.ComparePath != NoComparison;
}

void frmxECG::SetDisplayScale(std::size_t index)
{
    review_.View.DisplayScale = SmallestDisplayScale + static_cast<int>(index);
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

// A selected place behind the last flag of the view steps to that one.
void frmxECG::StepBeat(int step)
{
    const auto& flags = review_.File.RFlagList;
    const auto count = std::find(flags.begin(), flags.end(), 0) - flags.begin();
    if (count > 0 && review_.View.Mode == ReviewMode::Ecg) {
        const auto beat = static_cast<std::ptrdiff_t>(review_.View.SelectedBeat) + step;
        SelectBeat(static_cast<std::size_t>(std::clamp<std::ptrdiff_t>(beat, 0, count - 1)));
    }
}

void frmxECG::SwitchRule(bool on)
{
    review_.View.Rule.Switch(on);
    CheckMenus();
    PicFore_->RedrawTraces();
}

void frmxECG::OpenEvents()
{
    const std::int32_t before = state_.BlockStart;
    state_.EventMode = EventsOfWilsonReview;
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
    state_.ReviewMode = review_.View.Mode;
    if (!windows_.ShowBlocking(window))
        Tell(labels::NotInThisVersion);
}

void frmxECG::Changed(bool read)
{
    ShowView();
    if (!read)
        Tell(reviewtexts::RecordLost);
}

void frmxECG::Moved(bool read)
{
    ShowPlace();
    ShowBeat();
    if (!read)
        Tell(reviewtexts::RecordLost);
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

void frmxECG::Tell(const Twin& text)
{
    messages_.Tell(text.In(state_.SysInfo), windowTitle().toStdString());
}

}  // namespace ecg
