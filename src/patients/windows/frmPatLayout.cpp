// How the database window is laid out. What its controls do stands in frmPat.cpp.
#include "patients/windows/HeadedGrid.h"
#include "patients/windows/PatientPanel.h"
#include "patients/windows/frmPat.h"
#include "platform/qt/Controls.h"
#include "platform/qt/PictureKey.h"
#include "platform/qt/Style.h"

#include <QAction>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QToolButton>
#include <QVBoxLayout>

namespace ecg {
namespace {

constexpr int designWidth = 1024;  // pixels
constexpr int designHeight = 720;  // pixels
constexpr int keySize = 48;        // pixels
constexpr int iconSize = 24;       // pixels

constexpr std::array<GridColumn, 7> patientColumns{{{{"病历号", "Med No."}, {"病历号", "Medical Number"}, 84},
                                                    {{"姓名", "Name"}, {"患者姓名", "Patient Name"}, 104},
                                                    {{"性别", "Sex"}, {"患者性别", "Patient Sex"}, 60},
                                                    {{"年龄", "Age"}, {"患者年龄", "Patient Age"}, 56},
                                                    {{"身高", "Hei"}, {"患者身高", "Patient Height"}, 56},
                                                    {{"体重", "Wei"}, {"患者体重", "Patient Weight"}, 56},
                                                    {{"记录", "Rec"}, {"记录次数", "Reccord Times"}, 56}}};

constexpr std::array<GridColumn, 8> recordColumns{{{{"心电图号", "ECG No."}, {"心电图编号", "ECG Number"}, 148},
                                                   {{"时间", "Time"}, {"记录时间", "Record Time"}, 148},
                                                   {{"时长", "Period"}, {"记录时间长度", "Record Time Lenght"}, 76},
                                                   {{"类型", "Type"}, {"记录类型", "Record Type"}, 56},
                                                   {{"事件", "Eve"}, {"事件次数", "Event Times"}, 56},
                                                   {{"送检单位", "Class"}, {"送检单位名称", "Class Name"}, 120},
                                                   {{"床位", "Bed"}, {"床位号", "Bed Number"}, 80},
                                                   {{"诊断", "Diagnosis"}, {"医生诊断", "Doctor Diagnosis"}, 260}}};

struct Command {
    Twin Caption;
    const char* Picture;
};

constexpr std::array<Command, 6> commands{{{{"增加患者资料", "Add a patient information"}, "patient-add"},
                                           {{"修改患者资料", "Modify a patient information"}, "patient-modify"},
                                           {{"删除患者资料", "Delete a patient information"}, "patient-delete"},
                                           {{"检索患者", "Search a patient"}, "patient-search"},
                                           {{"删除检查记录", "Delete a Record"}, "record-delete"},
                                           {{"分析记录和打印报告", "Analysis and print the report"}, "record-open"}}};
constexpr std::size_t patientCommands = 4;  // the first of them

constexpr Twin changeClass{"修改送检单位和床位号", "Change the class and bed"};

constexpr std::array<Twin, 2> managing{{{"当前状态：数据库管理窗口", "Current State：Database Manage Window"},
                                        {"您可以 ①进行有关患者资料的操作 ②浏览和删除过去的检查记录。",
                                         "You can 1.Modify Patient Information 2.Load or Delete Record"}}};
constexpr std::array<Twin, 2> picking{
    {{"当前状态：选择用于对照的检查记录", "Current State：Select Record for Reference"},
     {"方法：①选择需要的患者和检查记录 ②按窗口右上【×】键返回。", "Step:1.Select Patient and Record 2.Press [×]Key"}}};

constexpr std::array<Twin, 3> keyTips{{{"退出本窗口", "Exit"},
                                       {"获取本窗口的帮助信息", "Help of Current Window"},
                                       {"打开知识库窗口", "Open Knowology Window"}}};

// For those who hear the window.
constexpr Twin patientsName{"患者资料", "Patient Information"};
constexpr Twin recordsName{"检查记录", "Record"};

constexpr Twin nobody{"没有患者资料，请按鼠标右键增加。",
                      "There are no patients. Add one with the right mouse button."};

}  // namespace

void frmPat::LayOut()
{
    resize(designWidth, designHeight);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(2 * style::GridStep, style::GridStep, 2 * style::GridStep, 2 * style::GridStep);
    column->setSpacing(style::GridStep);
    column->addWidget(MakeStrip());
    column->addWidget(MakeCommands());
    column->addWidget(MakePatients(), 2);
    RecTab_ = new HeadedGrid("RecTab", "Command2", recordColumns, state_.Chinese(), records_, this);
    RecTab_->SetHeadersVisible(!browser_.Picking());
    RecTab_->View().setAccessibleName(recordsName.In(state_.SysInfo));
    column->addWidget(RecTab_, 1);
    SetTabOrder();
}

QWidget* frmPat::MakeStrip()
{
    auto* strip = Named(new QWidget(this), "Picture1");
    auto* row = new QHBoxLayout(strip);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(style::GridStep);
    auto* lines = new QVBoxLayout;
    lines->setSpacing(style::GridStep / 2);
    for (std::size_t i = 0; i < managing.size(); ++i) {
        auto* line = new QLabel((browser_.Picking() ? picking : managing)[i].In(state_.SysInfo), strip);
        style::SetTextSize(*line, i == 0 ? style::HeadingPixels : style::TextPixels, i == 0);
        lines->addWidget(line);
    }
    row->addLayout(lines, 1);
    AddKeys(*row);
    return strip;
}

void frmPat::AddKeys(QHBoxLayout& row)
{
    constexpr std::array<const char*, 3> released{"101", "103", "105"};
    constexpr std::array<const char*, 3> pressed{"102", "104", "106"};
    const std::array<std::function<void()>, 3> actions{[this] { close(); },
                                                       [this] { OpenHelp(WindowName::frmZSK, 255); },
                                                       [this] { OpenHelp(WindowName::frmResult, 254); }};
    for (std::size_t i = 0; i < released.size(); ++i) {
        const QString name = released[i];
        auto* picture = new PictureKey(pictures_, {name, pressed[i], name + "h", name + "d"}, this);
        Named(picture, "KeyPic", i)->setFixedSize(keySize, keySize);
        picture->setToolTip(keyTips[i].In(state_.SysInfo));
        picture->setAccessibleName(picture->toolTip());
        picture->ActOnRelease(actions[i]);
        row.addWidget(picture);
    }
}

// A button shows its frame only under the mouse or with the keyboard on it.
QWidget* frmPat::MakeCommands()
{
    auto* box = Named(new QWidget(this), "Picture3");
    auto* row = new QHBoxLayout(box);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(style::GridStep / 2);
    for (std::size_t i = 0; i < commands.size(); ++i) {
        FunKey_[i] = Named(new QToolButton(box), "FunKey", i);
        FunKey_[i]->setAutoRaise(true);
        FunKey_[i]->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
        FunKey_[i]->setFocusPolicy(Qt::StrongFocus);
        FunKey_[i]->setIcon(pictures_.Icon(commands[i].Picture, iconSize));
        FunKey_[i]->setIconSize({iconSize, iconSize});
        FunKey_[i]->setText(commands[i].Caption.In(state_.SysInfo));
        style::SetTextSize(*FunKey_[i], style::SmallPixels);
        if (i == patientCommands)
            row->addStretch();
        row->addWidget(FunKey_[i]);
    }
    box->setVisible(!browser_.Picking());
    return box;
}

QWidget* frmPat::MakePatients()
{
    auto* box = Named(new QWidget(this), "Picture2");
    auto* row = new QHBoxLayout(box);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(2 * style::GridStep);
    auto* column = new QVBoxLayout;
    column->setSpacing(style::GridStep / 2);
    PatientTab_ = new HeadedGrid("PatientTab", "Command1", patientColumns, state_.Chinese(), patients_, box);
    PatientTab_->View().setAccessibleName(patientsName.In(state_.SysInfo));
    PatientTab_->SetEmptyText(nobody.In(state_.SysInfo));
    column->addWidget(PatientTab_, 1);
    Label1_ = Named(new QLabel(box), "Label1", 1);
    Label1_->setTextFormat(Qt::PlainText);
    column->addWidget(Label1_);
    row->addLayout(column, 1);
    details_ = new PatientPanel(state_.SysInfo, box);
    row->addWidget(details_);
    return box;
}

void frmPat::MakeMenus()
{
    const bool chinese = state_.Chinese();
    for (std::size_t i = 0; i < Menu1_.size(); ++i)
        Menu1_[i] = Named(PatMenu_->addAction(commands[i].Caption.In(chinese)), "Menu1", i);
    for (std::size_t i = 0; i < 2; ++i)
        Menu2_[i] = Named(RecMenu_->addAction(commands[patientCommands + i].Caption.In(chinese)), "Menu2", i);
    Menu2_[2] = Named(RecMenu_->addAction(changeClass.In(chinese)), "Menu2", 2);
    for (std::size_t i = 0; i < FunKey_.size(); ++i) {
        QAction* same = i < patientCommands ? Menu1_[i] : Menu2_[i - patientCommands];
        connect(FunKey_[i], &QToolButton::clicked, same, [same] { same->trigger(); });
    }
}

void frmPat::SetTabOrder()
{
    setTabOrder(&PatientTab_->View(), &RecTab_->View());
    QWidget* before = &RecTab_->View();
    for (QToolButton* button : FunKey_) {
        setTabOrder(before, button);
        before = button;
    }
}

}  // namespace ecg
