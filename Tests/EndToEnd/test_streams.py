"""The tool's streams: what goes where, streams that are closed, pipes that nobody reads.

usage: test_streams.py TOOL [unittest arguments]
"""
import json
import os
import signal
import subprocess
from pathlib import Path

from tool_case import (Case, closing, default_signals, ignoring, LOGIN_DATA, main, TIMEOUT, TOOL,
                       UNWRITABLE)


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

    def test_the_standard_input_and_pipes_are_read_where_they_are_named(self):
        text = b'{"logins":[],"notes":[{"color":0,"label":"t","text":"s3cret"}],"cards":[]}'
        plain = self.folder / "export.json"
        plain.write_bytes(text)
        expected = self.run_tool("import", "--format", "json", str(plain)).stdout
        read, write = os.pipe()
        os.write(write, text)
        os.close(write)
        for path, more in (("-", {"input": text}),
                           (f"/dev/fd/{read}", {"pass_fds": [read]})):
            ended = subprocess.run([*TOOL, "import", "--format", "json", path], timeout=TIMEOUT,
                                   capture_output=True, **more)
            self.assertEqual((ended.returncode, ended.stdout.decode()), (0, expected))
        ended = subprocess.run([*TOOL, "detect", "--format", "json", "-"], input=text,
                               capture_output=True, timeout=TIMEOUT)
        self.assertEqual(json.loads(ended.stdout)["detection"]["layout"], "tirel-json")

    def test_check_has_all_codes_for_programs(self):
        with open(self.folder / "export.1pif", "w") as file:
            file.write('{"typeName":"webforms.WebForm","title":"t"}\n***\n{"typeName":"system.folder.Regular"}\n')
        ended = self.run_tool("check", "--layout", "1password-1pif", "--format", "json",
                              str(self.folder / "export.1pif"))
        report = json.loads(ended.stdout)["report"]
        self.assertEqual((report["recordCount"], report["leftOut"]),
                         (2, [{"reason": "placeholder", "field": "", "count": 1, "places": [3]}]))
        missing = self.run_tool("check", "--format", "json", str(self.folder / "missing"))
        self.assertEqual((missing.returncode, json.loads(missing.stdout)["detection"]["obstacle"]),
                         (1, "missing"))

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
                              "/nowhere", stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                              preexec_fn=closing(*closed))
                self.assertEqual(Path(path).read_bytes(), before, (source, closed))

    def test_an_output_file_needs_no_standard_streams(self):
        path = self.export()
        expected = self.imported("--format", "json", path).stdout
        for closed in ([0], [1], [0, 1], [0, 1, 2]):
            ended = self.imported("--format", "json", "--output", self.output, "--force", path,
                                  stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                                  preexec_fn=closing(*closed))
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


if __name__ == "__main__":
    main(__doc__)
