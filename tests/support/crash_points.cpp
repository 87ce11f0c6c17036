// Work on files that dies, or meets a full disk, at a chosen moment.
#include "support/crash_points.h"

#include <cerrno>
#include <fcntl.h>
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

// Counts one change of the disk. True when the call must fail.
bool failsHere()
{
    if (stepsLeft == 0 || --stepsLeft > 0)
        return false;
    if (plannedFault == Fault::Death)
        ::_exit(metCode);
    faultMet = true;
    errno = ENOSPC;
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

extern "C" {
ssize_t write(int handle, const void *bytes, size_t size)
{
    return failsHere() ? -1 : ::syscall(SYS_write, handle, bytes, size);
}

ssize_t pwrite(int handle, const void *bytes, size_t size, off_t offset)
{
    return failsHere() ? -1 : ::syscall(SYS_pwrite64, handle, bytes, size, offset);
}

int fsync(int handle)
{
    return failsHere() ? -1 : static_cast<int>(::syscall(SYS_fsync, handle));
}

int ftruncate(int handle, off_t length) noexcept
{
    return failsHere() ? -1 : static_cast<int>(::syscall(SYS_ftruncate, handle, length));
}

int rename(const char *from, const char *to) noexcept
{
    return failsHere() ? -1 : static_cast<int>(::syscall(SYS_rename, from, to));
}

int renameat2(int fromFolder, const char *from, int toFolder, const char *to, unsigned flags) noexcept
{
    return failsHere() ? -1 : static_cast<int>(::syscall(SYS_renameat2, fromFolder, from, toFolder, to, flags));
}

int unlink(const char *path) noexcept
{
    return failsHere() ? -1 : static_cast<int>(::syscall(SYS_unlinkat, AT_FDCWD, path, 0));
}
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
