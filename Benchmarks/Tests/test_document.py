"""What Scripts/benchmark makes of measurements, with values worked out by hand."""
import os
import sys
import tempfile
import unittest
import xml.etree.ElementTree
from pathlib import Path

sys.dont_write_bytecode = True
ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "Scripts"))
from comparison import bounds, hostile, page, plot  # noqa: E402
from comparison.measuring import ratio  # noqa: E402
from comparison.stores import CONTESTANTS, STORES  # noqa: E402

DESCRIPTION = {"date": "2031-02-03", "machine": "a machine", "versions": ["g++ 1", "Python 2"]}


def result(size, **seconds):
    return {"bytes": 100 * size, "records": size, "contestants": {
        name.replace("_", "-"): {"seconds": values, "peak": [150 * size] * len(values)}
        for name, values in seconds.items()}}


def last_pass():
    """A record takes 5 µs and 150 bytes in the first file, and 10 µs in the second."""
    return {
        "sizes": {
            "10000": result(10_000, **{"import": [0.05] * 3}, floor=[0.02] * 3),
            "200000": result(200_000, **{"import": [2.0, 2.0, 2.5]}, floor=[0.5, 2.0, 1.25],
                             libcsv=[10.0, 6.0, 5.0], python_csv=[20.0, 20.0, 30.0], faithful=[0.75, 3.0, 2.5])},
        "hostile": {"quotes": result(1, **{"import": [1.0]}, floor=[0.5], faithful=[5.5]),
                    "line feeds": result(1, **{"import": [6.0]}, floor=[0.5])},
        "warm": result(500, **{"import": [0.003]}, floor=[0.001]),
        "process": {"rellinor": [0.004, 0.006], "wc": [0.002, 0.002]},
        "instructions": {"import": 1234.4, "libcsv": 5678.0},
    }


def within_bounds():
    """The same, but that no bound is broken: a record takes 10 µs in both."""
    measured = last_pass()
    measured["sizes"]["10000"] = result(10_000, **{"import": [0.1] * 3}, floor=[0.05] * 3)
    measured["hostile"]["quotes"] = result(1, **{"import": [1.0]}, floor=[0.5], faithful=[4.5])
    measured["hostile"]["line feeds"] = result(1, **{"import": [4.5]}, floor=[0.5])
    return measured


class BoundsTest(unittest.TestCase):
    def test_ratios_are_taken_within_rounds(self):
        # 1, 4 and 2, whose median is 2; that of the medians would be 2 / 1.
        self.assertEqual(ratio({"one": [3.0, 4.0, 2.0], "other": [3.0, 1.0, 1.0]}, "one", "other"), 2.0)

    def test_verdicts(self):
        found = {(verdict.what, verdict.where): (round(verdict.value, 6), verdict.limit, verdict.holds)
                 for verdict in bounds.verdicts(STORES["lastPass"], last_pass())}
        at = "200,000 records"
        grown = "10,000 to 200,000 records"
        self.assertEqual(found, {
            ("time ÷ floor", at): (2.0, "≤ 2", True),               # 4, 1, 2
            ("libcsv ÷ time", at): (3.0, "≥ 3", True),              # 5, 3, 2
            ("Python's csv ÷ time", at): (10.0, "≥ 10", True),      # 10, 10, 12
            ("faithfully ÷ floor", at): (1.5, "≤ 1.5", True),       # 1.5, 1.5, 2
            ("peak memory ÷ file", at): (1.5, "≤ 2.5", True),
            ("time a record, growth", grown): (2.0, "≤ 1.2", False),
            ("memory a record, growth", grown): (1.0, "≤ 1.2", True),
            ("hostile: time ÷ floor", "quotes"): (2.0, "≤ 10", True),
            ("hostile: faithfully ÷ floor", "quotes"): (11.0, "≤ 10", False),
            ("hostile: time ÷ floor", "line feeds"): (12.0, "≤ 10", False),
            ("rellinor import ÷ wc -l", "500 records"): (2.5, "≤ 3", True),
        })


