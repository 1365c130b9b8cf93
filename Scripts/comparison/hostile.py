"""Stores that nobody would export, to be written in pieces: each shape is a beginning, what is repeated
to fill the file, and an end."""
import itertools
from dataclasses import dataclass
from typing import Callable, Iterator

COLUMNS = 1_000_000
KEYS = 1_000_000
LONG_TEXT = 50_000_000


@dataclass(frozen=True)
class Shape:
    name: str
    pieces: Callable[[int], Iterator[bytes]]    # for a file of about that size

    def write(self, path, size):
        path.parent.mkdir(parents=True, exist_ok=True)
        with open(path, "wb") as file:
            for piece in self.pieces(size):
                file.write(piece)


def repeated(name, start, unit, end=b""):
    """As often as it fits into the file."""
    def pieces(size):
        yield start
        count = max(size - len(start) - len(end), 0) // len(unit)
        batch = max(65536 // len(unit), 1)
        for _ in range(count // batch):
            yield unit * batch
        yield unit * (count % batch)
        yield end
    return Shape(name, pieces)


def shapes_of(store):
    if store.name in _HEADERS:
        return _csv_shapes(store.name)
    return [Shape(shape.name, _wrapped(shape.pieces, *_AROUND_JSON[store.name]))
            for shape in _JSON_SHAPES] + _own_json_shapes(store.name)


_HEADERS = {
    "lastPass": b"url,username,password,extra,name,grouping,fav\n",
    "keePass": b'"Account","Login Name","Password","Web Site","Comments"\n',
    "keePassXC": b'"Group","Title","Username","Password","URL","Notes"\n',
    "dashlane": b"",
}

_DROPPED_ROWS = {
    "lastPass": (_HEADERS["lastPass"], b",,,,,,\n"),
    "keePass": (b"Mail,ann,secret,https://mail.example,\n", b"Mail,ann\n"),
    "keePassXC": (b"Root,Mail,ann,secret,https://mail.example,\n", b"Root,Mail,ann\n"),
    "dashlane": (b"", b"Card,Ann Berg,4000000000000000,2029,{5E1F0C2A-77B3-4D19-A0C4-0D9E3B6F1A22}\n"),
}


def _wide(header):
    """With as many columns as a header may have that is looked at."""
    return header[:-1] + b"".join(b",c%d" % column for column in range(2_000)) + b"\n"


def _csv_shapes(name):
    header = _HEADERS[name]
    row_of_columns = b"," * (COLUMNS - 1) + b"\n"
    shapes = [
        repeated("open quote, commas", header + b'"', b","),
        repeated("quotes", header, b'"'),
        repeated("line feeds", header, b"\n"),
        repeated("backslashes and quotes", header, b'\\"'),
        repeated("carriage returns", header, b"\r"),
        repeated("one huge cell", header, b"x"),
        repeated("one huge quoted cell", header + b'"', b"x", b'"'),
        repeated("rows of a million columns", header, row_of_columns),
        repeated("dropped rows", *_DROPPED_ROWS[name]),
        repeated("open quote, line feeds", header + b'"', b"\n"),
        repeated("an odd quote in every line", header, b'a,"b\n'),
        repeated("one cell a line, wide header", _wide(header), b"a\n"),
    ]
    if header:
        shapes.append(repeated("a million columns, no header", b"", row_of_columns))
    return shapes


# Where a value stands that no importer wants: within a document that is otherwise right.
_AROUND_JSON = {
    "tirel": (b'{"logins":[],"notes":[],"cards":[],"other":', b"}"),
    "onePassword": (b'{"typeName":"webforms.WebForm","title":"","secureContents":{"fields":[]},"other":',
                    b"}\n"),
    "firefox": (b'{"nextId":1,"logins":[],"other":', b"}"),
}


def _wrapped(pieces, start, end):
    return lambda size: itertools.chain([start], pieces(size - len(start) - len(end)), [end])


def _nested(size):
    depth = size // 2
    yield b"[" * depth
    yield b"]" * depth


def _one_long_text(size):
    yield b'"'
    yield b"x" * min(LONG_TEXT, size - 2)
    yield b'"'


def _keys(size):
    # A million, or as many as there is room for.
    count = min(KEYS, size // 20)
    yield b"{"
    for start in range(0, count, 10_000):
        yield b"".join(b'%s"k%07d":1' % (b"," if key else b"", key)
                       for key in range(start, min(start + 10_000, count)))
    yield b"}"


_JSON_SHAPES = [
    Shape("deep nesting", _nested),
    Shape("one long text", _one_long_text),
    Shape("a million keys", _keys),
    repeated("numbers", b"[0", b",-12345.678e9", b"]"),
    repeated("escapes", b'"', b"\\u0041", b'"'),
    repeated("backslashes and quotes", b'"', b'\\"', b'"'),
    repeated("empty objects", b"[{}", b",{}", b"]"),
    repeated("blanks", b"0", b" "),
]

_ESCAPES = b"\\u0041"


def _own_json_shapes(name):
    if name == "tirel":
        return [repeated("a wanted text of escapes",
                         b'{"logins":[],"cards":[],"notes":[{"color":1,"label":"","text":"', _ESCAPES,
                         b'"}]}')]
    if name == "onePassword":
        start = (b'{"typeName":"securenotes.SecureNote","title":"","secureContents":'
                 b'{"notesPlain":"')
        return [repeated("a wanted text of escapes", start, _ESCAPES, b'"}}\n'),
                repeated("records of another type", b"",
                         b'{"typeName":"identities.Identity","title":"Ann","secureContents":{}}\n'),
                repeated("lines that are no records", b"", b"*\n")]
    start = b'{"logins":[{"hostname":"","encryptedUsername":"","encryptedPassword":"'
    return [repeated("a wanted text of escapes", start, _ESCAPES, b'"}]}'),
            repeated("dropped logins", b'{"logins":[{}', b',{"hostname":""}', b"]}")]
