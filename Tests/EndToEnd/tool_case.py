"""What the tests of the tool as a process share: how it is run, and files for it."""
import os
import shlex
import signal
import subprocess
import sys
import tempfile
import time
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
LOGIN_DATA = ROOT / "Examples" / "Vault" / "Chrome" / "Login Data"
TOOL = []
TIMEOUT = 60
HEADER = "url,username,password,extra,name,grouping,fav\n"
UNWRITABLE = "rellinor: the output could not be written\n"


def default_signals():
    """Whoever runs the tests may ignore some, and that would be inherited."""
    for number in (signal.SIGHUP, signal.SIGINT, signal.SIGPIPE, signal.SIGQUIT, signal.SIGTERM):
        signal.signal(number, signal.SIG_DFL)


def ignoring(number):
    def ignore():
        default_signals()
        signal.signal(number, signal.SIG_IGN)
    return ignore


def closing(*descriptors):
    def close():
        default_signals()
        for descriptor in descriptors:
            os.close(descriptor)
    return close


class Case(unittest.TestCase):
    maxDiff = None

    def setUp(self):
        temporary = tempfile.TemporaryDirectory()
        self.addCleanup(temporary.cleanup)
        self.folder = Path(temporary.name)
        self.outputs = self.folder / "outputs"
        self.outputs.mkdir()
        self.output = self.outputs / "out"

    def export(self, rows="https://a.example,ann,s3cret,,Mail,,0\n", name="export.csv"):
        """A LastPass export with these rows."""
        path = os.path.join(os.fsencode(self.folder), os.fsencode(name))
        with open(path, "wb") as file:
            file.write((HEADER + rows).encode())
        return os.fsdecode(path)

    def large_export(self, count=20000):
        """One whose output fills every buffer on its way: over 100 bytes of JSON for each login."""
        return self.export("".join(f"https://site{i}.example/,user{i},secret{i},,Service {i},,0\n"
                                   for i in range(count)), "large.csv")

    def run_tool(self, *arguments, **options):
        options = {"stdin": subprocess.DEVNULL, "stdout": subprocess.PIPE,
                   "stderr": subprocess.PIPE, "preexec_fn": default_signals, **options}
        ended = subprocess.run([*TOOL, *arguments], timeout=TIMEOUT, **options)
        for stream in ("stdout", "stderr"):
            if getattr(ended, stream) is not None:
                setattr(ended, stream, getattr(ended, stream).decode())
        return ended

    def imported(self, *arguments, **options):
        return self.run_tool("import", "--source", "lastPass", *arguments, **options)

    def left(self):
        """What is in the folder of the output."""
        return sorted(os.listdir(self.outputs))

    def wait_until(self, condition, what):
        end = time.monotonic() + TIMEOUT
        while not condition():
            self.assertLess(time.monotonic(), end, what)
            time.sleep(0.002)


def main(usage):
    """Runs the tests of a file with the tool that the first argument names, which may hold blanks."""
    if len(sys.argv) < 2:
        sys.exit(usage)
    TOOL[:] = [os.path.abspath(word) if os.path.exists(word) else word
               for word in shlex.split(sys.argv.pop(1))]
    unittest.main()
