#include "patients/windows/GridModels.h"

#include "platform/qt/Controls.h"

#include <algorithm>

namespace ecg {
namespace {

constexpr int nameColumn = 1;
constexpr int sexColumn = 2;
constexpr int firstTextColumn = 5;  // of the records: class, bed, diagnosis

}  // namespace

void PatientTabModel::Refresh()
{
    beginResetModel();
    shown_.clear();
    for (int row = 0; row < patients_.RowCount(); ++row)
        if (patients_.Row(row).Shown)
            shown_.push_back(row);
    endResetModel();
}

void PatientTabModel::RefreshRow(int tableRow)
{
    const int row = ViewRow(tableRow);
    if (row != NoRow)
        emit dataChanged(index(row, 0), index(row, PatientColumnCount - 1));
}

int PatientTabModel::TableRow(int viewRow) const
{
    return viewRow >= 0 && viewRow < rowCount() ? shown_[static_cast<std::size_t>(viewRow)] : NoRow;
}

int PatientTabModel::ViewRow(int tableRow) const
{
    const auto found = std::lower_bound(shown_.begin(), shown_.end(), tableRow);
    return found != shown_.end() && *found == tableRow ? static_cast<int>(found - shown_.begin()) : NoRow;
}

int PatientTabModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(shown_.size());
}

int PatientTabModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : PatientColumnCount;
}

QVariant PatientTabModel::data(const QModelIndex& index, int role) const
{
    if (role == Qt::TextAlignmentRole && index.column() > sexColumn)
        return {Qt::AlignRight | Qt::AlignVCenter};
    if (role != Qt::DisplayRole && !(role == Qt::ToolTipRole && index.column() == nameColumn))
        return {};
    return ToQt(patients_.Text(TableRow(index.row()), index.column(), chinese_));
}

void RecTabModel::Refresh()
{
    beginResetModel();
    endResetModel();
}

int RecTabModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : records_.RowCount();
}

int RecTabModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : RecordColumnCount;
}

QVariant RecTabModel::data(const QModelIndex& index, int role) const
{
    if (role != Qt::DisplayRole && !(role == Qt::ToolTipRole && index.column() >= firstTextColumn))
        return {};
    return ToQt(records_.Text(index.row(), index.column()));
}

}  // namespace ecg
