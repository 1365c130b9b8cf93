"""The tool as a process: its exit statuses, streams and signals, terminals of all kinds, odd names
and a bare environment.

usage: test_process.py TOOL [unittest arguments]
TOOL may hold blanks (split as a shell would).
"""
import fcntl
import json
import os
import pty
import re
import resource
import shlex
import signal
import stat
import struct
import subprocess
import sys
import tempfile
import termios
import time
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
LOGIN_DATA = ROOT / "Examples" / "Vault" / "Chrome" / "Login Data"
TOOL = []
TIMEOUT = 60
HEADER = "url,username,password,extra,name,grouping,fav\n"
UNWRITABLE = "rellinor: the output could not be written\n"
NOBODY = 65534


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


class Streams(Case):
    """What goes where. (The tests of the import itself are Tests/Host/HostTest.cpp.)"""

    def test_detect_and_check_answer_on_the_standard_output(self):
        good, unknown = self.export(), self.export(name="unknown.bin")
        Path(unknown).write_bytes(b"\x00\x01\x02")
        for command, paths, status in ((["detect"], [good, unknown, good], 1),
                                       (["check"], [good, unknown, good], 1),
                                       (["check", "--source", "lastPass"], [good, good], 0),
                                       (["check", "--source", "lastPass"], [unknown, good], 1)):
            ended = self.run_tool(*command, *paths)
            self.assertEqual((ended.returncode, ended.stderr), (status, ""), (command, paths))
            answers = [line for line in ended.stdout.splitlines() if not line.startswith(" ")]
            self.assertEqual([line.partition(": ")[0] for line in answers], paths)

    def test_detect_and_check_need_a_path(self):
        for command in ("detect", "check"):
            ended = self.run_tool(command)
            self.assertEqual((ended.returncode, ended.stdout), (2, ""))
            self.assertEqual(len(ended.stderr.splitlines()), 1)

    def test_the_standard_input_is_left_alone(self):
        path = self.export()
        with open(self.export(name="input"), "rb") as file:
            for command in (["import", "--source", "lastPass"], ["detect"], ["check"]):
                self.assertEqual(self.run_tool(*command, path, stdin=file).stderr, "")
            self.assertEqual(os.lseek(file.fileno(), 0, os.SEEK_CUR), 0)

    def test_without_a_controlling_terminal_it_does_the_same(self):
        path = self.export()
        expected = self.imported("--format", "table", path)
        ended = self.imported("--format", "table", path, start_new_session=True)
        self.assertEqual((ended.returncode, ended.stdout, ended.stderr),
                         (0, expected.stdout, ""))


class ClosedStreams(Case):
    """No file may take the place of a stream that is closed."""

    def test_a_closed_standard_output_is_an_error(self):
        path = self.export()
        for command in (["import", "--source", "lastPass", "--format", "json", path],
                        ["import", "--source", "chrome", "--format", "json", str(LOGIN_DATA)],
                        ["detect", path], ["check", path], ["sources"], ["--version"], ["--help"]):
            ended = self.run_tool(*command, stdout=subprocess.DEVNULL, preexec_fn=closing(1))
            self.assertEqual(ended.returncode, 2, command)
            self.assertTrue(ended.stderr.endswith(UNWRITABLE), ended.stderr)

    def test_what_is_imported_is_not_written_over(self):
        database = self.folder / "Login Data"
        database.write_bytes(LOGIN_DATA.read_bytes())
        for source, path in (("lastPass", self.export()), ("chrome", database)):
            for closed in ([1], [2], [0, 1], [0, 1, 2]):
                before = Path(path).read_bytes()
                self.run_tool("import", "--source", source, "--format", "json", str(path),
                              "/nowhere", stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, preexec_fn=closing(*closed))
                self.assertEqual(Path(path).read_bytes(), before, (source, closed))

    def test_an_output_file_needs_no_standard_streams(self):
        path = self.export()
        expected = self.imported("--format", "json", path).stdout
        for closed in ([0], [1], [0, 1], [0, 1, 2]):
            ended = self.imported("--format", "json", "--output", self.output, "--force", path,
                                  stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, preexec_fn=closing(*closed))
            self.assertEqual(ended.returncode, 0, closed)
            self.assertEqual(self.output.read_text(), expected, closed)

    def test_messages_for_a_closed_stream_get_into_no_file(self):
        path = self.export()
        for closed in ([2], [0, 2]):
            ended = self.imported("--format", "json", "--output", self.output, "--force",
                                  "/nowhere", path, stderr=subprocess.DEVNULL,
                                  preexec_fn=closing(*closed))
            self.assertEqual((ended.returncode, ended.stdout), (1, ""))
            lines = self.output.read_text().splitlines()
            self.assertEqual([list(json.loads(line)) for line in lines],
                             [["error"], ["passwords", "notes", "cards"]])

    def test_without_a_standard_input_or_error_it_does_its_work(self):
        path = self.export()
        ended = self.imported(path, stderr=subprocess.DEVNULL, preexec_fn=closing(0, 2))
        self.assertEqual((ended.returncode, ended.stdout),
                         (0, f"{path}: 1 password, 0 notes, 0 cards\n"))


