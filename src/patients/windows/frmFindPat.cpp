#include "patients/windows/frmFindPat.h"

#include "core/Labels.h"
#include "core/windows/FixedTextEdit.h"
#include "platform/qt/ButtonRow.h"
#include "platform/qt/Controls.h"
#include "platform/qt/Style.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace ecg {
namespace {

constexpr std::size_t sexBox = 2;
constexpr std::size_t firstRangeBox = 3;  // age, then height and weight
constexpr std::size_t firstFlagBox = 6;
constexpr std::size_t firstSymptomBox = 12;
constexpr std::size_t endBox = 16;

constexpr std::size_t firstBound = 2;  // in `Text1`
constexpr int longestBound = 12;       // characters
constexpr int boundWidth = 64;         // pixels

const QColor checkedColour(255, 0, 0);
const QColor clearColour(0, 0, 0);

constexpr std::array<Twin, 16> captions{{{"病历号", "No of CF"},
                                         {"患者姓名", "Name"},
                                         {"患者性别", "Sex"},
                                         {"患者年龄", "Age"},
                                         {"患者身高", "Body Height"},
                                         {"患者体重", "Body Weight"},
                                         {"高血压", "HBP"},
                                         {"高血脂", "Hyperlipemia"},
                                         {"先天性心脏病", "congenital heart disease"},
                                         {"糖尿病", "Diabetes"},
                                         {"家族病史", "Home disease"},
                                         {"吸烟", "Smoking"},
                                         {"典型心绞痛", "Classical angina"},
                                         {"非典型心绞痛", "Nonclassical angina"},
                                         {"无心绞痛", "Anginaless"},
                                         {"无症状", "Symptomless"}}};

constexpr std::array<Twin, 3> units{{{"岁", "years"}, {"厘米", "cm"}, {"千克", "kg"}}};
constexpr std::array<Twin, 2> answers{{{"是", "Yes"}, {"否", "No"}}};

// Two rules, and a notice in two lines.
constexpr std::size_t firstNotice = 2;
constexpr std::array<Twin, 4> rules{
    {{"1、选中方框的项目参与检索", "1、The selected item join index"},
     {"2、所有选中项目均满足的患者被列表", "2、The patient matching selected items be listed"},
     {"不选中任何项目时，数据库", "No item be selected, All"},
     {"中所有的患者被列表", "Patient be listed"}}};

std::size_t FirstBoundOf(std::size_t box)
{
    return firstBound + 2 * (box - firstRangeBox);
}

// The sex is asked first, then the flags.
std::size_t PairOf(std::size_t box)
{
    return box == sexBox ? 0 : box - firstFlagBox + 1;
}

}  // namespace

frmFindPat::frmFindPat(const SharedState& state, SearchConditions& conditions, QWidget* parent)
    : QDialog(parent), state_(state), conditions_(conditions)
{
    setObjectName("frmFindPat");
    setWindowTitle(Twin{"患者检索条件输入", "Input of Patient Index"}.In(state_.SysInfo));
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(style::Margins);
    grid->setSpacing(2 * style::GridStep);
    grid->addWidget(PatientGroup(), 0, 0);
    grid->addLayout(RuleLines(), 1, 0);
    grid->addWidget(FlagGroup({"危险因子", "Warn Factor"}, firstFlagBox, firstSymptomBox), 0, 1);
    grid->addWidget(FlagGroup({"症状类型", "Symptom Type"}, firstSymptomBox, endBox), 1, 1);
    grid->addLayout(ButtonRow(), 2, 0, 1, 2);
    ShowForm(FormOf(conditions_));
    Check1_[0]->setFocus();
}

QGroupBox* frmFindPat::PatientGroup()
{
    auto* group = new QGroupBox(Twin{"患者资料", "Patient Information"}.In(state_.SysInfo), this);
    auto* grid = style::GridIn(*group);
    AddPattern(*grid, 0, new FixedTextEdit(conditions_.No.Bytes().size(), group));
    AddPattern(*grid, 1, new FixedTextEdit(conditions_.Name.Bytes().size(), group));
    AddPair(*grid, sexBox, sexBox);
    for (std::size_t box = firstRangeBox; box < firstFlagBox; ++box)
        AddBounds(*grid, box);
    return group;
}

QGroupBox* frmFindPat::FlagGroup(const Twin& title, std::size_t firstBox, std::size_t end)
{
    auto* group = new QGroupBox(title.In(state_.SysInfo), this);
    auto* grid = style::GridIn(*group);
    grid->setColumnStretch(0, 1);
    for (std::size_t box = firstBox; box < end; ++box)
        AddPair(*grid, static_cast<int>(box - firstBox), box);
    return group;
}

// A checked caption is bold as well as red; its column leaves room for that.
void frmFindPat::AddBox(QGridLayout& grid, int row, std::size_t box)
{
    Check1_[box] = Named(new QCheckBox(captions[box].In(state_.SysInfo), this), "Check1", box);
    style::SetTextSize(*Check1_[box], style::TextPixels, true);
    Check1_[box]->setMinimumWidth(Check1_[box]->sizeHint().width());
    connect(Check1_[box], &QCheckBox::toggled, this, [this, box] { ShowChecked(box); });
    grid.addWidget(Check1_[box], row, 0);
}

