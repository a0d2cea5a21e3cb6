#!/usr/bin/python3
"""Stands on the bus in the place of the program with its interface for bars alone. Each line of its
input is a JSON object of properties that change; the first one tells them all."""

import json
import sys

import gi

gi.require_version("Gio", "2.0")
from gi.repository import Gio, GLib  # pylint: disable=wrong-import-position

NAME = "dev.tarnwick.Tarnwick"
PATH = "/dev/tarnwick/Tarnwick"
STATUS = "dev.tarnwick.Tarnwick.Status"
PROPERTIES = "org.freedesktop.DBus.Properties"
TYPES = {
    "WaitingOnYou": "u",
    "ReadyToMerge": "u",
    "Blocked": "u",
    "Listed": "u",
    "IsStale": "b",
    "LastRefreshed": "x",
}

INTERFACE = """
<node>
  <interface name="org.freedesktop.DBus.Properties">
    <method name="GetAll"><arg type="s" direction="in"/><arg type="a{sv}" direction="out"/></method>
  </interface>
</node>
"""


def variants(properties):
    return {name: GLib.Variant(TYPES[name], value) for name, value in properties.items()}


def main():
    # Unbuffered: what a buffer holds wakes nobody up.
    source = open(sys.stdin.fileno(), "rb", buffering=0)  # pylint: disable=consider-using-with
    properties = json.loads(source.readline())
    loop = GLib.MainLoop()
    bus = Gio.bus_get_sync(Gio.BusType.SESSION)

    def called(*arguments):
        arguments[-1].return_value(GLib.Variant("(a{sv})", (variants(properties),)))

    def change(_source, _condition):
        line = source.readline()
        if not line:
            loop.quit()
            return False
        changed = json.loads(line)
        properties.update(changed)
        told = GLib.Variant("(sa{sv}as)", (STATUS, variants(changed), []))
        bus.emit_signal(None, PATH, PROPERTIES, "PropertiesChanged", told)
        return True

    bus.register_object(PATH, Gio.DBusNodeInfo.new_for_xml(INTERFACE).interfaces[0], called, None, None)
    Gio.bus_own_name_on_connection(bus, NAME, Gio.BusNameOwnerFlags.NONE, None, None)
    GLib.io_add_watch(source, GLib.IO_IN | GLib.IO_HUP, change)
    loop.run()


if __name__ == "__main__":
    main()