class BrokenPipes(Case):
    """Nobody reads what is written."""

    def into_broken_pipe(self, *arguments, preexec_fn):
        reader, writer = os.pipe()
        os.close(reader)
        try:
            return self.run_tool(*arguments, stdout=writer, preexec_fn=preexec_fn)
        finally:
            os.close(writer)

    def commands(self):
        path = self.export()
        for form in ("summary", "table", "json", "tirel"):
            yield ["import", "--source", "lastPass", "--format", form, path]
        yield from (["detect", path], ["check", path], ["sources"], ["--help"])

    def test_the_signal_ends_it(self):
        for command in self.commands():
            ended = self.into_broken_pipe(*command, preexec_fn=default_signals)
            self.assertEqual((ended.returncode, ended.stderr), (-signal.SIGPIPE, ""), command)

    def test_where_the_signal_is_ignored_it_is_an_error(self):
        for command in self.commands():
            ended = self.into_broken_pipe(*command, preexec_fn=ignoring(signal.SIGPIPE))
            self.assertEqual((ended.returncode, ended.stderr), (2, UNWRITABLE), command)

    def test_a_reader_who_leaves_midway_ends_it(self):
        path = self.large_export()
        for preexec_fn, status in ((default_signals, -signal.SIGPIPE),
                                   (ignoring(signal.SIGPIPE), 2)):
            with subprocess.Popen([*TOOL, "import", "--source", "lastPass", "--format", "json", path],
                                  stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                                  stderr=subprocess.DEVNULL, preexec_fn=preexec_fn) as process:
                self.assertEqual(process.stdout.read(13), b'{"passwords":')
                process.stdout.close()
                self.assertEqual(process.wait(TIMEOUT), status)

    def test_the_same_on_the_standard_error_too(self):
        reader, writer = os.pipe()
        os.close(reader)
        ended = self.imported("/nowhere", self.export(), stdout=writer, stderr=writer,
                              preexec_fn=ignoring(signal.SIGPIPE))
        os.close(writer)
        self.assertEqual(ended.returncode, 2)


class Stuck:
    """The tool in the midst of writing an output file: it has written the records of a first path,
    and cannot get rid of its message on a second that is missing."""

    def __init__(self, case, *more, preexec_fn=default_signals):
        self._reader, writer = os.pipe()
        self._fill(writer)
        path = case.large_export()
        self.process = subprocess.Popen(
            [*TOOL, "import", "--source", "lastPass", "--format", "json", "--output", case.output,
             *more, path, "/nowhere"],
            stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=writer,
            preexec_fn=preexec_fn)
        os.close(writer)
        case.addCleanup(self._end)
        case.wait_until(lambda: self._written(case.outputs) > 2 ** 20, "nothing is written")

    def lose_reader(self):
        os.close(self._reader)
        self._reader = None

    def go_on(self):
        """Takes its messages, until it ends."""
        with open(os.dup(self._reader), "rb") as reader:
            reader.read()
        return self.process.wait(TIMEOUT)

    def _end(self):
        self.process.kill()
        self.process.wait(TIMEOUT)
        if self._reader is not None:
            os.close(self._reader)

    @staticmethod
    def _fill(writer):
        os.set_blocking(writer, False)
        try:
            while True:
                os.write(writer, b"\n" * 4096)
        except BlockingIOError:
            pass
        try:
            while True:
                os.write(writer, b"\n")
        except BlockingIOError:
            os.set_blocking(writer, True)

    @staticmethod
    def _written(folder):
        return sum(path.stat().st_size for path in folder.glob(".rellinor-*"))


