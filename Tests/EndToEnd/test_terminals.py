"""The tool at terminals of all kinds.

usage: test_terminals.py TOOL [unittest arguments]
"""
import fcntl
import os
import pty
import re
import struct
import subprocess
import termios

from tool_case import Case, default_signals, main, TIMEOUT, TOOL, UNWRITABLE


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


if __name__ == "__main__":
    main(__doc__)
