#!/usr/bin/python3
"""A notification server that shows nothing: it records what it is sent, in lines of JSON in a file, and
clicks as the lines of its input say: "NUMBER ACTION TOKEN"."""

import json
import sys

import gi

gi.require_version("Gio", "2.0")
from gi.repository import Gio, GLib  # pylint: disable=wrong-import-position

NAME = "org.freedesktop.Notifications"
PATH = "/org/freedesktop/Notifications"

INTERFACE = """
<node>
  <interface name="org.freedesktop.Notifications">
    <method name="GetCapabilities"><arg type="as" direction="out"/></method>
    <method name="Notify">
      <arg type="s" direction="in"/>
      <arg type="u" direction="in"/>
      <arg type="s" direction="in"/>
      <arg type="s" direction="in"/>
      <arg type="s" direction="in"/>
      <arg type="as" direction="in"/>
      <arg type="a{sv}" direction="in"/>
      <arg type="i" direction="in"/>
      <arg type="u" direction="out"/>
    </method>
    <signal name="ActivationToken"><arg type="u"/><arg type="s"/></signal>
    <signal name="ActionInvoked"><arg type="u"/><arg type="s"/></signal>
  </interface>
</node>
"""

FIELDS = ("program", "replaced", "icon", "summary", "body", "actions", "hints", "timeout")


class Server:
    def __init__(self, record):
        self._record = record
        self._count = 0
        self._bus = Gio.bus_get_sync(Gio.BusType.SESSION)
        interface = Gio.DBusNodeInfo.new_for_xml(INTERFACE).interfaces[0]
        self._bus.register_object(PATH, interface, self._called, None, None)
        Gio.bus_own_name_on_connection(self._bus, NAME, Gio.BusNameOwnerFlags.NONE, None, None)

    def _called(self, _bus, _sender, _path, _interface, method, parameters, invocation):
        if method == "GetCapabilities":
            answer = GLib.Variant("(as)", (["actions", "body", "body-markup", "sound"],))
        else:
            request = dict(zip(FIELDS, parameters.unpack()))
            self._count += 1
            number = request["replaced"] or self._count
            with open(self._record, "a", encoding="utf-8") as file:
                file.write(json.dumps({"number": number, **request}) + "\n")
            answer = GLib.Variant("(u)", (number,))
        invocation.return_value(answer)

    def _tell(self, signal, signature, *arguments):
        self._bus.emit_signal(None, PATH, NAME, signal, GLib.Variant(signature, arguments))

    def click(self, number, action, token):
        self._tell("ActivationToken", "(us)", number, token)
        self._tell("ActionInvoked", "(us)", number, action)


def main():
    server = Server(sys.argv[1])
    loop = GLib.MainLoop()

    def obey(channel, _condition):
        words = channel.readline().split()
        if not words:
            loop.quit()
            return False
        server.click(int(words[0]), words[1], words[2])
        return True

    GLib.io_add_watch(sys.stdin, GLib.IO_IN | GLib.IO_HUP, obey)
    loop.run()


if __name__ == "__main__":
    main()