class Interruptions(Case):
    """An output file is whole or not there, whatever ends the process."""

    def test_a_signal_leaves_nothing_behind_and_shows_in_the_status(self):
        for number in (signal.SIGHUP, signal.SIGINT, signal.SIGQUIT, signal.SIGTERM,
                       signal.SIGXCPU):
            stuck = Stuck(self)
            self.assertEqual(len(self.left()), 1)
            stuck.process.send_signal(number)
            self.assertEqual(stuck.process.wait(TIMEOUT), -number)
            self.assertEqual(self.left(), [], number)

    def test_a_broken_pipe_leaves_nothing_behind(self):
        stuck = Stuck(self)
        stuck.lose_reader()
        self.assertEqual(stuck.process.wait(TIMEOUT), -signal.SIGPIPE)
        self.assertEqual(self.left(), [])

    def test_a_signal_keeps_what_was_to_be_replaced(self):
        self.output.write_text("old")
        stuck = Stuck(self, "--force")
        stuck.process.send_signal(signal.SIGTERM)
        self.assertEqual(stuck.process.wait(TIMEOUT), -signal.SIGTERM)
        self.assertEqual((self.left(), self.output.read_text()), (["out"], "old"))

    def test_a_signal_that_is_ignored_stays_so(self):
        stuck = Stuck(self, preexec_fn=ignoring(signal.SIGHUP))
        stuck.process.send_signal(signal.SIGHUP)
        self.assertEqual(stuck.go_on(), 1)  # for the path that is missing
        self.assertEqual(self.left(), ["out"])
        self.assertEqual(len(self.output.read_text().splitlines()), 2)

    def test_the_relative_name_of_an_output_is_removed_too(self):
        before = os.getcwd()
        os.chdir(self.outputs)
        try:
            self.output = Path("out")
            stuck = Stuck(self)
        finally:
            os.chdir(before)
        stuck.process.send_signal(signal.SIGINT)
        self.assertEqual(stuck.process.wait(TIMEOUT), -signal.SIGINT)
        self.assertEqual(self.left(), [])

    def test_what_cannot_be_caught_leaves_no_half_file(self):
        stuck = Stuck(self)
        stuck.process.kill()
        self.assertEqual(stuck.process.wait(TIMEOUT), -signal.SIGKILL)
        name, = self.left()  # which is not the output's
        self.assertTrue(name.startswith(".rellinor-"), name)
        self.assertEqual(stat.S_IMODE((self.outputs / name).stat().st_mode), 0o600)

    def test_at_any_time_it_is_whole_or_not_there(self):
        path = self.large_export(5000)
        begin = time.monotonic()
        whole = self.imported("--format", "json", "--output", self.output, path)
        duration = time.monotonic() - begin
        self.assertEqual(whole.returncode, 0)
        expected = self.output.read_bytes()
        for number in (signal.SIGTERM, signal.SIGKILL):
            for step in range(24):
                self.output.unlink(missing_ok=True)
                process = subprocess.Popen(
                    [*TOOL, "import", "--source", "lastPass", "--format", "json", "--output",
                     self.output, path], stdin=subprocess.DEVNULL, preexec_fn=default_signals)
                time.sleep(duration * step / 20)
                process.send_signal(number)
                status = process.wait(TIMEOUT)
                self.assertIn(status, (0, -number))
                if status == 0 or self.output.exists():
                    self.assertEqual(self.output.read_bytes(), expected)
                if number == signal.SIGTERM:
                    self.assertLessEqual(set(self.left()), {"out"})


