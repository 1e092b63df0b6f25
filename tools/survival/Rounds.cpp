#include "survival/Rounds.h"

#include "core/DataFolder.h"
#include "core/PatientNumber.h"
#include "demo/DemoFiles.h"
#include "patients/PatientFile.h"
#include "patients/PatientMoves.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <thread>

namespace ecg {
namespace {

using namespace std::chrono_literals;
using SteadyClock = std::chrono::steady_clock;

constexpr std::array kinds{"enter", "change", "renumber", "merge", "remove", "unrecord", "quick", "sampling", "finish"};
constexpr auto longestRound = 200s;
constexpr double partAtChanges = 0.7;  // of the kills come just before a change of the disk, the others at any time
constexpr int patientsAtFirst = 500;   // so that compaction and lists have something to do

// The step of the work in which `kind` is a part.
std::string FavouriteFor(const std::string& kind)
{
    return kind == "quick" || kind == "sampling" || kind == "finish" ? "examine" : kind;
}

}  // namespace

Rounds::Rounds(const std::filesystem::path& folder, unsigned seed)
    : folder_(folder), program_(folder / "program"), seed_(seed), random_(seed), journal_(folder / "journal.txt")
{}

bool Rounds::Play(int rounds)
{
    if (!Prepare()) {
        std::fprintf(stderr, "ecg-survival: cannot make a program folder in %s\n", folder_.c_str());
        return false;
    }
    for (int round = 1; round <= rounds; ++round) {
        if (!PlayRound(round)) {
            std::fprintf(stderr, "ecg-survival: failed in round %d of seed %u; see %s\n", round, seed_,
                         folder_.c_str());
            return false;
        }
        if (constexpr int reportEvery = 20; round % reportEvery == 0)
            std::printf("round %d: %zu patients, %zu records\n", round, ledger_.PatientCount(), ledger_.RecordCount());
        std::fflush(stdout);
    }
    const bool clean = PlayLastStart();
    PrintTally(rounds);
    return clean;
}

bool Rounds::Prepare()
{
    const Folders folders = OpenDataFolder(program_);
    std::error_code error;
    const auto own = std::filesystem::read_symlink("/proc/self/exe", error).parent_path();
    std::filesystem::create_directory_symlink(own / "pictures", program_ / "pictures", error);
    bool made = WriteDemoFiles(folders.Data).empty();
    for (int i = 0; i < patientsAtFirst; ++i)
        made = made && GivePatient(folders.Data, i);
    return made;
}

// A patient with one record, of one sample.
bool Rounds::GivePatient(const std::filesystem::path& data, int i)
{
    constexpr int firstNumber = 1'000'000;
    constexpr std::size_t recordBytes = 4800;
    const Words fields{std::to_string(firstNumber + i), "given" + std::to_string(i), "40", "170", "70"};
    const std::string folder = PatientFolderName(fields[0]);
    const std::string name = "20260101000000.W";
    std::filesystem::create_directory(data / folder);
    std::ofstream(data / folder / name) << std::string(recordBytes, static_cast<char>('a' + i % 26));

    ledger_.Begin({"given", fields[0], fields[1], fields[2], fields[3], fields[4]});
    ledger_.Done({});
    ledger_.Begin({"finish", folder});
    ledger_.Done({folder, name, Fingerprint(data / folder / name)});
    DiskFileSystem disk;
    return PatientFile(disk, data).Append(EnteredPatient(fields)).has_value();
}

Child Rounds::StartChild(const std::string& favourite)
{
    return Child({"--worker", program_.string(), std::to_string(seed_ + starts_++), favourite}, folder_ / "output.txt");
}

// A start changes something only when patients were deleted before it: then it has its turn more often.
std::string Rounds::ChooseKind()
{
    constexpr double partInStart = 0.3;
    const auto data = OpenDataFolder(program_).Data;
    std::error_code error;
    const bool hasGaps =
        std::filesystem::file_size(data / PatientFileName, error) > ledger_.PatientCount() * sizeof(PatientRecord);
    if (hasGaps && std::bernoulli_distribution(partInStart)(random_))
        return "start";
    return kinds[std::uniform_int_distribution<std::size_t>(0, kinds.size() - 1)(random_)];
}

bool Rounds::PlayRound(int round)
{
    const std::string kind = ChooseKind();
    journal_ << "round " << round << ": kill in " << kind << std::endl;
    Child child = StartChild(FavouriteFor(kind));
    const auto end = SteadyClock::now() + longestRound;
    while (const auto line = child.NextLine(end)) {
        if (!Take(*line))
            return false;
        if (line->size() > 1 && line->at(0) == "begin" && line->at(1) == kind)
            return KillIn(child, kind);
        if (line->at(0) != "done")
            child.Tell("go");
    }
    std::fprintf(stderr, "ecg-survival: the workstation %s\n", child.Ended() ? "has ended by itself" : "hangs");
    return false;
}

bool Rounds::KillIn(Child& child, const std::string& kind)
{
    if (std::bernoulli_distribution(partAtChanges)(random_)) {
        child.KillAtFileChange(Change(kind));
    } else {
        child.Tell("go");
        std::this_thread::sleep_for(Delay(kind));
        child.Kill();
    }
    bool done = false;
    while (const auto line = child.NextLine(SteadyClock::now())) {
        done = true;
        if (!Take(*line))
            return false;
    }
    Tally& tally = tallies_[kind];
    ++tally.Killed;
    tally.Amid += done ? 0 : 1;
    const auto data = OpenDataFolder(program_).Data;
    tally.Leftovers += IsFile(data / PatientTempFileName) || IsFile(data / PatientMoveFileName) ? 1 : 0;
    return true;
}

// Files change in the first milliseconds of a step, so most kills come then. A start opens the database at some moment,
// and a sampling writes all the time.
std::chrono::microseconds Rounds::Delay(const std::string& kind)
{
    constexpr double shortestUs = 30;
    constexpr double longestUs = 20'000;
    constexpr int longestSamplingUs = 600'000;
    constexpr int longestStartUs = 30'000;
    if (kind == "sampling")
        return std::chrono::microseconds(std::uniform_int_distribution(0, longestSamplingUs)(random_));
    if (kind == "start")
        return std::chrono::microseconds(std::uniform_int_distribution(0, longestStartUs)(random_));
    const double exponent = std::uniform_real_distribution(std::log(shortestUs), std::log(longestUs))(random_);
    return std::chrono::microseconds(static_cast<std::int64_t>(std::exp(exponent)));
}

// A step changes the disk a few times, a start some more for the settings, a sampling all the time.
int Rounds::Change(const std::string& kind)
{
    constexpr int mostInStep = 8;
    constexpr int mostInStart = 14;
    constexpr int mostInSampling = 300;
    const int most = kind == "sampling" ? mostInSampling : kind == "start" ? mostInStart : mostInStep;
    return std::uniform_int_distribution(1, most)(random_);
}

bool Rounds::Take(const Words& line)
{
    for (const std::string& word : line)
        journal_ << word << ' ';
    journal_ << std::endl;
    const Words rest(line.begin() + 1, line.end());
    if (line.at(0) == "begin" && rest.at(0) != "start") {
        ledger_.Begin(rest);
    } else if (line.at(0) == "done") {
        ledger_.Done(rest);
    } else if (line.at(0) == "started") {
        return CheckData();
    } else if (line.at(0) == "fault") {
        std::fprintf(stderr, "ecg-survival: the workstation stopped; see the journal\n");
        return false;
    }
    return true;
}

bool Rounds::CheckData()
{
    ++checks_;
    const Words faults = ledger_.Settle(ReadDataState(OpenDataFolder(program_).Data));
    for (const std::string& fault : faults) {
        std::fprintf(stderr, "ecg-survival: %s\n", fault.c_str());
        journal_ << "FAULT " << fault << std::endl;
    }
    return faults.empty();
}

// The last start is left to its end, by the exit key.
bool Rounds::PlayLastStart()
{
    Child child = StartChild("leave");
    const auto end = SteadyClock::now() + longestRound;
    bool clean = false;
    while (const auto line = child.NextLine(end)) {
        const bool started = line->at(0) == "started";
        clean = started && CheckData();
        child.Tell(started ? "leave" : "go");
    }
    return clean && child.Ended() && CheckData();
}

void Rounds::PrintTally(int rounds) const
{
    std::printf("%d kills, %d checks, %zu patients and %zu records at the end; seed %u\n", rounds, checks_,
                ledger_.PatientCount(), ledger_.RecordCount(), seed_);
    for (const auto& [kind, tally] : tallies_)
        std::printf("  %-9s %3d, %3d of them before it was done, %3d with something to clear away\n", kind.c_str(),
                    tally.Killed, tally.Amid, tally.Leftovers);
}

}  // namespace ecg
