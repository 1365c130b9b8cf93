"""The driver finds no difference where there is none, and every kind of difference that there can be."""
import contextlib
import io
import os
import re
import shutil
import sys
import unittest

import compare
from driver.comparison import same
from driver.standard_error import complaints
from driver.tool import Malformed, Tool, parse_line
from reference_tool import CHANGES, OTHER_LIES
from sources import SOURCES

REFERENCE_TOOL = os.path.join(os.path.dirname(os.path.abspath(__file__)), "reference_tool.py")


def run(lie, name, count=30):
    tool = Tool([sys.executable, REFERENCE_TOOL, lie], name)
    out = io.StringIO()
    with contextlib.redirect_stdout(out):
        status = compare.compare(tool, SOURCES[name], 7, count)
    text = out.getvalue()
    kept = re.search("^differing files kept in (.*)$", text, re.MULTILINE)
    if kept:
        shutil.rmtree(kept[1])
    return status, text


class Driver(unittest.TestCase):
    def test_honest_tool(self):
        for name in SOURCES:
            status, text = run("honest", name)
            self.assertEqual(status, 0, text)
            self.assertIn("30 files compared", text)
            self.assertIn("\ndifferences: 0\n", text)

    def test_every_lie_is_found(self):
        for lie in list(CHANGES) + OTHER_LIES:
            name = "keePass" if lie == "empty_for_absent" else "tirel"      # whose colours are absent and present
            status, text = run(lie, name, 20)
            self.assertEqual(status, 1, (lie, text))
            self.assertNotIn("\ndifferences: 0\n", text)

    def test_a_declared_error_is_no_text(self):
        for lie in ("other_code", "other_domain"):
            self.assertEqual(run(lie, "onePassword", 20)[0], 1, lie)

    def test_nothing_compared_is_no_success(self):
        self.assertEqual(run("honest", "tirel", 0)[0], 1)

    def test_usage(self):
        with contextlib.redirect_stderr(io.StringIO()):
            for arguments in ([], ["tool"], ["tool", "tirel"], ["tool", "netscape", "1", "2"], ["tool", "1", "2"],
                              ["tool", "tirel", "1"]):
                self.assertEqual(compare.main(arguments), 2, arguments)

    def test_same(self):
        self.assertTrue(same({"a": [1, None, "x"]}, {"a": [1, None, "x"]}))
        for a, b in ((1, 1.0), (1, True), (None, ""), ([], {}), ([1], [1, 1]), ({"a": 1}, {"a": 1, "b": None}),
                     ("e\u0301", "\u00e9")):
            self.assertFalse(same(a, b), (a, b))

    def test_standard_error(self):
        failure, gist = b"rellinor: a: not imported as tirel: x\n", b"rellinor: b: 1 row left out (rellinor check tells more)\n"
        self.assertEqual(complaints(b"", ["a"], set()), [])
        self.assertEqual(complaints(failure + gist, ["a", "b"], {"a"}), [])
        self.assertEqual(complaints(b"rellinor: a: this looks like x\n", ["a"], set()), [])
        for errors in (b"", gist, gist + failure, failure + failure, failure + b"x\n", failure[:-1],
                       failure.replace(b" tirel", b""), b"rellinor: a: x\n", b"\n" + failure,
                       failure + b"rellinor: b: not imported as tirel: x\n"):
            self.assertNotEqual(complaints(errors, ["a", "b"], {"a"}), [], errors)

    def test_lines(self):
        self.assertEqual(parse_line(b'{"a":9223372036854775807}'), {"a": 2 ** 63 - 1})
        for line in (b"", b"{", b'{"a":NaN}', b'{"a":1,"a":1}', b"\xff", b"[" * 100000):
            self.assertRaises(Malformed, parse_line, line)


if __name__ == "__main__":
    unittest.main()
