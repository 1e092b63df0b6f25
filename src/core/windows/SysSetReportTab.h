// Fourth tab of the settings: quality and direction of printed reports, and the three steps that fit the grid to the
// printer.
//
// Controls:
//   Option2    quality: 0 normal, 1 fine
//   Option3    direction: 0 landscape, 1 portrait
//   Option4    colour mode: 0 colour, 1 black and white
//   Command5   prints the test page
//   Option5    hue: 0 red, 1 green, 2 blue; only for a colour grid
//   Combo2     depth: 0 of the 1 mm lines, 1 of the 5 mm lines
//   Picture7   a sample of the grid as chosen
//   Command4_2 the factory values
#pragma once

#include "core/SettingsDraft.h"
#include "platform/qt/Pictures.h"

#include <QWidget>

#include <array>
#include <functional>

class QComboBox;
class QGridLayout;
class QGroupBox;
class QPushButton;
class QRadioButton;

namespace ecg {

class SurfaceBox;
struct Twin;

class SysSetReportTab final : public QWidget {
public:
    SysSetReportTab(SettingsDraft& draft, bool chinese, const Pictures& pictures, QWidget* parent);

    void ShowDraft();

    std::function<void()> OnFactory;
    std::function<void()> OnPrintTestPage;

private:
    using Pair = std::array<QRadioButton*, 2>;

    QGroupBox* PairGroup(const Twin& title, const std::array<Twin, 2>& captions, const char* name, Pair& pair,
                         Byte SysInfo::*field);
    QGroupBox* GridGroup(const Pictures& pictures);
    void AddColourMode(QGridLayout& grid, QGroupBox* group);
    void AddTestPage(QGridLayout& grid, QGroupBox* group);
    void AddHues(QGridLayout& grid, QGroupBox* group);
    void AddDepths(QGridLayout& grid, QGroupBox* group);
    void Connect(QRadioButton* option, Byte SysInfo::*field, std::size_t value);
    void ShowDepths();
    bool IsMono() const { return draft_.Values.PrintMono == 1; }

    SettingsDraft& draft_;
    const bool chinese_;
    Pair Option2_{};
    Pair Option3_{};
    Pair Option4_{};
    std::array<QRadioButton*, HueCount> Option5_{};
    std::array<QComboBox*, 2> Combo2_{};
    SurfaceBox* Picture7_ = nullptr;
    QPushButton* Command5_ = nullptr;
    QPushButton* Command4_ = nullptr;
};

}  // namespace ecg
