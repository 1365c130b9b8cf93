"""The tool as a process: signals and limits, odd names and a bare environment.

usage: test_process.py TOOL [unittest arguments]
"""
import os
import resource
import signal
import subprocess
import time
import unittest
from pathlib import Path

from tool_case import Case, default_signals, ignoring, main, TIMEOUT, TOOL, UNWRITABLE

NOBODY = 65534


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
        case.wait_until(self._waits, "it does not wait")

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

    def _waits(self):
        """Whether it sleeps: for its message, since it waits for nothing else."""
        status = Path("/proc", str(self.process.pid), "stat").read_text()
        return status.rpartition(")")[2].split()[0] == "S"


class Interruptions(Case):
    """An output file is whole or not there, whatever ends the process."""

    def test_a_signal_leaves_nothing_behind_and_shows_in_the_status(self):
        for number in (signal.SIGHUP, signal.SIGINT, signal.SIGQUIT, signal.SIGTERM,
                       signal.SIGXCPU):
            stuck = Stuck(self)
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

    def test_what_cannot_be_caught_leaves_nothing_behind(self):
        stuck = Stuck(self)
        stuck.process.kill()
        self.assertEqual(stuck.process.wait(TIMEOUT), -signal.SIGKILL)
        self.assertEqual(self.left(), [])

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

    @unittest.skipUnless("RELLINOR_WALLED" in os.environ, "the tool is built without a wall")
    def test_it_reads_behind_its_wall(self):
        for command in ("import", "detect", "check"):
            process = subprocess.Popen([*TOOL, command, "-"], stdin=subprocess.PIPE,
                                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
            status = Path("/proc", str(process.pid), "status")
            try:
                self.wait_until(lambda: "\nSeccomp:\t2\n" in status.read_text(), command)
            finally:
                process.communicate(b"", TIMEOUT)


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
        reason = "The file may not be read by this user.\n"
        ended = self.as_somebody_else("import", "--source", "lastPass", "--format", "json", path)
        self.assertEqual((ended.returncode, ended.stdout),
                         (1, '{"error":{"domain":"Rellinor.TextError","code":1}}\n'))
        self.assertEqual(len(ended.stderr.splitlines()), 1)
        self.assertTrue(ended.stderr.endswith(" " + reason), ended.stderr)
        for command, told in (("detect", "unknown: " + reason),
                              ("check", "nothing would arrive: " + reason)):
            ended = self.as_somebody_else(command, path)
            self.assertEqual((ended.returncode, ended.stdout, ended.stderr),
                             (1, f"{path}: {told}", ""))

    def test_an_unreadable_folder_fails(self):
        profile = self.folder / "profile"
        profile.mkdir()
        (profile / "logins.json").write_text('{"logins":[]}')
        os.chmod(profile, 0)
        ended = self.as_somebody_else("import", "--source", "firefox", profile)
        self.assertEqual((ended.returncode, ended.stdout, len(ended.stderr.splitlines())),
                         (1, "", 1))

    def test_an_output_is_written_and_replaced(self):
        path = self.export()
        os.chmod(path, 0o644)
        os.chmod(self.outputs, 0o777)
        for more in ([], ["--force"]):
            ended = self.as_somebody_else("import", "--source", "lastPass", "--output",
                                          str(self.output), *more, path)
            self.assertEqual((ended.returncode, ended.stdout, ended.stderr), (0, "", ""))
            self.assertEqual(self.left(), ["out"])

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
    main(__doc__)
