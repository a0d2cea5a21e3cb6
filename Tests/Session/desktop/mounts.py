"""A file system that looks different to one program: it gets mounts of its own."""

import shlex
import subprocess
import unittest


class Mounts:
    """Every method adds a difference; `command` starts a program that finds them all."""

    def __init__(self):
        self._script = "set -e\n"

    def put(self, source, target):
        """The source is found in the place of the target, which must be there."""
        self._script += shlex.join(("mount", "--bind", source, target)) + "\n"

    def hide_program(self, target):
        """Nothing that can be run is found in the place of the target, which must be there."""
        self.put("/dev/null", target)

    def make_read_only(self, folder):
        self.put(folder, folder)
        self._script += shlex.join(("mount", "-o", "remount,bind,ro", folder)) + "\n"

    def fill(self, folder):
        """What is in the folder lies on a disk without room for more. Whatever the program writes
        there is seen below /proc/ID/root alone."""
        place = shlex.quote(folder)
        self._script += f"""copy=$(mktemp -d)
cp -a {place}/. "$copy"
mount -t tmpfs -o size=1m tmpfs {place}
cp -a "$copy"/. {place}
rm -r "$copy"
cat /dev/zero >{place}/filler 2>/dev/null || true
"""

    def command(self, *command):
        return (*_own_mounts(), "sh", "-c", self._script + 'exec "$@"', "sh", *command)


def _own_mounts():
    """Root may mount as it is; others where the system lets them be root in a namespace."""
    ways = (
        ("unshare", "--mount"),
        ("unshare", "--user", "--map-current-user", "--keep-caps", "--mount"),
    )
    for way in ways:
        if subprocess.run((*way, "true"), capture_output=True, check=False).returncode == 0:
            return way
    raise unittest.SkipTest("This system lets the user make no mounts.")
