#include "core/windows/SysSetColourTab.h"

#include "core/Language.h"
#include "core/Settings.h"
#include "platform/qt/Controls.h"
#include "platform/qt/Style.h"
#include "platform/qt/SurfaceBox.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QSlider>

namespace ecg {
namespace {

constexpr int previewHeight = 201;            // pixels: 50 mm and the line at the far edge
constexpr std::size_t previewColumns = 1024;  // more than the preview is ever wide
constexpr QSize sampleSize(40, 20);           // pixels

constexpr std::array<Twin, DisplayColours.size()> titles{{{"波形颜色(观察)", "Wave Color(Watch)"},
                                                          {"波形颜色(存储)", "Wave Color(Save)"},
                                                          {"波形颜色(复位)", "Wave Color(Reset)"},
                                                          {"背景颜色", "Back Color"},
                                                          {"坐标颜色(5mm)", "Axial Color(5mm)"},
                                                          {"坐标颜色(1mm)", "Axial Color(1mm)"}}};

constexpr std::array<Twin, DisplayColours.size()> adjustedTitles{
    {{"当前调整：观察波形颜色", "Modify：Watch Wave Color"},
     {"当前调整：存储波形颜色", "Modify：Save Wave Color"},
     {"当前调整：复位波形颜色", "Modify：Reset Wave Color"},
     {"当前调整：背景颜色", "Modify：Back Color"},
     {"当前调整：坐标颜色(5mm)", "Modify：Axial Color(5mm)"},
     {"当前调整：坐标颜色(1mm)", "Modify：Axial Color(1mm)"}}};

constexpr std::array<Twin, 3> sliderCaptions{{{"红", "R"}, {"绿", "G"}, {"篮", "B"}}};
constexpr std::array<Byte Rgb::*, 3> components{&Rgb::R, &Rgb::G, &Rgb::B};

}  // namespace

SysSetColourTab::SysSetColourTab(SettingsDraft& draft, bool chinese, const Pictures& pictures,
                                 const std::filesystem::path& waveFile, QWidget* parent)
    : QWidget(parent), draft_(draft), chinese_(chinese), wave_(ReadPreviewWave(waveFile, previewColumns))
{
    auto* grid = new QGridLayout(this);
    grid->setSpacing(2 * style::GridStep);
    grid->setContentsMargins(style::Margins);
    grid->addWidget(ChoiceGroup(pictures), 0, 0);
    grid->addWidget(SliderGroup(), 0, 1);
    Picture6_ = Named(
        new SurfaceBox(
            pictures, [this](Surface& surface) { DrawColourPreview(surface, draft_.Values, adjusted_, wave_); }, this),
        "Picture6");
    Picture6_->setFixedHeight(previewHeight);
    grid->addWidget(Picture6_, 1, 0, 1, 2);
    Command4_ = Named(new QPushButton(Twin{"出厂设定", "Factory Setup"}.In(chinese_), this), "Command4", 1);
    connect(Command4_, &QPushButton::clicked, this, [this] { OnFactory(); });
    grid->addWidget(Command4_, 3, 1, Qt::AlignRight);
    grid->setRowStretch(2, 1);
    grid->setColumnStretch(1, 1);
    Option1_[0]->setChecked(true);
    Adjust(DisplayColour::Watch);
}

QGroupBox* SysSetColourTab::ChoiceGroup(const Pictures& pictures)
{
    auto* group = new QGroupBox(Twin{"采样颜色", "Sample Color"}.In(chinese_), this);
    auto* grid = new QGridLayout(group);
    grid->setHorizontalSpacing(3 * style::GridStep);
    grid->setVerticalSpacing(style::GridStep);
    for (std::size_t i = 0; i < Option1_.size(); ++i) {
        const auto colour = static_cast<DisplayColour>(i);
        Option1_[i] = Named(new QRadioButton(titles[i].In(chinese_), group), "Option1", i);
        connect(Option1_[i], &QRadioButton::clicked, this, [this, colour] { Adjust(colour); });
        samples_[i] = new SurfaceBox(
            pictures,
            [this, colour](Surface& surface) {
                surface.Fill({0, 0, surface.Width(), surface.Height()}, ToColour(ColourOf(draft_.Values, colour)));
            },
            group);
        samples_[i]->setFixedSize(sampleSize);
        grid->addWidget(Option1_[i], static_cast<int>(i), 0);
        grid->addWidget(samples_[i], static_cast<int>(i), 1);
    }
    return group;
}

QGroupBox* SysSetColourTab::SliderGroup()
{
    constexpr int brightest = 255;
    constexpr int pageStep = 16;
    auto* group = new QGroupBox(this);
    auto* grid = new QGridLayout(group);
    grid->setHorizontalSpacing(2 * style::GridStep);
    grid->setVerticalSpacing(3 * style::GridStep);
    Label4_ = Named(new QLabel(group), "Label4");
    style::SetTextSize(*Label4_, style::HeadingPixels, true);
    grid->addWidget(Label4_, 0, 0, 1, 3);
    for (std::size_t i = 0; i < Slider1_.size(); ++i) {
        const QString caption = sliderCaptions[i].In(chinese_);
        const int row = static_cast<int>(i) + 1;
        Slider1_[i] = Named(new QSlider(Qt::Horizontal, group), "Slider1", i);
        Slider1_[i]->setRange(0, brightest);
        Slider1_[i]->setPageStep(pageStep);
        Slider1_[i]->setAccessibleName(caption);
        Label5_[i] = Named(new QLabel(group), "Label5", i);
        Label5_[i]->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        Label5_[i]->setMinimumWidth(Label5_[i]->fontMetrics().horizontalAdvance("000"));
        connect(Slider1_[i], &QSlider::valueChanged, this, [this, i](int value) { TakeSlider(i, value); });
        grid->addWidget(new QLabel(caption, group), row, 0);
        grid->addWidget(Slider1_[i], row, 1);
        grid->addWidget(Label5_[i], row, 2);
    }
    grid->setRowStretch(static_cast<int>(Slider1_.size()) + 1, 1);
    grid->setColumnStretch(1, 1);
    return group;
}

void SysSetColourTab::Adjust(DisplayColour colour)
{
    adjusted_ = colour;
    ShowDraft();
}

void SysSetColourTab::ShowDraft()
{
    Label4_->setText(adjustedTitles[static_cast<std::size_t>(adjusted_)].In(chinese_));
    const Rgb& colour = ColourOf(draft_.Values, adjusted_);
    for (std::size_t i = 0; i < Slider1_.size(); ++i) {
        const QSignalBlocker silence(Slider1_[i]);
        Slider1_[i]->setValue(colour.*components[i]);
        Label5_[i]->setNum(colour.*components[i]);
    }
    for (SurfaceBox* sample : samples_)
        sample->update();
    Picture6_->update();
}

void SysSetColourTab::TakeSlider(std::size_t component, int value)
{
    ColourOf(draft_.Values, adjusted_).*components[component] = static_cast<Byte>(value);
    ShowDraft();
}

}  // namespace ecg
