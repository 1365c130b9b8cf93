"""The examples of the pages about sources come out as the pages say, and so does the recording in the README.

    test_documentation.py TOOL SOURCE...

Those of the sources that are named, and those of all layouts, their reports aside."""
import os
import subprocess
import sys
import tempfile
import unittest

from driver.tool import Tool, parse_line
from pages import FILE, Strange, examples_in, examples_of, fences_of, same, write_files

ROOT = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..")
PAGES = os.path.join(ROOT, "Documentation", "sources")
EXAMPLES = examples_in(PAGES)
TOOL, CHECKED_SOURCES = (sys.argv[1], sys.argv[2:]) if len(sys.argv) > 2 else (None, [])


def examples_with(source):
    return [example for example in EXAMPLES if example.source == source]


def outcome_of(example):
    with tempfile.TemporaryDirectory() as folder:
        _, lines, errors = Tool([TOOL], example.source).call([write_files(example, folder)])
    return parse_line(lines[0]) if lines else errors


def by_layout(example):
    command = [TOOL, "import", "--layout", example.layout, "--format", "json", "--reveal"]
    with tempfile.TemporaryDirectory() as folder:
        done = subprocess.run(command + [write_files(example, folder)], capture_output=True, check=True)
    read = parse_line(done.stdout)
    return {name: read[name] for name in ("passwords", "notes", "cards")}


class Documentation(unittest.TestCase):
    def assertSame(self, outcome, example):
        self.assertTrue(same(outcome, example.wanted), "%s says of %s\n%s\nwhere there is\n%s" % (
            example.page, example.path, example.wanted, outcome))

    def test_every_source_has_examples(self):
        listed = subprocess.run([TOOL, "sources"], stdout=subprocess.PIPE, check=True).stdout.decode()
        sources = [line.split()[0] for line in listed.splitlines()]
        self.assertEqual(len(sources), 8)
        self.assertLessEqual(set(CHECKED_SOURCES), set(sources))
        for source in sources:
            self.assertTrue(any(any(example.wanted.values()) and "error" not in example.wanted
                                for example in examples_with(source)), source)

    def test_examples(self):
        for source in CHECKED_SOURCES:
            self.assertTrue(examples_with(source), source)
            for example in examples_with(source):
                self.assertSame(outcome_of(example), example)

    def test_layouts(self):
        listed = subprocess.run([TOOL, "layouts"], stdout=subprocess.PIPE, check=True).stdout.decode()
        layouts = {line.split()[0] for line in listed.splitlines()}
        shown = [example for example in EXAMPLES if example.layout]
        self.assertEqual({layout for layout in layouts if layout.endswith("-csv")},
                         {example.layout for example in shown})
        for example in shown:
            self.assertSame(by_layout(example), example)


class Readme(unittest.TestCase):
    maxDiff = None

    def test_recording(self):
        """Each command prints what stands below it, with its standard error."""
        with open(os.path.join(ROOT, "README.md"), encoding="utf-8") as file:
            fences = list(fences_of(file.read()))
        (recording,) = [block for _, language, block in fences if language == "console"]
        folders = os.pathsep.join([os.path.dirname(os.path.abspath(TOOL)), os.environ["PATH"]])
        recorded = ""
        with tempfile.TemporaryDirectory() as folder:
            for said, _, block in fences:
                if name := FILE.match(said):
                    with open(os.path.join(folder, name[1]), "w", encoding="utf-8") as file:
                        file.write(block)
            for line in recording.splitlines(keepends=True):
                if line.startswith("$ "):
                    recorded += line + subprocess.run(
                        line[2:], shell=True, cwd=folder, env={**os.environ, "PATH": folders}, check=False,
                        text=True, stdout=subprocess.PIPE, stderr=subprocess.STDOUT).stdout
        self.assertIn("import --format tirel", recording)
        self.assertEqual(recorded, recording)


class Pages(unittest.TestCase):
    def test_example(self):
        text = "`a b/c.csv`:\n\n```csv\nx,\n\ny\n```\n\n`rellinor import --source lastPass --format json --reveal a b`" \
               " gives:\n\n```json\n{\"passwords\":\n []}\n```\n"
        (example,) = examples_of("p.md", text)
        self.assertEqual(example, ("p.md", {"a b/c.csv": ("csv", "x,\n\ny\n")}, "lastPass", None, "a b",
                                   {"passwords": []}))

    def test_strange_blocks(self):
        for text in ("```csv\na\n```\n", "`a`:\n```csv\na\n", "`rellinor import --source a` gives:\n```json\n{}\n```\n",
                     "`rellinor import --source a --format json --reveal b` gives:\n```csv\n{}\n```\n"):
            self.assertRaises(Strange, examples_of, "p.md", text)


if __name__ == "__main__":
    if not CHECKED_SOURCES:
        sys.exit(__doc__)
    unittest.main(argv=sys.argv[:1])
