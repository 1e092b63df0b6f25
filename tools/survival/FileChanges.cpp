#include "survival/FileChanges.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdint>
#include <fcntl.h>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/wait.h>

namespace ecg {
namespace {

using SystemCall = __ptrace_syscall_info;

constexpr std::array changes{
    SYS_pwrite64, SYS_fsync,  SYS_ftruncate, SYS_truncate, SYS_mkdirat, SYS_unlinkat, SYS_renameat, SYS_renameat2,
#ifdef SYS_rename  // newer processors do without the older calls
    SYS_rename,   SYS_unlink, SYS_rmdir,     SYS_mkdir,
#endif
};

bool IsWrite(const SystemCall& info, int handle)
{
    return info.op == PTRACE_SYSCALL_INFO_ENTRY && info.entry.nr == SYS_write &&
           info.entry.args[0] == static_cast<std::uint64_t>(handle);
}

bool IsChange(const SystemCall& info)
{
    constexpr std::size_t openFlags = 2;  // argument of openat
    if (info.op != PTRACE_SYSCALL_INFO_ENTRY)
        return false;
    const auto call = static_cast<long>(info.entry.nr);
    return std::ranges::find(changes, call) != changes.end() ||
           (call == SYS_openat && (info.entry.args[openFlags] & O_CREAT) != 0);
}

// What the process stopped for; the signal it is to be given on its way, or 0.
struct Stop {
    bool AtCall = false;
    int Signal = 0;
};

// False when it has ended.
bool Await(pid_t process, Stop& stop)
{
    constexpr int callMark = 0x80;  // set by PTRACE_O_TRACESYSGOOD
    int status = 0;
    if (waitpid(process, &status, __WALL) != process || !WIFSTOPPED(status))
        return false;
    const int signal = WSTOPSIG(status);
    stop.AtCall = signal == (SIGTRAP | callMark);
    stop.Signal = stop.AtCall || status >> 16 != 0 ? 0 : signal;
    return true;
}

}  // namespace

bool RunToFileChange(pid_t process, int count, int told, const std::function<void()>& release)
{
    if (ptrace(PTRACE_SEIZE, process, 0, PTRACE_O_TRACESYSGOOD) != 0 || ptrace(PTRACE_INTERRUPT, process, 0, 0) != 0)
        return false;
    release();
    Stop stop;
    while (Await(process, stop)) {
        SystemCall info{};
        if (stop.AtCall && ptrace(PTRACE_GET_SYSCALL_INFO, process, sizeof info, &info) > 0) {
            count -= IsChange(info) ? 1 : 0;
            if (count <= 0 || IsWrite(info, told))
                return true;
        }
        if (ptrace(PTRACE_SYSCALL, process, 0, stop.Signal) != 0)
            return false;
    }
    return false;
}

}  // namespace ecg
