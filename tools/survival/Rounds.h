// Starts the workstation again and again, kills it at a random moment of its work, and checks at the next start that
// nothing which it had promised is lost.
#pragma once

#include "survival/Child.h"
#include "survival/Ledger.h"

#include <fstream>
#include <random>

namespace ecg {

class Rounds {
public:
    // Works in `folder`: the program folder is made in it, and beside that the journal of all steps.
    Rounds(const std::filesystem::path& folder, unsigned seed);

    // False when a promise was broken, which is then told on the error stream.
    bool Play(int rounds);

private:
    // How often each kind of work was killed, how often before it was done, and how often that left files for the next
    // start to clear away.
    struct Tally {
        int Killed = 0;
        int Amid = 0;
        int Leftovers = 0;
    };

    bool Prepare();
    bool GivePatient(const std::filesystem::path& data, int i);
    std::string ChooseKind();
    bool PlayRound(int round);
    bool PlayLastStart();
    Child StartChild(const std::string& favourite);
    bool Take(const Words& line);
    bool KillIn(Child& child, const std::string& kind);
    bool CheckData();
    void PrintTally(int rounds) const;
    std::chrono::microseconds Delay(const std::string& kind);
    int Change(const std::string& kind);

    std::filesystem::path folder_;
    std::filesystem::path program_;
    unsigned seed_;
    std::mt19937 random_;
    std::ofstream journal_;
    Ledger ledger_;
    unsigned starts_ = 0;
    int checks_ = 0;
    std::map<std::string, Tally> tallies_;
};

}  // namespace ecg
