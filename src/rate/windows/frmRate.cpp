#include "rate/windows/frmRate.h"

#include "core/Labels.h"
#include "platform/qt/BusyCursor.h"
#include "platform/qt/ButtonRow.h"
#include "platform/qt/Controls.h"
#include "platform/qt/PictureBox.h"
#include "platform/qt/Style.h"
#include "platform/qt/SurfaceBox.h"
#include "rate/TrendPicture.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QScrollBar>
#include <QShortcut>
#include <QVBoxLayout>

namespace ecg {
namespace {

constexpr QSize arrowSize(15, 14);
constexpr int laneHeight = 16;  // pixels, above the curve, where the arrow runs
constexpr int arrowTop = laneHeight - arrowSize.height();
constexpr int laneZero = FirstColumn - 1;  // x of the arrow's own zero: its tip comes to the column it reads
constexpr QSize flagSize(24, 24);
constexpr int timeWidth = 152;   // pixels: "2026-03-09 08:05:07"
constexpr int rateWidth = 88;    // pixels: "240 bpm" in large digits
constexpr int scrollBeats = 25;  // of a step of the scroll bar
constexpr int closingMs = 100;   // until the window of a record without beats closes

// In the order of `frmRate::Readout`.
constexpr std::array<Twin, frmRate::ReadoutCount> captions{{{"心搏总数： ", "Heart beat: "},
                                                            {"起始时间： ", "Begin Time: "},
                                                            {"终止时间： ", "End   Time: "},
                                                            {"最大心率：", "Max HR:"},
                                                            {"最小心率：", "Min HR:"},
                                                            {"光标心率：", "Cursor HR:"},
                                                            {"光标时间：", "Cursor Time:"},
                                                            {"事件时间：", "Event Time:"},
                                                            {"事件内容：", "Event Detail:"}}};

constexpr Twin notDrawn{"超出 30～240 bpm，未绘出", "beyond 30 to 240 bpm, not drawn"};
constexpr Twin goesOn{"仅显示前 32767 次心搏，其后的记录不在图中。",
                      "Only the first 32767 beats are shown; the record goes on behind them."};

BeatTable Scan(const AboutFile& file)
{
    const BusyCursor busy;
    return ScanBeats(file);
}

}  // namespace

frmRate::frmRate(SharedState& state, AboutFile& file, MessageBox& messages, const Pictures& pictures, QWidget* parent)
    : QDialog(parent), state_(state), messages_(messages), trend_(state.CurrentHeader, Scan(file))
{
    setObjectName("frmRate");
    setWindowTitle(Twin{"心率趋势窗口", "Heart Rate Wondow"}.In(state_.SysInfo));
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(style::Margins);
    column->setSpacing(style::GridStep);
    column->setSizeConstraint(QLayout::SetFixedSize);
    column->addWidget(Chart(pictures));
    MakeScrollBar();
    column->addWidget(HScroll1_);
    column->addWidget(Parameters());
    column->addWidget(Events(pictures));
    column->addSpacing(style::GridStep);
    column->addLayout(ButtonRow());
    MakeKeys();
    if (trend_.HasRates())
        ShowRecord();
    else
        TellOfNoBeats();
    ShowView();
    MoveCursor(-1);
}

// The places in the chart are those of its drawings, so nothing here is laid out anew.
QWidget* frmRate::Chart(const Pictures& pictures)
{
    auto* chart = new QWidget(this);
    chart->setMinimumWidth(TrendWidth + CaptionsWidth);
    chart->setFixedHeight(laneHeight + TrendHeight);
    chart->setStyleSheet(
        QString("background: rgb(%1, %2, %3); color: white;").arg(TrendGround.R).arg(TrendGround.G).arg(TrendGround.B));
    Picture2_ = Named(new SurfaceBox(
                          pictures,
                          [this](Surface& surface) {
                              DrawAxes(surface);
                              if (trend_.CursorSlot())
                                  DrawCursor(surface, trend_.CursorColumn());
                              DrawTrend(surface, trend_.View());
                          },
                          chart),
                      "Picture2");
    Picture2_->setGeometry(0, laneHeight, TrendWidth, TrendHeight);
    Picture3_ = Named(
        new SurfaceBox(
            pictures, [this](Surface& surface) { DrawCaptions(surface, trend_.View(), state_.Chinese()); }, chart),
        "Picture3");
    Picture3_->setGeometry(TrendWidth, laneHeight, CaptionsWidth, TrendHeight);
    auto* unit = new QLabel("bpm", chart);
    style::SetTextSize(*unit, style::SmallPixels);
    unit->move(0, 0);  // left of the arrow at its first place
    Image2_ = Named(new PictureBox(pictures, "cursor", chart), "Image2");
    Image2_->resize(arrowSize);
    Image2_->setCursor(Qt::SizeHorCursor);
    Image2_->installEventFilter(this);
    return chart;
}

void frmRate::MakeScrollBar()
{
    HScroll1_ = Named(new QScrollBar(Qt::Horizontal, this), "HScroll1");
    HScroll1_->setRange(0, RateTrend::ScrollRange);
    HScroll1_->setSingleStep(trend_.ScrollStep(scrollBeats));
    HScroll1_->setPageStep(trend_.ScrollStep(RateView::Columns));
    HScroll1_->setAccessibleName(Twin{"显示位置", "Position of the view"}.In(state_.SysInfo));
    connect(HScroll1_, &QScrollBar::valueChanged, this, [this](int value) { Scroll(value); });
}

QGroupBox* frmRate::Parameters()
{
    auto* group = Named(
        new QGroupBox(Twin{"心率趋势参数", "The Parameters of Heart Rate Trend"}.In(state_.SysInfo), this), "Frame1");
    auto* grid = new QGridLayout(group);
    grid->setHorizontalSpacing(style::GridStep);
    grid->setVerticalSpacing(style::GridStep / 2);
    AddReadout(*grid, HeartBeats, 0, 0);
    AddReadout(*grid, BeginTime, 1, 0);
    AddReadout(*grid, EndTime, 2, 0);
    AddReadout(*grid, MaxRate, 0, 1);
    AddReadout(*grid, MinRate, 1, 1);
    AddReadout(*grid, CursorRate, 0, 2);
    AddReadout(*grid, CursorTime, 1, 2);
    style::SetTextSize(*Label2_[CursorRate], style::LargePixels, true);
    Label3_[0] = MakeNote(0);
    Label3_[1] = MakeNote(1);
    Label3_[1]->setText(goesOn.In(state_.SysInfo));
    Label3_[1]->setVisible(trend_.Beats().MoreBeats);
    grid->addWidget(Label3_[0], 2, 4, 1, 2);
    grid->addWidget(Label3_[1], 3, 0, 1, 6);
    return group;
}

QGroupBox* frmRate::Events(const Pictures& pictures)
{
    auto* group =
        Named(new QGroupBox(Twin{"5秒内的事件", "The Events during of 5s"}.In(state_.SysInfo), this), "Frame2");
    auto* grid = new QGridLayout(group);
    grid->setHorizontalSpacing(style::GridStep);
    Image1_ = Named(new PictureBox(pictures, "event", group), "Image1");
    Image1_->setFixedSize(flagSize);
    QSizePolicy policy = Image1_->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    Image1_->setSizePolicy(policy);
    AddReadout(*grid, EventTime, 0, 0);
    AddReadout(*grid, EventDetail, 0, 1);
    grid->addWidget(Image1_, 0, 4);
    grid->setColumnStretch(3, 1);
    return group;
}

void frmRate::AddReadout(QGridLayout& grid, Readout readout, int row, int column)
{
    const auto index = static_cast<std::size_t>(readout);
    const bool isTime = readout == BeginTime || readout == EndTime || readout == CursorTime || readout == EventTime;
    Label1_[index] = Named(new QLabel(captions[index].In(state_.SysInfo), this), "Label1", index);
    Label2_[index] = Named(new QLabel(this), "Label2", index);
    Label2_[index]->setTextFormat(Qt::PlainText);  // what a doctor has typed
    Label2_[index]->setMinimumWidth(isTime ? timeWidth : rateWidth);
    grid.addWidget(Label1_[index], row, 2 * column);
    grid.addWidget(Label2_[index], row, 2 * column + 1);
}

QLabel* frmRate::MakeNote(int index)
{
    auto* note = Named(new QLabel(this), "Label3", index);
    style::SetTextSize(*note, style::SmallPixels);
    return note;
}

QHBoxLayout* frmRate::ButtonRow()
{
    MakeStepKeys();
    auto* row = MakeButtonRow(this, "Command1",
                              {Twin{"退出", "Exit"}.In(state_.SysInfo), Twin{"到光标", "To Cursor"}.In(state_.SysInfo)},
                              Command1_);
    row->insertWidget(0, Command2_[0]);
    row->insertWidget(1, Command2_[1]);
    Command1_[1]->setDefault(true);
    Command1_[1]->setFocus();
    connect(Command1_[0], &QPushButton::clicked, this, [this] { reject(); });
    connect(Command1_[1], &QPushButton::clicked, this, [this] { ToCursor(); });
    return row;
}

void frmRate::MakeStepKeys()
{
    constexpr std::array<const char*, 2> arrows{"◀", "▶"};
    constexpr std::array<Twin, 2> tips{{{"光标左移", "Cursor left"}, {"光标右移", "Cursor right"}}};
    for (std::size_t i = 0; i < Command2_.size(); ++i) {
        Command2_[i] = Named(new QPushButton(arrows[i], this), "Command2", i);
        Command2_[i]->setToolTip(tips[i].In(state_.SysInfo));
        Command2_[i]->setAccessibleName(tips[i].In(state_.SysInfo));
        Command2_[i]->setAutoRepeat(true);
        Command2_[i]->setAutoDefault(false);
        connect(Command2_[i], &QPushButton::clicked, this, [this, i] { MoveCursor(i == 0 ? -1 : 1); });
    }
}

// They act wherever the focus is, which the arrow keys would otherwise move.
void frmRate::MakeKeys()
{
    const auto on = [this](Qt::Key key, auto action) {
        connect(new QShortcut(key, this), &QShortcut::activated, this, action);
    };
    on(Qt::Key_Left, [this] { MoveCursor(-1); });
    on(Qt::Key_Right, [this] { MoveCursor(1); });
    on(Qt::Key_PageUp, [this] { HScroll1_->triggerAction(QScrollBar::SliderPageStepSub); });
    on(Qt::Key_PageDown, [this] { HScroll1_->triggerAction(QScrollBar::SliderPageStepAdd); });
    on(Qt::Key_Home, [this] { HScroll1_->triggerAction(QScrollBar::SliderToMinimum); });
    on(Qt::Key_End, [this] { HScroll1_->triggerAction(QScrollBar::SliderToMaximum); });
}

void frmRate::ShowRecord()
{
    const BeatTable& beats = trend_.Beats();
    Label2_[HeartBeats]->setText(QString::number(beats.BeatTotal()));
    Label2_[BeginTime]->setText(ToQt(trend_.StartTime()));
    Label2_[EndTime]->setText(ToQt(trend_.TimeOf(beats.BeatSlots.back())));
}

void frmRate::ShowView()
{
    const RateView& view = trend_.View();
    const auto show = [&view](QLabel* label, int rate) {
        label->setText(view.PointsShown == 0 ? QString() : QString::number(rate));
    };
    show(Label2_[MaxRate], view.Highest);
    show(Label2_[MinRate], view.Lowest);
    Picture3_->update();
}

void frmRate::ShowCursor()
{
    Image2_->move(laneZero + trend_.CursorLeft(), arrowTop);
    const auto slot = trend_.CursorSlot();
    const auto rate = trend_.CursorRate();
    Label2_[CursorRate]->setText(rate ? QString("%1 bpm").arg(int{*rate}) : QString());
    Label2_[CursorTime]->setText(slot ? ToQt(trend_.TimeOf(*slot)) : QString());
    Label3_[0]->setText(rate == RateOutOfRange ? notDrawn.In(state_.SysInfo) : "");
    ShowEvent(slot);
    Picture2_->update();
}

void frmRate::ShowEvent(std::optional<std::int32_t> slot)
{
    const auto event = slot ? trend_.EventNear(*slot) : std::nullopt;
    Image1_->setVisible(event.has_value());
    Label2_[EventTime]->setText(event ? ToQt(event->Time) : QString());
    Label2_[EventDetail]->setText(event ? ToQt(event->Text) : QString());
}

void frmRate::Scroll(int value)
{
    trend_.Scroll(value);
    ShowView();
    ShowCursor();
}

void frmRate::MoveCursor(int pixels)
{
    trend_.MoveCursor(pixels);
    ShowCursor();
}

void frmRate::ToCursor()
{
    const auto slot = trend_.CursorSlot();
    if (!slot) {
        messages_.Tell(Twin{"光标没有定位到有效范围内", "Cursor at invalid Position"}.In(state_.SysInfo),
                       Twin{"请重新定位光标", "Please relocate corsor"}.In(state_.SysInfo));
        return;
    }
    state_.BlockStart = RateTrend::BlockStartFor(*slot);
    accept();
}

void frmRate::TellOfNoBeats()
{
    messages_.Tell(
        Twin{"选择的文件没有心动周期标志", "The selected file has no flag of heart beat!"}.In(state_.SysInfo),
        labels::Program.In(state_.SysInfo));
    connect(&Timer1_, &QTimer::timeout, this, [this] { reject(); });
    Timer1_.start(closingMs);
}

bool frmRate::eventFilter(QObject* watched, QEvent* event)
{
    const auto* mouse = watched == Image2_ ? dynamic_cast<QMouseEvent*>(event) : nullptr;
    if (mouse == nullptr)
        return QDialog::eventFilter(watched, event);
    const int x = qRound(mouse->position().x());
    if (event->type() == QEvent::MouseButtonPress)
        dragFrom_ = x;
    else if (event->type() == QEvent::MouseMove && mouse->buttons().testFlag(Qt::LeftButton))
        MoveCursor(x - dragFrom_);
    return true;
}

}  // namespace ecg
