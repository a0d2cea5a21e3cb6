"""The snippets of docs/Bars.md in the real bars."""

import glob
import os
import re
import shutil
import tempfile
import unittest

from desktop import SessionTest, wait_until
from desktop.case import PROGRAMS, ROOT
from desktop.processes import output_of

SNIPPETS = os.path.join(ROOT, "docs", "Bars.md")

# For a compositor that has what bars ask for, without a screen.
HEADLESS = {
    "WLR_BACKENDS": "headless",
    "WLR_LIBINPUT_NO_DEVICES": "1",
    "WLR_RENDERER": "pixman",
}

# None of these is in what a bar draws by itself.
COLORS = {"stale": "#c81e64", "waiting": "#1ec864", "blocked": "#641ec8"}


def snippet(language, holding):
    """The first code block in the language that holds this text."""
    with open(SNIPPETS, encoding="utf-8") as file:
        blocks = re.findall(rf"```{language}\n(.*?)```", file.read(), re.DOTALL)
    return next(block for block in blocks if holding in block)


class BarTest(SessionTest):
    def setUp(self):
        super().setUp()
        # The bars find the program as they would an installed one.
        os.symlink(
            os.path.join(PROGRAMS, "tarnwick"),
            os.path.join(self.session.folder, "programs", "tarnwick"),
        )
        self.start_github()
        self.select()

    def write(self, name, text):
        path = os.path.join(self.session.folder, name)
        with open(path, "w", encoding="utf-8") as file:
            file.write(text)
        return path


@unittest.skipUnless(shutil.which("polybar"), "polybar is not installed")
class PolybarTests(BarTest):
    def testTheBarFollowsTheList(self):
        bar = "[bar/test]\nmodules-left = tarnwick\nfont-0 = monospace\n"
        configuration = self.write("polybar.ini", bar + snippet("ini", "[module/tarnwick]"))
        shown = self.session.processes.start("polybar", "--stdout", f"--config={configuration}", "test")
        wait_until(lambda: "Not updated yet" in output_of(shown), "the first state in the bar")
        self.run_tarnwick("list")
        wait_until(
            lambda: re.search(r"(wait on you|waits on you|pull requests) · \d", output_of(shown)),
            "the list in the bar",
        )


@unittest.skipUnless(
    all(shutil.which(name) for name in ("waybar", "sway", "grim")), "waybar, sway or grim is not installed"
)
class WaybarTests(BarTest):
    window_manager = None

    def start_compositor(self):
        """Sway does not run as root, so root starts it as nobody, with a folder of its own."""
        folder = tempfile.mkdtemp()
        self.addCleanup(shutil.rmtree, folder)
        configuration = os.path.join(folder, "config")
        with open(configuration, "w", encoding="utf-8") as file:
            file.write("output HEADLESS-1 resolution 800x600\n")
        command = ("sway", f"--config={configuration}")
        if os.geteuid() == 0:
            shutil.chown(folder, "nobody", "nogroup")
            command = ("setpriv", "--reuid=nobody", "--regid=nogroup", "--clear-groups", *command)
        variables = {**HEADLESS, "XDG_RUNTIME_DIR": folder, "HOME": folder}
        self.session.processes.start(*command, environment=variables)
        sockets = os.path.join(folder, "wayland-*[0-9]")
        wait_until(lambda: glob.glob(sockets), "the compositor")
        self.session.environment["WAYLAND_DISPLAY"] = glob.glob(sockets)[0]

    def testTheBarFollowsTheList(self):
        self.start_compositor()
        module = snippet("jsonc", "custom/tarnwick")
        configuration = self.write(
            "waybar.json", '{"modules-left": ["custom/tarnwick"],\n' + module + "}\n"
        )
        colors = "".join(f"#custom-tarnwick.{name} {{ background: {color}; opacity: 1; }}\n" for name, color in COLORS.items())
        style = self.write("waybar.css", snippet("css", "#custom-tarnwick") + colors)
        self.session.processes.start("waybar", f"--config={configuration}", f"--style={style}")
        wait_until(lambda: self.shows("stale"), "the first state in the bar")
        self.run_tarnwick("list")
        wait_until(lambda: self.shows("blocked") or self.shows("waiting"), "the list in the bar")

    def shows(self, name):
        """Whether the module has the background of the class."""
        file = os.path.join(self.session.folder, "bar.ppm")
        taken = self.session.processes.run("grim", "-t", "ppm", file)
        if taken.returncode != 0:
            return False
        with open(file, "rb") as picture:
            pixels = picture.read()
        return pixels.count(bytes.fromhex(COLORS[name][1:])) > 50


class PromptTests(BarTest):
    def testThePromptCountsWhatIsNew(self):
        self.run_tarnwick("list")
        script = snippet("bash", "tarnwick_waiting()") + "tarnwick_waiting\n"
        counted = self.session.processes.run("bash", "--norc", "-c", script)
        self.assertEqual((counted.stdout, counted.stderr), ("13\n", ""))
