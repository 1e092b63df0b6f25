#include "patients/windows/PatInputFields.h"

#include "core/Labels.h"
#include "core/formats/RecordHeader.h"
#include "core/windows/FixedTextEdit.h"
#include "patients/PatientLabels.h"
#include "platform/qt/Controls.h"
#include "platform/qt/Style.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFocusEvent>
#include <QFormLayout>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>

namespace ecg {
namespace {

constexpr std::size_t digitsOfAValue = 6;  // age, height, weight: more than any of them needs
constexpr int valueWidth = 72;             // pixels
constexpr int tabWidth = 448;              // pixels
constexpr std::size_t customItemWidth = sizeof(PatientRecord::CustomItem) / 4;  // bytes

const QColor numberFree(0, 128, 0);
const QColor numberUsed(255, 0, 0);

// Bytes of each field, in the order of `PatientField`.
constexpr std::array<std::size_t, PatientFieldCount> widths{
    sizeof(PatientRecord::Name),
    digitsOfAValue,
    digitsOfAValue,
    digitsOfAValue,
    sizeof(PatientRecord::Address),
    sizeof(PatientRecord::PostCode),
    sizeof(PatientRecord::Telephone),
    sizeof(PatientRecord::EMail),
    sizeof(PatientRecord::IdNumber),
    sizeof(PatientRecord::MedCard),
    sizeof(PatientRecord::No),
    customItemWidth,
    customItemWidth,
    customItemWidth,
    customItemWidth,
    sizeof(RecordHeader::Bed),
};

constexpr std::array<PatientField, 3> valueFields{PatientField::Age, PatientField::Height, PatientField::Weight};
constexpr std::array<Twin, 3> valueRefusals{
    {{"输入的患者【年龄】超出允许范围，请重新输入！", "[Age] out of limit,please re-input!"},
     {"输入的患者【身高】超出允许范围，请重新输入！", "[Height] out of limit,please re-input!"},
     {"输入的患者【体重】超出允许范围，请重新输入！", "[Weight] out of limit,please re-input!"}}};

constexpr std::size_t Index(PatientField field)
{
    return static_cast<std::size_t>(field);
}

constexpr PatientField CustomItem(std::size_t item)
{
    return static_cast<PatientField>(Index(PatientField::CustomItem1) + item);
}

// Windows that come and go take the keyboard too, and the program moves it; neither is leaving a field.
bool IsLeaving(const QEvent& event)
{
    if (event.type() != QEvent::FocusOut)
        return false;
    const Qt::FocusReason reason = static_cast<const QFocusEvent&>(event).reason();
    return reason == Qt::MouseFocusReason || reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason;
}

}  // namespace

PatInputFields::PatInputFields(PatientEntry& entry, const SysInfo& settings, EntryMode mode, PatInputTeller tell,
                               QWidget* parent)
    : QGroupBox(parent),
      entry_(entry),
      settings_(settings),
      tell_(std::move(tell)),
      SSTab1_(Named(new QTabWidget(this), "SSTab1"))
{
    auto* column = new QVBoxLayout(this);
    column->addWidget(SSTab1_);
    SSTab1_->addTab(BasicTab(mode), Twin{"患者基本资料", "Patient Basic Inormation"}.In(settings_));
    SSTab1_->addTab(MoreTab(), Twin{"患者辅助资料", "Patient Aide Inormation"}.In(settings_));
    ShowEntry();
}

QWidget* PatInputFields::BasicTab(EntryMode mode)
{
    auto* tab = new QWidget(SSTab1_);
    tab->setMinimumWidth(tabWidth);
    auto* form = new QFormLayout(tab);
    form->setContentsMargins(style::Margins);
    form->setSpacing(style::GridStep);
    form->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
    AddNumber(form, mode);
    QLabel* optional = NewHint(2, {"可选项目，允许为空，要求先填写病历号", "Select Item,Fill Med No.Before"});
    optional->setContentsMargins(0, 2 * style::GridStep, 0, 0);  // apart from the number, which must be filled
    form->addRow(QString(), optional);
    form->addRow(Caption(PatientField::Name), NewBox(PatientField::Name));
    AddSex(form);
    AddValue(form, PatientField::Age, {"岁   (范围：0 -200)", "years (Range:0 -200)"});
    AddValue(form, PatientField::Height, {"厘米 (范围：40-250)", "cm (Range:40-250)"});
    AddValue(form, PatientField::Weight, {"千克 (范围：5 -250)", "kg (Range:5 -250)"});
    form->addRow(Caption(PatientField::IdNumber), NewBox(PatientField::IdNumber));
    form->addRow(Caption(PatientField::MedCard), NewBox(PatientField::MedCard));
    AddRecordFields(form, mode == EntryMode::Examine);
    return tab;
}

void PatInputFields::AddNumber(QFormLayout* form, EntryMode mode)
{
    auto* row = new QHBoxLayout;
    row->setSpacing(style::GridStep);
    row->addWidget(NewBox(PatientField::Number), 1);
    Command2_ = Named(new QPushButton("Auto", this), "Command2");
    Command2_->setToolTip(Twin{"建议一个未被占用的病历号", "Propose a free number"}.In(settings_));
    Command2_->setAutoDefault(false);  // Enter is OK here too
    Command2_->setVisible(mode != EntryMode::Modify);
    connect(Command2_, &QPushButton::clicked, this, [this] {
        entry_.ProposeNumber();
        ShowEntry();
    });
    row->addWidget(Command2_);
    form->addRow(Caption(PatientField::Number), row);
    Label3_[1] = Named(new QLabel(this), "Label3", 1);
    Label3_[1]->setAutoFillBackground(true);
    Label3_[1]->setMargin(style::GridStep / 2);
    Label3_[1]->setTextFormat(Qt::PlainText);
    style::SetTextSize(*Label3_[1], style::HeadingPixels, true);
    form->addRow(QString(), Label3_[1]);
    form->addRow(QString(),
                 NewHint(0, {"必填项目，同时每个患者拥有独立的病历号", "MUST Fill,Sole Number for Each Patient"}));
}

void PatInputFields::AddSex(QFormLayout* form)
{
    auto* row = new QHBoxLayout;
    row->setSpacing(3 * style::GridStep);
    for (std::size_t i = 0; i < Option1_.size(); ++i) {
        Option1_[i] = Named(new QRadioButton(labels::Sexes[i].In(settings_), this), "Option1", i);
        connect(Option1_[i], &QRadioButton::clicked, this, [this, i] { entry_.SetMale(i == 0); });
        row->addWidget(Option1_[i]);
    }
    row->addStretch();
    form->addRow(SexCaption.In(settings_), row);
}

void PatInputFields::AddValue(QFormLayout* form, PatientField field, const Twin& unit)
{
    auto* row = new QHBoxLayout;
    row->setSpacing(style::GridStep);
    FixedTextEdit* box = NewBox(field);
    box->setFixedWidth(valueWidth);
    box->setAlignment(Qt::AlignRight);
    box->installEventFilter(this);
    row->addWidget(box);
    row->addWidget(new QLabel(unit.In(settings_), this));
    row->addStretch();
    form->addRow(Caption(field), row);
}

void PatInputFields::AddRecordFields(QFormLayout* form, bool shown)
{
    Combo1_ = Named(new QComboBox(this), "Combo1");
    Combo1_->setEditable(true);
    Combo1_->setLineEdit(new FixedTextEdit(sizeof(RecordHeader::Department), Combo1_));
    Combo1_->setCompleter(nullptr);  // what is typed stays as it is typed
    Combo1_->setInsertPolicy(QComboBox::NoInsert);
    for (const auto& name : settings_.ClassName)
        if (!name.IsBlank())
            Combo1_->addItem(ToQt(name.Text()));
    Combo1_->setCurrentIndex(-1);
    const Twin department{"送检单位", "Class"};
    Combo1_->setAccessibleName(department.In(settings_));
    form->addRow(department.In(settings_), Combo1_);
    form->setRowVisible(Combo1_, shown);
    form->addRow(Caption(PatientField::Bed), NewBox(PatientField::Bed));
    form->setRowVisible(Box(PatientField::Bed), shown);
}

QWidget* PatInputFields::MoreTab()
{
    constexpr int columns = 4;  // two fields beside each other
    auto* tab = new QWidget(SSTab1_);
    auto* grid = new QGridLayout(tab);
    grid->setContentsMargins(style::Margins);
    grid->setSpacing(style::GridStep);
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(3, 1);
    grid->addWidget(NewHint(3, {"可选项目，允许为空", "Select Item"}), 0, 0, 1, columns);
    const auto add = [&](PatientField field, int row, int column, int width) {
        auto* caption = new QLabel(Caption(field), tab);
        caption->setTextFormat(Qt::PlainText);
        caption->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        grid->addWidget(caption, row, column);
        grid->addWidget(NewBox(field), row, column + 1, 1, width);
        return caption;
    };
    add(PatientField::Address, 1, 0, columns - 1);
    add(PatientField::PostCode, 2, 0, 1);
    add(PatientField::Telephone, 2, 2, 1);
    add(PatientField::EMail, 3, 0, columns - 1);
    for (std::size_t i = 0; i < def_.size(); ++i) {
        const int place = static_cast<int>(i);
        def_[i] = Named(add(CustomItem(i), 4 + place / 2, 2 * (place % 2), 1), "def", i);
    }
    grid->addWidget(FlagGroup(labels::RiskFactors, 0, labels::RiskFactorCount, 3), 6, 0, 1, columns);
    grid->addWidget(FlagGroup(labels::SymptomTypes, labels::RiskFactorCount, Check1_.size(), 2), 7, 0, 1, columns);
    grid->setRowStretch(8, 1);
    return tab;
}

QGroupBox* PatInputFields::FlagGroup(const Twin& title, std::size_t first, std::size_t end, int flagsInARow)
{
    auto* group = new QGroupBox(title.In(settings_), this);
    auto* grid = new QGridLayout(group);
    grid->setSpacing(style::GridStep);
    for (std::size_t i = first; i < end; ++i) {
        Check1_[i] = Named(new QCheckBox(labels::PatientFlags[i].In(settings_), group), "Check1", i);
        connect(Check1_[i], &QCheckBox::clicked, this, [this, i](bool set) { entry_.SetFlag(i, set); });
        const int place = static_cast<int>(i - first);
        grid->addWidget(Check1_[i], place / flagsInARow, place % flagsInARow);
        grid->setColumnStretch(place % flagsInARow, 1);
    }
    return group;
}

QString PatInputFields::Caption(PatientField field) const
{
    return ToQt(CaptionOf(field, settings_));
}

FixedTextEdit* PatInputFields::NewBox(PatientField field)
{
    const std::size_t index = Index(field);
    auto* box = Named(new FixedTextEdit(widths[index], this), "Text1", index);
    box->setAccessibleName(Caption(field));
    connect(box, &QLineEdit::textEdited, this, [this, field] { Typed(field); });
    Text1_[index] = box;
    return box;
}

QLabel* PatInputFields::NewHint(std::size_t index, const Twin& text)
{
    Label3_[index] = Named(new QLabel(text.In(settings_), this), "Label3", index);
    style::SetTextSize(*Label3_[index], style::SmallPixels);
    return Label3_[index];
}

void PatInputFields::ShowEntry()
{
    const PatientDraft& draft = entry_.Draft();
    for (std::size_t i = 0; i < Text1_.size(); ++i) {
        const QString text = ToQt(draft.Texts[i]);
        if (Text1_[i]->text() == text)
            continue;
        Text1_[i]->setText(text);
        if (!Text1_[i]->hasFocus())
            Text1_[i]->setCursorPosition(0);
    }
    Option1_[draft.Male ? 0 : 1]->setChecked(true);
    for (std::size_t i = 0; i < Check1_.size(); ++i)
        Check1_[i]->setChecked(draft.Flags[i]);
    ShowStatus();
    EnableIdentity(entry_.FieldsEnabled());
}

void PatInputFields::ShowStatus()
{
    QPalette colours = Label3_[1]->palette();
    colours.setColor(QPalette::Window, style::Field);
    switch (entry_.Status()) {
    case NumberStatus::Empty:
        Label3_[1]->setText(Twin{"病历号不允许为空", "Med No. must be filled"}.In(settings_));
        colours.setColor(QPalette::WindowText, style::Alarm);
        break;
    case NumberStatus::Free:
        Label3_[1]->setText(Twin{"该病历号还没被占用", "The Med No. can be used"}.In(settings_));
        colours.setColor(QPalette::WindowText, numberFree);
        break;
    case NumberStatus::Used:
        Label3_[1]->setText(Twin{"被[", "Used by ["}.In(settings_) + ToQt(entry_.UsedBy()) +
                            Twin{"]使用", "]"}.In(settings_));
        colours.setColor(QPalette::WindowText, numberUsed);
        break;
    }
    Label3_[1]->setPalette(colours);
}

void PatInputFields::EnableIdentity(bool enabled)
{
    for (const PatientField field : {PatientField::Name, PatientField::Age, PatientField::Height, PatientField::Weight,
                                     PatientField::IdNumber, PatientField::MedCard})
        Box(field)->setEnabled(enabled);
    for (QRadioButton* option : Option1_)
        option->setEnabled(enabled);
}

void PatInputFields::Typed(PatientField field)
{
    const bool accepted = entry_.Type(field, Box(field)->text().toStdString());
    ShowEntry();
    if (!accepted)
        tell_(PatInputNotANumber);
}

// Leaving waits in the queue, so that the click or key that moved the keyboard is over when a message opens.
bool PatInputFields::eventFilter(QObject* watched, QEvent* event)
{
    for (const PatientField field : valueFields)
        if (watched == Box(field) && IsLeaving(*event))
            QMetaObject::invokeMethod(
                this, [this, field] { Left(field); }, Qt::QueuedConnection);
    return QGroupBox::eventFilter(watched, event);
}

void PatInputFields::Left(PatientField field)
{
    if (!isVisible() || entry_.Leave(field))
        return;
    ShowEntry();
    RefuseValue(field);
}

void PatInputFields::RefuseValue(PatientField field)
{
    for (std::size_t i = 0; i < valueFields.size(); ++i)
        if (valueFields[i] == field)
            tell_(valueRefusals[i]);
    PointAt(field);
}

void PatInputFields::PointAt(PatientField field)
{
    FixedTextEdit* box = Box(field);
    for (int tab = 0; tab < SSTab1_->count(); ++tab)
        if (SSTab1_->widget(tab)->isAncestorOf(box))
            SSTab1_->setCurrentIndex(tab);
    box->setFocus();
    box->selectAll();
}

std::string PatInputFields::Department() const
{
    return Combo1_->currentText().toStdString();
}

}  // namespace ecg
