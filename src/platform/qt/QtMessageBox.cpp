#include "platform/qt/QtMessageBox.h"

#include "platform/qt/Controls.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>

#include <utility>

namespace ecg {
QtMessageBox::QtMessageBox(std::function<bool()> chinese) : chinese_(std::move(chinese)) {}

bool QtMessageBox::Show(std::string_view text, std::string_view title, MessageButtons buttons)
{
    const bool chinese = chinese_();
    const bool asks = buttons != MessageButtons::Ok;
    const bool yesNo = buttons == MessageButtons::YesNo;
    QMessageBox box(asks ? QMessageBox::Question : QMessageBox::Information,
                    title.empty() ? QApplication::applicationDisplayName() : ToQt(title), ToQt(text),
                    QMessageBox::NoButton, QApplication::activeWindow());
    box.setObjectName("MessageBox");
    QPushButton* accept =
        box.addButton(yesNo ? (chinese ? QString("是") : QString("Yes")) : (chinese ? QString("确定") : QString("OK")),
                      QMessageBox::AcceptRole);
    accept->setObjectName("Accept");
    box.setDefaultButton(accept);
    box.setEscapeButton(accept);
    if (asks) {
        QPushButton* reject = box.addButton(yesNo ? (chinese ? QString("否") : QString("No"))
                                                  : (chinese ? QString("取消") : QString("Cancel")),
                                            QMessageBox::RejectRole);
        reject->setObjectName("Reject");
        box.setDefaultButton(reject);
        box.setEscapeButton(reject);
    }
    box.exec();
    return box.clickedButton() == accept;
}

} // namespace ecg
