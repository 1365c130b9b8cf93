#!/usr/bin/env python3
"""Differential test of `TOOL import` against the references.

usage: compare.py TOOL SOURCE SEED COUNT     compare COUNT generated files; exit 1 on any difference
       compare.py TOOL SOURCE --unpinned     print what the tool makes of inputs left out (exit 0)
SOURCE is one of the names in sources.py.  TOOL may hold blanks (split as a shell would).
Everything depends on SEED alone.
"""
import os
import random
import shlex
import shutil
import sys
import tempfile

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import unpinned  # noqa: E402
from driver.comparison import Comparison  # noqa: E402
from driver.files import Files  # noqa: E402
from driver.report import Report  # noqa: E402
from driver.tool import Tool  # noqa: E402
from sources import SOURCES  # noqa: E402


def compare(tool, source, seed, count):
    folder = tempfile.mkdtemp(prefix="%s-compare-%d-" % (source.name, seed))
    files, report = Files(source, seed, count, folder), Report()
    comparison = Comparison(tool, files, report)
    comparison.run(random.Random(seed + 1))
    print("%s, seed %d: %d files compared, %d of them failures; %d records in all (%s)"
          % (source.name, seed, comparison.compared, comparison.failures, sum(comparison.records.values()),
             ", ".join("%d %s" % (n, name) for name, n in comparison.records.items())))
    print("calls by exit status: %s; error domains: %s; drafts dropped as not pinned: %d"
          % (dict(sorted(comparison.statuses.items(), key=str)), ", ".join(sorted(comparison.domains)) or "none seen",
             files.dropped))
    print("differences: %d" % report.differences)
    if report.differences:
        report.keep_failing(folder)
        print("differing files kept in %s" % folder)
    else:
        shutil.rmtree(folder)
    if comparison.compared == 0:
        print("nothing was compared")
    return 1 if report.differences or comparison.compared == 0 else 0


def show_unpinned(tool, source):
    folder = tempfile.mkdtemp(prefix="%s-unpinned-" % source.name)
    try:
        for number, (label, data) in enumerate(unpinned.examples(source.name)):
            path = os.path.join(folder, "u%d" % number)
            with open(path, "wb") as file:
                file.write(data)
            status, lines, errors = tool.call([path])
            got = lines[0].decode("utf-8", "replace") if lines else "status %s, stderr %r" % (status, errors[:100])
            print("%-40s %.150s" % (label, got))
    finally:
        shutil.rmtree(folder)
    return 0


def main(arguments):
    if len(arguments) < 3 or arguments[1] not in SOURCES:
        print(__doc__, file=sys.stderr)
        return 2
    tool, source = Tool(shlex.split(arguments[0]), arguments[1]), SOURCES[arguments[1]]
    if arguments[2:] == ["--unpinned"]:
        return show_unpinned(tool, source)
    if len(arguments) != 4:
        print(__doc__, file=sys.stderr)
        return 2
    return compare(tool, source, int(arguments[2]), int(arguments[3]))


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
