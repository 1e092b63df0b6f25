#include "acquisition/windows/frmMain.h"

#include "acquisition/windows/TraceArea.h"
#include "core/Labels.h"
#include "core/Numbers.h"
#include "platform/qt/Style.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWindow>

namespace ecg {
namespace {

// Milliseconds, by timer number. A tick of the demonstration feed delivers what is due by the clock, so its grain
// does not matter; a finer one would only wake the machine more often.
constexpr std::array<int, 7> timerMs{0, 1000, 200, 10, 200, 1000, 50};

constexpr Twin recoveryNotice{"电极已连接\n基线恢复中…", "Electrode back\nrecovering …"};
constexpr Twin demoNotice{"未找到采集盒\n当前为演示波形", "No amplifier box\ndemonstration only"};
constexpr Twin lostNotice{"采集盒连接中断\n正在重新连接…", "Amplifier box lost\nreconnecting …"};

constexpr const char* alarmLook = "background: #c81e1e; color: white; border-radius: 3px;";
constexpr const char* calmLook = "background: transparent; color: black;";

QString DateText(const CalendarTime& now)
{
    return QString::fromStdString(FormatZeros(now.Year, 4) + "-" + FormatZeros(now.Month, 2) + "-" +
                                  FormatZeros(now.Day, 2));
}

QString TimeText(const CalendarTime& now)
{
    return QString::fromStdString(std::to_string(now.Hour) + ":" + FormatZeros(now.Minute, 2) + ":" +
                                  FormatZeros(now.Second, 2));
}

}  // namespace

frmMain::frmMain(const SharedState& state, const Pictures& pictures, Clock& clock)
    : state_(state),
      pictures_(pictures),
      clock_(clock),
      picture4_(new TraceArea(pictures, this)),
      image2_(MakeLabel("Image2", style::LargePixels, true)),
      label1_(MakeLabel("Label1", style::TextPixels, true)),
      picture1_(new QWidget(this))
{
    setObjectName("frmMain");
    for (const KeyEntry& entry : KeyTable)
        MakeKey(entry);
    LayOut();
    MakeTimers();
    ShowTexts();
    ShowExamination();
    picture5_->hide();
    picture6_->hide();
    label1_->hide();
    connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, [this] { FollowFocus(); });
}

// While the widget below is torn down the focus moves; nothing of this window is there any more to follow it.
frmMain::~frmMain()
{
    disconnect(qGuiApp, nullptr, this, nullptr);
}

void frmMain::Connect(LiveMonitor& monitor, KeyPanel& keys)
{
    monitor_ = &monitor;
    keys_ = &keys;
    for (const auto& [number, keyPic] : keyPic_) {
        keyPic->OnKeyDown = [this, key = number] { keys_->OnKeyDown(key); };
        keyPic->OnKeyUp = [this, key = number](int x, int y) { keys_->OnKeyUp(key, x, y); };
    }
    picture4_->OnNewSurfaces = [this](Surface& grid, Surface& trace) {
        monitor_->Display().UseSurfaces(grid, trace);
        monitor_->Display().DrawGrid();
        monitor_->Display().LayoutLeadRows();
    };
    picture4_->OnCaptionClick = [this](LeadSystem system, std::size_t lead, bool shift) {
        monitor_->ClickLeadCaption(system, lead, shift);
    };
}

void frmMain::MakeTimers()
{
    for (int number = 1; number < static_cast<int>(timerMs.size()); ++number) {
        auto* timer = new QTimer(this);
        timer->setObjectName(QString("Timer%1").arg(number));
        timer->setInterval(timerMs[static_cast<std::size_t>(number)]);
        timer_[number] = timer;
    }
    timer_[3]->setTimerType(Qt::PreciseTimer);
    connect(timer_[1], &QTimer::timeout, this, [this] {
        ShowClock();
        if (monitor_ != nullptr)
            monitor_->OnSecond();
    });
    connect(timer_[2], &QTimer::timeout, this, [this] {
        if (monitor_ != nullptr)
            monitor_->OnHeartLightTick();
    });
    connect(timer_[3], &QTimer::timeout, this, [this] { monitor_->OnDemoTick(); });
    connect(timer_[4], &QTimer::timeout, this, [this] { MoveTicker(); });
    connect(timer_[5], &QTimer::timeout, this, [this] { monitor_->OnMailboxTick(); });
    connect(timer_[6], &QTimer::timeout, this, [this] { monitor_->OnRecoveryTick(); });
    timer_[1]->start();
    timer_[2]->start();
    ShowClock();
}

void frmMain::EnableTimer(MainTimer timer, bool enabled)
{
    QTimer& own = *timer_.at(static_cast<int>(timer));
    if (!enabled)
        own.stop();
    else if (timer == MainTimer::HeartLight || !own.isActive())
        own.start();  // a beat begins the light's time anew; a running tick keeps its rhythm
}

void frmMain::MoveLeadCaption(LeadSystem system, std::size_t lead, int x, int y)
{
    picture4_->MoveCaption(system, lead, x, y);
}

