"""`rellinor check` announces what `rellinor import` then does, over all fixtures, samples and random files.

usage: test_check.py TOOL [COUNT] [unittest arguments]
COUNT files of each source that has a generator.  TOOL may hold blanks (split as a shell would)."""
import collections
import csv
import io
import os
import random
import shlex
import shutil
import sys
import tempfile
import unittest
from pathlib import Path

from check_report import check, in_batches
from driver.files import Files
from driver.tool import Tool, parse_line
from left_out import LEFT_OUT
from sources import SOURCES

ROOT = Path(__file__).resolve().parents[2]
TOOL, COUNT = [], 1000
LISTS = ["passwords", "notes", "cards"]


def written(folder, name, text):
    path = os.path.join(folder, name)
    with open(path, "w", encoding="utf-8", newline="") as file:
        file.write(text)
    return path


class Temporary(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.mkdtemp(prefix="check-")
        self.addCleanup(shutil.rmtree, self.folder)

    def report(self, source, text):
        _, (report,) = check(TOOL, source, [written(self.folder, "export", text)])
        return report


class Agreement(Temporary):
    """What is announced arrives, and what arrives is announced."""

    def agree(self, source, paths):
        """The number of files whose import succeeds, and of rows that are left out."""
        succeeded = dropped = 0
        for batch in in_batches(paths):
            _, lines, _ = Tool(TOOL, source).call(batch)
            self.assertIsNotNone(lines, batch[0])
            status, reports = check(TOOL, source, batch)
            self.assertEqual(status, 0 if all(report.clean for report in reports) else 1, batch[0])
            for path, line, report in zip(batch, lines, reports):
                with self.subTest(source=source, path=path):
                    result = parse_line(line)
                    self.agree_on_file(source, path, result, report)
                    succeeded += "error" not in result
                    dropped += report.left_out_count or 0
        return succeeded, dropped

    def agree_on_file(self, source, path, result, report):
        if "error" in result:
            self.assertTrue(report.failed or not report.checked)
            self.assertIsNone(report.counts)
            self.assertFalse(report.clean)
            return
        self.assertEqual(report.counts, [len(result[name]) for name in LISTS])
        self.assertEqual(sum(remark.count for remark in report.left_out), report.left_out_count or 0)
        self.assertEqual(report.clean, not report.left_out and not report.wrong)
        if report.rows is not None:
            self.assertEqual(report.rows, sum(report.counts) + (report.left_out_count or 0))
        if source in LEFT_OUT:
            self.assertIsNotNone(report.rows)
            if not any(remark.unnamed for remark in report.left_out):
                self.assertEqual(sorted(place for remark in report.left_out for place in remark.places),
                                 LEFT_OUT[source](path))

    def test_fixtures_and_samples(self):
        suffixes = {"lastPass": "LastPass/*.csv", "dashlane": "Dashlane/*.csv", "keePass": "KeePass/*.csv",
                    "keePassXC": "KeePass*/*.csv", "onePassword": "OnePassword/*.1pif", "tirel": "Tirel/*.json",
                    "chrome": "Chrome/Login Data", "firefox": "Firefox/*.profile"}
        for source, pattern in suffixes.items():
            paths = [str(path) for folder in ("Tests/Fixtures", "Examples/Exports", "Examples/Vault")
                     for path in sorted((ROOT / folder).glob(pattern))]
            self.assertGreaterEqual(len(paths), 2, source)
            self.assertGreaterEqual(self.agree(source, paths)[0], 2, source)


for _name in SOURCES:
    def _test(self, name=_name):
        files = Files(SOURCES[name], 11, COUNT, self.folder)
        succeeded, dropped = self.agree(name, list(files.expected))
        self.assertGreater(succeeded, COUNT // 4)
        if name in LEFT_OUT:
            self.assertGreater(dropped, COUNT // 10)
    setattr(Agreement, "test_random_files_of_" + _name, _test)


# ---------------------------------------------------------------- quotes

HEADERS = {"lastPass": ["url", "username", "password", "extra", "name", "grouping", "fav"],
           "keePassXC": ["Group", "Title", "Username", "Password", "URL", "Notes"]}
ARRIVING = {"lastPass": [0, 1, 2, 4], "keePassXC": [1, 2, 3, 4]}
PASSWORD = {"lastPass": 2, "keePassXC": 3}
IN_PASSWORD = "a double quote in the password arrives as two"
ELSEWHERE = "a double quote in another text arrives as two"


def text(random_):
    """A text without a backslash before a quote or at its end, which the import reads in its own way."""
    pieces = ["", "a", "word ", '"', '""', ",", "\n", "\n\n", "; ", "\u00e9", "\\n", "'", '5" disk', " ", "&"]
    return "".join(random_.choices(pieces, k=random_.choice([0, 1, 2, 6])))


def export(random_, source):
    """(the text of an honest export, its rows)"""
    rows = [["r%d" % number] + [text(random_) for _ in HEADERS[source][1:]] for number in range(8)]
    out = io.StringIO()
    quoting = random_.choice([csv.QUOTE_ALL, csv.QUOTE_MINIMAL])
    writer = csv.writer(out, quoting=quoting, lineterminator=random_.choice(["\n", "\r\n"]))
    writer.writerow(HEADERS[source])
    writer.writerows(rows)
    return out.getvalue(), rows


def lines_of(rows):
    """Where each begins, behind a header of one line."""
    line = 2
    for row in rows:
        yield line
        line += 1 + sum(cell.count("\n") for cell in row)


class Quotes(Temporary):
    def test_honest_exports_give_no_alarm(self):
        random_ = random.Random(5)
        for source in HEADERS:
            for _ in range(100):
                contents, rows = export(random_, source)
                wanted = collections.defaultdict(list)
                for line, row in zip(lines_of(rows), rows):
                    for column in ARRIVING[source]:
                        if '"' in row[column]:
                            places = wanted[IN_PASSWORD if column == PASSWORD[source] else ELSEWHERE]
                            if line not in places:
                                places.append(line)
                with self.subTest(contents):
                    report = self.report(source, contents)
                    self.assertEqual({remark.text: remark.places for remark in report.wrong}, dict(wanted))
                    self.assertEqual(report.rows, len(rows))

    def test_a_quote_too_many_is_found(self):
        random_ = random.Random(6)
        for source in HEADERS:
            for _ in range(100):
                contents, _ = export(random_, source)
                at = random_.randrange(contents.index("\n") + 1, len(contents))
                with self.subTest(contents[:at] + '"' + contents[at:]):
                    report = self.report(source, contents[:at] + '"' + contents[at:])
                    self.assertTrue(any(remark.text.startswith(("a quote that is not closed",
                                                                "quotes that are not closed"))
                                        for remark in report.wrong))

    def test_keepass_escapes_give_no_alarm(self):
        random_ = random.Random(7)
        for _ in range(100):
            rows = [[text(random_) for _ in range(5)] for _ in range(5)]
            lines = [["Account", "Login Name", "Password", "Web Site", "Comments"]] + rows
            contents = "".join(",".join('"%s"' % cell.replace("\\", "\\\\").replace('"', '\\"') for cell in line)
                               + "\r\n" for line in lines)
            with self.subTest(contents):
                self.assertEqual([remark.text for remark in self.report("keePass", contents).wrong
                                  if " arrives as two" not in remark.text], [])


if __name__ == "__main__":
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    TOOL = shlex.split(sys.argv.pop(1))
    if len(sys.argv) > 1 and sys.argv[1].isdigit():
        COUNT = int(sys.argv.pop(1))
    unittest.main()
