"""The part of Documentation/benchmarks.md that is measured."""
import statistics

from . import plot
from .bounds import verdicts
from .measuring import ratio
from .stores import CONTESTANTS, STORES

START = "<!-- measured by Scripts/benchmark -->"
END = "<!-- end of what Scripts/benchmark measured -->"


def rewritten(page, measured):
    """The page with another part between its markers."""
    before, start, rest = page.partition(START)
    _, end, after = rest.partition(END)
    if not start or not end:
        raise ValueError("the page has no markers")
    return f"{before}{START}\n\n{measured}\n{END}{after}"


def measured(description, results):
    """`results`: for each store by its name, all that was measured of it."""
    stores = [(store, results[name]) for name, store in STORES.items() if name in results]
    parts = [_head(description), _bounds(stores)]
    parts += [_by_size(store, result) for store, result in stores]
    parts += [_hostile(stores), _few(stores), _instructions(stores)]
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
    """A line for each bound, with the source that comes nearest to it: of hostile shapes, with the worst."""
    worst = {}
    for store, result in stores:
        for verdict in verdicts(store, result):
            key = verdict.what, "" if verdict.what.startswith("hostile") else verdict.where, verdict.limit
            if key not in worst or _is_worse(verdict, worst[key][1]):
                worst[key] = store, verdict
    rows = [(verdict.what, verdict.where, verdict.limit, _number(verdict.value), store.title,
             "holds" if verdict.holds else "**broken**") for store, verdict in worst.values()]
    return "### Bounds\n\n" + _table(("What", "Where", "Bound", "Worst", "Source", ""), rows)


def _is_worse(verdict, other):
    return verdict.value < other.value if verdict.is_least else verdict.value > other.value


def _by_size(store, result):
    sizes = sorted(result["sizes"], key=int)
    names = [name for name in CONTESTANTS
             if any(name in result["sizes"][size]["contestants"] for size in sizes)]
    rows = [(CONTESTANTS[name], *(_cell(result["sizes"][size], name) for size in sizes)) for name in names]
    rows.append(("peak memory ÷ file", *(_peak(result["sizes"][size]) for size in sizes)))
    rows.append(("file", *(f"{result['sizes'][size]['bytes'] / 1e6:.1f} MB" for size in sizes)))
    return (f"### {store.title}\n\n![Time against size](benchmarks/{store.name}.svg)\n\n"
            + _table(("", *(f"{int(size):,}" for size in sizes)), rows))


def _cell(result, name):
    """Milliseconds, and how many times as long as the import."""
    if name not in result["contestants"]:
        return ""
    time = f"{_number(_median(result, name) * 1e3)} ms"
    return time if name == "import" else f"{time}, {_number(_ratio(result, name, 'import'))} ×"


def _hostile(stores):
    return "\n".join(filter(None, (_hostile_to(stores, "import", "Hostile files, time ÷ floor"),
                                   _hostile_to(stores, "faithful", "Hostile files, faithfully ÷ floor"))))


def _hostile_to(stores, name, title):
    shapes, columns = {}, []
    for store, result in stores:
        for shape, measurement in result.get("hostile", {}).items():
            if name in measurement["contestants"]:
                shapes.setdefault(shape, {})[store.name] = _number(_ratio(measurement, name, "floor"))
                columns += [store] if store not in columns else []
    if not shapes:
        return ""
    rows = [(shape, *(values.get(store.name, "") for store in columns)) for shape, values in shapes.items()]
    return f"### {title}\n\n" + _table(("", *(store.title for store in columns)), rows)


def _few(stores):
    rows = []
    for store, result in stores:
        warm, process = result.get("warm"), result.get("process")
        if not warm or not process:
            continue
        floor = _number(_ratio(warm, "import", "floor")) if "floor" in warm["contestants"] else ""
        rows.append((store.title, f"{_number(_median(warm, 'import') * 1e6)} µs", floor,
                     *(f"{_number(statistics.median(process[name]) * 1e3)} ms"
                       for name in ("rellinor", "wc", "true")),
                     _number(ratio(process, "rellinor", "wc"))))
    if not rows:
        return ""
    return ("### 500 logins\n\n" + _table(
        ("", "warm import", "÷ floor", "`rellinor import`", "`wc -l`", "`/bin/true`", "rellinor ÷ wc"), rows))


def _instructions(stores):
    rows = []
    for store, result in stores:
        counts = result.get("instructions") or {}
        if counts:
            rows.append((store.title, ", ".join(f"{CONTESTANTS[name]} {counts[name]:,.0f}"
                                                for name in CONTESTANTS if name in counts)))
    if not rows:
        return ""
    return "### Instructions a record\n\n" + _table(("", "outside of the kernel"), rows)


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
    lines = [head, ("---",) * len(head), *rows]
    return "".join("| " + " | ".join(cells) + " |\n" for cells in lines)
