"""A Debian of a test's own in a folder, with nothing in it but what a system starts with."""

import hashlib
import os
import shutil
import stat
import tempfile

from place import run

RELEASE = "bookworm"

USER = "somebody"
# One that no user of the machine is likely to have.
USER_ID = 61234

# What every use of apt changes, what is empty after a start, and what only this test puts there.
UNCOUNTED = (
    "dev",
    "proc",
    "run",
    "sys",
    "tmp",
    "var/cache/apt",
    "var/cache/ldconfig/aux-cache",
    "var/lib/apt",
    "var/lib/dpkg/available",
    "var/lib/dpkg/status",
    "var/lib/dpkg/status-old",
    "var/log",
)

# Runs what follows in the folder $1, with what lives in $2 as apt's archives and with a /proc. Both
# are gone with the command.
ENTER = """
mount --bind "$2" "$1/var/cache/apt/archives" && mount -t proc proc "$1/proc" || exit 125
user=$3
root=$1
shift 3
exec /usr/sbin/chroot --userspec="$user" "$root" "$@"
"""


class RootError(Exception):
    """What could not be made, with the output of who should have."""


def cache_folder():
    cache = os.environ.get("XDG_CACHE_HOME") or os.path.expanduser("~/.cache")
    return os.path.join(cache, "tarnwick", "roots")


def base_folder():
    """What debootstrap has made, in this run or in an earlier one."""
    architecture = checked("dpkg", "--print-architecture").strip()
    base = os.path.join(cache_folder(), f"{RELEASE}-{architecture}")
    if not os.path.exists(base):
        coming = f"{base}.new"
        shutil.rmtree(coming, ignore_errors=True)
        os.makedirs(cache_folder(), exist_ok=True)
        checked("debootstrap", "--variant=minbase", RELEASE, coming)
        os.rename(coming, base)
    return base


def check_machine():
    """Throws `RootError` where no root can be made."""
    checked("unshare", "--mount", "mount", "--bind", "/tmp", "/tmp")
    base_folder()


class FreshRoot:
    """What debootstrap makes is kept between two tests, and so are the packages that apt fetches; the
    folder itself is a copy. Needs root."""

    def __init__(self):
        self._archives = os.path.join(cache_folder(), "archives")
        os.makedirs(os.path.join(self._archives, "partial"), exist_ok=True)
        base = base_folder()
        self.folder = tempfile.mkdtemp(prefix="root-", dir=cache_folder())
        checked("cp", "-a", "--reflink=auto", f"{base}/.", self.folder)
        os.chmod(self.folder, 0o755)

    def path(self, name):
        return os.path.join(self.folder, name.lstrip("/"))

    def command(self, *words, user="0:0"):
        """What runs a command in the root."""
        return ("unshare", "--mount", "sh", "-c", ENTER, "sh", self.folder, self._archives, user, *words)

    def run(self, *words, **options):
        """Runs a command as root to its end."""
        environment = {
            "PATH": "/usr/sbin:/usr/bin:/sbin:/bin",
            "LC_ALL": "C.UTF-8",
            "HOME": "/root",
            "DEBIAN_FRONTEND": "noninteractive",
        }
        return checked(*self.command(*words), env=environment, **options)

    def apt(self, *words):
        """Recommended packages stay away: the program has to do with what it depends on."""
        return self.run("apt-get", "--yes", "--no-install-recommends", "-o", "Dpkg::Use-Pty=0", *words)

    def add_user(self):
        self.run("useradd", "--create-home", f"--uid={USER_ID}", "--shell=/bin/bash", USER)
        runtime = self.path(f"run/user/{USER_ID}")
        os.makedirs(runtime)
        os.chmod(runtime, 0o700)
        os.chown(runtime, USER_ID, USER_ID)

    def content(self):
        """All that counts: the path of each file with its kind, its owner, its permissions and what
        is in it."""
        found = {}
        for folder, folders, files in os.walk(self.folder):
            inner = os.path.relpath(folder, self.folder)
            inside = {name: os.path.normpath(os.path.join(inner, name)) for name in folders + files}
            folders[:] = [name for name in folders if inside[name] not in UNCOUNTED]
            for path in inside.values():
                if path not in UNCOUNTED:
                    found[path] = self._description(path)
        return found

    def _description(self, path):
        whole = self.path(path)
        status = os.lstat(whole)
        content = ""
        if stat.S_ISLNK(status.st_mode):
            content = os.readlink(whole)
        elif stat.S_ISREG(status.st_mode):
            with open(whole, "rb") as file:
                content = hashlib.file_digest(file, "sha256").hexdigest()
        return status.st_mode, status.st_uid, status.st_gid, content

    def remove(self):
        """Nothing is mounted any more once the commands have ended."""
        checked("rm", "-rf", "--one-file-system", self.folder)


def checked(*command, **options):
    done = run(*command, **options)
    if done.returncode != 0:
        raise RootError(f"{' '.join(command)} ended with {done.returncode}:\n{done.stdout}")
    return done.stdout
