#include "platform/qt/ButtonRow.h"

#include "platform/qt/Controls.h"
#include "platform/qt/Style.h"

#include <QHBoxLayout>
#include <QPushButton>

namespace ecg {
namespace {

constexpr int buttonWidth = 104;  // pixels, at the least

}  // namespace

QHBoxLayout* MakeButtonRow(QWidget* parent, const char* name, std::initializer_list<QString> captions,
                           std::span<QPushButton*> buttons)
{
    auto* row = new QHBoxLayout;
    row->setSpacing(style::GridStep);
    row->addStretch();
    std::size_t index = 0;
    for (const QString& caption : captions) {
        buttons[index] = Named(new QPushButton(caption, parent), name, index);
        buttons[index]->setMinimumWidth(buttonWidth);
        row->addWidget(buttons[index++]);
    }
    return row;
}

}  // namespace ecg