void frmMain::RepaintLeadCaptions()
{
    picture4_->RepaintCaptions();
}

void frmMain::TraceChanged(int x, int width)
{
    picture4_->Change(x, width);
}

void frmMain::ShowLeadCaptions(LeadSystem system)
{
    picture4_->ShowCaptions(system);
    // Electrodes 5 to 10 are those of V1 to V6 in Wilson only.
    constexpr int firstLabel = 9;
    constexpr int limbs = 4;
    for (int i = 0; i < static_cast<int>(ElectrodeCount); ++i) {
        const bool chest = system == LeadSystem::Wilson && i >= limbs;
        label3_[firstLabel + i]->setText(chest ? QString("V%1").arg(i - limbs + 1) : QString::number(i + 1));
    }
}

void frmMain::ShowTexts()
{
    const bool chinese = state_.Chinese();
    const auto set = [chinese](QLabel* label, Twin text) { label->setText(text.In(chinese)); };
    setWindowTitle(labels::Program.In(chinese));
    set(label3_[20], {"功能", "Function"});
    set(label3_[1], {"控制", "Control"});
    set(label3_[0], {"常用", "Normal"});
    set(label3_[2], {"设定", "Setup"});
    constexpr std::array<Twin, 6> headings{{{"导联体系", "Lead System"},
                                            {"增益设定", "Amp Setup"},
                                            {"走纸速度", "Paper Speed"},
                                            {"抗噪滤波", "AC Filter"},
                                            {"基漂抑制", "Plat Zero"},
                                            {"肌电滤波", "Musle Filter"}}};
    for (std::size_t i = 0; i < headings.size(); ++i) {
        set(heading_[static_cast<int>(i)], headings[i]);
        combo1_[i]->setAccessibleName(headings[i].In(chinese));
    }
    set(filterPrefix_[0], labels::AcPrefix);
    set(filterPrefix_[1], labels::BaselinePrefix);
    set(filterPrefix_[2], labels::MusclePrefix);
    image3_[0]->setToolTip(Twin{"当前时间", "Date and Time"}.In(chinese));
    image3_[4]->setToolTip(Twin{"导联脱落指示", "Leadoff Display"}.In(chinese));
    image3_[3]->setToolTip(Twin{"实时心率", "RealTime HeartRate"}.In(chinese));
    set(recoveryText_, recoveryNotice);
    set(noDeviceText_, demoNotice);
    ShowClock();
}

void frmMain::ShowSelectors()
{
    constexpr std::array<std::array<Twin, 2>, 3> filters{{{{{"抗噪：关", "ACF：Off"}, {"抗噪：开", "ACF：On"}}},
                                                          {{{"基漂：关", "PLF：Off"}, {"基漂：开", "PLF：On"}}},
                                                          {{{"肌电：关", "MUF：Off"}, {"肌电：开", "MUF：On"}}}}};
    const auto fill = [this](std::size_t selector, const QStringList& items, int index) {
        combo1_[selector]->clear();
        combo1_[selector]->addItems(items);
        combo1_[selector]->setCurrentIndex(index < items.size() ? index : -1);
    };
    const SysInfo& settings = state_.SysInfo;
    fill(0, {"Wilson", "Frank"}, LeadSystemOf(settings) == LeadSystem::Frank ? 1 : 0);
    fill(1, {labels::Gains[0], labels::Gains[1], labels::Gains[2]}, settings.GainIndex);
    fill(2, {labels::Speeds[0], labels::Speeds[1], labels::Speeds[2]}, settings.SpeedIndex);
    for (std::size_t i = 0; i < filters.size(); ++i)
        fill(i + 3, {filters[i][0].In(settings), filters[i][1].In(settings)}, settings.FilterOn[i] == 0 ? 0 : 1);
}

void frmMain::ShowExamination()
{
    const ExamLabels labels = DescribeExamination(state_);
    const auto text = [](const std::string& value) { return QString::fromStdString(value); };
    image2_->setText(text(labels.Title));
    label4_[4]->setText(text(labels.Number));
    label4_[3]->setText(text(labels.Name));
    label3_[3]->setText(text(labels.WilsonTime));
    label3_[6]->setText(text(labels.FrankTime));
    for (const KeyEntry& entry : KeyTable)
        ShowKey(entry);
    combo1_[0]->setEnabled(state_.ExamState != ExamState::Sampling);
    label1_->setText(text(labels.Ticker));
    label1_->adjustSize();
    label1_->setVisible(!labels.Ticker.empty());
    tickerLeft_ = TickerStart;
    EnableTimer(MainTimer::Ticker, !labels.Ticker.empty());
}

void frmMain::ShowKey(const KeyEntry& entry)
{
    PictureKey& keyPic = *keyPic_[entry.Key];
    const KeyTexts texts = TextsOfKey(entry.Key, state_.ExamState);
    keyPic.Caption()->setText(texts.Caption.In(state_.Chinese()));
    keyPic.setToolTip(texts.Tip.In(state_.Chinese()));
    keyPic.setAccessibleName(texts.Tip.In(state_.Chinese()));
    keyPic.setEnabled(IsKeyEnabled(entry.Key, state_.ExamState));
}