class Limits(Case):
    def test_a_full_disk_leaves_nothing_behind(self):
        path = self.large_export()
        script = ('mount -t tmpfs -o size=64k tmpfs "$0" || exit 77; cd "$0"; '
                  '"$@"; status=$?; ls -A; exit "$status"')
        command = ["unshare", "--mount", "sh", "-c", script, self.outputs, *TOOL, "import",
                   "--source", "lastPass", "--format", "json", "--output", "out", path]
        try:
            ended = subprocess.run(command, capture_output=True, timeout=TIMEOUT)
        except FileNotFoundError:
            self.skipTest("there is no unshare here")
        if ended.returncode == 77 or b"unshare" in ended.stderr:
            self.skipTest("no file system can be mounted here")
        self.assertEqual((ended.returncode, ended.stdout, ended.stderr.decode()),
                         (2, b"", "rellinor: out: cannot be written: No space left on device\n"))

    def test_a_standard_output_that_may_not_grow_is_an_error(self):
        def limited():
            default_signals()
            resource.setrlimit(resource.RLIMIT_FSIZE, (4096, 4096))
        with open(self.output, "wb") as file:
            ended = self.imported("--format", "json", self.large_export(), stdout=file,
                                  preexec_fn=limited)
        self.assertEqual((ended.returncode, ended.stderr), (2, UNWRITABLE))

    def test_lack_of_memory_is_an_error_wherever_it_comes(self):
        path = self.export('http://sn,,,"' + 8 * 2 ** 20 * "x" + '",Wi-Fi,,0\n')
        endings = set()
        for size in range(8, 120, 4):
            def limited(limit=size * 2 ** 20):
                default_signals()
                resource.setrlimit(resource.RLIMIT_AS, (limit, limit))
            if self.run_tool("--version", preexec_fn=limited).returncode != 0:
                continue  # not even enough to begin with
            ended = self.imported("--format", "json", "--output", self.output, "--force", path,
                                  preexec_fn=limited)
            self.assertIn(ended.returncode, (0, 1, 2), ended.stderr)
            self.assertRegex(ended.stderr, r"^(rellinor: [^\n]+\n)?$")
            self.assertEqual(self.left(), ["out"] if ended.returncode != 2 else [])
            self.output.unlink(missing_ok=True)
            endings.add((ended.returncode, ended.stderr.replace(path, "PATH")))
        if not endings:
            self.skipTest("the tool itself needs more memory here")
        self.assertIn((0, ""), endings)
        self.assertIn((2, "rellinor: there is not enough memory\n"), endings)

    def test_secrets_get_into_no_memory_dump_and_files_are_private(self):
        process = Path("/proc", str(Stuck(self).process.pid))
        if not process.exists():
            self.skipTest("there is no /proc here")
        self.assertRegex((process / "limits").read_text(), r"Max core file size +0 +0 ")
        self.assertRegex((process / "status").read_text(), r"Umask:\t0077\n")


