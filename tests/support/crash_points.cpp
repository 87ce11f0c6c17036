// SPDX-License-Identifier: GPL-3.0-or-later
// Work on files that dies, or meets a full disk, at a chosen moment.
#include "support/crash_points.h"

#include <cerrno>
#include <cstdarg>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace
{
constexpr int metCode = 77;
constexpr uid_t nobody = 65534;

Fault plannedFault = Fault::Death;
int stepsLeft = 0; // 0: no fault planned.
bool faultMet = false;

// Counts one change of the disk, or one question to it. True when the call must fail.
bool failsHere(bool isQuestion = false)
{
    if (stepsLeft == 0 || (plannedFault == Fault::NoRead) != isQuestion || --stepsLeft > 0)
        return false;
    if (plannedFault == Fault::Death)
        ::_exit(metCode);
    faultMet = true;
    errno = isQuestion ? EIO : ENOSPC;
    return true;
}

int inChild(const std::function<int()> &work)
{
    const pid_t child = ::fork();
    if (child == 0)
        ::_exit(work());
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}
} // namespace

// What stands in front of a call of the C library: its own signature, and the system's number of it.
#define INSTEAD_OF(result, name, isQuestion, number, parameters, ...)                                                  \
    extern "C" result name parameters                                                                                  \
    {                                                                                                                  \
        return static_cast<result>(failsHere(isQuestion) ? -1 : ::syscall(number, __VA_ARGS__));                       \
    }
#define CHANGES_THE_DISK(result, name, ...) INSTEAD_OF(result, name, false, __VA_ARGS__)
#define ASKS_THE_DISK(result, name, ...) INSTEAD_OF(result, name, true, __VA_ARGS__)

CHANGES_THE_DISK(ssize_t, write, SYS_write, (int handle, const void *bytes, size_t size), handle, bytes, size)
CHANGES_THE_DISK(ssize_t, pwrite, SYS_pwrite64, (int handle, const void *bytes, size_t size, off_t at), handle, bytes,
                 size, at)
CHANGES_THE_DISK(int, fsync, SYS_fsync, (int handle), handle)
CHANGES_THE_DISK(int, ftruncate, SYS_ftruncate, (int handle, off_t length) noexcept, handle, length)
CHANGES_THE_DISK(int, rename, SYS_rename, (const char *from, const char *to) noexcept, from, to)
CHANGES_THE_DISK(int, renameat2, SYS_renameat2,
                 (int one, const char *from, int two, const char *to, unsigned flags) noexcept, one, from, two, to,
                 flags)
CHANGES_THE_DISK(int, unlink, SYS_unlinkat, (const char *path) noexcept, AT_FDCWD, path, 0)

ASKS_THE_DISK(ssize_t, pread, SYS_pread64, (int handle, void *bytes, size_t size, off_t at), handle, bytes, size, at)
ASKS_THE_DISK(int, fstat, SYS_fstat, (int handle, struct stat *status) noexcept, handle, status)
ASKS_THE_DISK(int, stat, SYS_stat, (const char *path, struct stat *status) noexcept, path, status)
ASKS_THE_DISK(int, lstat, SYS_lstat, (const char *path, struct stat *status) noexcept, path, status)

extern "C" int open(const char *path, int flags, ...)
{
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = va_arg(rest, mode_t); // Read in vain where none is given.
    va_end(rest);
    const bool isQuestion = (flags & (O_CREAT | O_ACCMODE)) == O_RDONLY;
    return static_cast<int>(isQuestion && failsHere(true) ? -1 : ::syscall(SYS_openat, AT_FDCWD, path, flags, mode));
}

Fate runWithFault(Fault fault, int step, const std::function<void()> &work)
{
    const int code = inChild([&] {
        plannedFault = fault;
        stepsLeft = step;
        work();
        return faultMet ? metCode : 0;
    });
    return code == metCode ? Fate::Met : code == 0 ? Fate::Spared : Fate::Crashed;
}

bool holdsForOrdinaryUser(const std::function<bool()> &check)
{
    return inChild([&] {
               const bool isRoot = ::geteuid() == 0;
               if (isRoot && (::setresgid(nobody, nobody, nobody) != 0 || ::setresuid(nobody, nobody, nobody) != 0))
                   return 1;
               return check() ? 0 : 1;
           }) == 0;
}
