"""`rellinor check` announces what `rellinor import` then does, over all samples.

usage: test_check.py TOOL [unittest arguments]
TOOL may hold blanks (split as a shell would)."""
import re
import shlex
import subprocess
import sys
import unittest
from pathlib import Path

from driver.tool import Tool, parse_line

ROOT = Path(__file__).resolve().parents[2]
TOOL = []
LISTS = ["passwords", "notes", "cards"]
PATTERNS = {"lastPass": "LastPass/*.csv", "dashlane": "Dashlane/*.csv", "keePass": "KeePass/*.csv",
            "keePassXC": "KeePass*/*.csv", "onePassword": "OnePassword/*.1pif", "tirel": "Tirel/*.json",
            "chrome": "Chrome/Login Data", "firefox": "Firefox/*.profile"}
ARRIVING = re.compile(r"would arrive: (\d+) passwords?, (\d+) notes?, (\d+) cards?\n")


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
        """The number of files whose import succeeds."""
        _, lines, _ = Tool(TOOL, source).call(paths)
        succeeded = 0
        for path, line, report in zip(paths, lines, reports(source, paths)):
            with self.subTest(source=source, path=path):
                succeeded += self.agree_on_file(source, parse_line(line), report)
        return succeeded

    def agree_on_file(self, source, result, report):
        if "error" in result:
            self.assertIn("nothing would arrive: ", report)
            return False
        counts = [len(result[name]) for name in LISTS]
        self.assertEqual(list(map(int, ARRIVING.search(report).groups())), counts)
        left_out = int((re.search(r"  (\d+) records? would be left out:\n", report) or [0, 0])[1])
        records = int(re.match(rf"read as {source}, (\d+) records?\n", report)[1])
        self.assertEqual(records, sum(counts) + left_out)
        return True

    def test_samples(self):
        for source, pattern in PATTERNS.items():
            paths = [str(path) for folder in ("Tests/Fixtures", "Examples/Exports", "Examples/Vault")
                     for path in sorted((ROOT / folder).glob(pattern))]
            self.assertGreaterEqual(self.agree(source, paths), 2, source)


if __name__ == "__main__":
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    TOOL = shlex.split(sys.argv.pop(1))
    unittest.main()
