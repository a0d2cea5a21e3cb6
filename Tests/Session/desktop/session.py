"""A display, a bus and what else makes a desktop, all of a test's own."""

import glob
import os
import shutil
import tempfile

from .processes import Processes
from .screen import Screen
from .waiting import wait_until

SCREEN = (1280, 800)

BUS_CONFIGURATION = """<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>unix:path={socket}</listen>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
"""

XFCE_PANEL = """<?xml version="1.0" encoding="UTF-8"?>
<channel name="xfce4-panel" version="1.0">
  <property name="configver" type="int" value="2"/>
  <property name="panels" type="array">
    <value type="int" value="1"/>
    <property name="panel-1" type="empty">
      <property name="position" type="string" value="p=6;x=0;y=0"/>
      <property name="length" type="uint" value="100"/>
      <property name="position-locked" type="bool" value="true"/>
      <property name="size" type="uint" value="30"/>
      <property name="plugin-ids" type="array">
        <value type="int" value="1"/>
        <value type="int" value="2"/>
      </property>
    </property>
  </property>
  <property name="plugins" type="empty">
    <property name="plugin-1" type="string" value="separator">
      <property name="expand" type="bool" value="true"/>
      <property name="style" type="uint" value="0"/>
    </property>
    <property name="plugin-2" type="string" value="systray"/>
  </property>
</channel>
"""

LXQT_PANEL = """[General]
__userfile__=true
panels=panel1

[panel1]
alignment=-1
desktop=0
lineCount=1
panelSize=32
plugins=statusnotifier
position=Bottom
width=100
width-percent=true

[statusnotifier]
alignment=Right
type=statusnotifier
"""


