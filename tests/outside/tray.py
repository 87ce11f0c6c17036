# SPDX-License-Identifier: GPL-3.0-or-later
"""Hides the player into a tray that comes late, looks for it when the tray dies, and changes the skin of its icon.

Needs what the other tests here need (see CMakeLists.txt). The tray is this test itself.
"""
import subprocess
import time

from gi.repository import Gio, GLib

from player import FOLDER, NAMES, Atspi, Window, has, wait_for, walk

TRAY = "org.kde.StatusNotifierWatcher"
ITEM = "org.kde.StatusNotifierItem"
FACES = Gio.DBusNodeInfo.new_for_xml(f"""<node><interface name="{TRAY}">
    <method name="RegisterStatusNotifierItem"><arg type="s" direction="in"/></method>
    <property name="IsStatusNotifierHostRegistered" type="b" access="read"/></interface></node>""").interfaces
bus = Gio.bus_get_sync(Gio.BusType.SESSION)
items = []


def call(_bus, sender, _path, _face, _method, _words, answer):
    items.append(sender)
    answer.return_value(None)


def tray_comes():
    items.clear()
    owner = Gio.bus_own_name_on_connection(bus, TRAY, Gio.BusNameOwnerFlags.NONE)
    wait("the icon in the tray", lambda: items)
    for _ in range(10):  # What else the player asks of a new tray.
        serve()
        time.sleep(0.05)
    return owner


def serve():
    while GLib.MainContext.default().iteration(False):
        pass


def wait(what, condition):
    def serve_and_look():
        serve()
        return condition()
    wait_for(what, serve_and_look)


def ask_icon(face, method, words):
    return bus.call_sync(items[-1], "/StatusNotifierItem", face, method, words, None, Gio.DBusCallFlags.NONE, -1, None)


def fact(name):
    return str(ask_icon("org.freedesktop.DBus.Properties", "Get", GLib.Variant("(ss)", (ITEM, name))))


def keys(*names):
    subprocess.run(["xdotool", "key", "--clearmodifiers", *names], check=True)


def is_focused(description):
    """Whether that option has the keyboard; False while its window is not there."""
    top = Window.shown("Skin")
    return top and any(control.get_description() == description and has(control, "FOCUSED") for control in walk(top))


def window_is(state):
    said = subprocess.run(["xprop", "-id", window_id, "WM_STATE"], capture_output=True, text=True, check=True).stdout
    return f"window state: {state}" in said if state else "window state" not in said or "Withdrawn" in said


def restore():
    subprocess.run(["xdotool", "windowactivate", window_id], check=True)
    wait("the window as before", lambda: window_is("Normal"))


told = []
listener = Atspi.EventListener.new(lambda event: told.append(event.source.get_name()))
listener.register("object:state-changed:focused")
bus.register_object("/StatusNotifierWatcher", FACES[0], call, lambda *_: GLib.Variant("b", True), None)
window = Window(folder=FOLDER)
window_id = subprocess.run(["xdotool", "search", "--onlyvisible", "--pid", str(window.process.pid), "--name", "."],
                           capture_output=True, text=True, check=True).stdout.split()[0]
window.press("Hide")
wait("a window without a tray, minimised", lambda: window_is("Iconic"))
restore()
tray = tray_comes()
window.press("Hide")
wait("a window in the tray", lambda: window_is(None))
Gio.bus_unown_name(tray)
wait("the window that lost its tray, minimised", lambda: window_is("Iconic"))
restore()
tray_comes()
window.press("Hide")
wait("a window in the new tray", lambda: window_is(None))
ask_icon(ITEM, "Activate", GLib.Variant("(ii)", (0, 0)))
wait("the window from the tray", lambda: window_is("Normal"))
window.press("Next song")
wait("the song in the icon's tip", lambda: NAMES[0].removesuffix(".mp3") in fact("ToolTip"))
restore()
before = fact("IconPixmap")
keys("Menu", "Down", "Down", "Down", "Down", "Return")  # The options.
wait("the keyboard in the options", lambda: is_focused("Translucency"))
keys("Tab", "Tab", "Tab", "Tab", "Down")
wait("the skin that the keyboard chose, read out", lambda: "Enamel" in told)
wait("its icon in the tray", lambda: fact("IconPixmap") != before)
window.press("Next song")
wait("the next song in the icon's tip", lambda: NAMES[1].removesuffix(".mp3") in fact("ToolTip"))
assert fact("IconPixmap") != before
keys("Escape")
wait("the row at which the keyboard is again, read out", lambda: NAMES[1] in told)
window.press("Exit")
window.wait_for_end()
