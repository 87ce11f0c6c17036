"""Plays with the finished program as a user does: mouse, keys and what assistive tools are told, nothing from inside.

Needs an X screen with a window manager, a session bus and a home of its own (see CMakeLists.txt here).
"""
import os
import re
import subprocess
import sys
import time
from pathlib import Path

from player import FOLDER, NAMES, Atspi, Window, wait_for

SETTINGS = Path(os.environ["KIV_MP3_HOME"]) / "KIV Mp3/Setting Files/Settings.KiV"


def xdotool(*words):
    subprocess.run(["xdotool", *map(str, words)], check=True)


def place(control, across=0.5, down=0.5):
    place = control.get_extents(Atspi.CoordType.SCREEN)
    return int(place.x + across * place.width), int(place.y + down * place.height)


def click(control, times=1):
    xdotool("mousemove", *place(control), "click", "--repeat", times, "--delay", 60, 1)


def stored(key):
    found = re.search(rf"^{key}=(.*?)\r?$", SETTINGS.read_bytes().decode("utf-8-sig"), re.MULTILINE | re.IGNORECASE)
    return found[1] if found else ""


def dragging_the_thumb_seeks():
    slider = window.controls["Position"]
    length = window.seconds()[1]
    thumb = 13 / slider.get_extents(Atspi.CoordType.SCREEN).width  # Half of it.
    start = thumb + (1 - 2 * thumb) * window.value("Position") / length
    xdotool("mousemove", *place(slider, start), "mousedown", 1)
    for step in range(1, 7):
        xdotool("mousemove", *place(slider, start + (0.6 - start) * step / 6))
        time.sleep(0.05)
    xdotool("mouseup", 1)
    wait_for("the time at six tenths", lambda: 0.5 * length <= window.seconds()[0] <= 0.8 * length)


def wheel_turns_the_volume():
    before = window.value("Volume")
    xdotool("mousemove", *place(window.controls["Volume"]), "click", "--repeat", 5, "--delay", 40, 5)
    wait_for("a quieter volume", lambda: window.value("Volume") != before)
    time.sleep(0.3)
    return window.value("Volume")


def exit_keeps_folder_and_volume():
    click(window.controls["Exit"])
    window.wait_for_end()
    if FOLDER.name not in stored("Mp3Path").replace("\\", "/") or not -2290 < int(stored("Volume")) < 0:
        sys.exit(f"FAILED: kept the folder {stored('Mp3Path')} and the volume {stored('Volume')}")


window = Window(FOLDER / NAMES[4])
window.plays(NAMES[4])
wait_for("the songs of its folder", lambda: [row.get_name() for row in window.songs()] == NAMES)
click(window.songs()[1], times=2)
window.plays(NAMES[1])
dragging_the_thumb_seeks()
window.pause_holds_the_time()
volume = wheel_turns_the_volume()
window.press("Next song")
window.plays(NAMES[2])
exit_keeps_folder_and_volume()

window = Window()
wait_for("the kept folder", lambda: [row.get_name() for row in window.songs()] == NAMES)
wait_for("the kept volume", lambda: window.value("Volume") == volume)
window.press("Exit")
window.wait_for_end()
