#include "platform/qt/QtMessageBox.h"

#include "platform/qt/Controls.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>

#include <utility>

namespace ecg {
namespace {

struct Words {
    const char* Accept;
    const char* Reject;
};

Words WordsOf(MessageButtons buttons, bool chinese)
{
    if (buttons == MessageButtons::YesNo)
        return chinese ? Words{"是", "否"} : Words{"Yes", "No"};
    if (buttons == MessageButtons::OkIgnore && chinese)
        return {"确认", "忽略"};
    return chinese ? Words{"确定", "取消"} : Words{"OK", "Cancel"};
}

}  // namespace

QtMessageBox::QtMessageBox(std::function<bool()> chinese) : chinese_(std::move(chinese)) {}

bool QtMessageBox::Show(std::string_view text, std::string_view title, MessageButtons buttons)
{
    const Words words = WordsOf(buttons, chinese_());
    QMessageBox box(QMessageBox::NoIcon, ToQt(title), ToQt(text), QMessageBox::NoButton, QApplication::activeWindow());
    box.setObjectName("MessageBox");
    box.setTextFormat(Qt::PlainText);  // names of patients are in it
    QPushButton* accept = box.addButton(words.Accept, QMessageBox::AcceptRole);
    accept->setObjectName("Accept");
    // Enter and Escape take the button that changes nothing.
    QPushButton* safe = accept;
    if (buttons != MessageButtons::Ok) {
        safe = box.addButton(words.Reject, QMessageBox::RejectRole);
        safe->setObjectName("Reject");
    }
    box.setDefaultButton(safe);
    box.setEscapeButton(safe);
    box.exec();
    return box.clickedButton() == accept;
}

}  // namespace ecg
