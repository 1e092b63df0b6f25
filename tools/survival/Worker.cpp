#include "survival/Worker.h"

#include "core/PatientNumber.h"
#include "survival/Child.h"

#include <QApplication>
#include <QLineEdit>
#include <QMessageBox>
#include <QTest>
#include <QTimer>

#include <array>
#include <iostream>
#include <unistd.h>

namespace ecg {
namespace {

constexpr std::array kinds{"enter",  "enter",  "change",   "renumber", "merge",
                           "remove", "remove", "unrecord", "examine",  "examine"};

void Tell(const std::string& kind, const Words& words = {})
{
    std::string line = kind;
    for (const std::string& word : words)
        line += " " + word;
    line += "\n";
    [[maybe_unused]] const ssize_t written = write(StepsHandle, line.data(), line.size());
}

std::string TellAndWait(const std::string& kind, const Words& words = {})
{
    Tell(kind, words);
    std::string word;
    std::cin >> word;
    return word;
}

// What cannot be gone on from.
[[noreturn]] void Stop(const std::string& why)
{
    Tell("fault", {why});
    _exit(EXIT_FAILURE);
}

bool IsQuick(const std::string& patient)
{
    return patient.starts_with("RUVO");
}

// The patients that `wanted` holds for.
template <class Predicate>
Words Choose(const DataState& state, Predicate wanted)
{
    Words chosen;
    for (const auto& [number, patient] : state.Patients)
        if (wanted(number, patient))
            chosen.push_back(number);
    return chosen;
}

}  // namespace

Worker::Worker(const std::filesystem::path& program, unsigned seed, std::string favourite)
    : tour_(program),
      workstation_(program),
      database_(tour_, workstation_),
      random_(seed),
      favourite_(std::move(favourite))
{}

void Worker::Run()
{
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, [this] { WatchMessages(); });
    constexpr int watchMs = 50;
    watch.start(watchMs);

    Start();
    if (TellAndWait("started") == "leave") {
        tour_.Click(workstation_.MainWindow(), "KeyPic_0");
        return;
    }
    for (;;)
        Step(Random(0, 1) == 0 ? favourite_ : kinds[static_cast<std::size_t>(Random(0, kinds.size() - 1))]);
}

void Worker::Start()
{
    bool started = false;
    const auto splash = [&] { started = workstation_.StartUp(); };
    const auto name = [&] {
        tour_.InWindow("frmSplash", splash, [](QWidget& window) { QTest::keyClick(&window, Qt::Key_Return); });
    };
    tour_.InWindow("frmSelectName", name, [&](QWidget& window) {
        auto& box = tour_.Find<QLineEdit>(window, "Text1_0");
        box.clear();
        QTest::keyClicks(&box, "Dr Example");
        Begin({"start"});  // the database is opened next
        tour_.Click(window, "Command1_0");
    });
    if (!started)
        Stop("the workstation does not start");
    workstation_.MainWindow().show();
    CheckGrid();
}

// What is listed is what is there.
void Worker::CheckGrid()
{
    const DataState state = Disk();
    std::vector<Words> expected;
    for (const std::string& number : state.Order)
        expected.push_back(
            {number, std::to_string(state.Patients.at(number).Files.size()), std::to_string(expected.size() + 1)});
    if (database_.ListedPatients() != expected)
        Stop("the grid does not list what is on the disk");
}

void Worker::Step(const std::string& kind)
{
    if (kind == "enter")
        Enter();
    else if (kind == "change" || kind == "renumber")
        Change(kind);
    else if (kind == "merge")
        Merge();
    else if (kind == "remove")
        Remove();
    else if (kind == "unrecord")
        RemoveRecord();
    else if (kind != "start")
        Examine();
}

DataState Worker::Disk()
{
    return ReadDataState(workstation_.State().Folders.Data);
}

// From the database, or as the first step of an examination.
void Worker::Enter()
{
    const Words fields{FreeNumber(Disk()), RandomName(), std::to_string(Random(0, 99)), std::to_string(Random(40, 250)),
                       std::to_string(Random(5, 250))};
    Words step = fields;
    step.insert(step.begin(), "enter");
    const auto begin = [&] { Begin(step); };
    if (Random(0, 1) == 0) {
        database_.Enter(fields, begin);
        return Done();
    }
    database_.EnterForExamination(fields, begin);
    Done();
    if (workstation_.State().ExamState != ExamState::Ready)
        Stop("the entered patient is not ready to be sampled");
    if (Random(0, 1) == 0) {
        tour_.Click(workstation_.MainWindow(), "KeyPic_17");
        return;
    }
    const std::string patient = PatientFolderName(fields[0]);
    Begin({"sampling", patient});
    tour_.Click(workstation_.MainWindow(), "KeyPic_16");
    Sample(patient);
}

