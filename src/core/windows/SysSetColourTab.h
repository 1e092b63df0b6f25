// Third tab of the settings: the six colours of the live display, each of three sliders, with a preview.
//
// Controls:
//   Option1    the colour under adjustment, beside a sample of it
//   Label4     names the colour under adjustment
//   Slider1    0 red, 1 green, 2 blue
//   Label5     their values
//   Picture6   the preview
//   Command4_1 the factory values
#pragma once

#include "core/ColourPreview.h"
#include "core/SettingsDraft.h"
#include "platform/qt/Pictures.h"

#include <QWidget>

#include <array>
#include <filesystem>
#include <functional>
#include <vector>

class QGroupBox;
class QLabel;
class QPushButton;
class QRadioButton;
class QSlider;

namespace ecg {

class SurfaceBox;

class SysSetColourTab final : public QWidget {
public:
    // The sample wave of the preview is read from `waveFile`.
    SysSetColourTab(SettingsDraft& draft, bool chinese, const Pictures& pictures, const std::filesystem::path& waveFile,
                    QWidget* parent);

    void ShowDraft();

    std::function<void()> OnFactory;

private:
    QGroupBox* ChoiceGroup(const Pictures& pictures);
    QGroupBox* SliderGroup();
    void Adjust(DisplayColour colour);
    void TakeSlider(std::size_t component, int value);

    SettingsDraft& draft_;
    const bool chinese_;
    const std::vector<int> wave_;
    DisplayColour adjusted_ = DisplayColour::Watch;
    std::array<QRadioButton*, DisplayColours.size()> Option1_{};
    std::array<SurfaceBox*, DisplayColours.size()> samples_{};
    QLabel* Label4_ = nullptr;
    std::array<QSlider*, 3> Slider1_{};
    std::array<QLabel*, 3> Label5_{};
    SurfaceBox* Picture6_ = nullptr;
    QPushButton* Command4_ = nullptr;
};

}  // namespace ecg
