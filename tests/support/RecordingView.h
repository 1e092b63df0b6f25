// A main window without a window: what it would show, in plain values.
#pragma once

#include "acquisition/MainView.h"

#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace ecg {

class RecordingView final : public MainView {
public:
    using Place = std::pair<int, int>;  // x, y

    void MoveLeadCaption(LeadSystem system, std::size_t lead, int x, int y) override
    {
        Captions[{system, lead}] = {x, y};
    }
    void RepaintLeadCaptions() override { ++CaptionRepaints; }
    void TraceChanged(int x, int width) override { LastChange = {x, width}; }
    void EnableTimer(MainTimer timer, bool enabled) override { Timers[timer] = enabled; }
    void ShowTexts() override { Calls.emplace_back("texts"); }
    void ShowSelectors() override { Calls.emplace_back("selectors"); }
    void ShowExamination() override { Calls.emplace_back("examination"); }
    void ShowHeartRate(const std::string& text) override { HeartRates.push_back(text); }
    void LightHeart(bool lit) override { HeartLit = lit; }
    void ShowHeartLead(const char* name) override { HeartLead = name; }
    void ShowElectrode(std::size_t electrode, bool off) override { ElectrodeOff[electrode] = off; }
    void ShowFilterState(wire::Filter filter, const char* label) override { FilterStates[filter] = label; }
    void ShowRecovery(bool shown) override { Recovery = shown; }
    void ShowNoDevice(bool shown) override { NoDevice = shown; }
    void ShowLeadCaptions(LeadSystem system) override { CaptionSet = system; }
    void ShowKeyPressed(int key, bool pressed) override { KeyPictures.emplace_back(key, pressed); }
    void ShowLamp(Lamp lamp, bool lit) override { Lamps.emplace_back(lamp, lit); }
    void ShowSampledTime(LeadSystem, const std::string& text) override { SampledTime = text; }
    void ShowBusy(bool busy) override { Calls.emplace_back(busy ? "busy" : "ready"); }
    void RunSoon(std::function<void()> task) override { Soon.push_back(std::move(task)); }
    void CloseWindow() override { Closed = true; }

    bool IsRunning(MainTimer timer) const { return Timers.count(timer) != 0 && Timers.at(timer); }

    std::map<std::pair<LeadSystem, std::size_t>, Place> Captions;
    int CaptionRepaints = 0;
    std::pair<int, int> LastChange;  // x, width
    std::map<MainTimer, bool> Timers;
    std::vector<std::string> Calls;  // of the routines without a value of their own
    std::vector<std::string> HeartRates;
    bool HeartLit = false;
    std::string HeartLead;
    std::map<std::size_t, bool> ElectrodeOff;
    std::map<wire::Filter, std::string> FilterStates;
    bool Recovery = false;
    std::optional<bool> NoDevice;
    std::optional<LeadSystem> CaptionSet;
    std::vector<std::pair<int, bool>> KeyPictures;  // key, pressed
    std::vector<std::pair<Lamp, bool>> Lamps;
    std::string SampledTime;
    std::vector<std::function<void()>> Soon;  // in the order they came
    bool Closed = false;
};

}  // namespace ecg
