#include "patients/windows/HeadedGrid.h"

#include "platform/qt/Controls.h"
#include "platform/qt/Style.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QVBoxLayout>

#include <algorithm>
#include <numeric>

namespace ecg {
namespace {

constexpr int gridRowHeight = 24;  // pixels
constexpr int headerHeight = 28;   // pixels
constexpr int arrowSize = 10;      // pixels

QIcon SortArrow(bool descending)
{
    QPixmap picture(arrowSize, arrowSize);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(style::Ink);
    constexpr double top = 2;
    constexpr double bottom = 8;
    const double tip = descending ? bottom : top;
    const double base = descending ? top : bottom;
    painter.drawPolygon(QPolygonF({{1, base}, {arrowSize - 1, base}, {arrowSize / 2.0, tip}}));
    return picture;
}

}  // namespace

GridView::GridView(QWidget* parent) : QTableView(parent)
{
    setSelectionBehavior(SelectRows);
    setSelectionMode(ContiguousSelection);
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    setAlternatingRowColors(true);
    setWordWrap(false);
    setCornerButtonEnabled(false);
    horizontalHeader()->hide();
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(gridRowHeight);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
}

void GridView::mouseReleaseEvent(QMouseEvent* event)
{
    QTableView::mouseReleaseEvent(event);
    if (event->button() == Qt::LeftButton && currentIndex().isValid() && OnChosen)
        OnChosen(currentIndex().row());
}

void GridView::mouseDoubleClickEvent(QMouseEvent* event)
{
    QTableView::mouseDoubleClickEvent(event);
    if (event->button() == Qt::LeftButton && indexAt(event->position().toPoint()).isValid() && OnOpen)
        OnOpen();
}

void GridView::keyPressEvent(QKeyEvent* event)
{
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isEnter || event->key() == Qt::Key_Delete) {
        const auto& action = isEnter ? OnOpen : OnDelete;
        if (action)
            action();
        return;
    }
    const int before = currentIndex().row();
    QTableView::keyPressEvent(event);
    const int row = currentIndex().row();
    if (row >= 0 && (row != before || event->key() == Qt::Key_Space) && OnChosen)
        OnChosen(row);
}

void GridView::contextMenuEvent(QContextMenuEvent* event)
{
    if (OnMenu)
        OnMenu(event->globalPos());
}

HeadedGrid::HeadedGrid(const char* grid, const char* header, std::span<const GridColumn> columns, bool chinese,
                       QAbstractTableModel& model, QWidget* parent)
    : QWidget(parent),
      view_(Named(new GridView(this), grid)),
      empty_(new QLabel(view_->viewport())),
      headerBar_(new QWidget(this))
{
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    headerBar_->setFixedHeight(headerHeight);
    column->addWidget(headerBar_);
    column->addWidget(view_, 1);
    view_->setModel(&model);
    for (std::size_t i = 0; i < columns.size(); ++i) {
        auto* button = Named(new QPushButton(columns[i].Caption.In(chinese), headerBar_), header, i);
        button->setToolTip(columns[i].Tip.In(chinese));
        button->setAccessibleName(columns[i].Tip.In(chinese));
        button->setProperty("gridHeader", true);
        button->setLayoutDirection(Qt::RightToLeft);  // the arrow stands behind the word
        button->setIconSize({arrowSize, arrowSize});
        connect(button, &QPushButton::clicked, this, [this, i] { OnHeader(static_cast<int>(i)); });
        headers_.push_back(button);
        widths_.push_back(columns[i].Width);
    }
    for (int hidden = static_cast<int>(columns.size()); hidden < model.columnCount(); ++hidden)
        view_->setColumnHidden(hidden, true);
    empty_->setAlignment(Qt::AlignCenter);
    empty_->setWordWrap(true);
    connect(&model, &QAbstractItemModel::modelReset, this, [this] { ShowEmptyText(); });
}

void HeadedGrid::SetHeadersVisible(bool visible)
{
    headerBar_->setVisible(visible);
}

void HeadedGrid::MarkSorted(int column, bool descending)
{
    for (std::size_t i = 0; i < headers_.size(); ++i)
        headers_[i]->setIcon(static_cast<int>(i) == column ? SortArrow(descending) : QIcon());
}

void HeadedGrid::SetEmptyText(const QString& text)
{
    empty_->setText(text);
    ShowEmptyText();
}

void HeadedGrid::ShowEmptyText()
{
    empty_->setGeometry(view_->viewport()->rect());
    empty_->setVisible(view_->model()->rowCount() == 0);
}

void HeadedGrid::SelectRow(int row)
{
    if (row < 0) {
        view_->clearSelection();
        view_->setCurrentIndex({});
        return;
    }
    view_->selectRow(row);
    view_->scrollTo(view_->model()->index(row, 0));
}

std::pair<int, int> HeadedGrid::SelectedRows() const
{
    const auto& ranges = view_->selectionModel()->selection();
    if (ranges.isEmpty())
        return {-1, -1};
    int first = ranges.front().top();
    int last = ranges.front().bottom();
    for (const QItemSelectionRange& range : ranges) {
        first = std::min(first, range.top());
        last = std::max(last, range.bottom());
    }
    return {first, last};
}

void HeadedGrid::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    ShareWidth();
    ShowEmptyText();
}

// Header buttons and columns have the same edges at every width.
void HeadedGrid::ShareWidth()
{
    const int frame = view_->frameWidth();
    const int scrollBar = view_->verticalScrollBar()->sizeHint().width();
    const int whole = std::max(width() - 2 * frame - scrollBar, 0);
    const int sum = std::accumulate(widths_.begin(), widths_.end(), 0);
    int share = 0;
    int left = 0;
    for (std::size_t i = 0; i < headers_.size(); ++i) {
        share += widths_[i];
        const int right = whole * share / sum;
        view_->setColumnWidth(static_cast<int>(i), right - left);
        headers_[i]->setGeometry(left + frame, 0, right - left, headerHeight);
        left = right;
    }
}

}  // namespace ecg
