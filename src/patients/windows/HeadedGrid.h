// A grid of whole rows below header buttons. The columns share the width of the window; one click on a row, or the
// arrow keys, choose it.
//
//   [ Command1_0 | Command1_1 |      Command1_2      ]
//   [ PatientTab                                     ]
#pragma once

#include "core/Language.h"

#include <QAbstractTableModel>
#include <QPushButton>
#include <QTableView>

#include <functional>
#include <span>
#include <utility>
#include <vector>

class QLabel;

namespace ecg {

struct GridColumn {
    Twin Caption;
    Twin Tip;
    int Width;  // pixels at the least; what is left over is shared in this proportion
};

// The grid itself. It reports what the user does with its rows.
class GridView final : public QTableView {
public:
    explicit GridView(QWidget* parent);

    std::function<void(int row)> OnChosen;            // the mouse was released over a row, or a key moved to it
    std::function<void()> OnOpen;                     // double click, or Enter
    std::function<void()> OnDelete;                   // the Delete key
    std::function<void(const QPoint& place)> OnMenu;  // on the screen

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
};

class HeadedGrid final : public QWidget {
public:
    // `header` is the name of the array of header buttons. `model` must outlive this object.
    HeadedGrid(const char* grid, const char* header, std::span<const GridColumn> columns, bool chinese,
               QAbstractTableModel& model, QWidget* parent);

    GridView& View() const { return *view_; }

    void SetHeadersVisible(bool visible);

    // Shows by which column the rows are sorted.
    void MarkSorted(int column, bool descending);

    // What an empty grid says.
    void SetEmptyText(const QString& text);

    // Makes one row the current and only selected one, and brings it into sight; `row` below 0 selects none.
    void SelectRow(int row);

    int CurrentRow() const { return view_->currentIndex().row(); }  // -1: none

    // First and last row of the selection; -1, -1 without one.
    std::pair<int, int> SelectedRows() const;

    std::function<void(int column)> OnHeader;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void ShareWidth();
    void ShowEmptyText();

    GridView* view_;
    QLabel* empty_;
    QWidget* headerBar_;
    std::vector<QPushButton*> headers_;
    std::vector<int> widths_;
};

}  // namespace ecg
