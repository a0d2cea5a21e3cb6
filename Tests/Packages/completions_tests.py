"""What shells offer after "tarnwick"."""

import os
import pty
import re
import select
import shutil
import signal
import subprocess
import tempfile
import unittest

from place import PROGRAM, ROOT

COMPLETIONS = os.path.join(ROOT, "packaging", "completions")
BASH = os.path.join(COMPLETIONS, "tarnwick.bash")
ZSH = os.path.join(COMPLETIONS, "_tarnwick")
FISH = os.path.join(COMPLETIONS, "tarnwick.fish")

COMMANDS = ["list", "repositories", "watch"]
OPTIONS = ["--background", "--help", "--toggle", "--version"]

# Asks the function that bash would ask, with the words of a command line, the last of which is
# being typed.
ASK_BASH = """
source "$1"
shift
COMP_WORDS=("$@")
COMP_CWORD=$(($# - 1))
_tarnwick
((${#COMPREPLY[@]} == 0)) || printf '%s\\n' "${COMPREPLY[@]}"
"""


# A prompt to wait for, and Ctrl+X for what the line has become.
ZSHRC = """
PS1='ready '
unsetopt zle_bracketed_paste
fpath=({folder} $fpath)
autoload -U compinit
compinit -D
show-line() {{ print -r -- "<$BUFFER>"; BUFFER= }}
zle -N show-line
bindkey '^I' complete-word
bindkey '^X' show-line
"""


class CompletionsTest(unittest.TestCase):
    def setUp(self):
        self.home = tempfile.mkdtemp()
        self.addCleanup(shutil.rmtree, self.home)

    def write_selection(self, value):
        folder = os.path.join(self.home, ".config", "dev.tarnwick.Tarnwick")
        os.makedirs(folder, exist_ok=True)
        with open(os.path.join(folder, "settings.ini"), "w", encoding="utf-8") as file:
            file.write(f"[General]\nfilters.repositories={value}\nfilters.repositoriesConfigured=true\n")

    def output_of(self, *command):
        environment = {"HOME": self.home, "PATH": os.environ["PATH"], "LC_ALL": "C.UTF-8"}
        done = subprocess.run(
            command, stdin=subprocess.DEVNULL, capture_output=True, text=True, env=environment, check=False
        )
        self.assertEqual((done.returncode, done.stderr), (0, ""), command)
        return done.stdout


class OfferedWords:
    """What each shell has to offer; `offered` is the shell's."""

    def testOffersCommandsFirst(self):
        self.assertEqual(self.offered(""), COMMANDS)

    def testOffersTheProgramsOptions(self):
        self.assertEqual(self.offered("--"), OPTIONS)

    def testCompletesWhatIsBegun(self):
        self.assertEqual(self.offered("rep"), ["repositories"])
        self.assertEqual(self.offered("repositories", "un"), ["unselect"])
        self.assertEqual(self.offered("--ba"), ["--background"])

    def testOffersWhatListTakes(self):
        self.assertEqual(
            self.offered("list", "--"),
            ["--by-turn", "--cached", "--help", "--json", "--reviewers"],
        )
        self.assertEqual(self.offered("list", "--reviewers", ""), ["any", "involved", "myself"])
        self.assertEqual(self.offered("list", "--reviewers", "in"), ["involved"])

    def testOffersWhatWatchTakes(self):
        self.assertEqual(self.offered("watch", "--"), ["--format", "--help"])
        self.assertEqual(self.offered("watch", "--format", "w"), ["waybar"])

    def testOffersWhatRepositoriesTakes(self):
        self.assertEqual(self.offered("repositories", ""), ["select", "unselect"])
        self.assertEqual(self.offered("repositories", "--"), ["--help", "--json"])

    def testOffersAllRepositoriesToSelectAndUnselect(self):
        self.assertEqual(self.offered("repositories", "select", "--a"), ["--all"])
        self.assertEqual(self.offered("repositories", "unselect", "--a"), ["--all"])

    def testOffersTheChosenRepositoriesToUnselect(self):
        self.write_selection("octo/tools, octo/web.site")
        self.assertEqual(self.offered("repositories", "unselect", "o"), ["octo/tools", "octo/web.site"])
        self.assertEqual(
            self.offered("repositories", "unselect", "octo/tools", "octo/w"), ["octo/web.site"]
        )

    def testOffersNothingWhereNothingIsChosen(self):
        self.write_selection("@Empty()")
        self.assertEqual(self.offered("repositories", "unselect", "o"), [])
        shutil.rmtree(os.path.join(self.home, ".config"))
        self.assertEqual(self.offered("repositories", "unselect", "o"), [])

    def testOffersNothingThatTheShellWouldRun(self):
        self.write_selection('"octo/$(touch trace)", `touch trace`, octo/tools')
        self.assertEqual(self.offered("repositories", "unselect", "o"), ["octo/tools"])


