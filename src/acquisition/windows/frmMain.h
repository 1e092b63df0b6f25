// The main window: the live trace, and around it the keys, selectors and labels of an examination.
//
//   ┌ state, patient, times │ electrodes, filters │ clock │ exit, help, knowledge ┐
//   ├ trace ────────────────────────────────────────────┬ heart rate, keys,       ┤
//   │                                                   │ selectors, notices      │
//   └───────────────────────────────────────────────────┴─────────────────────────┘
//
// It is drawn for 1024 by 768; a larger window gives its room to the trace.
#pragma once

#include "acquisition/ExamLabels.h"
#include "acquisition/KeyPanel.h"
#include "acquisition/LiveMonitor.h"
#include "acquisition/MainView.h"
#include "platform/qt/PictureKey.h"

#include <QComboBox>
#include <QLabel>
#include <QTimer>
#include <QWidget>

#include <map>

class QBoxLayout;
class QGridLayout;

namespace ecg {

class TraceArea;

class frmMain final : public QWidget, public MainView {
public:
    frmMain(const SharedState& state, const Pictures& pictures, Clock& clock);
    ~frmMain() override;

    // Gives the window its logic. Events before that are ignored.
    void Connect(LiveMonitor& monitor, KeyPanel& keys);

    void MoveLeadCaption(LeadSystem system, std::size_t lead, int x, int y) override;
    void RepaintLeadCaptions() override;
    void TraceChanged(int x, int width) override;
    void EnableTimer(MainTimer timer, bool enabled) override;
    void ShowTexts() override;
    void ShowSelectors() override;
    void ShowExamination() override;
    void ShowHeartRate(const std::string& text) override;
    void LightHeart(bool lit) override;
    void ShowHeartLead(const char* name) override;
    void ShowElectrode(std::size_t electrode, bool off) override;
    void ShowFilterState(wire::Filter filter, const char* label) override;
    void ShowRecovery(bool shown) override;
    void ShowNoDevice(bool shown) override;
    void ShowLeadCaptions(LeadSystem system) override;
    void ShowKeyPressed(int key, bool pressed) override;
    void ShowLamp(Lamp lamp, bool lit) override;
    void ShowSampledTime(LeadSystem system, const std::string& text) override;
    void ShowBusy(bool busy) override;
    void RunSoon(std::function<void()> task) override;
    void CloseWindow() override;

protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    QLabel* MakeLabel(const QString& name, int pixels, bool bold = false);
    PictureBox* MakeIcon(int index, const char* picture);
    QWidget* MakeNotice(const char* name, const char* picture, QLabel*& caption);
    void MakeKey(const KeyEntry& entry);
    void MakeTimers();
    void LayOut();
    QWidget* MakeTopBar();
    QWidget* MakePanel();
    QWidget* MakeHeart();
    QWidget* MakeTicker();
    void AddKeys(QBoxLayout& panel, int heading, std::initializer_list<int> keys);
    void AddSelectors(QBoxLayout& panel);
    void SetTabOrder();
    void FollowFocus();
    void ShowClock();
    void ShowKey(const KeyEntry& entry);
    void MoveTicker();
    void Select(std::size_t selector, int index);

    const SharedState& state_;
    const Pictures& pictures_;
    Clock& clock_;
    LiveMonitor* monitor_ = nullptr;
    KeyPanel* keys_ = nullptr;
    bool front_ = false;  // this window, not another of the system, has the user
    bool closing_ = false;

    TraceArea* picture4_;                  // the trace
    std::map<int, PictureKey*> keyPic_;    // by key number
    std::map<int, PictureBox*> image1_;    // lamps on keys, by their number
    std::map<int, PictureBox*> image3_;    // 0 clock, 3 heart, 4 electrodes
    std::map<int, QLabel*> label3_;        // 0, 1, 2, 20 group headings; 3, 6 times; 8 heart rate; 9 to 18 electrodes
    std::map<int, QLabel*> label4_;        // 0 date, 1 weekday, 2 time, 3 name, 4 number, 5 heart lead
    std::map<int, QLabel*> label5_;        // states of the AC, baseline and muscle filter
    std::map<int, QLabel*> filterPrefix_;  // the words before them
    std::map<int, QLabel*> heading_;       // of the selectors
    std::array<QComboBox*, 6> combo1_{};   // lead system, gain, speed, AC, baseline, muscle filter
    QLabel* image2_;                       // title: state of the examination
    QLabel* label1_;                       // ticker
    QWidget* picture1_;                    // heart light
    QWidget* picture5_ = nullptr;          // notice: lead recovery
    QWidget* picture6_ = nullptr;          // notice: no box
    QLabel* recoveryText_ = nullptr;
    QLabel* noDeviceText_ = nullptr;
    std::map<int, QTimer*> timer_;  // by number, 1 to 6
    int tickerLeft_ = TickerStart;
};

}  // namespace ecg
