"""What the measurements are held against."""
import statistics
from dataclasses import dataclass

from .measuring import ratio
from .stores import CONTESTANTS

SIZES = (200_000, 1_600_000)  # of the files that have bounds
GROWTH_FROM = 10_000

HOSTILE = 10.0
FAITHFUL = 1.5      # readExport, with extras and a report
START_TO_FINISH = 3.0
NO_BOUND_YET = "onePassword"    # it took 3.3 when the tool read a file twice, which it does no more
GROWTH = 1.2


@dataclass(frozen=True)
class Peer:
    """A ratio of seconds: of the import to another's, or of another's to the import."""
    name: str
    at_most: float | None = None    # import / other
    faster: float | None = None     # other / import, at least


_CSV = [Peer("floor", at_most=2.0), Peer("libcsv", faster=3.0), Peer("python-csv", faster=10.0)]
_JSON = [Peer("floor", at_most=2.5), Peer("simdjson-dom", faster=1.0)]
_SQLITE = [Peer("sqlite", at_most=1.2)]

_PEERS = {
    "lastPass": _CSV, "keePass": _CSV, "keePassXC": _CSV, "dashlane": _CSV,
    "tirel": _JSON, "onePassword": _JSON,
    "firefox": [Peer("floor", at_most=2.5)],
    "firefoxSignons": _SQLITE, "chrome": _SQLITE,
}

_PEAK = {"csv": 2.5, "json": 3.0}


@dataclass(frozen=True)
class Verdict:
    """A measured value and its bound."""
    what: str
    where: str          # of how many records, or of which shape
    value: float
    bound: float
    is_least: bool = False

    @property
    def holds(self):
        return self.value >= self.bound if self.is_least else self.value <= self.bound

    @property
    def limit(self):
        return f"{'≥' if self.is_least else '≤'} {self.bound:g}"


def verdicts(store, results):
    """Everything that is measured of a store and has a bound."""
    return [*_by_size(store, results), *_growth(results), *_hostile(results),
            *_start_to_finish(store, results)]


def _by_size(store, results):
    sizes = results["sizes"]
    for size in [str(size) for size in SIZES if str(size) in sizes]:
        where = f"{int(size):,} records"
        contestants = sizes[size]["contestants"]
        seconds = {name: runs["seconds"] for name, runs in contestants.items()}
        for peer in _PEERS[store.name]:
            if peer.name not in seconds:
                continue
            title = CONTESTANTS[peer.name]
            if peer.at_most is not None:
                yield Verdict(f"time ÷ {title}", where, ratio(seconds, "import", peer.name), peer.at_most)
            else:
                yield Verdict(f"{title} ÷ time", where, ratio(seconds, peer.name, "import"), peer.faster,
                              is_least=True)
        if "faithful" in seconds:
            yield Verdict("faithfully ÷ floor", where, ratio(seconds, "faithful", "floor"), FAITHFUL)
        if store.format in _PEAK:
            yield Verdict("peak memory ÷ file", where, _peak(sizes[size]) / sizes[size]["bytes"],
                          _PEAK[store.format])


def _growth(results):
    """The most that a record takes in any larger file, by what it takes in the first."""
    sizes = {int(size): result for size, result in results["sizes"].items() if int(size) >= GROWTH_FROM}
    if GROWTH_FROM not in sizes or len(sizes) < 2:
        return
    where = f"{GROWTH_FROM:,} to {max(sizes):,} records"
    for what, value in (("time a record, growth", _seconds), ("memory a record, growth", _peak)):
        each = {size: value(result) / size for size, result in sizes.items()}
        first = each.pop(GROWTH_FROM)
        yield Verdict(what, where, max(each.values()) / first, GROWTH)


def _hostile(results):
    for shape, result in results.get("hostile", {}).items():
        seconds = {name: runs["seconds"] for name, runs in result["contestants"].items()}
        yield Verdict("hostile: time ÷ floor", shape, ratio(seconds, "import", "floor"), HOSTILE)
        if "faithful" in seconds:
            yield Verdict("hostile: faithfully ÷ floor", shape, ratio(seconds, "faithful", "floor"), HOSTILE)


def _start_to_finish(store, results):
    if results.get("process") and store.name != NO_BOUND_YET:
        yield Verdict("rellinor import ÷ wc -l", "500 records", ratio(results["process"], "rellinor", "wc"),
                      START_TO_FINISH)


def _seconds(result):
    return statistics.median(result["contestants"]["import"]["seconds"])


def _peak(result):
    return statistics.median(result["contestants"]["import"]["peak"])
