"""Plays with the finished program as a user does: mouse, keys and what assistive tools are told, nothing from inside.

Needs an X screen with a window manager, a session bus and a home of its own (see CMakeLists.txt here).
Usage: drive.py PLAYER DEMO_SONGS_FOLDER
"""
import os
import re
import shutil
import subprocess
import sys
import time
from pathlib import Path

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi  # noqa: E402

PLAYER, DEMO = sys.argv[1], Path(sys.argv[2])
FOLDER = Path(os.environ["HOME"]) / "Songs of 50% & \"more\" ночь"
SETTINGS = Path(os.environ["KIV_MP3_HOME"]) / "KIV Mp3/Setting Files/Settings.KiV"
PATIENCE = 20


def wait_for(what, condition):
    """The condition's first value that counts as true; fails when none comes in time."""
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        value = condition()
        if value:
            return value
        time.sleep(0.05)
    sys.exit(f"FAILED: {what}; the display says {window.state() if window else 'nothing'}")


def xdotool(*words):
    subprocess.run(["xdotool", *map(str, words)], check=True)


class Window:
    """The main window, its controls found by their descriptions."""

    def __init__(self, *arguments):
        self.process = subprocess.Popen([PLAYER, *arguments])
        self.controls = wait_for("the main window with its controls", self.look)

    def look(self):
        desktop = Atspi.get_desktop(0)
        desktop.clear_cache()
        for program in filter(None, map(desktop.get_child_at_index, range(desktop.get_child_count()))):
            for top in filter(None, map(program.get_child_at_index, range(program.get_child_count()))):
                children = filter(None, map(top.get_child_at_index, range(top.get_child_count())))
                found = {child.get_description(): child for child in children}
                if {"Songs", "Exit"} <= found.keys() and self.is_shown(found["Songs"]):
                    return found
        return None

    @staticmethod
    def is_shown(control):
        return control.get_state_set().contains(Atspi.StateType.SHOWING)

    def name(self, description):
        self.controls[description].clear_cache()
        return self.controls[description].get_name()

    def text(self, description):
        control = self.controls[description]
        control.clear_cache()
        return Atspi.Text.get_text(control, 0, -1)

    def value(self, description):
        self.controls[description].clear_cache()
        return Atspi.Value.get_current_value(self.controls[description])

    def seconds(self):
        """Position and length as the display shows them."""
        times = [part.split(":") for part in self.text("Time").split("/")]
        return [int(minutes) * 60 + int(seconds) for minutes, seconds in times]

    def state(self):
        return self.name("Song now playing"), self.text("Time"), self.value("Volume")

    def shows_title(self, title):
        return title in self.name("Song now playing") * 2  # The title runs around: any turn of it will do.

    def songs(self):
        rows = self.controls["Songs"]
        rows.clear_cache()
        return [rows.get_child_at_index(i) for i in range(rows.get_child_count())]

    def press(self, description):
        Atspi.Action.do_action(self.controls[description], 0)

    def place(self, control, across=0.5, down=0.5):
        place = control.get_extents(Atspi.CoordType.SCREEN)
        return int(place.x + across * place.width), int(place.y + down * place.height)

    def click(self, control, times=1):
        xdotool("mousemove", *self.place(control), "click", "--repeat", times, "--delay", 60, 1)

    def wait_for_end(self):
        status = self.process.wait(PATIENCE)
        if status != 0:
            sys.exit(f"FAILED: the player ended with status {status}")


def stored(key):
    found = re.search(rf"^{key}=(.*?)\r?$", SETTINGS.read_bytes().decode("utf-8-sig"), re.MULTILINE | re.IGNORECASE)
    return found[1] if found else ""


def plays_the_song_of_the_command_line(names):
    wait_for("the song's title", lambda: window.shows_title(Path(names[4]).stem))
    wait_for("running time", lambda: window.seconds()[0] >= 1)
    wait_for("the songs of its folder", lambda: [row.get_name() for row in window.songs()] == names)


def double_click_plays(names):
    window.click(window.songs()[1], times=2)
    wait_for("the double-clicked song's title", lambda: window.shows_title(Path(names[1]).stem))
    wait_for("its time from the start", lambda: 1 <= window.seconds()[0] <= 5)


def dragging_the_thumb_seeks():
    slider = window.controls["Position"]
    length = window.seconds()[1]
    thumb = 13 / slider.get_extents(Atspi.CoordType.SCREEN).width  # Half of it.
    start = thumb + (1 - 2 * thumb) * window.value("Position") / length
    xdotool("mousemove", *window.place(slider, start), "mousedown", 1)
    for step in range(1, 7):
        xdotool("mousemove", *window.place(slider, start + (0.6 - start) * step / 6))
        time.sleep(0.05)
    xdotool("mouseup", 1)
    wait_for("the time at six tenths", lambda: 0.5 * length <= window.seconds()[0] <= 0.8 * length)


def pause_holds_the_time():
    window.press("Pause")
    time.sleep(0.3)
    held = window.seconds()
    time.sleep(2)  # That nothing happens can only be seen by waiting.
    if window.seconds() != held:
        sys.exit(f"FAILED: paused at {held}, the time went on to {window.seconds()}")
    window.press("Pause")
    wait_for("the time going on", lambda: window.seconds() > held)


def wheel_turns_the_volume():
    before = window.value("Volume")
    xdotool("mousemove", *window.place(window.controls["Volume"]), "click", "--repeat", 5, "--delay", 40, 5)
    wait_for("a quieter volume", lambda: window.value("Volume") != before)
    time.sleep(0.3)
    return window.value("Volume")


def exit_keeps_folder_and_volume():
    window.click(window.controls["Exit"])
    window.wait_for_end()
    if FOLDER.name not in stored("Mp3Path").replace("\\", "/") or not -2290 < int(stored("Volume")) < 0:
        sys.exit(f"FAILED: kept the folder {stored('Mp3Path')} and the volume {stored('Volume')}")


shutil.copytree(DEMO, FOLDER)
names = sorted((song.name for song in FOLDER.iterdir()), key=str.casefold)
window = None
Atspi.init()
window = Window(FOLDER / names[4])
plays_the_song_of_the_command_line(names)
double_click_plays(names)
dragging_the_thumb_seeks()
pause_holds_the_time()
volume = wheel_turns_the_volume()
window.press("Next song")
wait_for("the next song's title", lambda: window.shows_title(Path(names[2]).stem))
exit_keeps_folder_and_volume()

window = Window()
wait_for("the kept folder", lambda: [row.get_name() for row in window.songs()] == names)
wait_for("the kept volume", lambda: window.value("Volume") == volume)
window.press("Exit")
window.wait_for_end()
