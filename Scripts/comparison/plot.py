"""A plot of time against size, both logarithmic, as SVG that reads well on light and dark pages."""
import math
from html import escape

from .stores import CONTESTANTS

WIDTH, HEIGHT = 820, 480
LEFT, RIGHT, TOP, BOTTOM = 70, 190, 40, 50
LINE_HEIGHT = 15

# Each stands out from white and from near black.
_COLORS = {
    "import": "#d9480f", "faithful": "#e8890c", "floor": "#868e96", "libcsv": "#1c7ed6", "simdjson-ondemand": "#0ca678",
    "simdjson-dom": "#37862b", "rapidjson": "#1c7ed6", "nlohmann-json": "#9c5fd6",
    "sqlite-nothing": "#868e96", "sqlite": "#1c7ed6", "python-csv": "#b08900", "python-json": "#b08900",
    "papaparse": "#d6336c",
}

_STYLE = """
  text { font: 12px system-ui, sans-serif; fill: #343a40 }
  .title { font-size: 15px; font-weight: 600 }
  .grid { stroke: #ced4da; stroke-width: 1 }
  polyline { fill: none; stroke-width: 1.75 }
  .import { stroke-width: 3; font-weight: 700 }
  .floor { stroke-dasharray: 5 4 }
  @media (prefers-color-scheme: dark) {
    text { fill: #dee2e6 }
    .grid { stroke: #495057 }
  }
"""


def svg(title, lines):
    """`lines`: for each contestant, in order, the points (records, seconds)."""
    axes = _Axes([point for points in lines.values() for point in points])
    parts = [
        f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {WIDTH} {HEIGHT}" width="{WIDTH}" '
        f'height="{HEIGHT}" role="img" aria-label="{escape(title)}">',
        f"<style>{_STYLE}</style>",
        f'<text class="title" x="{LEFT}" y="22">{escape(title)}</text>',
        *axes.grid(),
    ]
    for name, points in lines.items():
        parts += _line(name, [axes.place(*point) for point in points])
    parts += _labels({name: axes.place(*points[-1]) for name, points in lines.items()})
    parts.append("</svg>")
    return "\n".join(parts) + "\n"


class _Axes:
    def __init__(self, points):
        self._across = [math.log10(records) for records, _ in points]
        self._up = [math.log10(seconds) for _, seconds in points]
        self._left, self._right = min(self._across), max(self._across)
        if self._left == self._right:
            self._left, self._right = self._left - 0.5, self._right + 0.5
        self._bottom, self._top = math.floor(min(self._up)), math.ceil(max(self._up))
        if self._bottom == self._top:
            self._top += 1

    def place(self, records, seconds):
        return self._x(math.log10(records)), self._y(math.log10(seconds))

    def _x(self, across):
        return LEFT + (across - self._left) / (self._right - self._left) * (WIDTH - LEFT - RIGHT)

    def _y(self, up):
        return HEIGHT - BOTTOM - (up - self._bottom) / (self._top - self._bottom) * (HEIGHT - TOP - BOTTOM)

    def grid(self):
        for decade in range(self._bottom, self._top + 1):
            y = self._y(decade)
            yield f'<line class="grid" x1="{LEFT}" x2="{WIDTH - RIGHT}" y1="{y:.1f}" y2="{y:.1f}"/>'
            yield f'<text x="{LEFT - 8}" y="{y + 4:.1f}" text-anchor="end">{_time(10.0 ** decade)}</text>'
        for across in sorted(set(self._across)):
            x = self._x(across)
            yield f'<line class="grid" x1="{x:.1f}" x2="{x:.1f}" y1="{TOP}" y2="{HEIGHT - BOTTOM}"/>'
            yield (f'<text x="{x:.1f}" y="{HEIGHT - BOTTOM + 18}" text-anchor="middle">'
                   f"{_count(round(10 ** across))}</text>")
        middle = (LEFT + WIDTH - RIGHT) / 2
        yield f'<text x="{middle:.0f}" y="{HEIGHT - 10}" text-anchor="middle">records</text>'


def _line(name, places):
    color = _COLORS[name]
    points = " ".join(f"{x:.1f},{y:.1f}" for x, y in places)
    yield f'<polyline class="{name}" stroke="{color}" points="{points}"/>'
    for x, y in places:
        yield f'<circle cx="{x:.1f}" cy="{y:.1f}" r="{4 if name == "import" else 3}" fill="{color}"/>'


def _labels(ends):
    """At the ends of the lines, from the top down, each at least a line below the one before."""
    lowest = TOP - LINE_HEIGHT
    names = sorted(ends, key=lambda name: ends[name][1])
    for index, name in enumerate(names):
        x, y = ends[name]
        # Those below must find room too.
        y = min(max(y, lowest + LINE_HEIGHT), HEIGHT - BOTTOM - (len(names) - 1 - index) * LINE_HEIGHT)
        lowest = y
        weight = ' font-weight="700"' if name == "import" else ""
        yield (f'<text x="{x + 10:.1f}" y="{y + 4:.1f}" style="fill: {_COLORS[name]}"{weight}>'
               f"{escape(CONTESTANTS[name])}</text>")


def _time(seconds):
    if seconds >= 1:
        return f"{seconds:g} s"
    return f"{seconds * 1e3:g} ms" if seconds >= 1e-3 else f"{seconds * 1e6:g} µs"


def _count(records):
    if records >= 1_000_000:
        return f"{records / 1e6:g} M"
    return f"{records / 1e3:g} k" if records >= 1_000 else str(records)
