#include "patients/windows/PatientPanel.h"

#include "core/Labels.h"
#include "patients/PatientLabels.h"
#include "platform/qt/Controls.h"
#include "platform/qt/ElidingLabel.h"
#include "platform/qt/Style.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

namespace ecg {
namespace {

constexpr int fieldsWidth = 272;  // pixels
constexpr int flagsWidth = 208;   // pixels
constexpr int fieldTitleWidth = 64;
constexpr int flagTitleWidth = 152;
constexpr int lineGap = 3;  // pixels
constexpr int firstFlag = 20;

// The lines of the panel; the sex is no text field.
constexpr std::array<std::optional<PatientField>, 16> fields{
    PatientField::Number,      PatientField::Name,        std::nullopt,
    PatientField::Age,         PatientField::Height,      PatientField::Weight,
    PatientField::Address,     PatientField::PostCode,    PatientField::Telephone,
    PatientField::EMail,       PatientField::IdNumber,    PatientField::MedCard,
    PatientField::CustomItem1, PatientField::CustomItem2, PatientField::CustomItem3,
    PatientField::CustomItem4};

constexpr Twin no{"无", "No"};
constexpr Twin yes{"有", "Yes"};

QVBoxLayout* AddColumn(QHBoxLayout& row, int width)
{
    auto* column = new QVBoxLayout;
    column->setSpacing(style::GridStep);
    column->addStrut(width);
    row.addLayout(column);
    return column;
}

}  // namespace

PatientPanel::PatientPanel(const SysInfo& settings, QWidget* parent) : QWidget(parent), chinese_(IsChinese(settings))
{
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(2 * style::GridStep);
    QVBoxLayout& left = *AddColumn(*row, fieldsWidth);
    QGridLayout* grid = AddGroup(left, Twin{"患者资料", "Patient"}.In(chinese_), fieldTitleWidth);
    for (std::size_t i = 0; i < fields.size(); ++i)
        AddLine(*grid, static_cast<int>(i),
                fields[i] ? ToQt(CaptionOf(*fields[i], settings)) : SexCaption.In(chinese_));
    left.addStretch();

    QVBoxLayout& flags = *AddColumn(*row, flagsWidth);
    for (std::size_t i = 0; i < labels::PatientFlags.size(); ++i) {
        if (i == 0)
            grid = AddGroup(flags, labels::RiskFactors.In(chinese_), flagTitleWidth);
        if (i == labels::RiskFactorCount)
            grid = AddGroup(flags, labels::SymptomTypes.In(chinese_), flagTitleWidth);
        AddLine(*grid, firstFlag + static_cast<int>(i), labels::PatientFlags[i].In(chinese_));
    }
    flags.addStretch();
}

QGridLayout* PatientPanel::AddGroup(QVBoxLayout& column, const QString& heading, int titleWidth)
{
    auto* label = new QLabel(heading, this);
    style::SetTextSize(*label, style::TextPixels, true);
    column.addWidget(label);
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(style::GridStep);
    grid->setVerticalSpacing(lineGap);
    grid->setColumnMinimumWidth(0, titleWidth);
    grid->setColumnStretch(1, 1);
    column.addLayout(grid);
    return grid;
}

void PatientPanel::AddLine(QGridLayout& grid, int index, const QString& title)
{
    auto* label = Named(new QLabel(title, this), "PatTitle", index);
    label->setStyleSheet("color: #545c3e;");
    Label3_[index] = Named(new ElidingLabel(this), "Label3", index);
    const int line = grid.rowCount();
    grid.addWidget(label, line, 0);
    grid.addWidget(Label3_[index], line, 1);
}

void PatientPanel::ShowPatientDetails(const PatientRecord& patient, int year)
{
    const PatientDetails details = DetailsOf(patient, year, chinese_);
    for (std::size_t i = 0; i < details.Texts.size(); ++i)
        Label3_.at(static_cast<int>(i))->ShowText(ToQt(details.Texts[i]));
    for (std::size_t i = 0; i < details.Flags.size(); ++i)
        Label3_.at(firstFlag + static_cast<int>(i))->ShowText((details.Flags[i] ? yes : no).In(chinese_));
}

void PatientPanel::Clear()
{
    for (const auto& [index, label] : Label3_)
        label->ShowText({});
}

}  // namespace ecg
