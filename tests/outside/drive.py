# SPDX-License-Identifier: GPL-3.0-or-later
"""Plays with the finished program as a user does: mouse and keys, and what assistive tools are told of it.

Needs an X screen with a window manager, a session bus and a home of its own (see CMakeLists.txt here).
"""
import subprocess
import time

from player import FOLDER, NAMES, Atspi, Window, wait_for


def xdotool(*words):
    subprocess.run(["xdotool", *map(str, words)], check=True)


def point_at(control, across=0.5, down=0.5):
    place = control.get_extents(Atspi.CoordType.SCREEN)
    xdotool("mousemove", int(place.x + across * place.width), int(place.y + down * place.height))


def click(control, *how):
    point_at(control)
    xdotool("click", *how, 1)


def drag_the_thumb_to_six_tenths():
    slider = window.controls["Position"]
    length = window.seconds()[1]
    thumb = 13 / slider.get_extents(Atspi.CoordType.SCREEN).width  # Half of it.
    start = thumb + (1 - 2 * thumb) * window.value("Position") / length
    point_at(slider, start)
    xdotool("mousedown", 1)
    for step in range(1, 7):
        point_at(slider, start + (0.6 - start) * step / 6)
        time.sleep(0.05)
    xdotool("mouseup", 1)
    wait_for("the time at six tenths", lambda: 0.5 * length <= window.seconds()[0] <= 0.8 * length)


def turn_the_wheel_over_the_volume():
    before = window.value("Volume")
    point_at(window.controls["Volume"])
    xdotool("click", 5)
    return wait_for("another volume", lambda: window.value("Volume") != before and window.value("Volume"))


window = Window(FOLDER / NAMES[4])
window.plays(NAMES[4])
wait_for("the songs of its folder", lambda: [row.get_name() for row in window.songs()] == NAMES)
click(window.songs()[1], "--repeat", 2, "--delay", 60)
window.plays(NAMES[1])
drag_the_thumb_to_six_tenths()
volume = turn_the_wheel_over_the_volume()
click(window.controls["Exit"])
window.wait_for_end()

window = Window()
wait_for("the kept folder", lambda: [row.get_name() for row in window.songs()] == NAMES)
wait_for("the kept volume", lambda: window.value("Volume") == volume)
window.press("Exit")
window.wait_for_end()
