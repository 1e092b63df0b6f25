#include "patients/windows/PatInputItems.h"

#include "core/Labels.h"
#include "core/SettingsDraft.h"
#include "platform/qt/Controls.h"
#include "platform/qt/Style.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>

namespace ecg {
namespace {

constexpr int itemsInARow = 3;
constexpr int longestTime = 12;  // characters
constexpr int timeWidth = 88;    // pixels
constexpr Byte byUser = 0;
constexpr Byte byTime = 1;

}  // namespace

PatInputItems::PatInputItems(ExaminationItems& items, SysInfo& settings, PatInputTeller tell, QWidget* parent)
    : QGroupBox(Twin{"第二步：确定检查项目", "Step 2:Record Type"}.In(settings), parent),
      items_(items),
      settings_(settings),
      tell_(std::move(tell))
{
    auto* column = new QVBoxLayout(this);
    column->setSpacing(2 * style::GridStep);
    column->addWidget(ItemGroup({"Wilson体系的检查项目", "Wilson System Record Type"}, 0, WilsonItemCount));
    column->addWidget(
        ItemGroup({"Frank体系的检查项目", "Frank System Record Type"}, WilsonItemCount, ExaminationCount));
    column->addWidget(TimeGroup());
    column->addStretch();
    ShowTimes();
    ShowControl();
}

QGroupBox* PatInputItems::ItemGroup(const Twin& title, std::size_t first, std::size_t end)
{
    auto* group = new QGroupBox(title.In(settings_), this);
    auto* grid = new QGridLayout(group);
    grid->setSpacing(style::GridStep);
    for (std::size_t i = first; i < end; ++i) {
        Check2_[i] = Named(new QCheckBox(labels::Examinations[i].In(settings_), group), "Check2", i);
        Check2_[i]->setChecked(items_.Checked(i));
        connect(Check2_[i], &QCheckBox::clicked, this, [this, i](bool checked) {
            items_.Check(i, checked);
            ShowTimes();
        });
        const int place = static_cast<int>(i - first);
        grid->addWidget(Check2_[i], place / itemsInARow, place % itemsInARow);
    }
    for (int column = 0; column < itemsInARow; ++column)
        grid->setColumnStretch(column, 1);
    return group;
}

QGroupBox* PatInputItems::TimeGroup()
{
    constexpr std::array<Twin, 2> captions{{{"由人工控制采样时间", "Manual Control Sample Time"},
                                            {"由检查项目设定采样时间", "System Control Sample Time"}}};
    auto* group = new QGroupBox(Twin{"采样时间", "Sample Time"}.In(settings_), this);
    auto* column = new QVBoxLayout(group);
    column->setSpacing(style::GridStep);
    for (std::size_t i = 0; i < Option2_.size(); ++i) {
        Option2_[i] = Named(new QRadioButton(captions[i].In(settings_), group), "Option2", i);
        connect(Option2_[i], &QRadioButton::clicked, this, [this, i] {
            settings_.SystemControlTime = i == 0 ? byUser : byTime;
            ShowControl();
        });
        column->addWidget(Option2_[i]);
    }
    Picture1_ = Named(new QWidget(group), "Picture1");
    QSizePolicy keepsItsPlace = Picture1_->sizePolicy();
    keepsItsPlace.setRetainSizeWhenHidden(true);
    Picture1_->setSizePolicy(keepsItsPlace);
    auto* times = new QVBoxLayout(Picture1_);
    times->setContentsMargins(3 * style::GridStep, 0, 0, 0);
    times->setSpacing(style::GridStep);
    times->addWidget(new QLabel(Twin{"设定的采样时间", "Selected Sample Time"}.In(settings_), Picture1_));
    for (std::size_t system = 0; system < Text2_.size(); ++system)
        times->addLayout(TimeRow(system));
    column->addWidget(Picture1_);
    return group;
}

QLayout* PatInputItems::TimeRow(std::size_t system)
{
    constexpr std::array<const char*, 2> systems{"Wilson", "Frank"};
    constexpr int systemWidth = 48;  // pixels
    Text2_[system] = Named(new QLineEdit(Picture1_), "Text2", system);
    Text2_[system]->setAccessibleName(systems[system]);
    Text2_[system]->setMaxLength(longestTime);
    Text2_[system]->setFixedWidth(timeWidth);
    Text2_[system]->setAlignment(Qt::AlignRight);
    connect(Text2_[system], &QLineEdit::textEdited, this, [this, system] { TypedTime(system); });
    // A box that was left empty shows again the time that counts.
    connect(Text2_[system], &QLineEdit::editingFinished, this, [this] { ShowTimes(); });
    auto* caption = new QLabel(systems[system], Picture1_);
    caption->setMinimumWidth(systemWidth);
    auto* row = new QHBoxLayout;
    row->setSpacing(style::GridStep);
    row->addWidget(caption);
    row->addWidget(Text2_[system]);
    row->addWidget(new QLabel(Twin{"秒", "s"}.In(settings_), Picture1_));
    row->addStretch();
    return row;
}

void PatInputItems::ShowTimes()
{
    Text2_[0]->setText(ToQt(SecondsText(items_.WilsonSamples())));
    Text2_[1]->setText(ToQt(SecondsText(items_.FrankSamples())));
}

void PatInputItems::ShowControl()
{
    const bool timed = settings_.SystemControlTime == byTime;
    Option2_[timed ? 1 : 0]->setChecked(true);
    Picture1_->setVisible(timed);
    for (QLineEdit* box : Text2_)
        box->setEnabled(timed);
}

void PatInputItems::TypedTime(std::size_t system)
{
    const std::string text = Text2_[system]->text().toStdString();
    const bool isNumber = system == 0 ? items_.TypeWilsonSeconds(text) : items_.TypeFrankSeconds(text);
    if (isNumber || text.empty())
        return;
    Text2_[system]->clear();
    tell_(PatInputNotANumber);
}

}  // namespace ecg
