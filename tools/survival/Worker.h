// The workstation in the process that is to be killed, driven by real events: it is started, and patients are entered,
// changed, deleted and examined in random order until the process dies. Every step is told before and after.
#pragma once

#include "app/Workstation.h"
#include "survival/DatabaseWork.h"
#include "tour/TourDriver.h"

#include <random>

namespace ecg {

class Worker {
public:
    // `favourite` is the step that is taken most often.
    Worker(const std::filesystem::path& program, unsigned seed, std::string favourite);

    // Starts and works. When it has started and before each step it waits for a word; "leave" at the start ends the
    // workstation by its exit key.
    void Run();

private:
    void Start();
    void CheckGrid();
    void Step(const std::string& kind);
    void Enter();
    void Change(const std::string& kind);
    void Merge();
    void Remove();
    void RemoveRecord();
    void Examine();
    void Sample(const std::string& patient);
    void Finish(const std::string& patient);

    void Begin(const Words& step);
    void Done(const Words& result = {});
    void WatchMessages();
    int Random(int from, int to);
    DataState Disk();
    std::string RandomName();
    std::string FreeNumber(const DataState& state);
    std::string AnyOf(const Words& words);

    TourDriver tour_;
    Workstation workstation_;
    DatabaseWork database_;
    std::mt19937 random_;
    std::string favourite_;
};

}  // namespace ecg
