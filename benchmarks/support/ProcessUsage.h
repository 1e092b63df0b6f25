// What this process has used of the machine so far.
#pragma once

namespace ecg::bench {

// Processor time of all threads, user and system, in seconds.
double CpuSeconds();

// Memory that is resident now, in KiB; 0 when the system does not tell.
double ResidentKb();

}  // namespace ecg::bench
