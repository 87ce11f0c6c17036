# SPDX-License-Identifier: GPL-3.0-or-later
"""Plays a song and visits every window through assistive tools alone: no mouse, no keys, nothing from inside.

On the way every window must tell what each of its controls is, and let the keyboard have those that can be used.
"""
from player import FOLDER, NAMES, Atspi, GLib, Window, act, fail, has, wait_for, walk

USED = {"push button", "check box", "combo box", "slider", "list"}
TOLD = USED | {"frame", "panel", "label", "text", "image"}
TWINS = {"Previous song", "Play", "Pause", "Stop", "Next song", "Play list times"}  # Of controls with the keyboard.
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
    return found.get_child_count() == 1


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
window = Window(folder=FOLDER)
audit(window.frame)
wait_for("the songs", lambda: len(window.songs()) == len(NAMES))
act(window.songs()[2], "Toggle")
wait_for("the chosen song", lambda: has(window.songs()[2], "SELECTED"))
window.press("Play button")
window.plays(NAMES[2])
wait_for("news of the title", hears_of_the_title)
if hears_of_the_title() > 5:  # It has turned ten times and more.
    fail("every turn of the title was told")
Atspi.Value.set_current_value(window.controls["Volume"], 40)
wait_for("the volume", lambda: window.value("Volume") == 40)
window.pause_holds_the_time()
window.press("Stop button")
wait_for("silence", lambda: window.time() == "0:00/0:00")
choose_in_menu("Song Search")
visit("Text to look for", finds_a_song, "Close search")
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
