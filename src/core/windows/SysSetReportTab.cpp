#include "core/windows/SysSetReportTab.h"

#include "core/Labels.h"
#include "core/MmGrid.h"
#include "platform/qt/Controls.h"
#include "platform/qt/Style.h"
#include "platform/qt/SurfaceBox.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

namespace ecg {
namespace {

constexpr QSize sampleSize(241, 161);  // pixels: 60 by 40 mm with the line at the far edge

constexpr int depthWidth = 72;  // pixels

// The fields of the two depth choosers: the 1 mm lines, then the 5 mm lines.
constexpr std::array<Byte SysInfo::*, 2> monoDepths{&SysInfo::Depth1mmMono, &SysInfo::Depth5mmMono};
constexpr std::array<Byte SysInfo::*, 2> colourDepths{&SysInfo::Depth1mmColour, &SysInfo::Depth5mmColour};

void DrawSample(Surface& surface, const SysInfo& settings)
{
    constexpr Colour paper{255, 255, 255};
    const Rect all{0, 0, surface.Width(), surface.Height()};
    const PrintColours colours = DerivePrintColours(settings);
    surface.Fill(all, paper);
    DrawMmGrid(surface, all, PixelsPerMm, {colours.Grid5mm, colours.Grid1mm});
}

QLabel* StepTitle(const char* text, QWidget* parent)
{
    auto* title = new QLabel(text, parent);
    style::SetTextSize(*title, style::TextPixels, true);
    return title;
}

}  // namespace

SysSetReportTab::SysSetReportTab(SettingsDraft& draft, bool chinese, const Pictures& pictures, QWidget* parent)
    : QWidget(parent), draft_(draft), chinese_(chinese)
{
    auto* grid = new QGridLayout(this);
    grid->setSpacing(2 * style::GridStep);
    grid->setContentsMargins(style::Margins);
    grid->addWidget(
        PairGroup({"打印质量", "Print Mode"},
                  {{{"正常打印（打印速度快）", "Normal Print(Fast)"}, {"精细打印（打印速度慢）", "Fine Print(Slow)"}}},
                  "Option2", Option2_, &SysInfo::PrintQuality),
        0, 0);
    grid->addWidget(
        PairGroup({"打印报告方向", "Report Direction"},
                  {{{"横向打印报告格式", "Landscape Orientation"}, {"纵向打印报告格式", "Portrait Orientation"}}},
                  "Option3", Option3_, &SysInfo::PrintPortrait),
        0, 1);
    grid->addWidget(GridGroup(pictures), 1, 0, 1, 2);
    Command4_ = Named(new QPushButton(Twin{"出厂设定", "Factory Setup"}.In(chinese_), this), "Command4", 2);
    connect(Command4_, &QPushButton::clicked, this, [this] { OnFactory(); });
    grid->addWidget(Command4_, 3, 1, Qt::AlignRight);
    grid->setRowStretch(2, 1);
    grid->setColumnStretch(0, 1);
    grid->setColumnStretch(1, 1);
    ShowDraft();
}

QGroupBox* SysSetReportTab::PairGroup(const Twin& title, const std::array<Twin, 2>& captions, const char* name,
                                      Pair& pair, Byte SysInfo::*field)
{
    auto* group = new QGroupBox(title.In(chinese_), this);
    auto* column = new QVBoxLayout(group);
    column->setSpacing(style::GridStep);
    for (std::size_t i = 0; i < pair.size(); ++i) {
        pair[i] = Named(new QRadioButton(captions[i].In(chinese_), group), name, i);
        Connect(pair[i], field, i);
        column->addWidget(pair[i]);
    }
    return group;
}

void SysSetReportTab::Connect(QRadioButton* option, Byte SysInfo::*field, std::size_t value)
{
    connect(option, &QRadioButton::clicked, this, [this, field, value] {
        draft_.Values.*field = static_cast<Byte>(value);
        ShowDraft();
    });
}

QGroupBox* SysSetReportTab::GridGroup(const Pictures& pictures)
{
    auto* group = new QGroupBox(Twin{"坐标打印效果调整步骤", "Axial Print Modify Step"}.In(chinese_), this);
    auto* grid = new QGridLayout(group);
    grid->setHorizontalSpacing(3 * style::GridStep);
    grid->setVerticalSpacing(style::GridStep);
    AddColourMode(*grid, group);
    AddTestPage(*grid, group);
    AddHues(*grid, group);
    AddDepths(*grid, group);
    Picture7_ = Named(new SurfaceBox(
                          pictures, [this](Surface& surface) { DrawSample(surface, draft_.Values); }, group),
                      "Picture7");
    Picture7_->setFixedSize(sampleSize);
    grid->addWidget(Picture7_, 0, 3, 8, 1, Qt::AlignRight | Qt::AlignBottom);
    grid->setColumnStretch(3, 1);
    for (const int row : {2, 4})
        grid->setRowMinimumHeight(row, style::GridStep);
    return group;
}

void SysSetReportTab::AddColourMode(QGridLayout& grid, QGroupBox* group)
{
    constexpr std::array<Twin, 2> captions{{{"彩色坐标模式", "Color Axial"}, {"黑白坐标模式", "Monochrome Axial"}}};
    grid.addWidget(StepTitle(Twin{"1、选择颜色模式", "1、Select Color Mode"}.In(chinese_), group), 0, 0, 1, 3);
    auto* modes = new QButtonGroup(group);
    for (std::size_t i = 0; i < Option4_.size(); ++i) {
        Option4_[i] = Named(new QRadioButton(captions[i].In(chinese_), group), "Option4", i);
        modes->addButton(Option4_[i]);
        Connect(Option4_[i], &SysInfo::PrintMono, i);
        grid.addWidget(Option4_[i], 1, static_cast<int>(i));
    }
}

void SysSetReportTab::AddTestPage(QGridLayout& grid, QGroupBox* group)
{
    grid.addWidget(StepTitle(Twin{"2、打印测试页", "2、Print Test Page"}.In(chinese_), group), 3, 0);
    Command5_ = Named(new QPushButton(Twin{"打印测试页", "Print Test Page"}.In(chinese_), group), "Command5");
    connect(Command5_, &QPushButton::clicked, this, [this] { OnPrintTestPage(); });
    grid.addWidget(Command5_, 3, 1);
}

void SysSetReportTab::AddHues(QGridLayout& grid, QGroupBox* group)
{
    grid.addWidget(
        StepTitle(Twin{"3、根据视觉效果选择坐标颜色和打印深度", "3、Input Axial Color and Deep"}.In(chinese_), group),
        5, 0, 1, 3);
    auto* row = new QHBoxLayout;
    row->setSpacing(3 * style::GridStep);
    auto* hues = new QButtonGroup(group);
    for (std::size_t i = 0; i < Option5_.size(); ++i) {
        Option5_[i] = Named(new QRadioButton(labels::Hues[i].In(chinese_), group), "Option5", i);
        hues->addButton(Option5_[i]);
        Connect(Option5_[i], &SysInfo::GridHue, i);
        row->addWidget(Option5_[i]);
    }
    row->addStretch();
    grid.addLayout(row, 6, 0, 1, 3);
}

void SysSetReportTab::AddDepths(QGridLayout& grid, QGroupBox* group)
{
    constexpr std::array<Twin, 2> captions{{{"1mm深度", "1mm Deep"}, {"5mm深度", "5mm Deep"}}};
    auto* depths = new QGridLayout;
    depths->setHorizontalSpacing(2 * style::GridStep);
    depths->setVerticalSpacing(style::GridStep);
    for (std::size_t i = 0; i < Combo2_.size(); ++i) {
        const QString caption = captions[i].In(chinese_);
        Combo2_[i] = Named(new QComboBox(group), "Combo2", i);
        Combo2_[i]->setAccessibleName(caption);
        Combo2_[i]->setMinimumWidth(depthWidth);
        connect(Combo2_[i], &QComboBox::activated, this, [this, i](int depth) {
            draft_.Values.*(IsMono() ? monoDepths : colourDepths)[i] = static_cast<Byte>(depth);
            Picture7_->update();
        });
        depths->addWidget(new QLabel(caption, group), static_cast<int>(i), 0);
        depths->addWidget(Combo2_[i], static_cast<int>(i), 1);
    }
    depths->setColumnStretch(2, 1);
    depths->setRowStretch(2, 1);
    grid.addLayout(depths, 7, 0, 1, 3);
}

void SysSetReportTab::ShowDraft()
{
    const SysInfo& values = draft_.Values;
    Option2_[values.PrintQuality == 1 ? 1 : 0]->setChecked(true);
    Option3_[values.PrintPortrait == 1 ? 1 : 0]->setChecked(true);
    Option4_[IsMono() ? 1 : 0]->setChecked(true);
    for (std::size_t i = 0; i < Option5_.size(); ++i) {
        Option5_[i]->setChecked(values.GridHue == i);
        Option5_[i]->setEnabled(!IsMono());
    }
    ShowDepths();
    Picture7_->update();
}

void SysSetReportTab::ShowDepths()
{
    const int count = IsMono() ? MonoDepthCount : ColourDepthCount;
    for (std::size_t i = 0; i < Combo2_.size(); ++i) {
        Combo2_[i]->clear();
        for (int depth = 0; depth < count; ++depth)
            Combo2_[i]->addItem(QString::number(depth));
        Combo2_[i]->setCurrentIndex(draft_.Values.*(IsMono() ? monoDepths : colourDepths)[i]);
    }
}

}  // namespace ecg