def read_until(terminal, pattern):
    """The first match in what the terminal shows from here on."""
    shown = ""
    while not (match := re.search(pattern, shown)):
        if not select.select([terminal], [], [], 20)[0]:
            raise AssertionError(f"The terminal shows no {pattern} but {shown!r}")
        shown += os.read(terminal, 4096).decode(errors="replace")
    return match


class BashTests(OfferedWords, CompletionsTest):
    def offered(self, *words):
        output = self.output_of("bash", "--norc", "-c", ASK_BASH, "bash", BASH, "tarnwick", *words)
        # Bash shows options and words together when nothing is typed.
        lines = output.split()
        return sorted(line for line in lines if words[-1] or not line.startswith("-"))

    def testIsValid(self):
        self.output_of("bash", "-n", BASH)


@unittest.skipUnless(shutil.which("fish"), "fish is not installed")
class FishTests(OfferedWords, CompletionsTest):
    def offered(self, *words):
        line = " ".join(("tarnwick", *words))
        output = self.output_of("fish", "--no-config", "-c", f"source {FISH}; complete -C '{line}'")
        return sorted(line.split("\t")[0] for line in output.splitlines())

    def testIsValid(self):
        self.output_of("fish", "-n", FISH)


@unittest.skipUnless(shutil.which("zsh"), "zsh is not installed")
class ZshTests(CompletionsTest):
    def testIsValid(self):
        self.output_of("zsh", "-n", ZSH)

    def completed(self, *lines):
        """What each line has become after a press of the tabulator, in one interactive shell."""
        with open(os.path.join(self.home, ".zshrc"), "w", encoding="utf-8") as file:
            file.write(ZSHRC.format(folder=COMPLETIONS))
        environment = {"HOME": self.home, "PATH": os.environ["PATH"], "LC_ALL": "C.UTF-8", "TERM": "dumb"}
        process, terminal = pty.fork()
        if process == 0:
            os.execvpe("zsh", ["zsh", "-d", "-i"], environment)
        try:
            read_until(terminal, r"ready ")
            results = []
            for line in lines:
                os.write(terminal, f"tarnwick {line}\t\x18".encode())
                results.append(read_until(terminal, r"<tarnwick ([^>]*)>")[1])
            return results
        finally:
            os.kill(process, signal.SIGKILL)
            os.waitpid(process, 0)
            os.close(terminal)

    def testCompletesCommandsAndOptions(self):
        self.assertEqual(
            self.completed("li", "rep", "--ba", "list --j", "repositories un", "repositories --j"),
            ["list ", "repositories ", "--background ", "list --json ", "repositories unselect "]
            + ["repositories --json "],
        )
        self.assertEqual(
            self.completed("wa", "list --c", "watch --f", "watch --format wa"),
            ["watch ", "list --cached ", "watch --format ", "watch --format waybar "],
        )
        self.assertEqual(
            self.completed("list --b", "list --reviewers in"),
            ["list --by-turn ", "list --reviewers involved "],
        )
        self.assertEqual(
            self.completed("repositories select --a", "repositories unselect --a"),
            ["repositories select --all ", "repositories unselect --all "],
        )

    def testCompletesTheChosenRepositoriesToUnselect(self):
        self.write_selection("octo/tools, octo/web.site")
        self.assertEqual(
            self.completed("repositories unselect octo/w", "repositories unselect octo/tools octo/w"),
            ["repositories unselect octo/web.site ", "repositories unselect octo/tools octo/web.site "],
        )

    def testLeavesTheLineAloneWhereNothingIsChosen(self):
        self.write_selection("@Empty()")
        self.assertEqual(self.completed("repositories unselect o"), ["repositories unselect o"])


class AllShellsTests(CompletionsTest):
    def testOfferEveryOptionOfTheHelpTextAndNoOther(self):
        known = set(re.findall(r"--([a-z-]+)", self.output_of(PROGRAM, "--help")))
        self.assertEqual(
            known,
            {"all", "background", "by-turn", "cached", "format", "help", "json"}
            | {"reviewers", "toggle", "version"},
        )
        for path in (BASH, ZSH, FISH):
            with open(path, encoding="utf-8") as file:
                text = file.read()
            offered = set(re.findall(r"--([a-z-]+)", text))
            offered |= set(re.findall(r"(?m)^complete .* -l ([a-z-]+)", text))
            self.assertEqual(offered, known, path)


if __name__ == "__main__":
    unittest.main()
