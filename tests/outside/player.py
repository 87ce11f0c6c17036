# SPDX-License-Identifier: GPL-3.0-or-later
"""The finished program as its users meet it, through what assistive tools are told: what the tests here share.

Usage of a test: TEST.py PLAYER DEMO_SONGS_FOLDER
"""
import faulthandler
import os
import shutil
import subprocess
import sys
import time
from pathlib import Path

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

FOLDER = Path(os.environ["HOME"]) / "Songs of 50% & \"more\" ночь"
PATIENCE = 60  # A busy machine takes its time.
faulthandler.dump_traceback_later(2.5 * PATIENCE, exit=True)  # Where a call hangs is told before the test is ended.
shutil.copytree(sys.argv[2], FOLDER)
NAMES = sorted((song.name for song in FOLDER.iterdir()), key=str.casefold)
Atspi.init()


def wait_for(what, condition):
    """The condition's first value that counts as true; fails when none comes in time."""
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        try:
            if value := condition():
                return value
        except GLib.Error:  # Something went away while it was looked at.
            pass
        time.sleep(0.05)
    fail(what)


def fail(what):
    window = Window.last
    sys.exit(f"FAILED: {what}; the display says {window.state() if window else 'nothing'}")


def walk(control):
    """The control and all within it, the rows of lists and tables left out."""
    yield control
    if control.get_role() not in (Atspi.Role.LIST, Atspi.Role.COMBO_BOX):
        for child in filter(None, map(control.get_child_at_index, range(control.get_child_count()))):
            yield from walk(child)


def has(control, *states):
    control.clear_cache()
    return all(control.get_state_set().contains(getattr(Atspi.StateType, state)) for state in states)


def act(control, action):
    names = [control.get_action_name(i) for i in range(control.get_n_actions())]
    control.do_action(names.index(action))


class Window:
    """The main window, its controls found by their descriptions."""

    last = None

    def __init__(self, *arguments, folder=None):
        self.process = subprocess.Popen([sys.argv[1], *arguments], cwd=folder)
        self.frame = wait_for("the main window", lambda: self.shown("Songs"))
        self.controls = {control.get_description(): control for control in walk(self.frame)}
        Window.last = self

    @staticmethod
    def shown(*descriptions):
        """The window that shows these controls; None while there is none."""
        desktop = Atspi.get_desktop(0)
        desktop.clear_cache()
        for program in filter(None, map(desktop.get_child_at_index, range(desktop.get_child_count()))):
            for top in filter(None, map(program.get_child_at_index, range(program.get_child_count()))):
                shown = {control.get_description() for control in walk(top) if has(control, "SHOWING")}
                if shown.issuperset(descriptions):
                    return top
        return None

    def now(self, description):
        """The control as it is now, not as it was when last asked."""
        self.controls[description].clear_cache()
        return self.controls[description]

    def time(self):
        return Atspi.Text.get_text(self.now("Time"), 0, -1)

    def value(self, description):
        return Atspi.Value.get_current_value(self.now(description))

    def seconds(self):
        """Position and length as the display shows them."""
        times = [part.split(":") for part in self.time().split("/")]
        return [int(minutes) * 60 + int(seconds) for minutes, seconds in times]

    def state(self):
        return self.now("Song now playing").get_name(), self.time(), self.value("Volume")

    def songs(self):
        rows = self.now("Songs")
        return [rows.get_child_at_index(i) for i in range(rows.get_child_count())]

    def press(self, description):
        Atspi.Action.do_action(self.controls[description], 0)

    def plays(self, name):
        # The title runs around: any turn of it will do.
        wait_for(f"the title of {name}", lambda: Path(name).stem in self.state()[0] * 2)
        wait_for("running time", lambda: self.seconds()[0] >= 1)

    def pause_holds_the_time(self):
        self.press("Pause")
        time.sleep(0.3)
        held = self.seconds()
        if not has(self.controls["Pause"], "CHECKED"):
            fail("Pause does not say that it holds")
        time.sleep(2)  # That nothing happens can only be seen by waiting.
        if self.seconds() != held:
            fail(f"paused at {held}, the time went on")
        self.press("Pause")
        wait_for("the time going on", lambda: self.seconds() > held)

    def wait_for_end(self):
        status = self.process.wait(PATIENCE)
        if status != 0:
            sys.exit(f"FAILED: the player ended with status {status}")
