#include "patients/windows/frmPatInput.h"

#include "patients/windows/PatInputFields.h"
#include "patients/windows/PatInputItems.h"
#include "platform/qt/ButtonRow.h"
#include "platform/qt/Controls.h"
#include "platform/qt/Style.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

namespace ecg {
namespace {

constexpr Twin title{"确定患者资料和检查项目", "Patient Information and Record"};
constexpr Twin patientAlone{"患者资料输入", "Input Patient Information"};
constexpr Twin patientFirst{"第一步：确定患者的资料", "Step 1:Patient Information"};

constexpr Twin numberMissing{"病历号不允许为空", "Medical No. Must be Filled"};
constexpr Twin numberUsed{"相同病历号的患者已经存在，请修改病历号使得它是唯一的！",
                          "This Medical No. Exist,Please Modify It！"};
constexpr Twin diskRefused{
    "操作没有完成：无法读写患者资料。请检查磁盘空间和数据文件夹的权限，然后再次确定。",
    "The work is not finished: the patient's data cannot be read or written. Check the disk space "
    "and the permissions of the data folder, then press OK again."};

constexpr Twin storeTitle{"存储患者记录", "Save Patient Record"};
constexpr Twin moveTitle{"转移患者记录", "Move Patient Record"};
constexpr Twin cancelTitle{"确认忽略本次更改", "Conform Cancel Modify"};
constexpr Twin cancelQuestion{"忽略输入的患者资料吗？", "Cancel Patient Information?"};

EntryMode ModeOf(const SharedState& state)
{
    switch (state.PatInputMode) {
    case static_cast<int>(EntryMode::Modify):
        return EntryMode::Modify;
    case static_cast<int>(EntryMode::Examine):
        return EntryMode::Examine;
    default:
        return EntryMode::Add;
    }
}

}  // namespace

frmPatInput::frmPatInput(SharedState& state, AboutPat& patients, MessageBox& messages, QWidget* parent)
    : QDialog(parent), state_(state), messages_(messages), entry_(patients, ModeOf(state))
{
    const bool examines = ModeOf(state_) == EntryMode::Examine;
    const auto tell = [this](const Twin& text) { Tell(text); };
    setObjectName("frmPatInput");
    setWindowTitle(title.In(state_.SysInfo));
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(style::Margins);
    column->setSpacing(2 * style::GridStep);
    auto* steps = new QHBoxLayout;
    steps->setSpacing(2 * style::GridStep);
    Frame4_ = Named(new PatInputFields(entry_, state_.SysInfo, ModeOf(state_), tell, this), "Frame4");
    Frame4_->setTitle((examines ? patientFirst : patientAlone).In(state_.SysInfo));
    Frame3_ = Named(new PatInputItems(entry_.Items, state_.SysInfo, tell, this), "Frame3");
    Frame3_->setVisible(examines);
    steps->addWidget(Frame4_, 1);
    steps->addWidget(Frame3_);
    column->addLayout(steps, 1);
    column->addLayout(ButtonRow());
    Frame4_->PointAt(PatientField::Number);
}

QBoxLayout* frmPatInput::ButtonRow()
{
    auto* row =
        MakeButtonRow(this, "Command1",
                      {Twin{"取消", "Cancel"}.In(state_.SysInfo), Twin{"确定", "OK"}.In(state_.SysInfo)}, Command1_);
    // A click on Cancel does not leave the field being typed into: its value is thrown away, not judged.
    Command1_[0]->setFocusPolicy(Qt::TabFocus);
    Command1_[1]->setDefault(true);
    connect(Command1_[0], &QPushButton::clicked, this, [this] { reject(); });
    connect(Command1_[1], &QPushButton::clicked, this, [this] { Confirm(); });
    return row;
}

void frmPatInput::Tell(const Twin& text)
{
    messages_.Tell(text.In(state_.SysInfo), windowTitle().toStdString());
}

void frmPatInput::Confirm()
{
    entry_.Department = Frame4_->Department();
    const PatientEntry::Answer answer = entry_.Accept();
    Frame4_->ShowEntry();
    Take(answer);
}

void frmPatInput::Take(PatientEntry::Answer answer)
{
    using Answer = PatientEntry::Answer;
    switch (answer) {
    case Answer::Done:
        accept();
        return;
    case Answer::NumberMissing:
    case Answer::NumberUsed:
        Tell(answer == Answer::NumberMissing ? numberMissing : numberUsed);
        Frame4_->PointAt(PatientField::Number);
        return;
    case Answer::AgeOutOfRange:
        Frame4_->RefuseValue(PatientField::Age);
        return;
    case Answer::HeightOutOfRange:
        Frame4_->RefuseValue(PatientField::Height);
        return;
    case Answer::WeightOutOfRange:
        Frame4_->RefuseValue(PatientField::Weight);
        return;
    case Answer::AskStore:
        if (AgreesToStore())
            Take(entry_.Confirm());
        return;
    case Answer::AskMove:
        if (AgreesToMove())
            Take(entry_.Confirm());
        return;
    case Answer::DiskRefused:
        Tell(diskRefused);
        return;
    }
}

bool frmPatInput::AgreesToStore()
{
    const std::string& name = entry_.Draft()[PatientField::Name];
    const std::string question =
        Twin{"是否把当前的数据存储到 [", "Do you want save the record to ["}.In(state_.SysInfo) + name +
        Twin{"] 的帐户下？", "] ?"}.In(state_.SysInfo);
    return messages_.Show(question, storeTitle.In(state_.SysInfo), MessageButtons::OkCancel);
}

bool frmPatInput::AgreesToMove()
{
    const std::string from = entry_.OldNumber();
    const std::string to = entry_.NewNumber();
    const std::string question = state_.Chinese()
                                     ? "\n您是否打算把病历号为“" + from + "”患者的所有历史记录\n\n放入病历号为“" + to +
                                           "”的患者名下，并删除" + from + "患者？\n"
                                     : "\nDo you want put all of " + from + "'s records\n\nto the patient who has " +
                                           to + ",and delete " + from + " patient?\n";
    return messages_.Show(question, moveTitle.In(state_.SysInfo), MessageButtons::OkCancel);
}

void frmPatInput::reject()
{
    if (!entry_.Dirty() ||
        messages_.Show(cancelQuestion.In(state_.SysInfo), cancelTitle.In(state_.SysInfo), MessageButtons::OkCancel))
        QDialog::reject();
}

}  // namespace ecg
