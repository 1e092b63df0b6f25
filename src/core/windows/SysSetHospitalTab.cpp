#include "core/windows/SysSetHospitalTab.h"

#include "core/Language.h"
#include "core/windows/DepartmentList.h"
#include "core/windows/FixedTextEdit.h"
#include "platform/qt/Controls.h"
#include "platform/qt/Style.h"

#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>

namespace ecg {
namespace {

constexpr int captionWidth = 64;  // pixels: the boxes of both groups stand below each other

template <std::size_t Width>
void ShowField(QLineEdit& box, const FixedText<Width>& field)
{
    box.setText(ToQt(field.Text()));
    box.setCursorPosition(0);
}

template <std::size_t Width>
void CollectField(FixedText<Width>& field, const QLineEdit& box)
{
    SetIfChanged(field, box.text().toStdString());
}

QFormLayout* FormIn(QGroupBox* group)
{
    auto* form = new QFormLayout(group);
    form->setSpacing(style::GridStep);
    form->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
    return form;
}

void AddRow(QFormLayout* form, const QString& caption, QLineEdit* box)
{
    box->setAccessibleName(caption);
    auto* label = new QLabel(caption);
    label->setMinimumWidth(captionWidth);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    form->addRow(label, box);
}

}  // namespace

SysSetHospitalTab::SysSetHospitalTab(SettingsDraft& draft, bool chinese, QWidget* parent)
    : QWidget(parent), draft_(draft), chinese_(chinese)
{
    auto* grid = new QGridLayout(this);
    grid->setSpacing(2 * style::GridStep);
    grid->setContentsMargins(style::Margins);
    grid->addWidget(HospitalGroup(), 0, 0);
    grid->addWidget(ItemGroup(), 1, 0);
    grid->addWidget(DepartmentGroup(), 0, 1, 3, 1);
    grid->setRowStretch(2, 1);
    grid->setColumnStretch(0, 1);
    grid->setColumnStretch(1, 1);
    ShowDraft();
}

QGroupBox* SysSetHospitalTab::HospitalGroup()
{
    constexpr std::array<Twin, 6> captions{
        {{"名称", "Name"}, {"地址", "Address"}, {"电话", "TEL"}, {"传真", "FAX"}, {"网站", "Web"}, {"邮箱", "eMail"}}};
    constexpr std::array<std::size_t, 6> widths{24, 100, 32, 32, 32, 64};  // bytes
    auto* group = new QGroupBox(Twin{"医院资料", "Hospital Information"}.In(chinese_), this);
    auto* form = FormIn(group);
    for (std::size_t i = 0; i < Text1_.size(); ++i) {
        Text1_[i] = Named(new FixedTextEdit(widths[i], group), "Text1", i);
        AddRow(form, captions[i].In(chinese_), Text1_[i]);
    }
    return group;
}

QGroupBox* SysSetHospitalTab::ItemGroup()
{
    constexpr std::array<Twin, 4> captions{
        {{"自定义项1", "Item1"}, {"自定义项2", "Item2"}, {"自定义项3", "Item3"}, {"自定义项4", "Item4"}}};
    constexpr std::size_t width = 12;  // bytes
    auto* group = new QGroupBox(Twin{"患者自定义项名称", "Define-Self Item Name"}.In(chinese_), this);
    auto* form = FormIn(group);
    for (std::size_t i = 0; i < Text2_.size(); ++i) {
        Text2_[i] = Named(new FixedTextEdit(width, group), "Text2", i);
        AddRow(form, captions[i].In(chinese_), Text2_[i]);
    }
    return group;
}

QGroupBox* SysSetHospitalTab::DepartmentGroup()
{
    auto* group = new QGroupBox(Twin{"科室资料", "Class Name"}.In(chinese_), this);
    auto* column = new QVBoxLayout(group);
    column->setSpacing(style::GridStep);
    ClassList_ = Named(new DepartmentList(chinese_, group), "ClassList");
    ClassList_->setAccessibleName(Twin{"科室名称", "Class Name"}.In(chinese_));
    auto* hint = Named(new QLabel(Twin{"选择需要修改的位置，使用鼠标右键菜单修改科室名称。",
                                       "Select a Line , using RightButton for Modify"}
                                      .In(chinese_),
                                  group),
                       "ClassHint");
    hint->setWordWrap(true);
    column->addWidget(ClassList_, 1);
    column->addWidget(hint);
    return group;
}

void SysSetHospitalTab::ShowDraft()
{
    const SysInfo& values = draft_.Values;
    ShowField(*Text1_[0], values.HospitalName);
    ShowField(*Text1_[1], values.HospitalAddress);
    ShowField(*Text1_[2], values.HospitalTel);
    ShowField(*Text1_[3], values.HospitalFax);
    ShowField(*Text1_[4], values.HospitalWeb);
    ShowField(*Text1_[5], values.HospitalMail);
    for (std::size_t i = 0; i < Text2_.size(); ++i)
        ShowField(*Text2_[i], values.CustomItemName[i]);
    ClassList_->ShowNames(values);
}

void SysSetHospitalTab::Collect()
{
    SysInfo& values = draft_.Values;
    CollectField(values.HospitalName, *Text1_[0]);
    CollectField(values.HospitalAddress, *Text1_[1]);
    CollectField(values.HospitalTel, *Text1_[2]);
    CollectField(values.HospitalFax, *Text1_[3]);
    CollectField(values.HospitalWeb, *Text1_[4]);
    CollectField(values.HospitalMail, *Text1_[5]);
    for (std::size_t i = 0; i < Text2_.size(); ++i)
        CollectField(values.CustomItemName[i], *Text2_[i]);
    ClassList_->CollectNames(values);
}

}  // namespace ecg