void frmMain::ShowClock()
{
    const CalendarTime now = clock_.Now();
    label4_[0]->setText(DateText(now));
    label4_[1]->setText(labels::Weekdays[static_cast<std::size_t>(now.Weekday) % 7].In(state_.Chinese()));
    label4_[2]->setText(TimeText(now));
}

void frmMain::MoveTicker()
{
    tickerLeft_ = NextTickerLeft(tickerLeft_);
    label1_->move(label1_->parentWidget()->width() - (TickerStart - tickerLeft_), label1_->y());
}

void frmMain::ShowHeartRate(const std::string& text)
{
    label3_[8]->setText(QString::fromStdString(text));
}

void frmMain::LightHeart(bool lit)
{
    picture1_->setStyleSheet(lit ? "background: rgb(255, 0, 0); border-radius: 6px;"
                                 : "background: rgb(190, 199, 152); border-radius: 6px;");
    label4_[5]->setStyleSheet(lit ? "color: #c81e1e;" : "color: black;");
}

void frmMain::ShowHeartLead(const char* name)
{
    label4_[5]->setText(name);
}

void frmMain::ShowElectrode(std::size_t electrode, bool off)
{
    constexpr int firstLabel = 9;
    label3_.at(firstLabel + static_cast<int>(electrode))->setStyleSheet(off ? alarmLook : calmLook);
}

void frmMain::ShowFilterState(wire::Filter filter, const char* label)
{
    label5_.at(static_cast<int>(filter))->setText(label);
}

void frmMain::ShowRecovery(bool shown)
{
    picture5_->setVisible(shown);
}

void frmMain::ShowNoDevice(bool shown)
{
    noDeviceText_->setText((state_.DevicePort == 0 ? demoNotice : lostNotice).In(state_.Chinese()));
    picture6_->setVisible(shown);
}

void frmMain::ShowKeyPressed(int key, bool pressed)
{
    if (const auto found = keyPic_.find(key); found != keyPic_.end())
        found->second->ShowPressed(pressed);
}

void frmMain::ShowLamp(Lamp lamp, bool lit)
{
    image1_.at(static_cast<int>(lamp))->SetPicture(lit ? "301" : "300");
}

void frmMain::ShowSampledTime(LeadSystem system, const std::string& text)
{
    label3_[system == LeadSystem::Wilson ? 3 : 6]->setText(QString::fromStdString(text));
}

void frmMain::Select(std::size_t selector, int index)
{
    switch (selector) {
    case 0:
        return monitor_->SelectLeadSystem(index);
    case 1:
        return monitor_->SelectGain(index);
    case 2:
        return monitor_->SelectSpeed(index);
    default:
        return monitor_->SelectFilter(static_cast<wire::Filter>(selector - 3), index == 1);
    }
}

void frmMain::ShowBusy(bool busy)
{
    if (busy)
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QGuiApplication::restoreOverrideCursor();
}

void frmMain::RunSoon(std::function<void()> task)
{
    QTimer::singleShot(0, this, std::move(task));
}

void frmMain::CloseWindow()
{
    closing_ = true;
    close();
}

void frmMain::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (monitor_ != nullptr && !std::exchange(front_, true))
        monitor_->ComeToFront();
    keyPic_[key::Go]->setFocus();
}

// The window manager's close button is the exit key. A window that is asked to close while it closes does nothing, so
// it goes on to close here, not where the key says it.
void frmMain::closeEvent(QCloseEvent* event)
{
    if (!std::exchange(closing_, true) && keys_ != nullptr)
        keys_->PressKey(key::Exit);
    event->accept();
}

void frmMain::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_F1 && keys_ != nullptr)
        keys_->PressKey(key::Help);
    else
        QWidget::keyPressEvent(event);
}

bool frmMain::eventFilter(QObject* object, QEvent* event)
{
    if (object == image3_[4] && event->type() == QEvent::MouseButtonPress) {
        const auto* press = static_cast<QMouseEvent*>(event);
        if (press->button() == Qt::MiddleButton && press->modifiers().testFlag(Qt::ShiftModifier))
            monitor_->FlipWander();
    }
    return QWidget::eventFilter(object, event);
}

// Only another window of the system takes the front from this one. A message, a list that drops down, or another
// program does not: the patient's trace goes on.
void frmMain::FollowFocus()
{
    const QWindow* focus = QGuiApplication::focusWindow();
    if (focus == nullptr || monitor_ == nullptr || !isVisible() || closing_)
        return;
    const bool own = focus == windowHandle();
    const bool other = !own && focus->objectName().startsWith("frm");
    if (own && !std::exchange(front_, true))
        monitor_->ComeToFront();
    else if (other && std::exchange(front_, false))
        monitor_->LeaveFront();
}

}  // namespace ecg
