// The live ECG: holds the box's stream or the demonstration feed, the frame path and the display together, and is
// what the main window's timers and controls call.
//
//   port ─ bytes ─► FrameDecoder ─┐
//                                 ├─ frame ─► FramePath ─ column ─► LiveDisplay
//   DemoFeed ─────────────────────┘
#pragma once

#include "acquisition/DemoFeed.h"
#include "acquisition/DeviceLink.h"
#include "acquisition/FrameDecoder.h"
#include "acquisition/FramePath.h"
#include "acquisition/LiveDisplay.h"
#include "acquisition/MainView.h"
#include "core/Mailbox.h"
#include "platform/MessageBox.h"

namespace ecg {

// The examination that the frames of a sampling belong to.
class RunningExamination : public SamplingSink {
public:
    // The signal has settled anew; what was taken before holds the settling and is of no use.
    virtual void SampleAgain() = 0;
};

class LiveMonitor final : private FrameSink, private FramePathSink, private DemoSink {
public:
    LiveMonitor(SharedState& state, SerialPort& port, Clock& clock, MessageBox& messages, MainView& view);
    ~LiveMonitor() override;
    LiveMonitor(const LiveMonitor&) = delete;
    LiveMonitor& operator=(const LiveMonitor&) = delete;

    LiveDisplay& Display() { return display_; }

    // Who gets the frames of a sampling; null for nobody.
    void SetExamination(RunningExamination* examination);

    // Looks for the box, twice when the first scan finds none, and shows the notice when there is none.
    void FindBox();

    // The selectors. An index the selector does not offer is ignored.
    void SelectLeadSystem(int index);  // also starts the stream or the demonstration feed
    void SelectGain(int index);
    void SelectSpeed(int index);
    void SelectFilter(wire::Filter filter, bool on);
    void SendFilters() { link_.SendFilters(); }

    // The main window comes to the front: the grid is drawn and the feed starts. It leaves the front for another
    // window of the system: the feed stops, unless `KeepStreaming` is set.
    void ComeToFront();
    void LeaveFront();

    void StopFeed();

    // Stops the feed and closes its files, for good.
    void Shutdown();

    // After the settings were changed: paper, filters, rows.
    void ApplySettings();

    // A click on a lead's caption shows or hides the lead; with Shift it picks the lead the detector watches.
    void ClickLeadCaption(LeadSystem system, std::size_t lead, bool shift);

    void FlipFreeze();
    void ReturnBaseline();
    void FlipWander() { demo_.FlipWander(); }

    void OnHeartLightTick();
    void OnDemoTick();
    void OnRecoveryTick();

    // Once a second: takes up again a box that was unplugged or fell silent.
    void OnSecond();

    // Once a second: a record that has come back in the mailbox is told of, but never into a running sampling.
    void OnMailboxTick();

private:
    void OnSerialReceive();
    void OnPortLost();

    void OnFrame(const Frame& frame) override;
    void OnElectrode(std::size_t electrode, bool off) override;
    void OnFilterState(wire::Filter filter, int code) override;
    void OnReconnect() override;

    void OnBeat(int rrCount) override;
    void OnSilence() override;
    void OnSampledTime(LeadSystem system, std::int32_t frames) override;
    void OnColumn(LeadSystem system, const RecordSample& sample, bool beat) override;

    void OnDemoFrame(const Frame& frame) override;
    void OnDemoBlank(bool active) override;

    LeadSystem System() const { return LeadSystemOf(state_.SysInfo); }
    bool HasBox() const { return state_.DevicePort != 0; }
    void StartFeed();
    void HaltFeed();
    void OpenDemoData();
    void WatchChannel(int channel, const char* name);
    void ShowBoxLost(bool lost);
    void TryReconnect();

    SharedState& state_;
    SerialPort& port_;
    Clock& clock_;
    MessageBox& messages_;
    MainView& view_;
    DeviceLink link_;
    Mailbox mailbox_;
    RunningExamination* examination_ = nullptr;
    FrameDecoder decoder_;
    FramePath path_;
    LiveDisplay display_;
    DemoFeed demo_;

    bool streaming_ = false;  // a stream was asked of the box
    bool receiving_ = false;  // inside the receive event
    bool boxLost_ = false;
    std::int64_t lastBytesMs_ = 0;
    int leadRecoverCount_ = 0;  // ticks left of a lead recovery
    bool leadRecovering_ = false;
};

}  // namespace ecg
