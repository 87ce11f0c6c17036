# SPDX-License-Identifier: GPL-3.0-or-later
"""Plays a song and visits every window through assistive tools alone: no mouse, no keys, nothing from inside.

On the way every window must tell what each of its controls is, and let the keyboard have those that can be used.
"""
from pathlib import Path

from player import FOLDER, NAMES, Atspi, GLib, Window, act, fail, has, wait_for, walk

USED = {"push button", "check box", "combo box", "slider", "list"}
TOLD = USED | {"frame", "panel", "label", "text", "image"}
TWINS = {"Play list times"}  # Of controls with the keyboard.
opened = []
renamed = []


def audit(top):
    for control in filter(lambda control: has(control, "SHOWING"), walk(top)):
        role, name, what = control.get_role_name(), control.get_name(), control.get_description()
        if role not in TOLD or not (what or role == "frame") or not (name or role == "label"):
            fail(f"{top.get_name()}: the {role} {name!r} does not tell what it is ({what!r})")
        if role in USED and has(control, "ENABLED") and what not in TWINS and not has(control, "FOCUSABLE"):
            fail(f"{top.get_name()}: the keyboard cannot reach {what!r}")
    return top


def control(top, what):
    return next(control for control in walk(top) if control.get_description() == what)


def choose_in_menu(command):
    opened.clear()
    act(window.frame, "ShowMenu")
    menu = wait_for("the song menu", opened_menus)[0]
    act(next(item for item in map(menu.get_child_at_index, range(12)) if item.get_name() == command), "Press")


def hears_of_the_title():
    while GLib.MainContext.default().iteration(False):
        pass
    return renamed.count("Song now playing")


def opened_menus():
    GLib.MainContext.default().iteration(False)
    return [source for source in opened if source.get_role() == Atspi.Role.POPUP_MENU]


def visit(shows, *steps):
    """Audits the window with that control, uses it and leaves it: the main window is back."""
    top = wait_for(f"the window with {shows!r}", lambda: Window.shown(shows))
    audit(top)
    for step in steps:
        if isinstance(step, str):
            control(top, step).do_action(0)
        else:
            wait_for(step.__name__, lambda: step(top))
    wait_for(f"the way back from {shows!r}", lambda: not Window.shown(shows) and Window.shown("Songs"))


def finds_a_song(top):
    Atspi.EditableText.set_text_contents(control(top, "Text to look for"), "twelve")
    found = control(top, "Songs found")
    found.clear_cache()
    return found.get_child_count() == 1 and found.get_name() == "1 song found"


def plays_what_it_found(top):
    act(control(top, "Songs found").get_child_at_index(0), "Press")
    return "TWELVE" in window.state()[0]


def shows_song_data(top):
    return has(control(top, "Tool tip data"), "CHECKED")


def shows_tags_and_none(top):
    act(control(top, "Mp3 files").get_child_at_index(0), "Toggle")
    act(control(audit(wait_for("the tag", lambda: Window.shown("Save the tag"))), "Remove the tag"), "Press")
    return audit(wait_for("the song without a tag", lambda: Window.shown("Add a tag")))


listener = Atspi.EventListener.new(lambda event: event.detail1 and opened.append(event.source))
listener.register("object:state-changed:showing")
namer = Atspi.EventListener.new(lambda event: renamed.append(event.source.get_description()))
namer.register("object:property-change:accessible-name")
told = []
values = Atspi.EventListener.new(lambda event: event.source.get_description() == "Position" and told.append(event.type))
values.register("object:property-change:accessible-value")
window = Window(folder=FOLDER)
audit(window.frame)
wait_for("the songs", lambda: len(window.songs()) == len(NAMES))
act(window.songs()[2], "Toggle")
wait_for("the chosen song", lambda: has(window.songs()[2], "SELECTED"))
window.press("Play")
window.plays(NAMES[2])
audit(window.frame)
keys = [control.get_name() for control in walk(window.frame) if control.get_name() == "Play" and has(control, "SHOWING")]
if len(keys) != 1 or window.state()[0] != Path(NAMES[2]).stem:
    fail(f"told {keys} and {window.state()[0]!r}")
wait_for("the mark", lambda: [row.get_description() for row in window.songs()][1:4] == ["", "Playing", ""])
wait_for("news of the title", hears_of_the_title)
if hears_of_the_title() > 5:  # It has turned ten times and more.
    fail("every turn of the title was told")
Atspi.Value.set_current_value(window.controls["Volume"], 40)
wait_for("the volume", lambda: window.value("Volume") == 40)
told.clear()
window.pause_holds_the_time()
GLib.MainContext.default().iteration(False)
if told:
    fail(f"the position was told {told} by itself")
wait_for("the place in words", lambda: " of " in window.now("Position").get_name())
act(window.songs()[1], "Press")
window.plays(NAMES[1])
window.press("Stop")
wait_for("silence", lambda: window.time() == "0:00/0:00")
choose_in_menu("Song Search")
visit("Text to look for", finds_a_song, plays_what_it_found, "Close search")
choose_in_menu("PlayList")
visit("Play list songs", "Close play list")
choose_in_menu("Options")
visit("Save options", "Tool tip data", shows_song_data, "Save options")
choose_in_menu("About...")
visit("Show the running processes", "Show the running processes", "Close")
choose_in_menu("Mp3 Name Tools")
visit("New name", shows_tags_and_none, "Close")
window.press("Choose the music folder")
visit("Choose this folder", "Close")
window.press("Exit")
window.wait_for_end()
