// The rows of the database as the toolkit's views ask for them.
#pragma once

#include "patients/PatientTable.h"
#include "patients/RecordTable.h"

#include <QAbstractTableModel>

#include <vector>

namespace ecg {

// The patients that the last search shows. A row of the view is not the row of the table when some are hidden.
class PatientTabModel final : public QAbstractTableModel {
public:
    PatientTabModel(const PatientTable& patients, bool chinese) : patients_(patients), chinese_(chinese) { Refresh(); }

    void Refresh();  // the table has changed
    void RefreshRow(int tableRow);

    int TableRow(int viewRow) const;  // `NoRow` outside
    int ViewRow(int tableRow) const;  // `NoRow` for a hidden one

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

private:
    const PatientTable& patients_;
    const bool chinese_;
    std::vector<int> shown_;  // rows of the table, ascending
};

class RecTabModel final : public QAbstractTableModel {
public:
    explicit RecTabModel(const RecordTable& records) : records_(records) {}

    void Refresh();  // the table has changed

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

private:
    const RecordTable& records_;
};

}  // namespace ecg
