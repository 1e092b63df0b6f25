// Runs a process up to one of its changes of the disk, so that it can be killed between two of them, however short the
// time between them is.
#pragma once

#include <functional>
#include <sys/types.h>

namespace ecg {

// Lets a child process run until its main thread is about to change a file or folder for the `count`th time: create,
// write, flush, shorten, rename or remove; or to write to the handle `told`. It then stands still. `release` is called
// once the process is watched. False when that cannot be, or when it has ended before.
bool RunToFileChange(pid_t process, int count, int told, const std::function<void()>& release);

}  // namespace ecg
