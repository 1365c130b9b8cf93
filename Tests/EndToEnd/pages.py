"""The examples of the pages about sources: input files, a command, and what it prints."""
import collections
import json
import os
import re
import sqlite3

import driver.tool

FILE = re.compile("^`([^`]+)`:$")
COMMAND = re.compile("`rellinor import --(source|layout) ([A-Za-z0-9-]+) --format json --reveal \"?([^`\"]+)\"?`")

# The files by their paths below some folder, each as (language, text). One of source and layout is None.
Example = collections.namedtuple("Example", "page files source layout path wanted")


class Strange(Exception):
    """A page that says something its reader here does not understand."""


def fences_of(text):
    """Triples of the last line before a fenced block, the block's language and its text."""
    said, block, language = "", None, ""
    for line in text.split("\n"):
        if block is not None:
            if line == "```":
                yield said, language, "".join(piece + "\n" for piece in block)
                block = None
            else:
                block.append(line)
        elif line.startswith("```"):
            block, language = [], line[3:]
        elif line:
            said = line
    if block is not None:
        raise Strange("a block without an end")


def examples_of(page, text):
    """An example ends with its command; the next one may use its files again."""
    files, examples = {}, []
    for said, language, block in fences_of(text):
        file, command = FILE.match(said), COMMAND.search(said)
        if file:
            files[file[1]] = (language, block)
        elif command and language == "json":
            option, name, path = command.groups()
            examples.append(Example(page, dict(files), name if option == "source" else None,
                                    name if option == "layout" else None, path, parsed(block)))
        else:
            raise Strange("%s: a block after %r" % (page, said))
    return examples


def parsed(block):
    # Strict as the tool's own lines are read, but set out over several lines.
    return json.loads(block, object_pairs_hook=driver.tool.object_of, parse_constant=driver.tool.no_constant)


def same(a, b):
    """Whether the values and their types are the same: 1 is not 1.0."""
    if type(a) is not type(b):
        return False
    if isinstance(a, dict):
        return a.keys() == b.keys() and all(same(a[key], b[key]) for key in a)
    if isinstance(a, list):
        return len(a) == len(b) and all(same(x, y) for x, y in zip(a, b))
    return a == b


def examples_in(folder):
    examples = []
    for page in sorted(os.listdir(folder)):
        with open(os.path.join(folder, page), encoding="utf-8") as file:
            examples += examples_of(page, file.read())
    return examples


def write_files(example, folder):
    """The path that the command names, in `folder`."""
    for name, (language, text) in example.files.items():
        path = os.path.join(folder, name)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        if language == "sql":
            database = sqlite3.connect(path)
            database.executescript(text)
            database.close()
        else:
            with open(path, "w", encoding="utf-8", newline="") as file:
                file.write(text)
    return os.path.join(folder, example.path)
