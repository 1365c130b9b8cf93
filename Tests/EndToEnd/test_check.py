"""`rellinor check` announces what `rellinor import` then does, over all samples and random files.

usage: test_check.py TOOL [COUNT] [unittest arguments]
COUNT files of each source that has a generator.  TOOL may hold blanks (split as a shell would)."""
import re
import shlex
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

from driver.files import Files
from driver.tool import Tool, parse_line
from left_out import LEFT_OUT
from sources import SOURCES

ROOT = Path(__file__).resolve().parents[2]
TOOL, COUNT = [], 1000
LISTS = ["passwords", "notes", "cards"]
PATTERNS = {"lastPass": "LastPass/*.csv", "dashlane": "Dashlane/*.csv", "keePass": "KeePass/*.csv",
            "keePassXC": "KeePass*/*.csv", "onePassword": "OnePassword/*.1pif", "tirel": "Tirel/*.json",
            "chrome": "Chrome/Login Data", "firefox": "Firefox/*.profile"}
ARRIVING = re.compile(r"would arrive: (\d+) passwords?, (\d+) notes?, (\d+) cards?\n")
LEFT_OUT_PLACES = re.compile(r"^    (?:lines?) ([\d, and]+?)( and \d+ more)?(?: \(.*?\))?: ", re.MULTILINE)
PER_CALL = 100


def reports(source, paths):
    """What is told of each path."""
    ended = subprocess.run([*TOOL, "check", "--source", source, *paths], capture_output=True, timeout=300)
    assert not ended.stderr, ended.stderr
    text, found = ended.stdout.decode(), []
    for path, following in zip(paths, [*paths[1:], None]):
        begin, text = text[:len(path) + 2], text[len(path) + 2:]
        assert begin == path + ": ", begin
        end = len(text) if following is None else text.index("\n" + following + ": ") + 1
        found.append(text[:end])
        text = text[end:]
    return found


class Agreement(unittest.TestCase):
    """What is announced arrives, and what arrives is announced."""

    def agree(self, source, paths):
        """The number of files whose import succeeds, and of records that are left out."""
        succeeded = dropped = 0
        for first in range(0, len(paths), PER_CALL):
            batch = paths[first:first + PER_CALL]
            _, lines, _ = Tool(TOOL, source).call(batch)
            for path, line, report in zip(batch, lines, reports(source, batch)):
                with self.subTest(source=source, path=path):
                    counts, left_out = self.agree_on_file(source, path, parse_line(line), report)
                    succeeded += counts is not None
                    dropped += left_out
        return succeeded, dropped

    def agree_on_file(self, source, path, result, report):
        if "error" in result:
            self.assertIn("nothing would arrive: ", report)
            return None, 0
        counts = [len(result[name]) for name in LISTS]
        self.assertEqual(list(map(int, ARRIVING.search(report).groups())), counts)
        left_out = int((re.search(r"  (\d+) records? would be left out:\n", report) or [0, 0])[1])
        records = int(re.match(rf"read as {source}, (\d+) records?\n", report)[1])
        self.assertEqual(records, sum(counts) + left_out)
        if source in LEFT_OUT:
            section = re.search(r"would be left out:\n((?:    .*\n)*)", report)
            named = LEFT_OUT_PLACES.findall(section[1] if section else "")
            if not any(more for _, more in named):
                self.assertEqual(sorted(int(place) for places, _ in named for place in re.findall(r"\d+", places)),
                                 LEFT_OUT[source](path))
        return counts, left_out

    def test_samples(self):
        for source, pattern in PATTERNS.items():
            paths = [str(path) for folder in ("Tests/Fixtures", "Examples/Exports", "Examples/Vault")
                     for path in sorted((ROOT / folder).glob(pattern))]
            self.assertGreaterEqual(self.agree(source, paths)[0], 2, source)


for _name in SOURCES:
    def _test(self, name=_name):
        folder = tempfile.mkdtemp(prefix="check-")
        self.addCleanup(shutil.rmtree, folder)
        succeeded, dropped = self.agree(name, list(Files(SOURCES[name], 11, COUNT, folder).expected))
        self.assertGreater(succeeded, COUNT // 4)
        if name in LEFT_OUT:
            self.assertGreater(dropped, COUNT // 10)
    setattr(Agreement, "test_random_files_of_" + _name, _test)


if __name__ == "__main__":
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    TOOL = shlex.split(sys.argv.pop(1))
    if len(sys.argv) > 1 and sys.argv[1].isdigit():
        COUNT = int(sys.argv.pop(1))
    unittest.main()
