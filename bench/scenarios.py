# SPDX-License-Identifier: GPL-3.0-or-later
"""What a player is put through, on a desktop of its own; each scenario gives figures by name. None: not measured."""

import statistics
import subprocess
import sys
import time

from desktop import QUIET, Desktop
from player import BYTES_A_SECOND, COUNTS, TONE, WINDOW_SECONDS, filled, started, without_song
from process_tree import ProcessTree, growth

STARTS = 7
FOLDER_STARTS = 3
PATIENCE_SECONDS = 120
KEY_PATIENCE_SECONDS = 20
TYPED = "some song 07"


def figures(player, songs, home_template=None):
    """All figures of a player by name."""
    with Desktop(home_template) as desktop:
        trial = Trial(player, songs, desktop)
        trial.warm_up()
        measured = {}
        for scenario in (trial.start_with_song, trial.start_to_sound, trial.start_without, trial.idle, trial.playing,
                         trial.folder, trial.search):
            say(f"{player.name}: {scenario.__name__.replace('_', ' ')}")
            measured.update(scenario())
        say("")
        return measured


def say(text):
    if sys.stderr.isatty():
        print(f"\033[2K{text}", end="\r", file=sys.stderr, flush=True)


def complain(text):
    print(f"bench/run: {text}", file=sys.stderr)


class Trial:
    def __init__(self, player, songs, desktop):
        self.player, self.songs, self.desktop = player, songs, desktop
        self.tree = ProcessTree(desktop.processes())

    def warm_up(self):
        """The first start makes settings and caches; it is no measure. It shows whether there is a window at all."""
        with self._started(self._with_song()) as shown:
            self.player.has_window = shown is not None
            if not shown:
                complain(f"{self.player.name} shows no window; taken for a player without one")
            self.tree.wait_until_calm(1, PATIENCE_SECONDS)

    def start_with_song(self):
        taken, cpu = self._median_start(self._with_song())
        return {"start_ms": taken, "start_cpu_ms": cpu}

    def start_to_sound(self):
        """From exec until the server plays the first sound: how long it takes a user to hear a song."""
        command, taken = filled(self.player.command, TONE), []
        for _ in range(STARTS):
            with self.desktop.listening() as first_sound:
                began = time.monotonic()
                with subprocess.Popen(command, env=self.desktop.environment, cwd=self.desktop.home, **QUIET):
                    heard = first_sound(WINDOW_SECONDS)
                    self.tree.stop()
            if heard is None:
                return self._not_measured("plays nothing on the sound server")
            taken.append((heard - began) * 1000)
            time.sleep(0.5)
        return {"sound_ms": statistics.median(taken)}

    def start_without(self):
        taken, cpu = self._median_start(without_song(self.player.command))
        return {"bare_start_ms": taken, "bare_start_cpu_ms": cpu}

    def idle(self):
        if not self.player.has_window:
            return {}
        with self._started(without_song(self.player.command)):
            self.tree.wait_until_calm(3, PATIENCE_SECONDS)
            cpu, wakeups = self.tree.watch(30)
            return {"idle_cpu": cpu, "idle_wakeups": wakeups, "idle_mb": self.tree.resident_mb()}

    def playing(self):
        """Medians of three looks of ten seconds. The song must have been read at the pace of its sound meanwhile."""
        with self._started(self._with_song()):
            time.sleep(4)
            before = self.tree.read_position(self.songs.song)
            looks = [self.tree.watch(10) for _ in range(3)]
            after = self.tree.read_position(self.songs.song)
            memory = self.tree.resident_mb()
        if before is None or after is None or not 15 < (after - before) / BYTES_A_SECOND < 60:
            return self._not_measured(f"does not play the song at its pace (read from {before} to {after})")
        cpu, wakeups = map(statistics.median, zip(*looks))
        return {"playing_cpu": cpu, "playing_wakeups": wakeups, "playing_mb": memory}

    def folder(self):
        """How much longer it works after a start, and how much more CPU and memory it has used then, than with a single
        song."""
        if not self.player.folder_command or not self.player.has_window:
            return {}
        few = self._median_opening(self.songs.song)
        measured = {}
        for count in COUNTS:
            many = self._median_opening(self.songs.among(count))
            if many[0] >= PATIENCE_SECONDS:
                complain(f"{self.player.name} still works on {count:,} after {PATIENCE_SECONDS} s; measured as it is")
            for what, more, less in zip(("s", "cpu_s", "mb"), many, few):
                measured[f"folder_{what}_{count}"] = more - less
        return measured

    def search(self):
        """CPU milliseconds of typing into the search over the big folders, key by key. A song may play meanwhile."""
        if not self.player.folder_command or not self.player.search_keys:
            return {}
        measured = {}
        for count in COUNTS:
            used, typed = self._typed_among(count)
            if typed != TYPED:
                return self._not_measured(f"has not opened its search: the text that has the focus is '{typed}'")
            measured[f"key_ms_{count}"] = statistics.mean(used)
            measured[f"key_slowest_ms_{count}"] = max(used)
        return measured

    def _typed_among(self, count):
        """What each key used, and the text that was there in the end."""
        with self._started(filled(self.player.folder_command, self.songs.among(count))):
            self.tree.wait_until_calm(2, PATIENCE_SECONDS)
            self._press(self.player.search_keys, 0.5)
            self.tree.wait_until_calm(1, PATIENCE_SECONDS)
            return [self._type(letter) for letter in TYPED], self._text_in_focus()

    def _with_song(self):
        return filled(self.player.command, self.songs.song)

    def _started(self, command):
        return started(self.player, self.desktop, self.tree, command)

    def _median_start(self, command):
        """Milliseconds to the window and CPU milliseconds by then."""
        if not self.player.has_window:
            return None, None
        starts = []
        for _ in range(STARTS):
            with self._started(command) as shown:
                if not shown:
                    raise SystemExit(f"bench/run: no window within {WINDOW_SECONDS} seconds: {' '.join(command)}")
                starts.append(shown)
                time.sleep(0.5)
        return map(statistics.median, zip(*starts))

    def _median_opening(self, song):
        """Seconds until it has done its work after a start, CPU seconds and memory by then. Slow ones are started less
        often."""
        openings = []
        while len(openings) < FOLDER_STARTS and sum(opening[0] for opening in openings) < 30:
            began = time.monotonic()
            with self._started(filled(self.player.folder_command, song)):
                done = self.tree.wait_until_calm(2, PATIENCE_SECONDS)
                openings.append((done - began, sum(self.tree.cpu().values()), self.tree.resident_mb()))
        return list(map(statistics.median, zip(*openings)))

    def _press(self, keys, pause=0.0):
        for key in keys:
            self.desktop.run("xdotool", "key", key)
            time.sleep(pause)

    def _type(self, letter):
        used = self.tree.cpu()
        self._press(["space" if letter == " " else letter])
        self.tree.wait_until_calm(0.2, KEY_PATIENCE_SECONDS)
        return growth(used, self.tree.cpu()) * 1000

    def _text_in_focus(self):
        self._press(["ctrl+a", "ctrl+c"], 0.5)
        return self.desktop.run("timeout", "5", "xclip", "-selection", "clipboard", "-out")

    def _not_measured(self, why):
        """No figures, which only another player may do."""
        if self.player.is_ours:
            raise SystemExit(f"bench/run: {self.player.name} {why}")
        complain(f"{self.player.name} {why}")
        return {}
