#include "core/windows/frmSelectName.h"

#include "core/windows/FixedTextEdit.h"
#include "platform/qt/Controls.h"
#include "platform/qt/Style.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>

namespace ecg {
namespace {

// This window opens before the language of the run is set: only a stored 2 makes it English.
constexpr Byte englishLanguage = 2;

constexpr int nameWidth = 280;  // pixels

constexpr Twin nobodySelected{"必须选择检查医生姓名才可以进入系统",
                              "A doctor's name must be selected to enter the system"};
constexpr Twin namesNotStored{"医生姓名没有保存：无法写入 Sysinfo.par。本次运行仍使用所选姓名，下次启动需要重新输入。",
                              "The doctor names were not stored: Sysinfo.par cannot be written. The selected name "
                              "holds for this run and has to be typed again at the next start."};

}  // namespace

frmSelectName::frmSelectName(SharedState& state, MessageBox& messages, QWidget* parent)
    : QDialog(parent),
      state_(state),
      messages_(messages),
      chinese_(state.SysInfo.Language != englishLanguage),
      Label1_(Named(new QLabel(this), "Label1"))
{
    setObjectName("frmSelectName");
    style::SetTextSize(*Label1_, style::HeadingPixels, true);
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(3 * style::GridStep, 2 * style::GridStep, 3 * style::GridStep, 3 * style::GridStep);
    grid->setSpacing(style::GridStep);
    grid->addWidget(Label1_, 0, 0, 1, 2);
    grid->setRowMinimumHeight(0, 5 * style::GridStep);
    for (std::size_t i = 0; i < DoctorCount; ++i) {
        Text1_[i] = Named(new FixedTextEdit(DoctorNameBytes, this), "Text1", i);
        Command1_[i] = Named(new QPushButton(this), "Command1", i);
        Text1_[i]->setMinimumWidth(nameWidth);
        Command1_[i]->setAutoDefault(false);
        connect(Command1_[i], &QPushButton::clicked, this, [this, i] { Press(i); });
        grid->addWidget(Text1_[i], static_cast<int>(i) + 1, 0);
        grid->addWidget(Command1_[i], static_cast<int>(i) + 1, 1);
    }
    layout()->setSizeConstraint(QLayout::SetFixedSize);
    SetCaptions();
    ShowNames();
}

void frmSelectName::SetCaptions()
{
    setWindowTitle(Twin{"请选择您的姓名", "Select Your Name"}.In(chinese_));
    Label1_->setText(Twin{"请输入/选择检查医生姓名", "Please Input/Select Doctor Name"}.In(chinese_));
    const QString select = Twin{"选择", "Select"}.In(chinese_);
    for (std::size_t i = 0; i < DoctorCount; ++i) {
        Command1_[i]->setText(select);
        Command1_[i]->setAccessibleName(QString("%1 %2").arg(select).arg(i + 1));
        Text1_[i]->setAccessibleName(QString("%1 %2").arg(Label1_->text()).arg(i + 1));
    }
}

void frmSelectName::ShowNames()
{
    state_.DoctorName.clear();
    const DoctorNames names = StoredDoctorNames(state_.SysInfo);
    for (std::size_t i = 0; i < DoctorCount; ++i)
        Text1_[i]->setText(ToQt(names[i]));
    if (const auto named = FirstNamedDoctor(state_.SysInfo))
        Command1_[*named]->setFocus();
    else
        Text1_[0]->setFocus();
}

void frmSelectName::Press(std::size_t index)
{
    DoctorNames names;
    for (std::size_t i = 0; i < DoctorCount; ++i)
        names[i] = Text1_[i]->text().toStdString();
    const DoctorChoice choice = SelectDoctor(state_, names, index);
    const std::string title = windowTitle().toStdString();
    if (!choice.Stored)
        messages_.Tell(namesNotStored.In(chinese_), title);
    if (!choice.Named)
        messages_.Tell(nobodySelected.In(chinese_), title);
    done(choice.Named ? Accepted : Rejected);
}

// Enter takes the name of the row in which the keyboard is.
void frmSelectName::keyPressEvent(QKeyEvent* event)
{
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) {
        QDialog::keyPressEvent(event);
        return;
    }
    for (std::size_t i = 0; i < DoctorCount; ++i)
        if (focusWidget() == Text1_[i] || focusWidget() == Command1_[i]) {
            Press(i);
            return;
        }
}

}  // namespace ecg
