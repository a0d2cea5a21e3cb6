#!/usr/bin/python3
"""A host of status notifier items that does what GNOME's indicator extension does: it shows no tooltip, a
click of any kind opens the menu, and it is gone while the screen is locked. Each line of its input is
"menu", "click LABEL", "lock" or "unlock"; each line of its output is a JSON object that tells what came
of it. A menu is told as the list of its labels, in which "" is a separator and "!" stands before what
cannot be pressed."""

import json
import sys

import gi

gi.require_version("Gio", "2.0")
from gi.repository import Gio, GLib  # pylint: disable=wrong-import-position

WATCHER = "org.kde.StatusNotifierWatcher"
PATH = "/StatusNotifierWatcher"
ITEM = "org.kde.StatusNotifierItem"
MENU = "com.canonical.dbusmenu"

INTERFACE = f"""
<node>
  <interface name="{WATCHER}">
    <method name="RegisterStatusNotifierItem"><arg type="s" direction="in"/></method>
    <method name="RegisterStatusNotifierHost"><arg type="s" direction="in"/></method>
    <property name="RegisteredStatusNotifierItems" type="as" access="read"/>
    <property name="IsStatusNotifierHostRegistered" type="b" access="read"/>
    <property name="ProtocolVersion" type="i" access="read"/>
  </interface>
</node>
"""


class Host:
    def __init__(self):
        self._bus = Gio.bus_get_sync(Gio.BusType.SESSION)
        interface = Gio.DBusNodeInfo.new_for_xml(INTERFACE).interfaces[0]
        self._bus.register_object(PATH, interface, self._called, self._property, None)
        self._bus.signal_subscribe(
            None, MENU, "LayoutUpdated", None, None, Gio.DBusSignalFlags.NONE, lambda *_: self.tell_menu()
        )
        self._item = None
        self._owned = 0
        self.unlock()

    def lock(self):
        self._item = None
        Gio.bus_unown_name(self._owned)

    def unlock(self):
        self._owned = Gio.bus_own_name_on_connection(self._bus, WATCHER, Gio.BusNameOwnerFlags.NONE, None, None)

    def _called(self, _bus, sender, _path, _interface, method, _parameters, invocation):
        invocation.return_value(None)
        if method == "RegisterStatusNotifierItem":
            self._item = sender
            self._ask(ITEM, "/StatusNotifierItem", "Id", lambda name: tell({"item": name}))

    def _property(self, _bus, _sender, _path, _interface, name):
        return {
            "RegisteredStatusNotifierItems": GLib.Variant("as", [self._item] if self._item else []),
            "IsStatusNotifierHostRegistered": GLib.Variant("b", True),
            "ProtocolVersion": GLib.Variant("i", 0),
        }[name]

    def _call(self, path, interface, method, arguments, then):
        def finished(bus, result):
            then(*bus.call_finish(result).unpack())

        self._bus.call(
            self._item, path, interface, method, arguments, None, Gio.DBusCallFlags.NONE, -1, None, finished
        )

    def _ask(self, interface, path, name, then):
        self._call(path, "org.freedesktop.DBus.Properties", "Get", GLib.Variant("(ss)", (interface, name)), then)

    def _layout(self, then):
        """The entries as pairs of their number and their label."""

        def read(path):
            arguments = GLib.Variant("(iias)", (0, -1, ["type", "label", "enabled", "visible", "children-display"]))
            self._call(path, MENU, "GetLayout", arguments, lambda _revision, root: then(path, entries_of(root)))

        self._ask(ITEM, "/StatusNotifierItem", "Menu", read)

    def tell_menu(self):
        if self._item:
            self._layout(lambda _path, entries: tell({"menu": [label for _, label in entries]}))

    def open_menu(self):
        """It is asked whether it is up to date, read, and told that it is open."""

        def opened(path, entries):
            self._event(path, 0, "opened")
            tell({"menu": [label for _, label in entries]})

        self._ask(
            ITEM,
            "/StatusNotifierItem",
            "Menu",
            lambda path: self._call(
                path, MENU, "AboutToShow", GLib.Variant("(i)", (0,)), lambda *_: self._layout(opened)
            ),
        )

    def click(self, wanted):
        def chosen(path, entries):
            number = next((number for number, label in entries if wanted in label), None)
            if number is not None:
                self._event(path, number, "clicked")
                self._event(path, 0, "closed")
            tell({"clicked": number is not None})

        self._layout(chosen)

    def _event(self, path, number, name):
        arguments = GLib.Variant("(isvu)", (number, name, GLib.Variant("i", 0), 0))
        self._call(path, MENU, "Event", arguments, lambda: None)


def entries_of(root):
    found = []
    for number, values, _children in root[2]:
        mark = "" if values.get("enabled", True) else "!"
        found.append((number, "" if values.get("type") == "separator" else mark + values.get("label", "")))
    return found


def tell(what):
    print(json.dumps(what), flush=True)


def main():
    host = Host()
    loop = GLib.MainLoop()
    source = open(sys.stdin.fileno(), "rb", buffering=0)  # pylint: disable=consider-using-with

    def obey(_source, _condition):
        # Unbuffered: what a buffer holds wakes nobody up.
        line = source.readline().decode().rstrip("\n")
        if not line:
            loop.quit()
            return False
        command, *arguments = line.split(" ", 1)
        {"menu": host.open_menu, "click": host.click, "lock": host.lock, "unlock": host.unlock}[command](*arguments)
        return True

    GLib.io_add_watch(source, GLib.IO_IN | GLib.IO_HUP, obey)
    loop.run()


if __name__ == "__main__":
    main()
