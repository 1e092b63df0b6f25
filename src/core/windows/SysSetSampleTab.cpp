#include "core/windows/SysSetSampleTab.h"

#include "core/Labels.h"
#include "platform/qt/Controls.h"
#include "platform/qt/Style.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <vector>

namespace ecg {
namespace {

constexpr std::size_t wilsonExaminations = 5;  // the first five; the others are Frank's
constexpr int leadsInARow = 6;
constexpr int longestTime = 12;   // characters
constexpr int timeWidth = 64;     // pixels
constexpr int captionWidth = 60;  // pixels
constexpr int cellWidth = 148;    // pixels: so that the boxes of both groups stand below each other

struct Filter {
    Twin Caption;
    std::size_t Field;  // in `SysInfo::FilterIndex`
    std::vector<const char*> Settings;
};

// In the order in which they are shown.
const std::array<Filter, 3> filters{{
    {{"抗噪滤波", "AC Filter"}, 0, {"50 Hz", "60 Hz"}},
    {{"肌电滤波", "MF Filter"}, 2, {"26 Hz", "36 Hz", "45 Hz", "54 Hz", "60 Hz", "77 Hz"}},
    {{"基漂抑制", "DF Filter"}, 1, {"0.3 s", "0.5 s", "0.8 s", "1.6 s"}},
}};

}  // namespace

SysSetSampleTab::SysSetSampleTab(SettingsDraft& draft, bool chinese, QWidget* parent)
    : QWidget(parent), draft_(draft), chinese_(chinese)
{
    auto* column = new QVBoxLayout(this);
    column->setSpacing(2 * style::GridStep);
    column->setContentsMargins(style::Margins);
    column->addWidget(LeadGroupBox());
    auto* row = new QHBoxLayout;
    row->setSpacing(2 * style::GridStep);
    row->addWidget(FilterGroup(), 1);
    row->addWidget(PromptGroup(), 1);
    column->addLayout(row);
    column->addWidget(
        TimeGroup(Twin{"Wilson 导联体系采样时间", "Wilson Sample Time"}.In(chinese_), 0, wilsonExaminations));
    column->addWidget(TimeGroup(Twin{"Frank 导联体系采样时间", "Frank Sample Time"}.In(chinese_), wilsonExaminations,
                                ExaminationCount));
    column->addStretch();
    Command4_ = Named(new QPushButton(Twin{"出厂设定", "Factory Setup"}.In(chinese_), this), "Command4", 0);
    connect(Command4_, &QPushButton::clicked, this, [this] { OnFactory(); });
    column->addWidget(Command4_, 0, Qt::AlignRight);
    ShowDraft();
}

QGroupBox* SysSetSampleTab::LeadGroupBox()
{
    constexpr std::array<Twin, 3> captions{{{"显示肢导联", "Display Limb Lead"},
                                            {"显示胸导联", "Display Chest Lead"},
                                            {"显示全部导联", "Display All Lead"}}};
    auto* group = new QGroupBox(Twin{"波形显示控制", "Wave Display Control"}.In(chinese_), this);
    auto* grid = style::GridIn(*group);
    for (std::size_t i = 0; i < LeadCount; ++i) {
        Check1_[i] = Named(new QCheckBox(labels::Leads[i], group), "Check1", i);
        const int place = static_cast<int>(i);
        grid->addWidget(Check1_[i], place / leadsInARow, place % leadsInARow);
    }
    auto* shortcuts = new QHBoxLayout;
    shortcuts->setSpacing(style::GridStep);
    for (std::size_t i = 0; i < Command3_.size(); ++i) {
        Command3_[i] = Named(new QPushButton(captions[i].In(chinese_), group), "Command3", i);
        connect(Command3_[i], &QPushButton::clicked, this, [this, i] {
            for (std::size_t lead = 0; lead < LeadCount; ++lead)
                Check1_[lead]->setChecked(IsInGroup(lead, static_cast<LeadGroup>(i)));
        });
        shortcuts->addWidget(Command3_[i]);
    }
    shortcuts->addStretch();
    grid->addLayout(shortcuts, 2, 0, 1, leadsInARow);
    return group;
}

QGroupBox* SysSetSampleTab::FilterGroup()
{
    auto* group = new QGroupBox(Twin{"滤波设定", "Filter Setup"}.In(chinese_), this);
    auto* grid = style::GridIn(*group);
    for (std::size_t i = 0; i < filters.size(); ++i) {
        const QString caption = filters[i].Caption.In(chinese_);
        Combo1_[i] = Named(new QComboBox(group), "Combo1", i);
        Combo1_[i]->setAccessibleName(caption);
        for (const char* setting : filters[i].Settings)
            Combo1_[i]->addItem(setting);
        grid->addWidget(new QLabel(caption, group), static_cast<int>(i), 0);
        grid->addWidget(Combo1_[i], static_cast<int>(i), 1);
    }
    grid->setColumnStretch(1, 1);
    return group;
}

QGroupBox* SysSetSampleTab::PromptGroup()
{
    auto* group = new QGroupBox(Twin{"电极连接提示", "Lead Prompt"}.In(chinese_), this);
    auto* grid = style::GridIn(*group);
    Check2_ = Named(new QCheckBox(Twin{"提示电极连接", "Lead Prompt"}.In(chinese_), group), "Check2");
    grid->addWidget(Check2_, 0, 0);
    grid->setRowStretch(1, 1);
    return group;
}

QGroupBox* SysSetSampleTab::TimeGroup(const char* title, std::size_t first, std::size_t end)
{
    auto* group = new QGroupBox(title, this);
    auto* grid = style::GridIn(*group);
    grid->setHorizontalSpacing(style::GridStep);
    for (std::size_t i = first; i < end; ++i) {
        const QString caption = labels::Examinations[i].In(chinese_);
        Text3_[i] = Named(new QLineEdit(group), "Text3", i);
        Text3_[i]->setAccessibleName(caption);
        Text3_[i]->setMaxLength(longestTime);
        Text3_[i]->setFixedWidth(timeWidth);
        Text3_[i]->setAlignment(Qt::AlignRight);
        auto* label = new QLabel(caption, group);
        label->setMinimumWidth(captionWidth);
        auto* cell = new QHBoxLayout;
        cell->setSpacing(style::GridStep / 2);
        cell->addWidget(label);
        cell->addWidget(Text3_[i]);
        cell->addWidget(new QLabel(Twin{"秒", "s"}.In(chinese_), group));
        cell->addStretch();
        grid->addLayout(cell, 0, static_cast<int>(i - first));
        grid->setColumnMinimumWidth(static_cast<int>(i - first), cellWidth);
    }
    grid->setColumnStretch(static_cast<int>(wilsonExaminations), 1);
    return group;
}

void SysSetSampleTab::ShowDraft()
{
    const SysInfo& values = draft_.Values;
    for (std::size_t i = 0; i < LeadCount; ++i)
        Check1_[i]->setChecked(values.LeadShow[i] == 1);
    for (std::size_t i = 0; i < filters.size(); ++i)
        Combo1_[i]->setCurrentIndex(values.FilterIndex[filters[i].Field]);
    Check2_->setChecked(values.LeadPrompt == 1);
    for (std::size_t i = 0; i < ExaminationCount; ++i)
        Text3_[i]->setText(ToQt(draft_.Seconds[i]));
}

void SysSetSampleTab::Collect()
{
    SysInfo& values = draft_.Values;
    for (std::size_t i = 0; i < LeadCount; ++i)
        values.LeadShow[i] = Check1_[i]->isChecked() ? 1 : 0;
    for (std::size_t i = 0; i < filters.size(); ++i)
        values.FilterIndex[filters[i].Field] = static_cast<Byte>(Combo1_[i]->currentIndex());
    values.LeadPrompt = Check2_->isChecked() ? 1 : 0;
    for (std::size_t i = 0; i < ExaminationCount; ++i)
        draft_.Seconds[i] = Text3_[i]->text().toStdString();
}

void SysSetSampleTab::PointAtTime(std::size_t examination)
{
    Text3_[examination]->setFocus();
    Text3_[examination]->selectAll();
}

}  // namespace ecg
