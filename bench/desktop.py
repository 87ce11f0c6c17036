# SPDX-License-Identifier: GPL-3.0-or-later
"""A desktop for one player: a screen nobody sees, with a window manager, a session bus, a sound server without a device, and
a home that is thrown away. None of it is the user's, so no settings, no running player and no sound server of theirs is touched."""

import os
import shutil
import subprocess
import tempfile
import time
from contextlib import contextmanager
from pathlib import Path

NOT_PASSED_ON = ("WAYLAND_DISPLAY", "XAUTHORITY", "SESSION_MANAGER", "DESKTOP_STARTUP_ID")
QUIET = {"stdin": subprocess.DEVNULL, "stdout": subprocess.DEVNULL, "stderr": subprocess.DEVNULL}


class Desktop:
    """Used in a with statement. Programs started with its environment are on it."""

    def __init__(self, home_template=None):
        self.home = Path(tempfile.mkdtemp(prefix="bench-home-"))
        if home_template:
            shutil.copytree(home_template, self.home, dirs_exist_ok=True)
        (self.home / "run").mkdir(mode=0o700)
        self.environment = {name: value for name, value in os.environ.items()
                            if name not in NOT_PASSED_ON and not name.startswith(("XDG_", "DBUS_", "QT_"))}
        self.environment.update(HOME=str(self.home), XDG_RUNTIME_DIR=str(self.home / "run"),
                                KIV_MP3_HOME=str(self.home / "kiv"),
                                PULSE_SERVER=f"unix:{self.home}/run/sound")
        self._processes = []

    def __enter__(self):
        try:
            screen = self._start_telling("Xvfb", "-screen", "0", "1280x1024x24", "-nolisten", "tcp", "-noreset",
                                         "-displayfd", "FD")
            self.environment["DISPLAY"] = ":" + screen
            self.environment["DBUS_SESSION_BUS_ADDRESS"] = self._start_telling("dbus-daemon", "--session", "--nofork",
                                                                              "--print-address=FD")
            self._start("openbox", "--sm-disable")
            self._start("pulseaudio", "-n", "--daemonize=no", "--exit-idle-time=-1", "--use-pid-file=no",
                        "-L", "module-null-sink rate=44100",
                        "-L", f"module-native-protocol-unix auth-anonymous=1 socket={self.home}/run/sound")
            self._wait_for("window id", "the window manager", "xprop", "-root", "_NET_SUPPORTING_WM_CHECK")
            self._wait_for("null.monitor", "the sound server", "pactl", "info")
        except BaseException:
            self.__exit__()
            raise
        return self

    def __exit__(self, *_failure):
        for process in reversed(self._processes):
            process.terminate()
            process.wait()
        shutil.rmtree(self.home, ignore_errors=True)

    def processes(self):
        """The numbers of the processes that make the desktop."""
        return {process.pid for process in self._processes}

    def run(self, *command):
        """Runs a command on the desktop; gives what it printed."""
        return subprocess.run(command, env=self.environment, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                              text=True, check=False).stdout.strip()

    @contextmanager
    def listening(self):
        """Listens to what the sound server plays; gives a function that waits for the moment of the first sound."""
        with subprocess.Popen(["parec", "--raw", "--channels=1", "--latency-msec=1"], env=self.environment,
                              stdout=subprocess.PIPE, stderr=subprocess.DEVNULL) as recorder:
            os.read(recorder.stdout.fileno(), 1)  # It listens.

            def first_sound(seconds):
                end = time.monotonic() + seconds
                while time.monotonic() < end:
                    if any(os.read(recorder.stdout.fileno(), 65536)):
                        return time.monotonic()
                return None

            yield first_sound
            recorder.terminate()

    def _start(self, *command, **options):
        self._processes.append(subprocess.Popen(command, env=self.environment, **{**QUIET, **options}))

    def _start_telling(self, *command):
        """Starts a program that writes a line to the descriptor FD when it is ready; gives that line."""
        reading, writing = os.pipe()
        self._start(*(word.replace("FD", str(writing)) for word in command), pass_fds=[writing])
        os.close(writing)
        with os.fdopen(reading) as told:
            line = told.readline().strip()
        if not line:
            raise SystemExit(f"bench/run: {command[0]} did not start")
        return line

    def _wait_for(self, answer, what, *question):
        for _ in range(100):
            if answer in self.run(*question):
                return
            time.sleep(0.05)
        raise SystemExit(f"bench/run: {what} did not start")
