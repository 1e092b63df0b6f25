#include "acquisition/LiveMonitor.h"

#include "acquisition/ExamLabels.h"
#include "core/Labels.h"
#include "core/Numbers.h"

namespace ecg {
namespace {

constexpr int recoveryTicks = 40;         // of 50 ms: 2 seconds
constexpr int blankFramesPerStep = 50;    // of a baseline return in the demonstration
constexpr std::int64_t silenceMs = 2000;  // a streaming box that is quiet for so long has lost its stream
constexpr double framesPerMinute = 30000;

constexpr int wilsonHeartChannel = 0;
constexpr int frankHeartChannel = 1;

constexpr Twin noDemoFile{"没有找到演示的数据文件", "The demonstration data file was not found"};

// Channel that carries a Wilson lead, or -1 for a lead that is derived.
int ChannelOfLead(std::size_t lead)
{
    constexpr std::array<int, LeadCount> channels{-1, 0, 1, -1, -1, -1, 2, 3, 4, 5, 6, 7};
    return lead < channels.size() ? channels[lead] : -1;
}

}  // namespace

LiveMonitor::LiveMonitor(SharedState& state, SerialPort& port, Clock& clock, MessageBox& messages, MainView& view)
    : state_(state),
      port_(port),
      clock_(clock),
      messages_(messages),
      view_(view),
      link_(state, port, clock),
      mailbox_(state, messages),
      decoder_(*this),
      path_(state, *this),
      display_(state.SysInfo, view),
      demo_(clock, *this)
{
    port_.SetHandlers([this] { OnSerialReceive(); }, [this] { OnPortLost(); });
}

LiveMonitor::~LiveMonitor()
{
    port_.SetHandlers({}, {});
}

void LiveMonitor::FindBox()
{
    view_.ShowBusy(true);
    link_.FindDevice();
    if (!HasBox())
        link_.FindDevice();
    decoder_.Restart(link_.StreamKey());
    view_.ShowNoDevice(!HasBox());
    view_.ShowBusy(false);
}

void LiveMonitor::SelectLeadSystem(int index)
{
    if (index != 0 && index != 1)
        return;
    state_.SysInfo.LeadSystem = static_cast<std::int16_t>(index);
    decoder_.SetLeadSystem(System());
    if (System() == LeadSystem::Wilson)
        WatchChannel(wilsonHeartChannel, labels::Leads[1]);
    else
        WatchChannel(frankHeartChannel, labels::VectorLeads[1]);
    view_.ShowLeadCaptions(System());
    HaltFeed();
    link_.StopStream();
    if (HasBox())
        StartFeed();
    else
        OpenDemoData();
    display_.ResetSweep();
}

void LiveMonitor::SelectGain(int index)
{
    if (index >= 0 && index < LiveGainCount)
        state_.SysInfo.GainIndex = static_cast<std::int16_t>(index);
}

void LiveMonitor::SelectSpeed(int index)
{
    if (index >= 0 && index < LiveSpeedCount)
        state_.SysInfo.SpeedIndex = static_cast<std::int16_t>(index);
}

void LiveMonitor::SelectFilter(wire::Filter filter, bool on)
{
    state_.SysInfo.FilterOn[static_cast<std::size_t>(filter)] = on ? 1 : 0;
    link_.SendFilters();
}

void LiveMonitor::ComeToFront()
{
    display_.DrawGrid();
    display_.ResetSweep();
    if (HasBox() || demo_.IsRunning())
        StartFeed();
    else
        OpenDemoData();
}

void LiveMonitor::LeaveFront()
{
    if (!state_.KeepStreaming)
        StopFeed();
}

void LiveMonitor::StopFeed()
{
    HaltFeed();
    link_.SendDeviceCommand(wire::Command::Stream, 0);
}

void LiveMonitor::SetExamination(RunningExamination* examination)
{
    examination_ = examination;
    path_.SetSamplingSink(examination);
}

void LiveMonitor::StartFeed()
{
    if (!HasBox()) {
        view_.EnableTimer(MainTimer::Demo, true);
        return;
    }
    link_.StartStream(System());
    streaming_ = true;
    lastBytesMs_ = clock_.Milliseconds();
}

// What the box is told is the caller's. The rest of the frame that has begun is lost with the bytes that come from now
// on.
void LiveMonitor::HaltFeed()
{
    streaming_ = false;
    decoder_.DropFrame();
    demo_.Stop();
    view_.EnableTimer(MainTimer::Demo, false);
}

void LiveMonitor::OpenDemoData()
{
    const bool opened = demo_.OpenDemoData(state_.Folders.Data, System());
    view_.EnableTimer(MainTimer::Demo, opened);
    if (!opened)
        messages_.Tell(noDemoFile.In(state_.SysInfo), labels::Program.In(state_.SysInfo));
}

void LiveMonitor::Shutdown()
{
    HaltFeed();
    link_.StopStream();
    demo_.Close();
    port_.Close();
}

void LiveMonitor::ApplySettings()
{
    display_.DrawGrid();
    link_.SendFilters();
    display_.LayoutLeadRows();
}

void LiveMonitor::ClickLeadCaption(LeadSystem system, std::size_t lead, bool shift)
{
    if (system == LeadSystem::Frank) {
        if (shift && lead < labels::VectorLeads.size())
            WatchChannel(static_cast<int>(lead), labels::VectorLeads[lead]);
        return;
    }
    if (lead >= LeadCount)
        return;
    if (!shift) {
        state_.SysInfo.LeadShow[lead] = state_.SysInfo.LeadShow[lead] == 1 ? 0 : 1;
        display_.LayoutLeadRows();
    } else if (const int channel = ChannelOfLead(lead); channel >= 0) {
        WatchChannel(channel, labels::Leads[lead]);
    }
}

void LiveMonitor::WatchChannel(int channel, const char* name)
{
    path_.SetHeartChannel(channel);
    view_.ShowHeartLead(name);
}

void LiveMonitor::FlipFreeze()
{
    path_.SetFrozen(!path_.IsFrozen());
    view_.ShowLamp(Lamp::Freeze, path_.IsFrozen());
    if (!path_.IsFrozen())
        display_.ResetSweep();
}

void LiveMonitor::ReturnBaseline()
{
    if (HasBox())
        link_.ReturnBaseline();
    else
        demo_.Blank((state_.SysInfo.BaselineReturn + 1) * blankFramesPerStep);
}

void LiveMonitor::OnSerialReceive()
{
    // A message that is shown from inside a frame lets events run; the bytes then wait, so that they stay in order.
    if (!HasBox() || receiving_)
        return;
    lastBytesMs_ = clock_.Milliseconds();
    receiving_ = true;
    decoder_.Receive(port_.Read());
    receiving_ = false;
}

void LiveMonitor::OnPortLost()
{
    if (!HasBox())
        return;
    ShowBoxLost(true);
}

void LiveMonitor::ShowBoxLost(bool lost)
{
    boxLost_ = lost;
    view_.ShowNoDevice(lost);
    // Nobody measures the rate any more; the last one must not be taken for the patient's.
    if (lost)
        view_.ShowHeartRate({});
}

void LiveMonitor::OnSecond()
{
    // Inside the receive event the port's bytes are still in use.
    if (!HasBox() || receiving_)
        return;
    const bool silent = streaming_ && clock_.Milliseconds() - lastBytesMs_ > silenceMs;
    if (boxLost_ || silent)
        TryReconnect();
}

// A message lies over the main window and takes its keys, the one that ends the sampling among them; and a slow disk
// would hold up the frames. The mail loses nothing by waiting in its file until the record is closed.
void LiveMonitor::OnMailboxTick()
{
    if (state_.ExamState != ExamState::Sampling)
        mailbox_.Poll();
}

// The demonstration never takes the place of a box that was there: nobody may take its ECG for the patient's.
void LiveMonitor::TryReconnect()
{
    ShowBoxLost(!link_.Reconnect());
    if (boxLost_)
        return;
    decoder_.Restart(link_.StreamKey());
    link_.SendFilters();
    if (streaming_)
        StartFeed();
    display_.ResetSweep();
}

void LiveMonitor::OnFrame(const Frame& frame)
{
    if (System() == LeadSystem::Wilson)
        path_.ProcessWilsonFrame(frame);
    else
        path_.ProcessFrankFrame(frame);
}

void LiveMonitor::OnElectrode(std::size_t electrode, bool off)
{
    view_.ShowElectrode(electrode, off);
}

void LiveMonitor::OnFilterState(wire::Filter filter, int code)
{
    if (const char* label = wire::FilterStateLabel(filter, code))
        view_.ShowFilterState(filter, label);
}

void LiveMonitor::OnReconnect()
{
    leadRecoverCount_ = recoveryTicks;
    leadRecovering_ = true;
    view_.EnableTimer(MainTimer::Recovery, true);
    view_.ShowRecovery(true);
}

void LiveMonitor::OnRecoveryTick()
{
    if (leadRecoverCount_ > 0)
        --leadRecoverCount_;
    if (leadRecoverCount_ > 0)
        return;
    view_.ShowRecovery(false);
    leadRecovering_ = false;
    view_.EnableTimer(MainTimer::Recovery, false);
    ReturnBaseline();
    // A record never holds the settling behind a reconnect.
    if (state_.ExamState == ExamState::Sampling && examination_ != nullptr)
        examination_->SampleAgain();
    else
        display_.ResetSweep();
}

void LiveMonitor::OnBeat(int rrCount)
{
    view_.ShowHeartRate(FormatDecimal(framesPerMinute / rrCount, 0) + " bpm");
    view_.LightHeart(true);
    view_.EnableTimer(MainTimer::HeartLight, true);
}

void LiveMonitor::OnHeartLightTick()
{
    view_.LightHeart(false);
    view_.EnableTimer(MainTimer::HeartLight, false);
}

void LiveMonitor::OnSilence()
{
    view_.ShowHeartRate({});
}

void LiveMonitor::OnSampledTime(LeadSystem system, std::int32_t frames)
{
    view_.ShowSampledTime(system, SampledTimeText(system, frames));
}

void LiveMonitor::OnColumn(LeadSystem system, const RecordSample& sample, bool beat)
{
    const bool resetting = leadRecovering_ || (demo_.IsRunning() && demo_.IsBlank());
    const Colour colour = display_.PickTraceColour(state_.ExamState, resetting);
    if (system == LeadSystem::Wilson)
        display_.DrawWilsonColumn(sample, colour, beat);
    else
        display_.DrawFrankColumn(sample, colour, beat);
}

void LiveMonitor::OnDemoTick()
{
    demo_.Tick();
}

void LiveMonitor::OnDemoFrame(const Frame& frame)
{
    OnFrame(frame);
}

void LiveMonitor::OnDemoBlank(bool active)
{
    view_.ShowLamp(Lamp::Baseline, active);
}

}  // namespace ecg