class Terminals(Case):
    """The table on terminals."""
    ROWS = ("https://mail.example/login,ann.berg@mail.example,s3cret,,Mail,,0\n"
            "https://bank.example/session/new?lang=en,40711523,0000,,Bank of somewhere,,0\n"
            "http://sn,,,a note that is rather long and does not fit into the line,Wi-Fi,,0\n")

    def on_terminal(self, *arguments, width=80, environment=None, **options):
        """What a terminal of that width shows."""
        master, slave = pty.openpty()
        fcntl.ioctl(slave, termios.TIOCSWINSZ, struct.pack("HHHH", 24, width, 0, 0))
        variables = {name: value for name, value in os.environ.items()
                     if name not in ("TERM", "NO_COLOR", "COLUMNS")}
        variables |= {"TERM": "dumb"} if environment is None else environment
        process = subprocess.Popen([*TOOL, *arguments], stdin=subprocess.DEVNULL, stdout=slave,
                                   stderr=subprocess.DEVNULL, env=variables,
                                   preexec_fn=default_signals, **options)
        os.close(slave)
        shown = b""
        with open(master, "rb", buffering=0) as terminal:
            while True:
                try:
                    data = terminal.read(65536)
                except OSError:  # how Linux says that nobody writes any more
                    break
                if not data:
                    break
                shown += data
        self.assertEqual(process.wait(TIMEOUT), 0)
        return shown.decode().replace("\r\n", "\n")

    def table(self, path, *more, **options):
        return self.on_terminal("import", "--source", "lastPass", "--format", "table", *more, path,
                                **options)

    def test_the_table_fits(self):
        path = self.export(self.ROWS)
        # Of 60 columns 10 are gaps, and 12 are PASSWORD's and NOTE's: 38 are left for three.
        self.assertEqual(self.table(path, width=60), f"""{path}

Passwords (2)
  SERVICE        USERNAME       PASSWORD  URL           NOTE
  -------------  -------------  --------  ------------  ----
  Mail           ann.berg@mai…  ********  https://mai…  -
  Bank of some…  40711523       ********  https://ban…  -

Notes (1)
  TITLE  CONTENT
  -----  ---------------------------------------------------
  Wi-Fi  a note that is rather long and does not fit into t…

""")

    def test_every_line_fits_every_width(self):
        path = self.export(self.ROWS)
        widest = self.table(path, width=1000)
        for width in (20, 21, 39, 40, 57, 80, 100, 132, 250):
            shown = self.table(path, width=width)
            for line in shown.splitlines()[1:]:
                self.assertLessEqual(len(line), width)
                self.assertEqual(line, line.rstrip())
        self.assertEqual(self.table(path, width=250), widest)

    def test_a_narrow_terminal_shows_one_field_on_a_line(self):
        shown = self.table(self.export(self.ROWS), width=20)
        self.assertIn("\nPasswords (2)\n\n"
                      "  SERVICE   Mail\n"
                      "  USERNAME  ann.ber…\n"
                      "  PASSWORD  ********\n"
                      "  URL       https:/…\n"
                      "  NOTE      -\n"
                      "\n"
                      "  SERVICE   Bank of…\n", shown)

    def test_a_terminal_without_a_width_has_that_of_the_environment(self):
        path = self.export(self.ROWS)
        expected = {width: self.table(path, width=width) for width in (50, 80)}
        self.assertNotEqual(expected[50], expected[80])
        for columns, width in ((None, 80), ("50", 50), ("", 80), ("0", 80), ("-50", 80),
                               ("50x", 80), (" 50", 80), ("99999999999999999999", 80)):
            environment = {"TERM": "dumb"} | ({} if columns is None else {"COLUMNS": columns})
            self.assertEqual(self.table(path, width=0, environment=environment), expected[width],
                             columns)

    def test_the_terminal_knows_its_width_best(self):
        path = self.export(self.ROWS)
        self.assertEqual(self.table(path, environment={"TERM": "dumb", "COLUMNS": "50"}),
                         self.table(path))

    def test_colours_are_for_terminals_that_have_them(self):
        path = self.export(self.ROWS)
        plain = self.table(path)
        self.assertNotIn("\x1b", plain)
        for environment, colours in (
                ({"TERM": "xterm-256color"}, True), ({"TERM": "xterm", "NO_COLOR": ""}, True),
                ({"TERM": "xterm", "NO_COLOR": "1"}, False), ({"TERM": "xterm", "NO_COLOR": "0"}, False),
                ({"TERM": "dumb"}, False), ({"TERM": ""}, False), ({}, False)):
            shown = self.table(path, environment=environment)
            self.assertEqual("\x1b" in shown, colours, environment)
            self.assertEqual(re.sub(r"\x1b\[[012]m", "", shown), plain)

    def test_headings_are_bold_and_masks_dim(self):
        path = self.export()
        shown = self.table(path, environment={"TERM": "xterm"})
        self.assertIn("\n\x1b[1mPasswords (1)\x1b[0m\n  \x1b[1mSERVICE\x1b[0m  ", shown)
        self.assertIn("  \x1b[2m********\x1b[0m  ", shown)
        revealed = self.table(path, "--reveal", environment={"TERM": "xterm"})
        self.assertIn("  s3cret    ", revealed)

    def test_nothing_but_a_terminal_has_a_width_or_colours(self):
        path = self.export(self.ROWS)
        environment = {"TERM": "xterm", "COLUMNS": "40"}
        piped = self.imported("--format", "table", path, env={**os.environ, **environment}).stdout
        self.assertNotIn("\x1b", piped)
        self.assertIn("  a note that is rather long and does not fit into the line\n", piped)
        self.assertIn("  https://bank.example/session/new?lang=en  -\n", piped)
        shown = self.table(path, "--output", self.output, environment=environment)
        self.assertEqual((shown, self.output.read_text()), ("", piped))

    def test_the_terminal_of_the_messages_does_not_matter(self):
        path = self.export(self.ROWS)
        master, slave = pty.openpty()
        piped = self.imported("--format", "table", path, stderr=slave,
                              env={**os.environ, "TERM": "xterm"}).stdout
        os.close(slave)
        os.close(master)
        self.assertEqual(piped, self.imported("--format", "table", path).stdout)

    def test_a_terminal_gets_no_control_character_of_a_record(self):
        path = self.export('https://a.example,"\x1b[31m\x07ann\x9b\u202e",p,,"a\n\tb",,0\n')
        for more in ([], ["--reveal"]):
            shown = self.table(path, *more, width=200)
            self.assertNotRegex(shown, "[\x00-\x09\x0b-\x1f\x7f-\x9f\u202e]")
            self.assertIn("  ␛[31m␇ann��  ", shown)
            self.assertIn("  a␊␉b  ", shown)

    def test_a_mask_tells_nothing_of_the_secret(self):
        shown = [self.table(self.export(f"https://a.example,ann,{secret},,Mail,,0\n"),
                            width=width, environment={"TERM": "xterm"})
                 for width in (30, 80) for secret in ("1", "a secret of thirty characters…")]
        self.assertEqual(shown[0], shown[1])
        self.assertEqual(shown[2], shown[3])

    def test_a_terminal_that_is_gone_is_an_error(self):
        path = self.export()
        master, slave = pty.openpty()
        os.close(master)
        ended = self.imported("--format", "table", path, stdout=slave)
        os.close(slave)
        self.assertEqual((ended.returncode, ended.stderr), (2, UNWRITABLE))


