"""All that is measured of one store. Files are made for it, and removed again."""
import os
import re
import shutil
import statistics
import subprocess
import time

from . import hostile, tools
from .stores import CONTESTANTS, SLOW

FEW = 500           # logins that a person has
LARGE = 1_000_000   # records; the slow are spared that many
INSTRUCTIONS_OF = (1_000, 10_000)


def rounds_of(records):
    return max(3, min(31, 1_400_000 // records))


class Generated:
    """A store with so many records, for as long as it is needed."""

    def __init__(self, store, records, name=""):
        self._path = tools.FOLDER / f"{store.name}-{records}{name}"
        tools.generate(store.name, records, self._path)

    def __enter__(self):
        return self._path

    def __exit__(self, *_):
        _remove(self._path)


def by_size(store, sizes, rounds=None):
    """Everybody who is fast enough, for files of these sizes."""
    results = {}
    for size in sizes:
        _tell(store, f"{size:,} records")
        with Generated(store, size) as path:
            without = [word for name in SLOW if size >= LARGE for word in ("--without", name)]
            results[str(size)] = tools.compare(store.source, path, "--rounds", rounds or rounds_of(size),
                                               *store.programs(), *without)
    return results


def hostile_shapes(store, size, rounds):
    """The import beside its floor."""
    if store.format == "sqlite":
        return {}
    results = {}
    path = tools.FOLDER / f"{store.name}-hostile"
    for shape in hostile.shapes_of(store):
        _tell(store, shape.name)
        try:
            shape.write(store.file_of(path), size)
            results[shape.name] = tools.compare(store.source, path, "--hostile", "--rounds", rounds)
        finally:
            _remove(path)
    return results


def warm(store, rounds):
    """Everybody, in a process that has read the same few logins many times before."""
    _tell(store, f"{FEW} records, warm")
    with Generated(store, FEW) as path:
        return tools.compare(store.source, path, "--warm", "--rounds", rounds)


def start_to_finish(store, rounds):
    """The seconds of whole processes, in turns: the tool, and wc."""
    _tell(store, f"{FEW} records, start to finish")
    with Generated(store, FEW) as path:
        commands = {
            "rellinor": [str(tools.RELLINOR), "import", "--source", store.source, str(path)],
            "wc": ["wc", "-l", str(store.file_of(path))],
        }
        seconds = {name: [] for name in commands}
        names = list(commands)
        for round_ in range(rounds):
            for turn in range(len(names)):
                name = names[(round_ + turn) % len(names)]
                seconds[name].append(_seconds_of(commands[name]))
    return seconds


def instructions(store):
    """How many instructions a record takes everybody who runs in rellinor-compare itself: by how much
    more for 10,000 records than for 1,000, so that starting and ending do not count."""
    if not shutil.which("valgrind"):
        return {}
    _tell(store, "instructions")
    fewer, more = INSTRUCTIONS_OF
    with Generated(store, fewer) as small, Generated(store, more) as large:
        names = [name for name in tools.compare(store.source, small, "--rounds", 1)["contestants"]
                 if name in CONTESTANTS and name != "floor"]
        return {name: (_instructions_of(store, large, name) - _instructions_of(store, small, name))
                / (more - fewer) for name in names}


def _instructions_of(store, path, name):
    command = ["valgrind", "--tool=callgrind", "--callgrind-out-file=/dev/null", str(tools.COMPARE),
               store.source, str(path), "--alone", name]
    messages = subprocess.run(command, check=True, stdout=subprocess.DEVNULL,
                              stderr=subprocess.PIPE, text=True).stderr
    return int(re.search(r"Collected : (\d+)", messages)[1])


def _seconds_of(command):
    quiet = [(os.POSIX_SPAWN_OPEN, 1, "/dev/null", os.O_WRONLY, 0)]
    start = time.perf_counter()
    process = os.posix_spawnp(command[0], command, os.environ, file_actions=quiet)
    _, status = os.waitpid(process, 0)
    seconds = time.perf_counter() - start
    if status != 0:
        raise RuntimeError(f"{command[0]} failed")
    return seconds


def _remove(path):
    if path.is_dir():
        shutil.rmtree(path)
    else:
        path.unlink(missing_ok=True)


def _tell(store, what):
    print(f"{store.title}: {what}", flush=True)


def ratio(runs, dividend, divisor):
    """The median of the ratios of two who ran in the same rounds."""
    return statistics.median(one / other for one, other in zip(runs[dividend], runs[divisor], strict=True))
