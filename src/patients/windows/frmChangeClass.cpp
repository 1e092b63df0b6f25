#include "patients/windows/frmChangeClass.h"

#include "core/windows/FixedTextEdit.h"
#include "platform/qt/ButtonRow.h"
#include "platform/qt/Controls.h"
#include "platform/qt/Style.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace ecg {
namespace {

constexpr int textWidth = 288;  // pixels

constexpr std::array<Twin, 2> captions{{{"送检单位", "Class"}, {"床位号", "Bed"}}};
constexpr std::array<Twin, 2> buttons{{{"恢复", "Restore"}, {"确定", "OK"}}};

}  // namespace

frmChangeClass::frmChangeClass(SharedState& state, QWidget* parent) : QDialog(parent), state_(state)
{
    setObjectName("frmChangeClass");
    setWindowTitle(Twin{"修改送检单位和床位号", "Change Class and Bed"}.In(state_.SysInfo));
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(3 * style::GridStep, 3 * style::GridStep, 3 * style::GridStep, 2 * style::GridStep);
    column->setSpacing(2 * style::GridStep);
    auto* grid = new QGridLayout;
    grid->setSpacing(style::GridStep);
    const RecordHeader& header = state_.WorkHeader;
    Text1_ = {new FixedTextEdit(header.Department.Bytes().size(), this),
              new FixedTextEdit(header.Bed.Bytes().size(), this)};
    for (std::size_t i = 0; i < Text1_.size(); ++i) {
        const QString caption = captions[i].In(state_.SysInfo);
        Named(Text1_[i], "Text1", i)->setAccessibleName(caption);
        Text1_[i]->setMinimumWidth(textWidth);
        grid->addWidget(new QLabel(caption, this), static_cast<int>(i), 0);
        grid->addWidget(Text1_[i], static_cast<int>(i), 1);
    }
    column->addLayout(grid);
    column->addLayout(
        MakeButtonRow(this, "Command1", {buttons[0].In(state_.SysInfo), buttons[1].In(state_.SysInfo)}, Command1_));
    Command1_[1]->setDefault(true);
    connect(Command1_[0], &QPushButton::clicked, this, [this] { ShowStored(); });
    connect(Command1_[1], &QPushButton::clicked, this, [this] { Take(); });
    ShowStored();
}

void frmChangeClass::ShowStored()
{
    Text1_[0]->setText(ToQt(state_.WorkHeader.Department.Text()));
    Text1_[1]->setText(ToQt(state_.WorkHeader.Bed.Text()));
    Text1_[0]->setFocus();
    Text1_[0]->selectAll();
}

void frmChangeClass::Take()
{
    SetIfChanged(state_.WorkHeader.Department, TrimField(Text1_[0]->text().toStdString()));
    SetIfChanged(state_.WorkHeader.Bed, TrimField(Text1_[1]->text().toStdString()));
    accept();
}

}  // namespace ecg