class PageTest(unittest.TestCase):
    def test_prose_is_kept_and_the_rest_replaced(self):
        old = f"before\n\n{page.START}\n\nold\n\n{page.END}\n\nafter\n"
        self.assertEqual(page.rewritten(old, "new\n"),
                         f"before\n\n{page.START}\n\nnew\n\n{page.END}\n\nafter\n")

    def test_a_page_without_markers_is_refused(self):
        with self.assertRaises(ValueError):
            page.rewritten("prose", "new\n")

    def test_the_page_has_its_markers(self):
        text = (ROOT / "Documentation" / "benchmarks.md").read_text()
        self.assertNotEqual(page.rewritten(text, "new\n"), text)

    def test_what_is_measured(self):
        keepassxc = {"sizes": {"200000": result(200_000, **{"import": [1.0]}, floor=[1.0], faithful=[1.5])},
                     "hostile": {"quotes": result(1, **{"import": [1.5]}, floor=[0.5])}}
        text = page.measured(DESCRIPTION, {"lastPass": within_bounds(), "keePassXC": keepassxc})
        for line in (
                "## 2031-02-03, a machine",
                "With g++ 1, Python 2.",
                "| time ÷ floor | ≤ 2 | 2.00, LastPass, 200,000 records |",
                "| faithfully ÷ floor | ≤ 1.5 | 1.50, LastPass, 200,000 records |",
                "| hostile: time ÷ floor | ≤ 10 | 9.00, LastPass, line feeds |",
                "### 10,000 records",
                "### 200,000 records",
                "| LastPass | 20.0 MB | 2,000 ms | 2.00 | 3.00 (libcsv) | 10.0 | 1.00 | 1.50 |",
                "| KeePassXC | 20.0 MB | 1,000 ms | 1.00 |  |  | 1.50 | 1.50 |",
                "Everybody's time against size: [LastPass](benchmarks/lastPass.svg), "
                "[KeePassXC](benchmarks/keePassXC.svg).",
                "| quotes | 3.00, KeePassXC | 9.00, LastPass |",
                "| line feeds | 9.00, LastPass |  |",
                "| LastPass | 3,000 µs | 3.00 | 5.00 ms | 2.00 ms | 2.50 | 1,234; libcsv 5,678 |"):
            self.assertIn(line, text.split("\n"))

    def test_no_page_has_a_broken_bound(self):
        with self.assertRaisesRegex(ValueError, "LastPass: time a record, growth is 2.00, not ≤ 1.2"):
            page.measured(DESCRIPTION, {"lastPass": last_pass()})


class PlotTest(unittest.TestCase):
    def test_lines_have_their_points(self):
        root = xml.etree.ElementTree.fromstring(page.plot_of(STORES["lastPass"], last_pass()))
        name = "{http://www.w3.org/2000/svg}"
        lines = {line.get("class"): line.get("points").split() for line in root.iter(name + "polyline")}
        self.assertEqual({line: len(points) for line, points in lines.items()},
                         {"import": 2, "faithful": 1, "floor": 2, "libcsv": 1, "python-csv": 1})
        # From 10 ms to 100 s there are four decades, of 97.5 each, up from 430.
        self.assertEqual(lines["import"][0].split(",")[0], f"{plot.LEFT:.1f}")
        self.assertEqual(lines["python-csv"], ["630.0,108.1"])  # log10 20 = 1.30103
        texts = [text.text for text in root.iter(name + "text")]
        for text in ("10 ms", "100 s", "10 k", "200 k", "Rellinor", "Python's csv"):
            self.assertIn(text, texts)

    def test_everybody_has_a_color(self):
        lines = {name: [(1_000, 0.5), (10_000, 5.0)] for name in CONTESTANTS}
        root = xml.etree.ElementTree.fromstring(plot.svg("All & sundry", lines))
        labels = [float(text.get("y")) for text in root.iter("{http://www.w3.org/2000/svg}text")
                  if text.text in CONTESTANTS.values()]
        self.assertEqual(len(labels), len(CONTESTANTS))
        gaps = [after - before for before, after in zip(sorted(labels), sorted(labels)[1:])]
        self.assertTrue(all(gap > plot.LINE_HEIGHT - 0.2 for gap in gaps))


class HostileTest(unittest.TestCase):
    def test_shapes_fill_their_files(self):
        for store in STORES.values():
            for shape in hostile.shapes_of(store) if store.format != "sqlite" else ():
                with self.subTest(store=store.name, shape=shape.name), tempfile.TemporaryDirectory() as folder:
                    path = Path(folder) / "hostile"
                    shape.write(path, 3_000_000)
                    least = 1_900_000 if shape.name == "a million keys" else 1_990_000
                    self.assertTrue(least < os.path.getsize(path) <= 3_000_000, os.path.getsize(path))

    def test_a_repeated_piece(self):
        with tempfile.TemporaryDirectory() as folder:
            path = Path(folder) / "file"
            hostile.repeated("", b"<", b"ab", b">").write(path, 9)
            self.assertEqual(path.read_bytes(), b"<ababab>")


if __name__ == "__main__":
    unittest.main()