class Names(Case):
    """Files with names that give trouble."""
    # The name, and how it is shown.
    ODD = ((b"a\nb.csv", "a␊b.csv"), (b"a\xff\xfeb.csv", "a\ufffd\ufffdb.csv"),
           (b"with spaces .csv", "with spaces .csv"), (b"a:b.csv", "a:b.csv"),
           (b"100%25.csv", "100%25.csv"), (b"a?b#c.csv", "a?b#c.csv"), (b"\\.csv", "\\.csv"),
           ("漢字 👨‍👩‍👧.csv".encode(), "漢字 👨‍👩‍👧.csv"), (b"\x1b]0;title\x07", "␛]0;title␇"),
           (b"-x.csv", "-x.csv"), (b"--help", "--help"), (b"~", "~"), (b"$HOME", "$HOME"),
           (b"x" * 255, "x" * 255))

    def made(self, name):
        try:
            return self.export(name=name)
        except OSError:
            return None  # a file system that takes no such name

    def test_they_are_imported_and_shown_on_one_line(self):
        for name, shown in self.ODD:
            if self.made(name):
                for path in ([b"./" + name], [b"--", name]):
                    ended = self.imported(*path, cwd=self.folder)
                    prefix = "./" if len(path) == 1 else ""
                    self.assertEqual((ended.returncode, ended.stdout, ended.stderr),
                                     (0, f"{prefix}{shown}: 1 password, 0 notes, 0 cards\n", ""))

    def test_they_are_detected_and_checked(self):
        for name, shown in self.ODD:
            if self.made(name):
                for command in (["detect"], ["check", "--source", "lastPass"]):
                    ended = self.run_tool(*command, "--", name, cwd=self.folder)
                    self.assertEqual(ended.stderr, "", (command, name))
                    self.assertTrue(ended.stdout.startswith(f"{shown}: "), ended.stdout)

    def test_outputs_may_bear_them(self):
        path = self.export()
        for name, _ in self.ODD:
            if self.made(name):
                ended = self.imported(b"--output=" + name, path, cwd=self.outputs)
                self.assertEqual((ended.returncode, ended.stdout, ended.stderr), (0, "", ""), name)
                self.assertEqual(os.listdir(os.fsencode(self.outputs)), [name])
                os.unlink(os.path.join(os.fsencode(self.outputs), name))

    def test_a_dash_needs_two_dashes_before_it(self):
        self.export(name="-x.csv")
        ended = self.imported("-x.csv", cwd=self.folder)
        self.assertEqual((ended.returncode, ended.stdout), (2, ""))
        self.assertEqual(len(ended.stderr.splitlines()), 1)

    def test_an_empty_path_fails_like_a_missing_one(self):
        path = self.export()
        ended = self.imported("--format", "json", "", path)
        self.assertEqual((ended.returncode, len(ended.stdout.splitlines())), (1, 2))
        self.assertRegex(ended.stderr, r'^rellinor: "": not imported as lastPass: .*\n$')

    def test_a_path_that_is_too_long_fails_on_one_line(self):
        ended = self.imported("/" + "x" * 5000)
        self.assertEqual((ended.returncode, ended.stdout, len(ended.stderr.splitlines())),
                         (1, "", 1))

    def test_very_many_paths_are_taken(self):
        self.export(name="e")
        ended = self.imported(*["e"] * 20000, cwd=self.folder)
        self.assertEqual((ended.returncode, ended.stderr), (0, ""))
        self.assertEqual(ended.stdout, "e: 1 password, 0 notes, 0 cards\n" * 20000)

    def test_very_many_missing_paths_have_a_message_each(self):
        ended = self.imported(*["/nowhere"] * 5000)
        self.assertEqual((ended.returncode, ended.stdout), (1, ""))
        self.assertEqual(len(ended.stderr.splitlines()), 5000)


