"""The generators depend on their seed alone and reach success, failure and what is particular to each source."""
import hashlib
import os
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

from driver.files import Files
from generators.damage import BYTE_ORDER_MARK
from references import dashlane, keepass, pif
from references.csv_dialect import rows_of
from references.errors import NotPinned
from references.files import decode_text, read_bytes
from references.json_reader import DEEPEST
from sources import SOURCES

HERE = os.path.dirname(os.path.abspath(__file__))
SEED, COUNT = 11, 700


def digest(name):
    generator, sum_ = SOURCES[name].generator(3), hashlib.sha256()
    for _ in range(100):
        sum_.update(generator.file())
    return sum_.hexdigest()


def nesting(path):
    """How many containers are open at most; texts aside."""
    text = decode_text(read_bytes(path) or b"") or ""
    depth = deepest = 0
    for mark in re.sub(r'"(\\.|[^"\\])*"', "", text):
        depth += (mark in "[{") - (mark in "]}")
        deepest = max(deepest, depth)
    return deepest


class Generators(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.mkdtemp()
        cls.files = {}
        for name in SOURCES:
            folder = os.path.join(cls.folder, name)
            os.mkdir(folder)
            cls.files[name] = Files(SOURCES[name], SEED, COUNT, folder)

    @classmethod
    def tearDownClass(cls):
        shutil.rmtree(cls.folder)

    def good(self, name):
        """Paths and results of the imports that succeed."""
        return [(path, result) for path, result in self.files[name].expected.items() if "error" not in result]

    def test_seed_alone(self):
        for name in SOURCES:
            self.assertEqual(digest(name), digest(name))
        code = "import test_generators as t; print([t.digest(name) for name in t.SOURCES])"
        runs = {subprocess.run([sys.executable, "-c", code], cwd=HERE, env=dict(os.environ, PYTHONHASHSEED=seed),
                               check=True, stdout=subprocess.PIPE).stdout for seed in "12"}
        self.assertEqual(len(runs), 1)
        self.assertEqual(runs.pop().decode().strip(), str([digest(name) for name in SOURCES]))

    def test_most_succeed_and_some_fail(self):
        for name in SOURCES:
            share = len(self.good(name)) / COUNT
            self.assertGreater(share, 0.5, name)
            self.assertLess(share, 0.93, name)
            with_records = sum(1 for _, result in self.good(name) if any(result.values()))
            self.assertGreater(with_records / COUNT, 0.4, name)
            self.assertLess(self.files[name].dropped / COUNT, 0.05, name)

    def test_errors(self):
        found = {name: {(r["error"]["domain"],
                         r["error"]["code"]) for r in self.files[name].expected.values() if "error" in r}
                 for name in SOURCES}
        self.assertEqual(found["onePassword"], {("Rellinor.PIFParsingError", 1), ("Rellinor.JSONError", 1)})
        for name in SOURCES:
            if name != "onePassword":
                self.assertEqual(len(found[name]), 1, name)

    def test_marked_files_succeed(self):
        for name in SOURCES:
            marked = [path for path, result in self.good(name) if any(result.values())
                      and (read_bytes(path) or b"").startswith(BYTE_ORDER_MARK)]
            self.assertGreater(len(marked), 3, name)

    def test_dashlane(self):
        kept_beyond_the_window = dropped = 0
        for path, _ in self.good("dashlane"):
            for row in dashlane.read(path):
                text = "".join(row)
                if dashlane.number_of_matches(text):
                    dropped += 1
                elif dashlane.number_of_matches(text + "x" * 200):
                    kept_beyond_the_window += 1
        self.assertGreater(dropped, 100)
        self.assertGreater(kept_beyond_the_window, 30)

    def test_keepass(self):
        forks, skipped, positional = set(), 0, 0
        for path, result in self.good("keePass"):
            records = keepass.read(path)
            forks |= {fork for fork, _ in records}
            skipped += len(records) - len(result["passwords"])
            positional += len(rows_of(path)) == len(records)
        self.assertEqual(len(forks), 2)
        self.assertGreater(skipped, 30)
        self.assertGreater(positional, 30)

    def test_tirel(self):
        results = [result for _, result in self.good("tirel")]
        for name in ("passwords", "notes", "cards"):
            self.assertGreater(sum(len(result[name]) for result in results), 200)
        colors = [entry["color"] for result in results for entry in result["passwords"] + result["notes"]]
        self.assertIn(2 ** 63 - 1, colors)
        self.assertIn(-2 ** 63, colors)
        self.assertGreater(sum(entry["pwdChange"] is None for result in results for entry in result["passwords"]), 100)
        good = {nesting(path) for path, _ in self.good("tirel")}
        bad = {nesting(path) for path, result in self.files["tirel"].expected.items() if "error" in result}
        self.assertIn(DEEPEST, good)
        self.assertIn(DEEPEST + 1, bad)
        self.assertEqual(max(good), DEEPEST)

    def test_onepassword(self):
        strange = broken_up = 0
        for path, result in self.good("onePassword"):
            lines = decode_text(read_bytes(path)).split("\n")
            kept = [line for line in lines if line[:1] == "{"]
            strange += any(line.startswith("{}],") for line in kept)
            try:
                for line in kept:
                    pif.parse_text(line.rstrip("\r"))
            except (pif.JSONFailure, NotPinned):
                broken_up += 1
        self.assertGreater(strange, 3)
        self.assertGreater(broken_up, 10)


if __name__ == "__main__":
    unittest.main()