void frmFindPat::AddPattern(QGridLayout& grid, std::size_t box, QLineEdit* text)
{
    const int row = static_cast<int>(box);
    AddBox(grid, row, box);
    Text1_[box] = Named(text, "Text1", box);
    text->setAccessibleName(captions[box].In(state_.SysInfo));
    grid.addWidget(text, row, 1, 1, 4);
}

void frmFindPat::AddBounds(QGridLayout& grid, std::size_t box)
{
    const int row = static_cast<int>(box);
    AddBox(grid, row, box);
    for (std::size_t i = 0; i < 2; ++i) {
        const std::size_t text = FirstBoundOf(box) + i;
        Text1_[text] = Named(new QLineEdit(this), "Text1", text);
        Text1_[text]->setAccessibleName(captions[box].In(state_.SysInfo));
        Text1_[text]->setMaxLength(longestBound);
        Text1_[text]->setFixedWidth(boundWidth);
        grid.addWidget(Text1_[text], row, i == 0 ? 1 : 3);
    }
    grid.addWidget(new QLabel("–", this), row, 2);
    grid.addWidget(new QLabel(units[box - firstRangeBox].In(state_.SysInfo), this), row, 4);
}

void frmFindPat::AddPair(QGridLayout& grid, int row, std::size_t box)
{
    AddBox(grid, row, box);
    const std::size_t pair = PairOf(box);
    const std::string name = "Option" + std::to_string(pair + 1);
    const auto& words = box == sexBox ? labels::Sexes : answers;
    auto* exclusive = new QButtonGroup(this);
    for (std::size_t i = 0; i < 2; ++i) {
        options_[pair][i] = Named(new QRadioButton(words[i].In(state_.SysInfo), this), name.c_str(), i);
        options_[pair][i]->setAccessibleName(Check1_[box]->text() + ' ' + options_[pair][i]->text());
        exclusive->addButton(options_[pair][i]);
        grid.addWidget(options_[pair][i], row, i == 0 ? 1 : 3);
    }
}

QVBoxLayout* frmFindPat::RuleLines()
{
    auto* column = new QVBoxLayout;
    column->setSpacing(style::GridStep / 2);
    column->addStretch();
    for (std::size_t i = 0; i < rules.size(); ++i) {
        column->addWidget(Named(new QLabel(rules[i].In(state_.SysInfo), this), "Label3", i));
        if (i + 1 == firstNotice)
            column->addSpacing(style::GridStep);
    }
    column->addStretch();
    return column;
}

QHBoxLayout* frmFindPat::ButtonRow()
{
    auto* row = MakeButtonRow(this, "Command1",
                              {Twin{"全部清除", "Clean All"}.In(state_.SysInfo), Twin{"确定", "OK"}.In(state_.SysInfo)},
                              Command1_);
    Command1_[1]->setDefault(true);
    connect(Command1_[0], &QPushButton::clicked, this, [this] { Clean(); });
    connect(Command1_[1], &QPushButton::clicked, this, [this] {
        TakeForm(conditions_, Form());
        accept();
    });
    return row;
}

std::array<QWidget*, 2> frmFindPat::InputsOf(std::size_t box) const
{
    if (box < sexBox)
        return {Text1_[box], nullptr};
    if (box != sexBox && box < firstFlagBox)
        return {Text1_[FirstBoundOf(box)], Text1_[FirstBoundOf(box) + 1]};
    return {options_[PairOf(box)][0], options_[PairOf(box)][1]};
}

void frmFindPat::ShowChecked(std::size_t box)
{
    const bool checked = Check1_[box]->isChecked();
    QPalette colours = Check1_[box]->palette();
    colours.setColor(QPalette::WindowText, checked ? checkedColour : clearColour);
    Check1_[box]->setPalette(colours);
    style::SetTextSize(*Check1_[box], style::TextPixels, checked);
    for (QWidget* input : InputsOf(box))
        if (input != nullptr)
            input->setEnabled(checked);
}

void frmFindPat::ShowForm(const SearchForm& form)
{
    for (std::size_t i = 0; i < Text1_.size(); ++i)
        Text1_[i]->setText(ToQt(form.Texts[i]));
    options_[0][form.Male ? 0 : 1]->setChecked(true);
    for (std::size_t i = 0; i < form.FlagYes.size(); ++i)
        options_[i + 1][form.FlagYes[i] ? 0 : 1]->setChecked(true);
    for (std::size_t box = 0; box < Check1_.size(); ++box) {
        Check1_[box]->setChecked(form.Checked[box]);
        ShowChecked(box);
    }
}

SearchForm frmFindPat::Form() const
{
    SearchForm form;
    for (std::size_t box = 0; box < Check1_.size(); ++box)
        form.Checked[box] = Check1_[box]->isChecked();
    for (std::size_t i = 0; i < Text1_.size(); ++i)
        form.Texts[i] = Text1_[i]->text().toStdString();
    form.Male = options_[0][0]->isChecked();
    for (std::size_t i = 0; i < form.FlagYes.size(); ++i)
        form.FlagYes[i] = options_[i + 1][0]->isChecked();
    return form;
}

void frmFindPat::Clean()
{
    for (QCheckBox* box : Check1_)
        box->setChecked(false);
    for (QLineEdit* text : Text1_)
        text->clear();
}

}  // namespace ecg
