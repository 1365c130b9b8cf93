"""What `rellinor check` prints, read back."""
import re
import subprocess

TIMEOUT = 300
PER_CALL = 200

READ = re.compile(r"read as (\w+)(?:, (\d+) (?:row|record|login)s?)?$")
ARRIVING = re.compile(r"  (\d+) records? would arrive: (\d+) passwords?, (\d+) notes?, (\d+) cards?$")
LEFT_OUT = re.compile(r"  (\d+) \w+ would be left out:$")
REMARK = re.compile(r"    (?:(\w+) ([\d, and]+?)( and (\d+) more)?: )?(\S.*)$")
CLEAN = re.compile(r"  (?:every\w* ?\w* would arrive, )?nothing looks wrong$")
SECTIONS = {"  looks wrong:": "wrong", "  never imported from this source:": "not_imported"}


class Strange(Exception):
    """A line that a report does not have."""


class Remark:
    def __init__(self, line):
        match = REMARK.match(line)
        if not match:
            raise Strange(line)
        noun, places, _, more, self.text = match.groups()
        self.noun = noun
        self.places = [int(place) for place in re.findall(r"\d+", places or "")]
        self.unnamed = int(more or 0)
        self.count = len(self.places) + self.unnamed


class Report:
    """Of one path."""

    def __init__(self, said):
        self.said = said
        self.rows = self.counts = self.left_out_count = None    # counts: passwords, notes, cards
        self.checked = self.failed = self.clean = False
        self.left_out, self.wrong, self.not_imported = [], [], []
        self._section = None
        match = READ.match(said)
        if match:
            self.checked = True
            self.rows = None if match[2] is None else int(match[2])
        elif not said.startswith("not checked: "):
            raise Strange(said)

    def add(self, line):
        arriving, left_out = ARRIVING.match(line), LEFT_OUT.match(line)
        if arriving:
            total, *self.counts = map(int, arriving.groups())
            if total != sum(self.counts):
                raise Strange(line)
        elif line.startswith("  nothing would arrive: "):
            self.failed = True
        elif left_out:
            self.left_out_count, self._section = int(left_out[1]), self.left_out
        elif line in SECTIONS:
            self._section = getattr(self, SECTIONS[line])
        elif CLEAN.match(line):
            self.clean = True
        elif self._section is not None:
            self._section.append(Remark(line))
        else:
            raise Strange(line)


def check(tool, source, paths):
    """(exit status, a report for each path)"""
    ended = subprocess.run(tool + ["check", "--source", source] + paths, stdin=subprocess.DEVNULL,
                           capture_output=True, timeout=TIMEOUT)
    if ended.stderr:
        raise Strange(ended.stderr)
    reports, rest = [], list(paths)
    for line in ended.stdout.decode("utf-8").split("\n")[:-1]:
        if line.startswith("  "):
            reports[-1].add(line)
        else:
            path = rest.pop(0)
            if not line.startswith(path + ": "):
                raise Strange(line)
            reports.append(Report(line[len(path) + 2:]))
    if rest:
        raise Strange("nothing about " + rest[0])
    return ended.returncode, reports


def in_batches(paths):
    return [paths[i:i + PER_CALL] for i in range(0, len(paths), PER_CALL)]
