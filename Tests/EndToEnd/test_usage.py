"""What the tool says of its use, the README, the manual page and the completions of three shells
agree, and the completions work in these shells.

usage: test_usage.py TOOL [unittest arguments]
"""
import os
import pty
import re
import select
import signal
import subprocess
import sys
import tempfile
import time
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
MANUAL = ROOT / "Packaging" / "rellinor.1"
COMPLETIONS = ROOT / "Packaging" / "completions"
TOOL = []
TIMEOUT = 60


def output_of(*command, **more):
    return subprocess.run(command, check=True, capture_output=True, text=True, timeout=TIMEOUT,
                          **more).stdout


def help_of(*command):
    return output_of(*TOOL, *command, "--help")


# ---------------------------------------------------------------- what the tool says

def commands():
    return re.findall(r"^  (\w+) ", help_of().split("Subcommands:")[1], re.MULTILINE)


def options_of(*command):
    """{"--source": ("SOURCE", True)}: what an option takes, and whether it must be there."""
    found = re.findall(r"^  (?:-\w,)?(--[\w-]+)(?: ([A-Z]+)\b(?:=\w+)?)?( REQUIRED)?", help_of(*command),
                       re.MULTILINE)
    return {name: (value if value != "REQUIRED" else "", bool(required))
            for name, value, required in found}


def takes_paths(command):
    return "PATH ... REQUIRED" in help_of(command)


def sources():
    return [line.split()[0] for line in output_of(*TOOL, "sources").splitlines()]


def layouts():
    return [line.split()[0] for line in output_of(*TOOL, "layouts").splitlines()]


def formats():
    described = re.search(r"--format FORMAT=(\w+)\s+(.*?)\n  -", help_of("import"), re.DOTALL)
    names = re.findall(r"([\w-]+): ", described[2])
    assert described[1] == names[0], "the default comes first"
    return names


def synopsis_of(command):
    """The line that a manual has for a command, made of its help."""
    parts = ["rellinor", command]
    for name, (value, required) in options_of(command).items():
        if name not in ("--help", "--force", "--layout"):  # the latter two stand with others
            part = f"{name} {value}".strip() + {"--output": " [--force]",
                                                "--source": " | --layout LAYOUT"}.get(name, "")
            parts.append(part if required else f"[{part}]")
    return " ".join([*parts, *["PATH..."] * takes_paths(command)])


# ---------------------------------------------------------------- what the others say

def manual():
    """The manual page as plain text, its lines long."""
    return re.sub(r".\x08", "", output_of("mandoc", "-T", "utf8", "-O", "width=400", str(MANUAL)))


def section(name):
    return re.search(rf"^{name}\n(.*?)(?=^[A-Z]|\Z)", manual(), re.MULTILINE | re.DOTALL)[1]


def one_line(text):
    return re.sub(r"\s+", " ", text).strip()


class Manual(unittest.TestCase):
    """The manual page."""

    def test_it_is_well_formed(self):
        checked = subprocess.run(["mandoc", "-T", "lint", "-W", "style", str(MANUAL)],
                                 capture_output=True, text=True, timeout=TIMEOUT)
        self.assertEqual((checked.stdout + checked.stderr, checked.returncode), ("", 0))

    def test_its_synopsis_is_that_of_the_help(self):
        lines = [one_line(line).replace("PATH ...", "PATH...")
                 for line in section("SYNOPSIS").splitlines() if line]
        self.assertEqual(lines, [*map(synopsis_of, commands()), "rellinor --version | --help"])

    def test_it_describes_every_command(self):
        for command in commands():
            self.assertRegex(section("DESCRIPTION"), rf"(?m)^ +{command} ")

    def test_it_describes_every_option(self):
        described = re.findall(r"^     (?:-\w, )?(--[\w-]+)", section("OPTIONS"), re.MULTILINE)
        known = [name for command in [[], *([name] for name in commands())]
                 for name in options_of(*command)]
        self.assertEqual(sorted(described), sorted(set(known)))

    def test_it_names_every_source(self):
        text = one_line(re.search(r"--source SOURCE\n(.*?)\n     -", section("OPTIONS"),
                                  re.DOTALL)[1])
        named = re.search(r"case of letters: (.*?); or auto which ", text)[1]
        self.assertEqual(sorted(re.split(r", | or ", named)), sorted(sources()))

    def test_it_describes_every_format(self):
        text = re.search(r"--format FORMAT\n(.*?)\n     -", section("OPTIONS"), re.DOTALL)[1]
        self.assertEqual(re.findall(r"^ {13}([\w-]+)(?: +\w|$)", text, re.MULTILINE)[1:], formats())


class Help(unittest.TestCase):
    """What the tool says of its use."""

    def test_it_fits_a_terminal(self):
        for command in [[], *([name] for name in commands())]:
            for line in help_of(*command).splitlines():
                self.assertLessEqual(len(line), 80, line)


