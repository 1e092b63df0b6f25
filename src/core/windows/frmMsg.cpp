#include "core/windows/frmMsg.h"

#include "platform/qt/Controls.h"
#include "platform/qt/Style.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace ecg {
namespace {

constexpr int leastWidth = 352;     // pixels, of the lines
constexpr int longestLine = 600;    // pixels; a longer line is wrapped
constexpr int buttonWidth = 96;     // pixels
constexpr int longestInput = 1024;  // characters

constexpr std::array<Twin, 3> buttonCaptions{{{"确定", "OK"}, {"放弃", "Renounce"}, {"取消", "Cancel"}}};

// How many buttons show; a text that is not in the list leaves all of them.
std::size_t ButtonCount(const std::string& buttons)
{
    if (buttons == "Yes")
        return 1;
    return buttons == "YesNo" ? 2 : buttonCaptions.size();
}

}  // namespace

frmMsg::frmMsg(SharedState& state, QWidget* parent)
    : QDialog(parent), state_(state), Text1_(Named(new QLineEdit(this), "Text1"))
{
    setObjectName("frmMsg");
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(3 * style::GridStep, 3 * style::GridStep, 3 * style::GridStep, 2 * style::GridStep);
    column->setSpacing(style::GridStep);
    column->addStrut(leastWidth);
    for (std::size_t i = 0; i < Label1_.size(); ++i) {
        Label1_[i] = Named(new QLabel(this), "Label1", i);
        column->addWidget(Label1_[i]);
    }
    column->addWidget(Text1_);
    column->addSpacing(style::GridStep);
    auto* row = new QHBoxLayout;
    row->setSpacing(style::GridStep);
    row->addStretch();
    for (std::size_t i = 0; i < Command1_.size(); ++i) {
        Command1_[i] = Named(new QPushButton(this), "Command1", i);
        Command1_[i]->setMinimumWidth(buttonWidth);
        connect(Command1_[i], &QPushButton::clicked, this, [this, i] { Press(i); });
        row->addWidget(Command1_[i]);
    }
    column->addLayout(row);
    SetCaptions();
    ShowButtons();
}

void frmMsg::SetCaptions()
{
    setWindowTitle(ToQt(state_.MsgTitle));
    for (std::size_t i = 0; i < Label1_.size(); ++i) {
        Label1_[i]->setTextFormat(Qt::PlainText);
        Label1_[i]->setText(ToQt(state_.MsgLines[i]));
        Label1_[i]->setVisible(!state_.MsgLines[i].empty());
        if (Label1_[i]->sizeHint().width() > longestLine) {
            Label1_[i]->setWordWrap(true);
            Label1_[i]->setMinimumWidth(longestLine);
        }
    }
    Text1_->setMaxLength(longestInput);
    Text1_->setText(ToQt(state_.MsgDefaultText));
    Text1_->setAccessibleName(ToQt(state_.MsgLines[0]));
    Text1_->setVisible(state_.MsgShowText);
}

void frmMsg::ShowButtons()
{
    const std::size_t count = ButtonCount(state_.MsgButtons);
    for (std::size_t i = 0; i < Command1_.size(); ++i) {
        Command1_[i]->setText(buttonCaptions[i].In(state_.SysInfo));
        Command1_[i]->setVisible(i < count);
    }
    Command1_[0]->setDefault(true);
    if (state_.MsgShowText) {
        Text1_->setFocus();
        Text1_->selectAll();
    } else {
        Command1_[0]->setFocus();
    }
}

void frmMsg::Press(std::size_t index)
{
    state_.MsgResult = static_cast<Byte>(index);
    state_.MsgInputText = Text1_->text().toStdString();
    done(Accepted);
}

void frmMsg::reject()
{
    Press(ButtonCount(state_.MsgButtons) - 1);
}

}  // namespace ecg
