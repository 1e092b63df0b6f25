#include "core/windows/DepartmentList.h"

#include "core/Language.h"
#include "core/Numbers.h"
#include "core/windows/FixedTextEdit.h"
#include "platform/qt/Controls.h"
#include "platform/qt/Style.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>
#include <QStyledItemDelegate>

namespace ecg {
namespace {

constexpr std::size_t nameBytes = 24;  // of a stored name
constexpr int lineHeight = 24;         // pixels
constexpr int numberWidth = 32;        // pixels in front of the name

// Shows the number of a line in front of its name, and lets only the name be edited.
class NumberedLine final : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::paint(painter, option, index);
        const bool selected = option.state.testFlag(QStyle::State_Selected);
        painter->setPen(selected ? QColor(Qt::white) : style::InkDim);
        painter->drawText(option.rect.adjusted(0, 0, numberWidth - option.rect.width(), 0), Qt::AlignCenter,
                          ToQt(FormatZeros(index.row() + 1, 2)));
    }

    QSize sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const override { return {0, lineHeight}; }

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem&, const QModelIndex&) const override
    {
        return Named(new FixedTextEdit(nameBytes, parent), "ClassNameEdit");
    }

    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option, const QModelIndex&) const override
    {
        editor->setGeometry(option.rect.adjusted(numberWidth - 6, 0, 0, 0));
    }

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        option->features |= QStyleOptionViewItem::HasDecoration;
        option->decorationSize = QSize(numberWidth - 8, option->fontMetrics.height());
    }
};

}  // namespace

DepartmentList::DepartmentList(bool chinese, QWidget* parent) : QListWidget(parent), chinese_(chinese)
{
    setItemDelegate(new NumberedLine(this));
    setUniformItemSizes(true);
    setEditTriggers(DoubleClicked | EditKeyPressed);
    for (std::size_t i = 0; i < ClassCount; ++i) {
        auto* line = new QListWidgetItem(this);
        line->setFlags(line->flags() | Qt::ItemIsEditable);
    }
    setCurrentRow(0);
}

void DepartmentList::ShowNames(const SysInfo& settings)
{
    for (std::size_t i = 0; i < ClassCount; ++i)
        item(static_cast<int>(i))->setText(ToQt(settings.ClassName[i].Text()));
}

void DepartmentList::CollectNames(SysInfo& settings) const
{
    for (std::size_t i = 0; i < ClassCount; ++i)
        SetIfChanged(settings.ClassName[i], item(static_cast<int>(i))->text().toStdString());
}

void DepartmentList::contextMenuEvent(QContextMenuEvent* event)
{
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    QListWidgetItem* line = byKey ? currentItem() : itemAt(event->pos());
    if (line == nullptr)
        return;
    setCurrentItem(line);
    auto* menu = Named(new QMenu(this), "ClassMenu");
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addAction(Twin{"修改", "Modify"}.In(chinese_), this, [this, line] { editItem(line); });
    menu->popup(byKey ? viewport()->mapToGlobal(visualItemRect(line).bottomLeft()) : event->globalPos());
}

// Enter belongs to the list here, not to the window's default button.
void DepartmentList::keyPressEvent(QKeyEvent* event)
{
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isEnter && state() != EditingState && currentItem() != nullptr)
        editItem(currentItem());
    else
        QListWidget::keyPressEvent(event);
}

}  // namespace ecg