class Readme(unittest.TestCase):
    """The README."""
    text = (ROOT / "README.md").read_text()

    def test_its_usage_is_that_of_the_help(self):
        block = re.search(r"## The host tool\n\n```\n(.*?)```", self.text, re.DOTALL)[1]
        lines = one_line(block).replace(" rellinor ", "\nrellinor ").splitlines()
        self.assertEqual(lines, [*map(synopsis_of, commands()), "rellinor --version | --help"])

    def test_it_lists_every_source(self):
        table = self.text.split("| Source | Reads |\n|---|---|\n")[1].split("\n\n")[0]
        listed = [name for row in table.splitlines()
                  for name in re.findall(r"`(\w+)`", row.split("|")[1])]
        self.assertEqual(sorted(listed), sorted(sources()))

    def test_it_describes_every_format(self):
        text = self.text.split("## The host tool")[1]
        for name in formats():
            self.assertRegex(text, rf"[-.] `{name}`[ :]")


# ---------------------------------------------------------------- completions

# What is typed, and what is proposed.
def cases():
    words = {"": commands(),
             "import --source ": ["auto", *sources()],
             "check --source ": ["auto", *sources()],
             "import --layout ": layouts(),
             "check --layout ": layouts(),
             "import --format ": formats(),
             "import -f ": formats(),
             "detect --format ": ["text", "json"],
             "check --format ": ["text", "json"]}
    for command in commands():
        words[command + " --"] = list(options_of(command))
    words["--"] = list(options_of())
    return words


class Completions(unittest.TestCase):
    """The completions of the shells."""
    maxDiff = None

    def compare(self, proposals):
        for typed, words in cases().items():
            with self.subTest(typed):
                self.assertEqual(sorted(proposals(typed)), sorted(words))

    def test_bash(self):
        def proposals(typed):
            words = typed.split(" ")
            return self.of_bash(*words).split()
        self.compare(proposals)

    def of_bash(self, *words, folder=None):
        script = ('source "$1"; shift; COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1)); _rellinor; '
                  'printf "%s\\n" "${COMPREPLY[@]}"')
        return output_of("bash", "-c", script, "bash", COMPLETIONS / "rellinor.bash", "rellinor",
                         *words, cwd=folder)

    def test_bash_completes_files(self):
        with tempfile.TemporaryDirectory() as folder:
            for name in ("an export.csv", "-dash.csv"):
                Path(folder, name).touch()
            for command in ("import", "detect", "check"):
                for typed, proposed in (("an", "an export.csv"), (f"{folder}/a", f"{folder}/an export.csv"),
                                        ("./-", "./-dash.csv")):
                    self.assertEqual(self.of_bash(command, typed, folder=folder), proposed + "\n")

    def test_bash_completes_behind_an_equals_sign(self):
        self.assertEqual(self.of_bash("import", "--source", "=", "last"), "lastPass\n")
        self.assertEqual(self.of_bash("import", "--source", "=").split(), ["auto", *sources()])

    def test_fish(self):
        with tempfile.TemporaryDirectory() as folder:
            def proposals(typed):
                script = 'source $argv[1]; complete -C "rellinor $argv[2]"'
                lines = output_of("fish", "--no-config", "-c", script,
                                  str(COMPLETIONS / "rellinor.fish"), typed,
                                  env={**os.environ, "HOME": folder}, cwd=folder).splitlines()
                return [line.split("\t")[0] for line in lines]
            self.compare(proposals)

    def test_zsh(self):
        with tempfile.TemporaryDirectory() as folder:
            self.compare(lambda typed: self._proposals_of_zsh(typed, folder))
            self.assertEqual(sorted(self._proposals_of_zsh("import --source=", folder)),
                             sorted(["auto", *sources()]))

    def _proposals_of_zsh(self, typed, folder):
        """What zsh lists below what is typed once the tabulator is pressed, or the one word that it
        adds."""
        child, terminal = pty.fork()
        if child == 0:
            os.chdir(folder)
            os.execvpe("zsh", ["zsh", "-f", "-i"],
                       {"PATH": os.environ["PATH"], "TERM": "dumb", "HOME": folder,
                        "COLUMNS": "200", "LC_ALL": "C.UTF-8"})
        try:
            os.write(terminal, (f"fpath=({COMPLETIONS} $fpath); PS1='> '; autoload -Uz compinit; "
                                "compinit -D -u; zstyle ':completion:*' verbose no; "
                                "print ready-$((1+1))\n").encode())
            self._read(terminal, r"ready-2[\s\S]*> ")
            os.write(terminal, f"rellinor {typed}\t".encode())
            line = re.escape("rellinor " + typed)
            shown = self._read(terminal, rf"\n> {line}|{line}\w+ $")
            return self._words(shown, typed)
        finally:
            os.kill(child, signal.SIGKILL)
            os.close(terminal)
            os.waitpid(child, 0)

    @staticmethod
    def _words(shown, typed):
        after = shown.split("rellinor " + typed)[1].strip("\x07\r\n> ")
        return after.split() if "\n> " in shown else [typed.split(" ")[-1] + after]

    def _read(self, terminal, pattern):
        """What is on the terminal once the pattern is."""
        text = ""
        end = time.monotonic() + TIMEOUT
        while not re.search(pattern, text):
            self.assertLess(time.monotonic(), end, text)
            if select.select([terminal], [], [], 1)[0]:
                text += os.read(terminal, 65536).decode(errors="replace")
        return text


if __name__ == "__main__":
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    TOOL = [sys.argv.pop(1)]
    # The completions ask the tool for the layouts.
    os.environ["PATH"] = os.path.dirname(os.path.abspath(TOOL[0])) + ":" + os.environ["PATH"]
    unittest.main()