class Environments(Case):
    def test_it_needs_none(self):
        path = self.export("https://a.example,jürgen,漢字,,Büro 📷,,0\n", name="Grüße.csv")
        expected = self.imported("--format", "table", "--reveal", path).stdout
        self.assertIn("  Büro 📷  jürgen    漢字 ", expected)
        for environment in ({}, {"LC_ALL": "C"}, {"LC_ALL": "C.UTF-8"}, {"LC_ALL": "nowhere"},
                            {"LANG": "tr_TR.UTF-8"}, {"HOME": "/nowhere", "TMPDIR": "/nowhere"}):
            kept = {name: value for name, value in os.environ.items() if "SAN_OPTIONS" in name}
            ended = self.imported("--format", "table", "--reveal", path, env={**kept, **environment})
            self.assertEqual((ended.returncode, ended.stdout, ended.stderr), (0, expected, ""),
                             environment)

    def test_the_current_folder_may_be_gone(self):
        path = self.export()
        gone = self.folder / "gone"
        gone.mkdir()

        def remove():
            default_signals()
            os.chdir(gone)
            os.rmdir(gone)
        ended = self.imported(path, preexec_fn=remove)
        self.assertEqual((ended.returncode, ended.stdout, ended.stderr),
                         (0, f"{path}: 1 password, 0 notes, 0 cards\n", ""))
        gone.mkdir()
        ended = self.imported("relative.csv", preexec_fn=remove)
        self.assertEqual((ended.returncode, ended.stdout, len(ended.stderr.splitlines())),
                         (2, "", 1))

    def as_somebody_else(self, *arguments):
        """Runs the tool as one whom file modes stop, which they do not do to root."""
        os.chmod(self.folder, 0o755)
        if os.geteuid() != 0:
            return self.run_tool(*arguments)

        def drop():
            default_signals()
            os.setgroups([])
            os.setgid(NOBODY)
            os.setuid(NOBODY)
        try:
            if self.run_tool("--version", preexec_fn=drop).returncode == 0:
                return self.run_tool(*arguments, preexec_fn=drop)
        except (OSError, subprocess.SubprocessError):
            pass
        return self.skipTest("nobody cannot run the tool here")

    def test_an_unreadable_file_fails(self):
        path = self.export()
        os.chmod(path, 0)
        ended = self.as_somebody_else("import", "--source", "lastPass", "--format", "json", path)
        self.assertEqual((ended.returncode, ended.stdout),
                         (1, '{"error":{"domain":"Rellinor.TextError","code":1}}\n'))
        self.assertEqual(len(ended.stderr.splitlines()), 1)
        for command in ("detect", "check"):
            ended = self.as_somebody_else(command, path)
            self.assertEqual((ended.returncode, ended.stderr), (1, ""))

    def test_an_unreadable_folder_fails(self):
        profile = self.folder / "profile"
        profile.mkdir()
        (profile / "logins.json").write_text('{"logins":[]}')
        os.chmod(profile, 0)
        ended = self.as_somebody_else("import", "--source", "firefox", profile)
        self.assertEqual((ended.returncode, ended.stdout, len(ended.stderr.splitlines())),
                         (1, "", 1))

    def test_a_folder_that_is_not_to_be_written_to_takes_no_output(self):
        path = self.export()
        os.chmod(path, 0o644)
        os.chmod(self.outputs, 0o555)
        ended = self.as_somebody_else("import", "--source", "lastPass", "--output",
                                      str(self.output), path)
        self.assertEqual((ended.returncode, ended.stdout, ended.stderr),
                         (2, "", f"rellinor: {self.output}: cannot be written: Permission denied\n"))
        self.assertEqual(self.left(), [])


if __name__ == "__main__":
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    TOOL = [os.path.abspath(word) if os.path.exists(word) else word
            for word in shlex.split(sys.argv.pop(1))]
    unittest.main()