// Quick patients are left out: their fields are not those that the entry window gives back.
void Worker::Change(const std::string& kind)
{
    const DataState state = Disk();
    const std::string patient = AnyOf(Choose(state, [](auto& number, auto&) { return !IsQuick(number); }));
    if (patient.empty())
        return;
    const std::string text = kind == "change" ? RandomName() : FreeNumber(state);
    const auto begin = [&] { Begin({kind, patient, text}); };
    if (kind == "change")
        database_.Rename(patient, text, begin);
    else
        database_.Renumber(patient, text, begin);
    Done();
}

void Worker::Merge()
{
    const DataState state = Disk();
    const auto hasFiles = [](auto& number, auto& patient) { return IsQuick(number) && !patient.Files.empty(); };
    const std::string from = AnyOf(Choose(state, hasFiles));
    if (from.empty())
        return;
    const auto& files = state.Patients.at(from).Files;
    // A record whose name is taken would get another one, which the ledger does not follow.
    const std::string to = AnyOf(Choose(state, [&](auto& number, auto& patient) {
        return !IsQuick(number) &&
               std::ranges::none_of(files, [&](auto& file) { return patient.Files.contains(file.first); });
    }));
    if (to.empty())
        return;
    database_.Merge(from, to, [&] { Begin({"merge", from, to}); });
    Done();
}

void Worker::Remove()
{
    const DataState state = Disk();
    const auto count = static_cast<std::size_t>(Random(1, 3));
    if (state.Order.size() < count)
        return;
    const int first = Random(0, static_cast<int>(state.Order.size() - count));
    const Words patients(state.Order.begin() + first, state.Order.begin() + first + static_cast<int>(count));
    Words step = patients;
    step.insert(step.begin(), "remove");
    database_.Remove(patients, [&] { Begin(step); });
    Done();
}

void Worker::RemoveRecord()
{
    const DataState state = Disk();
    const std::string patient = AnyOf(Choose(state, [](auto&, auto& kept) { return !kept.Files.empty(); }));
    if (patient.empty())
        return;
    const std::string file = state.Patients.at(patient).Files.begin()->first;
    database_.RemoveRecord(patient, file, [&] { Begin({"unrecord", patient, file}); });
    Done();
}

void Worker::Examine()
{
    Begin({"quick"});
    tour_.Click(workstation_.MainWindow(), "KeyPic_17");
    const SharedState& state = workstation_.State();
    const std::string patient = state.CurrentPatient.No.Text();
    if (state.ExamState != ExamState::Sampling)
        Stop("the quick examination does not sample");
    Done({patient});
    Begin({"sampling", patient});
    Sample(patient);
}

// Mostly ended early by the key, sometimes begun again, now and then left to its limit where it has one.
void Worker::Sample(const std::string& patient)
{
    tour_.Wait(Random(100, 700));
    if (Random(0, 3) == 0) {
        tour_.Click(workstation_.MainWindow(), "KeyPic_17");
        tour_.Wait(Random(100, 700));
    }
    Finish(patient);
}

void Worker::Finish(const std::string& patient)
{
    constexpr int longestMs = 120000;  // of 20 seconds, on a machine with much else to do
    const SharedState& state = workstation_.State();
    const bool toTheLimit = state.SysInfo.SystemControlTime == 1 && Random(0, 39) == 0;
    bool shown = false;
    const auto finish = [&] {
        Begin({"finish", patient});
        if (toTheLimit)
            tour_.WaitUntil([&shown] { return shown; }, longestMs);
        else
            tour_.Click(workstation_.MainWindow(), "KeyPic_16");
    };
    tour_.InWindow("frmxECG", finish, [&](QWidget& review) {
        shown = true;
        const auto file = state.Folders.File(state.RecordPath);
        if (file.parent_path().filename() != patient)
            Stop("the record is not the patient's");
        Done({patient, file.filename().string(), Fingerprint(file)});
        review.close();  // its key would change the record
    });
}

void Worker::Begin(const Words& step)
{
    TellAndWait("begin", step);
}

void Worker::Done(const Words& result)
{
    if (tour_.FailureCount() > 0)
        Stop("a window did not open, or did not list a row");
    Tell("done", result);
}

void Worker::WatchMessages()
{
    if (database_.AwaitsQuestion())
        return;
    if (const auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget()))
        Stop("a message nobody expected: " + box->text().toStdString());
}

int Worker::Random(int from, int to)
{
    return std::uniform_int_distribution(from, to)(random_);
}

std::string Worker::RandomName()
{
    return "name" + std::to_string(Random(0, 99'999));
}

std::string Worker::FreeNumber(const DataState& state)
{
    for (;;) {
        std::string number = std::to_string(Random(1, 999'999));
        if (!state.Patients.contains(PatientFolderName(number)))
            return number;
    }
}

std::string Worker::AnyOf(const Words& words)
{
    return words.empty() ? "" : words[static_cast<std::size_t>(Random(0, static_cast<int>(words.size()) - 1))];
}

}  // namespace ecg