class Session:
    """Everything is started by a method and ended by `end`, whatever happens in between."""

    def __init__(self):
        self.folder = tempfile.mkdtemp(prefix="tws-")
        self.logs = self._made("logs")
        self.home = self._made("home")
        self.processes = Processes(self.logs, self._environment())
        self.display = None
        self.bus = None
        self.screen = None

    def _made(self, name, mode=0o755):
        path = os.path.join(self.folder, name)
        os.makedirs(path, mode=mode)
        return path

    def _environment(self):
        inherited = {
            name: value
            for name, value in os.environ.items()
            if name in ("PATH", "LD_LIBRARY_PATH", "LLVM_PROFILE_FILE", "ASAN_SYMBOLIZER_PATH")
            or name.startswith("GCOV_PREFIX")
            or name.endswith("SAN_OPTIONS")
        }
        return {
            **inherited,
            "HOME": self.home,
            "LANG": "C.UTF-8",
            "TZ": "UTC",
            "XDG_RUNTIME_DIR": self._made("run", 0o700),
            "XDG_CONFIG_HOME": os.path.join(self.home, ".config"),
            "XDG_DATA_HOME": os.path.join(self.home, ".local/share"),
            "XDG_CACHE_HOME": os.path.join(self.home, ".cache"),
            "XDG_STATE_HOME": os.path.join(self.home, ".local/state"),
            "NO_AT_BRIDGE": "1",
        }

    @property
    def environment(self):
        return self.processes.environment

    def start_display(self, size=SCREEN):
        read_end, write_end = os.pipe()
        self.display = self.processes.start(
            "Xvfb",
            "-displayfd",
            str(write_end),
            "-screen",
            "0",
            f"{size[0]}x{size[1]}x24",
            "-nolisten",
            "tcp",
            "-noreset",
            pass_fds=(write_end,),
        )
        os.close(write_end)
        with os.fdopen(read_end) as answer:
            number = answer.readline().strip()
        if not number:
            raise AssertionError("Xvfb found no display")
        self.environment["DISPLAY"] = f":{number}"
        # It tells its number a little before it takes connections.
        wait_until(
            lambda: self.processes.run("xprop", "-root", "_NET_SUPPORTED").returncode == 0,
            "the display",
        )
        self.screen = Screen(self.processes)
        # The first key that is sent makes the test keyboard the one in use. A window manager binds
        # its keys anew then, and loses one that comes meanwhile.
        self.screen.key("Shift_L")

    def start_weston(self):
        """A Wayland compositor without a screen, in the place of the display."""
        name = "wayland-test"
        socket = os.path.join(self.environment["XDG_RUNTIME_DIR"], name)
        self.processes.start(
            "weston", "--backend=headless-backend.so", f"--socket={name}", "--idle-time=0"
        )
        wait_until(lambda: os.path.exists(socket), "the compositor")
        self.environment["WAYLAND_DISPLAY"] = name
        del self.environment["DISPLAY"]

    def start_bus(self):
        socket = os.path.join(self.folder, "run", "bus")
        configuration = os.path.join(self.folder, "bus.conf")
        with open(configuration, "w", encoding="utf-8") as file:
            file.write(BUS_CONFIGURATION.format(socket=socket))
        self.bus = self.processes.start(
            "dbus-daemon", f"--config-file={configuration}", "--nofork"
        )
        wait_until(lambda: os.path.exists(socket), "the session bus")
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = f"unix:path={socket}"

    def start_window_manager(self, *command):
        process = self.processes.start(*(command or ("openbox",)))
        # One announces itself a good while before it takes windows, and loses those that come
        # meanwhile. Whoever follows a wish takes windows, too.
        wait_until(
            lambda: "window id" in self._root_property("_NET_SUPPORTING_WM_CHECK")
            and self._has_one_desktop(),
            "the window manager",
        )
        return process

    def _has_one_desktop(self):
        self.processes.run("xdotool", "set_num_desktops", "1")
        return self._root_property("_NET_NUMBER_OF_DESKTOPS").endswith("= 1\n")

    def _root_property(self, name):
        return self.processes.run("xprop", "-root", name).stdout

    def start_xfce_panel(self):
        """At the top. A host of status notifier items and of icons that are windows."""
        self._write(".config/xfce4/xfconf/xfce-perchannel-xml/xfce4-panel.xml", XFCE_PANEL)
        self.start_xfconf()
        return self._start_panel("xfce4-panel", "--disable-wm-check")

    def start_xfconf(self):
        """What programs of Xfce keep their settings with."""
        if not self.owns_name("org.xfce.Xfconf"):
            self.processes.start(*glob.glob("/usr/lib/*/xfce4/xfconf/xfconfd")[:1])
            wait_until(lambda: self.owns_name("org.xfce.Xfconf"), "xfconfd")

    def start_lxqt_panel(self):
        """At the bottom. A host of status notifier items alone."""
        self._write(".config/lxqt/panel.conf", LXQT_PANEL)
        return self._start_panel("lxqt-panel")

    def _start_panel(self, *command):
        process = self.processes.start(*command)
        wait_until(
            lambda: self.owns_name("org.kde.StatusNotifierWatcher"), f"the tray of {command[0]}"
        )
        return process

    def _write(self, name, text):
        path = os.path.join(self.home, name)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "w", encoding="utf-8") as file:
            file.write(text)

    def start_accessibility(self):
        """To be called before the program starts."""
        self.processes.start("/usr/libexec/at-spi-bus-launcher", "--launch-immediately")
        wait_until(lambda: self.owns_name("org.a11y.Bus"), "the accessibility bus")
        self.environment["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1"
        del self.environment["NO_AT_BRIDGE"]

    def call(self, name, path, member, *arguments):
        """Calls a method on the bus by `gdbus`, with arguments in its notation. Returns the program
        with its status and its output."""
        return self.processes.run(
            "gdbus",
            "call",
            "--session",
            f"--dest={name}",
            f"--object-path={path}",
            f"--method={member}",
            *arguments,
        )

    def owns_name(self, name):
        answer = self.call(
            "org.freedesktop.DBus",
            "/org/freedesktop/DBus",
            "org.freedesktop.DBus.NameHasOwner",
            name,
        )
        return "true" in answer.stdout

    def end(self, keep):
        """Ends everything. The folder with the logs stays where `keep` says so."""
        self.processes.end_all()
        if not keep:
            shutil.rmtree(self.folder, ignore_errors=True)
