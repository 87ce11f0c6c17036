# SPDX-License-Identifier: GPL-3.0-or-later
"""What a program uses, all its processes together: processor time, wake-ups, memory. Read from /proc."""

import ctypes
import os
import signal
import time
from pathlib import Path

SLOT_SECONDS = 0.02
BUSY_SHARE = 0.25
ADOPT_ORPHANS = 36  # PR_SET_CHILD_SUBREAPER


def tasks(process):
    try:
        return list(Path(f"/proc/{process}/task").iterdir())
    except OSError:
        return []


def content(path):
    try:
        return path.read_text(errors="replace")
    except OSError:  # It has just ended.
        return ""


def target(link):
    try:
        return os.readlink(link)
    except OSError:
        return ""


def below(process):
    """All processes below a process."""
    for task in tasks(process):
        for child in map(int, content(task / "children").split()):
            yield child
            yield from below(child)


def cpu_seconds(process):
    """User and system time of all threads, also of those that have ended."""
    try:
        return time.clock_gettime((~process << 3) | 2)  # What clock_getcpuclockid() gives.
    except OSError:
        return 0.0


def is_service(process):
    """A service of the session bus: the program that needed it first is not the one that it works for."""
    return "DBUS_STARTER_ADDRESS=" in content(Path(f"/proc/{process}/environ"))


def growth(before, after):
    """What was counted between two looks. What ended in between takes its count along."""
    return sum(max(count - before.get(key, 0), 0) for key, count in after.items())


class ProcessTree:
    """All processes below this one, but for some strangers, what is below them, and services of the session bus.
    Processes whose parents have ended stay in it."""

    def __init__(self, strangers):
        ctypes.CDLL(None).prctl(ADOPT_ORPHANS, 1, 0, 0, 0)
        self._strangers = strangers

    def processes(self):
        outside = self._strangers.union(*(below(stranger) for stranger in self._strangers))
        return {process for process in below(os.getpid()) if process not in outside and not is_service(process)}

    def cpu(self):
        return {process: cpu_seconds(process) for process in self.processes()}

    def wakeups(self):
        """How often each thread went to sleep of its own will, and so was woken."""
        counts = {}
        for process in self.processes():
            for task in tasks(process):
                _, _, count = content(task / "status").partition("\nvoluntary_ctxt_switches:")
                counts[task.name] = int(count.split()[0]) if count else 0
        return counts

    def resident_mb(self):
        """Resident memory of all processes; pages they share count in each."""
        status = [content(Path(f"/proc/{process}/status")) for process in self.processes()]
        return sum(int(text.partition("VmRSS:")[2].split()[0]) for text in status if "VmRSS:" in text) / 1024

    def watch(self, seconds):
        """Processor time in percent of a core, and wake-ups a second, over a time."""
        cpu, wakeups = self.cpu(), self.wakeups()
        began = time.monotonic()
        time.sleep(seconds)
        passed = time.monotonic() - began
        return growth(cpu, self.cpu()) / passed * 100, growth(wakeups, self.wakeups()) / passed

    def wait_until_calm(self, calm_seconds, limit_seconds):
        """Waits until it has used little for a while; gives the time when it was last busy."""
        now = busy_at = time.monotonic()
        deadline = now + limit_seconds
        used = self.cpu()
        while now - busy_at < calm_seconds:
            if now > deadline:
                break
            time.sleep(SLOT_SECONDS)
            before, then = used, now
            used, now = self.cpu(), time.monotonic()
            if growth(before, used) > BUSY_SHARE * (now - then):
                busy_at = now
        return busy_at

    def read_position(self, file):
        """How many bytes of a file have been read by the process that holds it open; None when none does."""
        for process in self.processes():
            for link in Path(f"/proc/{process}/fd").glob("*"):
                if target(link) == str(file):
                    position = content(link.parent.parent / "fdinfo" / link.name).partition("pos:")[2].split()
                    return int(position[0]) if position else None
        return None

    def stop(self):
        """Asks all processes to end; those that do not within three seconds are ended."""
        for number in (signal.SIGTERM, signal.SIGKILL):
            self._signal(number)
            deadline = time.monotonic() + 3
            while self._reap() and time.monotonic() < deadline:
                time.sleep(0.02)

    def _signal(self, number):
        for process in self.processes():
            try:
                os.kill(process, number)
            except ProcessLookupError:
                pass

    def _reap(self):
        """Takes leave of processes that have ended; gives those that have not."""
        for process in self.processes():
            try:
                os.waitpid(process, os.WNOHANG)
            except ChildProcessError:
                pass
        return self.processes()
