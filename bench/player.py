# SPDX-License-Identifier: GPL-3.0-or-later
"""A player to be measured: its commands, the songs it is given, and how it is started on a desktop."""

import os
import shlex
import shutil
import subprocess
import tempfile
from contextlib import contextmanager
from dataclasses import dataclass
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
BUILT = ROOT / "build" / "bench"
SONG = ROOT / "demo" / "music" / "The Night Trams - Last Stop Moonlight.mp3"
TONE = ROOT / "tests" / "data" / "tone-440.mp3"  # It sounds from its first sample on.
SONG_ROUNDS = 20  # The demo song lasts 31 seconds.
BYTES_A_SECOND = 11_500  # Of that song, in the mean.
COUNTS = (10_000, 100_000, 1_000_000)  # Songs of the big folders, so that growth is seen.
NAMES_A_FILE = 30_000  # ext4 allows 65,000.
WINDOW_SECONDS = 20
NO_WINDOW = 3  # What first_window ends with.


class Songs:
    """A song of ten minutes alone in a folder, and folders of very many songs. Used in a with statement."""

    def __enter__(self):
        self._folder = Path(tempfile.mkdtemp(prefix="bench-songs-"))
        self.song = self._folder / "one" / SONG.name
        self.song.parent.mkdir()
        self.song.write_bytes(long_song(SONG.read_bytes()))
        return self

    def __exit__(self, *_failure):
        shutil.rmtree(self._folder)

    def among(self, count):
        """A song in a folder of count, made when first asked for: real songs, but few files with many names."""
        many = self._folder / str(count)
        first = many / name_of(0, count)
        if not many.exists():
            many.mkdir()
            file = first
            for number in range(count):
                name = many / name_of(number, count)
                if number % NAMES_A_FILE == 0:
                    file = shutil.copy(self.song, name)
                else:
                    os.link(file, name)
        return first


def name_of(number, count):
    """Not in the order of the alphabet, for count songs."""
    return f"Artist {number * 7919 % count:06d} - Some Song {number:06d}.mp3"


def long_song(song):
    """A song many times in a row: without the frame that tells its length, the tag at the end once."""
    second_frame = song.index(song[:2], 4)
    return song[second_frame:-128] * SONG_ROUNDS + song[-128:]


@dataclass
class Player:
    """In the words of a command {song} stands for a song and {folder} for the folder it is in."""
    name: str
    command: list
    folder_command: list
    search_keys: list
    is_ours: bool = False
    has_window: bool = True


def this_player():
    program = str(BUILT / "src" / "app" / "kiv-mp3")
    return Player("this player", [program, "{song}"], [program, "{song}"], ["Menu", "Up", "Up", "Up", "Return"], True)


def other_player(command, folder_command, search_keys):
    words = shlex.split(command)
    if not any("{song}" in word for word in words):
        raise SystemExit(f"bench/run: no {{song}} in the other player's command: {command}")
    named = [word for word in words if word != "env" and "=" not in word]
    return Player(Path((named or words)[0]).name, words, shlex.split(folder_command), search_keys.split())


def filled(words, song):
    return [word.replace("{song}", str(song)).replace("{folder}", str(song.parent)) for word in words]


def without_song(words):
    return [word for word in words if "{song}" not in word]


@contextmanager
def started(player, desktop, tree, command):
    """Starts a player and waits for its window. Gives milliseconds until then and CPU milliseconds used by then, or
    None when there is no window."""
    seconds = WINDOW_SECONDS if player.has_window else 0
    try:
        watcher = subprocess.run([BUILT / "bench" / "first_window", str(seconds), *command], env=desktop.environment,
                                 cwd=desktop.home, capture_output=True, text=True, check=False)
        if watcher.returncode not in (0, NO_WINDOW):
            raise SystemExit(f"bench/run: {watcher.stderr.strip()}")
        if watcher.returncode == NO_WINDOW and player.is_ours:
            raise SystemExit(f"bench/run: {player.name} shows no window within {seconds} seconds")
        yield None if watcher.returncode == NO_WINDOW else tuple(map(float, watcher.stdout.split()))
    finally:
        tree.stop()
