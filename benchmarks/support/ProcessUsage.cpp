#include "benchmarks/support/ProcessUsage.h"

#include <ctime>
#include <fstream>
#include <unistd.h>

namespace ecg::bench {

double CpuSeconds()
{
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

double ResidentKb()
{
    std::ifstream statm("/proc/self/statm");
    double totalPages = 0;
    double residentPages = 0;
    statm >> totalPages >> residentPages;
    return residentPages * static_cast<double>(sysconf(_SC_PAGESIZE)) / 1024;
}

}  // namespace ecg::bench
