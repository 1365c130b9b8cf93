"""The part of Documentation/benchmarks.md that is measured."""
import statistics

from . import plot
from .bounds import verdicts
from .measuring import ratio
from .stores import CONTESTANTS, STORES

START = "<!-- measured by Scripts/benchmark -->"
END = "<!-- end of what Scripts/benchmark measured -->"

TABLES = 2  # of the largest files
PYTHON = ("python-csv", "python-json")
FLOORS = ("floor", "sqlite-nothing")
NATIVE = ("libcsv", "simdjson-ondemand", "simdjson-dom", "rapidjson", "nlohmann-json", "sqlite")


def rewritten(page, measured):
    """The page with another part between its markers."""
    before, start, rest = page.partition(START)
    _, end, after = rest.partition(END)
    if not start or not end:
        raise ValueError("the page has no markers")
    return f"{before}{START}\n\n{measured}\n{END}{after}"


def measured(description, results):
    """`results`: for each store by its name, all that was measured of it. Each bound must hold."""
    stores = [(store, results[name]) for name, store in STORES.items() if name in results]
    sizes = sorted({int(size) for _, result in stores for size in result["sizes"]})
    parts = [_head(description), _bounds(stores), *(_at(size, stores) for size in sizes[-TABLES:]),
             _plots(stores), _hostile(stores), _few(stores)]
    return "\n".join(part for part in parts if part)


def plot_of(store, result):
    """As SVG."""
    sizes = sorted(result["sizes"], key=int)
    lines = {}
    for name in CONTESTANTS:
        points = [(int(size), _median(result["sizes"][size], name)) for size in sizes
                  if name in result["sizes"][size]["contestants"]]
        if points:
            lines[name] = points
    return plot.svg(f"{store.title}: time of an import and of its peers", lines)


def _head(description):
    return (f"## {description['date']}, {description['machine']}\n\n"
            f"With {', '.join(description['versions'])}.\n")


def _bounds(stores):
    """A line for each bound, with the sources that come nearest to it: of hostile shapes, with the worst."""
    worst = {}
    for store, result in stores:
        for verdict in verdicts(store, result):
            if not verdict.holds:
                raise ValueError(f"{store.title}: {verdict.what} is {verdict.value:.2f}, not {verdict.limit}")
            places = worst.setdefault((verdict.what, verdict.limit), {})
            where = "" if verdict.what.startswith("hostile") else verdict.where
            if where not in places or _is_worse(verdict, places[where][1]):
                places[where] = store, verdict
    rows = [(what, limit, "; ".join(f"{_number(verdict.value)}, {store.title}, {verdict.where}"
                                    for store, verdict in places.values()))
            for (what, limit), places in worst.items()]
    return rows and "### Bounds\n\nAll of them hold.\n\n" + _table(("", "bound", "nearest to it"), rows)


def _is_worse(verdict, other):
    return verdict.value < other.value if verdict.is_least else verdict.value > other.value


def _at(size, stores):
    rows = []
    for store, result in stores:
        found = result["sizes"].get(str(size))
        if found:
            rows.append((store.title, f"{found['bytes'] / 1e6:.1f} MB",
                         f"{_number(_median(found, 'import') * 1e3)} ms",
                         "".join(_number(_ratio(found, "import", name)) for name in _those(found, FLOORS)),
                         _fastest(found), _others(found, PYTHON), _others(found, ("faithful",)), _peak(found)))
    head = ("", "file", "time", "÷ floor", "fastest peer ÷ time", "Python ÷ time", "faithfully ÷ time",
            "peak ÷ file")
    return f"### {size:,} records\n\n" + _table(head, rows)


def _those(found, names):
    return [name for name in names if name in found["contestants"]]


def _others(found, names):
    return "".join(_number(_ratio(found, name, "import")) for name in _those(found, names))


def _fastest(found):
    ratios = {name: _ratio(found, name, "import") for name in _those(found, NATIVE)}
    if not ratios:
        return ""
    name = min(ratios, key=ratios.get)
    return f"{_number(ratios[name])} ({CONTESTANTS[name]})"


def _plots(stores):
    links = ", ".join(f"[{store.title}](benchmarks/{store.name}.svg)" for store, _ in stores)
    return f"Everybody's time against size: {links}.\n"


def _hostile(stores):
    """For each shape the source that takes longest."""
    shapes = {}
    for store, result in stores:
        for shape, found in result.get("hostile", {}).items():
            for name in _those(found, ("import", "faithful")):
                shapes.setdefault(shape, {}).setdefault(name, []).append(
                    (_ratio(found, name, "floor"), store.title))
    rows = [(shape, *(", ".join((_number(value), title)) for value, title in map(max, ratios.values())))
            for shape, ratios in shapes.items()]
    rows = [row + ("",) * (3 - len(row)) for row in rows]
    return rows and "### Hostile files, the slowest source\n\n" + _table(
        ("", "time ÷ floor", "faithfully ÷ floor"), rows)


def _few(stores):
    rows = []
    for store, result in stores:
        warm, process, counts = (result.get(name) or {} for name in ("warm", "process", "instructions"))
        if warm and process:
            floor = _number(_ratio(warm, "import", "floor")) if "floor" in warm["contestants"] else ""
            rows.append((store.title, f"{_number(_median(warm, 'import') * 1e6)} µs", floor,
                         *(f"{_number(statistics.median(process[name]) * 1e3)} ms" for name in ("rellinor", "wc")),
                         _number(ratio(process, "rellinor", "wc")), _instructions(counts)))
    return rows and "### 500 records\n\n" + _table(
        ("", "warm import", "÷ floor", "`rellinor import`", "`wc -l`", "÷ `wc -l`", "instructions a record"), rows)


def _instructions(counts):
    """Of the import, and of the peer that takes fewest."""
    if "import" not in counts:
        return ""
    fewest = min((name for name in NATIVE if name in counts), key=counts.get, default=None)
    peer = f"; {CONTESTANTS[fewest]} {counts[fewest]:,.0f}" if fewest else ""
    return f"{counts['import']:,.0f}{peer}"


def _ratio(result, dividend, divisor):
    return ratio({name: runs["seconds"] for name, runs in result["contestants"].items()}, dividend, divisor)


def _median(result, name):
    return statistics.median(result["contestants"][name]["seconds"])


def _peak(result):
    return _number(statistics.median(result["contestants"]["import"]["peak"]) / result["bytes"])


def _number(value):
    """With three digits that count."""
    return f"{value:,.0f}" if value >= 100 else f"{value:.1f}" if value >= 10 else f"{value:.2f}"


def _table(head, rows):
    used = [column for column in range(len(head)) if any(row[column] for row in rows)]
    rows = [[row[column] for column in used] for row in (head, ("---",) * len(head), *rows)]
    return "".join("| " + " | ".join(cells) + " |\n" for cells in rows)
