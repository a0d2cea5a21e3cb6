"""A Debian of a test's own in a folder, with nothing in it but what a system starts with."""

import hashlib
import os
import shlex
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

# What a command in the root may know of the machine: the way to the network.
INHERITED = ("http_proxy", "https_proxy", "no_proxy")


class RootError(Exception):
    """What could not be made, with the output of who should have."""


def cache_folder():
    cache = os.environ.get("XDG_CACHE_HOME") or os.path.expanduser("~/.cache")
    return os.path.join(cache, "tarnwick", "roots")


def script_of(release):
    """What debootstrap knows the release by, if it does."""
    return os.path.join("/usr/share/debootstrap/scripts", release)


def debootstrap_options(release):
    # Ubuntu's releases share one script, and have half of what is needed in a component of its own.
    is_ubuntu = os.path.basename(os.path.realpath(script_of(release))) == "gutsy"
    return ("--variant=minbase", *(("--components=main,universe",) if is_ubuntu else ()))


def base_folder(release):
    """What debootstrap has made, in this run or in an earlier one."""
    options = debootstrap_options(release)
    architecture = checked("dpkg", "--print-architecture").strip()
    base = os.path.join(cache_folder(), f"{release}-{architecture}")
    if not os.path.exists(base):
        coming = f"{base}.new"
        shutil.rmtree(coming, ignore_errors=True)
        os.makedirs(cache_folder(), exist_ok=True)
        checked("debootstrap", *options, release, coming)
        os.rename(coming, base)
    return base


def check_machine(release=RELEASE):
    """Throws `RootError` where no root can be made."""
    checked("unshare", "--mount", "mount", "--bind", "/tmp", "/tmp")
    base_folder(release)


class FreshRoot:
    """What debootstrap makes is kept between two tests, and so are the packages that apt fetches; the
    folder itself is a copy, or a FOLDER that was one. Needs root."""

    def __init__(self, release=RELEASE, folder=None):
        archives = os.path.join(cache_folder(), "archives")
        os.makedirs(os.path.join(archives, "partial"), exist_ok=True)
        self.folder = folder or self._copy(base_folder(release))
        self.namespaces = ["--mount"]
        # Each as what mount takes and its place in the root. They are gone with each command.
        self.mounts = [
            (("--bind", archives), "var/cache/apt/archives"),
            (("-t", "proc", "proc"), "proc"),
        ]

    @staticmethod
    def _copy(base):
        folder = tempfile.mkdtemp(prefix="root-", dir=cache_folder())
        checked("cp", "-a", "--reflink=auto", f"{base}/.", folder)
        os.chmod(folder, 0o755)
        return folder

    def path(self, name):
        return os.path.join(self.folder, name.lstrip("/"))

    def command(self, *words, user="0:0"):
        """What runs a command in the root."""
        mounts = [shlex.join(("mount", *what, self.path(place))) for what, place in self.mounts]
        enter = shlex.join(("/usr/sbin/chroot", f"--userspec={user}", self.folder))
        script = f'{" && ".join(mounts)} || exit 125; exec {enter} "$@"'
        return ("unshare", *self.namespaces, "sh", "-c", script, "sh", *words)

    @staticmethod
    def environment():
        """That of a command which root runs."""
        return {
            **{name: os.environ[name] for name in INHERITED if name in os.environ},
            "PATH": "/usr/sbin:/usr/bin:/sbin:/bin",
            "LC_ALL": "C.UTF-8",
            "HOME": "/root",
            "DEBIAN_FRONTEND": "noninteractive",
        }

    def run(self, *words, **options):
        """Runs a command as root to its end."""
        return checked(*self.command(*words), env=self.environment(), **options)

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
