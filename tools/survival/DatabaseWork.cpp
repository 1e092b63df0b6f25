#include "survival/DatabaseWork.h"

#include <QLineEdit>
#include <QTableView>
#include <QTest>

#include <array>

namespace ecg {
namespace {

constexpr int numberColumn = 0;  // of PatientTab
constexpr int countColumn = 6;
constexpr int positionColumn = 7;
constexpr int fileColumn = 9;  // of RecTab

std::string Cell(const QAbstractItemModel& model, int row, int column)
{
    return model.index(row, column).data().toString().toStdString();
}

}  // namespace

void DatabaseWork::InDatabase(const std::function<void(QWidget&)>& work)
{
    tour_.Click(workstation_.MainWindow(), "KeyPic_11");
    QWidget& database = tour_.Window("frmPat");
    work(database);
    tour_.Click(database, "KeyPic_0");
}

void DatabaseWork::InEntry(QWidget& database, const char* command, const std::function<void(QWidget&)>& work)
{
    tour_.InWindow(
        "frmPatInput", [&] { tour_.Click(database, command); }, work);
}

void DatabaseWork::ClickRow(QWidget& database, const char* grid, int column, const std::string& text,
                            Qt::KeyboardModifiers keys)
{
    auto& view = tour_.Find<QTableView>(database, grid);
    const QAbstractItemModel& model = *view.model();
    for (int row = 0; row < model.rowCount(); ++row) {
        if (Cell(model, row, column) != text)
            continue;
        const QModelIndex first = model.index(row, 0);
        view.scrollTo(first);
        QTest::mouseClick(view.viewport(), Qt::LeftButton, keys, view.visualRect(first).center());
        return;
    }
    tour_.Check(false, QString::fromStdString(text) + " is listed");
}

// Clicks a button that asks first, and says yes.
void DatabaseWork::Agree(QWidget& window, const char* button, const Begin& begin)
{
    awaitsQuestion_ = true;
    tour_.InWindow(
        "MessageBox", [&] { tour_.Click(window, button); },
        [&](QWidget& question) {
            begin();
            tour_.Click(question, "Accept");
        });
    awaitsQuestion_ = false;
}

void DatabaseWork::TypePatient(QWidget& entry, const Words& fields)
{
    constexpr std::array lines{"Text1_10", "Text1_0", "Text1_1", "Text1_2", "Text1_3"};
    for (std::size_t i = 0; i < lines.size(); ++i)
        tour_.Type(entry, lines[i], QString::fromStdString(fields.at(i)));
}

void DatabaseWork::Enter(const Words& fields, const Begin& begin)
{
    InDatabase([&](QWidget& database) {
        InEntry(database, "FunKey_0", [&](QWidget& entry) {
            TypePatient(entry, fields);
            begin();
            tour_.Click(entry, "Command1_1");
        });
    });
}

void DatabaseWork::EnterForExamination(const Words& fields, const Begin& begin)
{
    InEntry(workstation_.MainWindow(), "KeyPic_16", [&](QWidget& entry) {
        TypePatient(entry, fields);
        QTest::keyClick(&tour_.Find(entry, "Option2_0"), Qt::Key_Space);
        begin();
        tour_.Click(entry, "Command1_1");
    });
}

void DatabaseWork::Rename(const std::string& patient, const std::string& name, const Begin& begin)
{
    InDatabase([&](QWidget& database) {
        ClickRow(database, "PatientTab", numberColumn, patient);
        InEntry(database, "FunKey_1", [&](QWidget& entry) {
            tour_.Type(entry, "Text1_0", QString::fromStdString(name));
            begin();
            tour_.Click(entry, "Command1_1");
        });
    });
}

void DatabaseWork::Renumber(const std::string& patient, const std::string& number, const Begin& begin)
{
    InDatabase([&](QWidget& database) {
        ClickRow(database, "PatientTab", numberColumn, patient);
        InEntry(database, "FunKey_1", [&](QWidget& entry) {
            // Over the old one: a number that is emptied takes all other fields with it.
            auto& line = tour_.Find<QLineEdit>(entry, "Text1_10");
            line.selectAll();
            QTest::keyClicks(&line, QString::fromStdString(number));
            begin();
            tour_.Click(entry, "Command1_1");
        });
    });
}

void DatabaseWork::Merge(const std::string& from, const std::string& to, const Begin& begin)
{
    InDatabase([&](QWidget& database) {
        ClickRow(database, "PatientTab", numberColumn, from);
        InEntry(database, "FunKey_1", [&](QWidget& entry) {
            tour_.Type(entry, "Text1_10", QString::fromStdString(to));
            Agree(entry, "Command1_1", begin);
        });
    });
}

void DatabaseWork::Remove(const Words& patients, const Begin& begin)
{
    InDatabase([&](QWidget& database) {
        ClickRow(database, "PatientTab", numberColumn, patients.front());
        if (patients.size() > 1)
            ClickRow(database, "PatientTab", numberColumn, patients.back(), Qt::ShiftModifier);
        Agree(database, "FunKey_2", begin);
    });
}

void DatabaseWork::RemoveRecord(const std::string& patient, const std::string& file, const Begin& begin)
{
    InDatabase([&](QWidget& database) {
        ClickRow(database, "PatientTab", numberColumn, patient);
        ClickRow(database, "RecTab", fileColumn, file);
        Agree(database, "FunKey_4", begin);
    });
}

std::vector<Words> DatabaseWork::ListedPatients()
{
    std::vector<Words> listed;
    InDatabase([&](QWidget& database) {
        const QAbstractItemModel& model = *tour_.Find<QTableView>(database, "PatientTab").model();
        for (int row = 0; row < model.rowCount(); ++row)
            listed.push_back(
                {Cell(model, row, numberColumn), Cell(model, row, countColumn), Cell(model, row, positionColumn)});
    });
    return listed;
}

}  // namespace ecg
