"""Calls of the tool."""
import json
import subprocess

TIMEOUT = 300


class Malformed(Exception):
    """A line that is not the JSON it should be."""


class Tool:
    def __init__(self, command, source_name):
        self.command, self.source_name = command, source_name

    def call(self, paths):
        """(exit status or "timeout", list of lines or None, standard error)"""
        command = self.command + ["import", "--source", self.source_name, "--format", "json", "--reveal"] + paths
        try:
            done = subprocess.run(command, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                                  timeout=TIMEOUT)
        except subprocess.TimeoutExpired:
            return "timeout", None, b""
        lines = done.stdout.split(b"\n")        # only LF ends a line
        if lines.pop() != b"" or len(lines) != len(paths):
            return done.returncode, None, done.stderr
        return done.returncode, lines, done.stderr


def object_of(pairs):
    result = {}
    for key, value in pairs:
        if key in result:
            raise Malformed("key %r twice" % key)
        result[key] = value
    return result


def no_constant(name):
    raise Malformed("constant " + name)


def parse_line(line):
    try:
        return json.loads(line.decode("utf-8", "strict"), object_pairs_hook=object_of, parse_constant=no_constant)
    except (ValueError, RecursionError) as error:
        raise Malformed(str(error))
