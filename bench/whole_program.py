"""Figures of the whole player, measured from outside on a screen of its own: start, idling, playing, a huge folder."""

import os
import shutil
import subprocess
import tempfile
import time
from contextlib import contextmanager
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
PLAYER = ROOT / "build" / "bench" / "src" / "app" / "kiv-mp3"
FIRST_WINDOW = ROOT / "build" / "bench" / "bench" / "first_window"
SONG = ROOT / "demo" / "music" / "The Night Trams - Last Stop Moonlight.mp3"
SIZE = "460x440"
STARTS = 7
SONGS = 100_000


@contextmanager
def own_desktop():
    """A screen, a window manager and a home for the player; gone afterwards."""
    home = Path(tempfile.mkdtemp())
    (home / "run").mkdir(mode=0o700)
    (home / "kiv").mkdir()
    read_end, write_end = os.pipe()
    screen = subprocess.Popen(["Xvfb", "-displayfd", str(write_end), "-screen", "0", "1280x1024x24"],
                              pass_fds=[write_end], stderr=subprocess.DEVNULL)
    os.close(write_end)
    display = ":" + os.read(read_end, 16).decode().strip()
    os.environ.update(DISPLAY=display, HOME=str(home), XDG_RUNTIME_DIR=str(home / "run"), KIV_MP3_SOUND="null",
                      KIV_MP3_HOME=str(home / "kiv"), DBUS_SESSION_BUS_ADDRESS="disabled:")
    manager = subprocess.Popen(["openbox"], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    time.sleep(1)
    try:
        yield home
    finally:
        for process in (manager, screen):
            process.terminate()
            process.wait()
        shutil.rmtree(home)


@contextmanager
def started(*arguments):
    """Starts the player; gives milliseconds to its window, CPU milliseconds by then, process number."""
    output = subprocess.run([FIRST_WINDOW, SIZE, PLAYER, *arguments], check=True, stdout=subprocess.PIPE).stdout
    taken, cpu, process = output.split()
    try:
        yield float(taken), float(cpu), int(process)
    finally:
        os.kill(int(process), 9)
        time.sleep(0.3)


def use_of(process):
    """CPU seconds and wake-ups of a process so far, all threads together."""
    cpu = wakeups = 0
    for task in Path(f"/proc/{process}/task").iterdir():
        cpu += int((task / "schedstat").read_text().split()[0])
        status = (task / "status").read_text()
        wakeups += int(status.split("voluntary_ctxt_switches:")[1].split()[0])
    return cpu / 1e9, wakeups


def watched(process, seconds):
    """CPU in percent of a core and wake-ups a second over a time."""
    cpu, wakeups = use_of(process)
    time.sleep(seconds)
    cpu_after, wakeups_after = use_of(process)
    used, woken = max(cpu_after - cpu, 0), max(wakeups_after - wakeups, 0)  # Threads that ended take theirs along.
    return used / seconds * 100, woken / seconds


def resident_mb(process):
    return int(Path(f"/proc/{process}/status").read_text().split("VmRSS:")[1].split()[0]) / 1024


def start_row(name, *arguments):
    figures = []
    for _ in range(STARTS):
        with started(*arguments) as (taken, cpu, _process):
            time.sleep(0.5)
            figures.append((taken, cpu))
    taken, cpu = sorted(figures)[STARTS // 2]
    kept = not arguments or (taken < 50 and cpu < 50)
    return name, f"{taken:.0f} ms, {cpu:.0f} ms CPU", "50, 50" if arguments else "", kept


def idle_rows():
    with started() as (_taken, _cpu, process):
        time.sleep(2)
        cpu, wakeups = watched(process, 30)
        memory = resident_mb(process)
    yield "idle, 30 s", f"{cpu:.2f} % CPU, {wakeups:.2f} wake-ups a second", "0.0, 1", cpu < 0.05 and wakeups < 1
    yield "memory, idle", f"{memory:.0f} MB", "45", memory < 45


def playing_rows():
    with started(SONG) as (_taken, _cpu, process):
        time.sleep(4)
        cpu, wakeups = watched(process, 20)
        memory = resident_mb(process)
    yield "playing, 20 s", f"{cpu:.2f} % CPU, {wakeups:.0f} wake-ups a second", "0.5, 50", cpu <= 0.5 and wakeups <= 50
    yield "memory, playing", f"{memory:.0f} MB", "85", memory < 85
    other = subprocess.Popen(["mpv", "--no-video", "--config=no", "--ao=null", "--really-quiet", SONG])
    time.sleep(4)
    cpu, wakeups = watched(other.pid, 20)
    other.kill()
    other.wait()
    yield "mpv --no-video", f"{cpu:.2f} % CPU, {wakeups:.0f} wake-ups a second", "", True


def huge_folder_rows(home):
    folder = home / "huge"
    folder.mkdir()
    for number in range(SONGS):
        (folder / f"Artist {number * 7919 % SONGS:06d} - Some Song {number:06d}.mp3").touch()
    (home / "one").mkdir()
    one = home / "one" / "Song.mp3"  # As empty as the hundred thousand: neither start loads the sound library.
    one.touch()
    with started(one) as (small, _cpu, process):
        time.sleep(2)
        small_memory = resident_mb(process)
    with started(next(folder.iterdir())) as (huge, _cpu, process):
        time.sleep(2)
        memory = resident_mb(process) - small_memory
    seconds = (huge - small) / 1000
    yield "100,000 songs", f"{seconds:.2f} s, {memory:.0f} MB more memory", "0.3, 30", seconds < 0.3 and memory < 30


def rows():
    with own_desktop() as home:
        yield start_row("start with a song", SONG)
        yield start_row("start without")
        yield from idle_rows()
        yield from playing_rows()
        yield from huge_folder_rows(home)
