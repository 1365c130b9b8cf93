#!/usr/bin/env python3
"""Differential test of `TOOL import --source lastPass` against lastpass_reference.

usage: compare.py TOOL SEED COUNT     compare COUNT generated files; exit 1 on any difference
       compare.py TOOL --unpinned     print what the tool makes of the URL texts left out (exit 0)
TOOL may hold blanks (split as a shell would).  Everything depends on SEED alone.
"""
import json
import os
import random
import shlex
import shutil
import subprocess
import sys
import tempfile

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import lastpass_reference as ref  # noqa: E402

PER_CALL = 200
TIMEOUT = 300
SHOWN = 50          # differences printed in full; all are counted and kept

# URL texts whose reading is not pinned.  Never generated: see unpinned() below, which also
# keeps out everything of the same kind.
UNPINNED = [
    "http://sn:", "http://sn:/", "http://sn:/x", "//sn:", "http://u@sn:",     # empty port
    "http://sn:65536/", "http://sn:99999/", "http://sn:000080/",              # port out of 16 bits / long
    "http://sn:18446744073709551696/",
    "http://sn:x/", "http://sn:80x", "http://sn:-1/", "http://sn:+80",        # port not digits
    "http://sn:80:90/", "http://sn:%38%30/",
    "http://sn/[", "http://sn/]", "http://sn/[x]", "http://sn?[x]", "http://sn?a[]=1",
    "http://sn#[x]", "http://[u]@sn/",                                        # brackets outside a literal
    "http://sn#a#b", "http://sn/##",                                          # second number sign
    "http://a@b@sn/", "http://sn@b@c/", "http://@@sn",                        # second at sign
    "http://[sn]/", "http://[sn", "http://sn]", "http://[]sn", "http://[::1]sn/",   # malformed literal
    "http://[v1.sn]/", "http://[v1.sn]:80/",                                  # IPvFuture
]
FORBIDDEN = frozenset('"<>\\^`{|} ')


def unpinned(url):
    """True when the outcome (note or login) hangs on a corner that is not pinned."""
    if url in UNPINNED:
        return True
    if any(c in FORBIDDEN or not "!" <= c <= "~" for c in url):
        return False            # does not parse
    for i, c in enumerate(url):
        if c == "%" and not (len(url[i + 1:i + 3]) == 2 and ref.only(url[i + 1:i + 3], ref.HEXDIG)):
            return False        # platform.md: does not parse
    before = url.partition("#")[0].partition("?")[0]
    colon = before.partition("/")[0].find(":")
    hier = before[colon + 1:]
    if hier[:2] != "//":
        return False            # no authority, no host
    authority = hier[2:].partition("/")[0]
    if b"sn" not in ref.percent_decode(authority):
        return False            # a login on any reading
    tail = url[colon + 3 + len(authority):]
    if "[" in tail or "]" in tail or tail.count("#") > 1 or authority.count("@") > 1:
        return True
    userinfo, _, host = authority.rpartition("@")
    if "[" in userinfo or "]" in userinfo or "[" in host or "]" in host:
        return True
    host, colon, port = host.partition(":")
    return colon == ":" and not (ref.only(port, ref.DIGIT) and 1 <= len(port) <= 5
                                 and int(port) <= 65535)


# ---------------------------------------------------------------- generator

HEADERS = ["url", "username", "password", "extra", "name", "grouping", "fav"]

NOTE_URLS = [
    "http://sn", "http://sn", "http://sn", "https://sn/x", "//sn", "//sn/path", "http://%73n", "http://%73n/",
    "http://s%6E", "http://s%6e/", "http://%73%6E:80/x", "http://user@sn:80/x?y#z", "file://sn/x", "sn://sn",
    "a+b.c-d://sn", "HTTP://sn", "http://sn?q", "http://sn?", "http://sn#", "http://sn#f?x/y", "http://sn/",
    "http://sn//", "http://sn/%22%0A", "http://sn/a,b;c=d!$&'()*+", "http://u,v@sn/a,b", "http://@sn/",
    "http://:@sn/", "http://a:b:c@sn/", "http://u%40v@sn/", "http://sn:0/", "http://sn:65535", "http://sn:080",
    "http://sn/:@", "http://sn/a:b", "http://sn?/?:@", "http://sn/~._-", "z://sn", "http://sn/../..", "http://sn?a=//b",
    "http://%3A@sn", "http://sn/%00", "http://sn/%FF", "x-9://sn#",
]
LOGIN_URLS = [
    "http://SN", "http://Sn", "http://sN/", "http://%53n", "http://sn.", "sn", "", "", " http://sn", "http://sn ",
    "\thttp://sn", "http://sn\t", "http://sn\r", "\rhttp://sn", "http://sn\n", "\nhttp://sn", "http://s\nn",
    "http://sn\u00a0", "\u3000http://sn", "http://sn\0", "http://sn\0x", "\ufeffhttp://sn", "http://sn\u200b",
    "http://sn/\u00e9", "http://sn/a b", "http://sn/%zz", "http://sn/%", "http://sn/%4", "http://sn?%g0",
    "http://sn#%0g", "http://%zz@sn", "http://sn%", "http://sn%00", "http://%00sn", "http://sn%20", "http://sn%0A",
    "http://sn%2F", "http://sn%2Fx", "http://x%40sn", "http://sn%3A80", "http://%2573n", "http://%EF%BB%BFsn",
    "http://s%C5%84", "http://%73%6E%CC%81", "http://[::1]/", "http://[::ffff:1.2.3.4]/", "http://sn@[::1]/",
    "http://:80/", "http://", "http:///sn", "http:////sn", "///sn", "////sn", "//", "/sn", "sn:", "sn://", "sn:80",
    "mailto:sn", "http:sn", "http:/sn", "http:\\\\sn", "http:/\\sn", "1a://sn", "+a://sn", "-://sn", "a_b://sn",
    "://sn", ":sn", "a b://sn", "\u00e9://sn", "a%20b://sn", "?//sn", "#//sn", "x//sn", "./..//sn", "a/b://sn",
    "http://www.sn", "http://snx", "http://sn.com/", "http://sn,", "http://sn;x", "http://sn@", "http://sn@x",
    "http://sn:80@x/", "http://x/sn", "http://x?//sn", "http://x#@sn/", "http://x/@sn/", "http://x?@sn", "http://\uff53\uff4e",
    "http://\u017fn", "http://sn\u0301", "http://s\u0301n", "http://\u202esn", "http://xn--sn-", "http://s\u00adn",
    'http://sn/""', "http://sn/\\", "http://sn\\", "http://sn/<x>", "http://sn/^", "http://sn/`", "http://sn/{a}",
    "http://sn/|", "http://sn?\x7f", "http://sn/\x01", "http://sn/\U0001f600", "http://sn\U0001f600", "http sn",
    "javascript:alert(1)", "https://example.com/login?a=b,c", "https://ex\u00e4mple.com/", "http://1.2.3.4", "urn:a:b",
    "http://sn\uffff", "\u0000http://sn", "http://sn\u0085", "http://sn\u2028", "http://sn\x0b", "http://sn&", "http://'sn'",
]
MARKS = ["\u0301", "\u0308", "\u200d", "\ufe0f", "\u20dd", "\U0001f3fb", "\u0903", "\u0e33", "\u1160"]
BLANKS = [" ", "\t", "\u00a0", "\u3000", "\u1680", "\u2000", "\u2009", "\u200a", "\u202f", "\u205f"]
NOT_BLANKS = ["\u200b", "\u180e", "\ufeff", "\u0085", "\u2028", "\u2029", "\x0b", "\x0c", "\x1c", "\x1d", "\x1e",
              "\x1f", "\0", "\r", "\u2060", "\u00ad", "\x7f", "\u2800", "\u3164"]
WORDS = ["a", "b", "x", "Zz", "me@x.org", "pass word", "p\u00e4ss", "\u00e9", "e\u0301", "\U0001f600", "\U0001f1e9\U0001f1ea",
         "\U0001f468\u200d\U0001f469\u200d\U0001f467", "0", "1", "\ufffd", "\uffff", "\u05d0", "\uac00", "null", "true",
         "NoteType:Server", "</b>&amp;", "\\", "\\n", "\\u0041", "{", "}", "[", ";", "'", "`", "\u201c", "\x08", "\x1b"]
BAD_BYTES = [b"\xff", b"\xfe", b"\x80", b"\xc0\x80", b"\xc3", b"\xe2\x82", b"\xed\xa0\x80", b"\xed\xb0\x80",
             b"\xf4\x90\x80\x80", b"\xf0\x8f\xbf\xbf", b"\xe0\x80\xaf", b"\xf8\x88\x80\x80\x80", b"\xf0\x9f\x98"]
RAW = ([('"', 14), (",", 16), ("\\", 5), ('\\"', 4), ("\r", 3), ("\n", 7), ("\r\n", 4), (" ", 4), ("\t", 2),
        ("\u00a0", 1), ("\u3000", 1), ("a", 5), ("b", 2), ("\u00e4", 2), ("\U0001f600", 1), ("\0", 1), ("\ufeff", 1),
        ('""', 4), ('"\u0301', 1), ("http://sn", 3), ("//sn", 1), ('",', 3), (',"', 3), (",,", 2), ("\r\r\n", 1),
        ("\u2028", 1), ("\u0085", 1), ("\u200d", 1), ('\\\\"', 1), (",,,,,,", 2)])
RAW_TEXTS = [t for t, _ in RAW]
RAW_WEIGHTS = [w for _, w in RAW]


class Generator:
    def __init__(self, seed):
        self.r = random.Random(seed)

    def chance(self, p):
        return self.r.random() < p

    def raw(self, most):
        return "".join(self.r.choices(RAW_TEXTS, RAW_WEIGHTS, k=self.r.randint(0, most)))

    def words(self, most=3):
        out = []
        for _ in range(self.r.randint(0, most)):
            out.append(self.r.choice(WORDS))
            if self.chance(0.2):
                out.append(self.r.choice(MARKS + BLANKS + NOT_BLANKS))
        return "".join(out)

    def content(self, multi):
        """Plain content of a cell, before any quoting."""
        k = self.r.random()
        if k < 0.3:
            return ""
        if k < 0.4:
            return self.r.choice(BLANKS + NOT_BLANKS + MARKS) * self.r.randint(1, 2)
        text = self.words()
        if multi and self.chance(0.4):
            for _ in range(self.r.randint(1, 3)):
                text += self.r.choice(["\n", "\r\n", "\n\n", "\r", "\r\r\n", ",", '"', "\n \n", "\n,\n"]) + self.words(2)
        return text

    def url(self):
        k = self.r.random()
        if k < 0.35:
            return self.r.choice(NOTE_URLS)
        if k < 0.75:
            return self.r.choice(LOGIN_URLS)
        if k < 0.9:             # put together from parts
            pick = self.r.choice
            scheme = pick(["http:", "https:", "", "sn:", "a+b:", "A.1-:", "1:", "a_:", ":", "\u00e9:"])
            slashes = pick(["//", "//", "//", "//", "/", "", "///"])
            user = pick(["", "", "u@", "@", ":@", "u:p@", "%41@", "%@", "sn@", "sn:sn@", "\u00e9@", "a;b=c@"])
            host = pick(["sn", "sn", "sn", "%73n", "s%6E", "%73%6e", "SN", "sn.", "sn%00", "sn,", "", "%73%6", "snsn"])
            port = pick(["", "", "", ":0", ":80", ":65535", ":00443"])
            path = pick(["", "", "/", "//", "/sn", "/a:b@c", "/%2f", "/%2", "/a b", "/\u00fc", "/!$&'()*+,;=", "/\\"])
            query = pick(["", "", "?", "?q", "??", "?%41/:@?", "?%", "?^"])
            fragment = pick(["", "", "#", "#f", "#?/", "#%e", "#%ee", "#|"])
            return scheme + slashes + user + host + port + path + query + fragment
        base = list(self.r.choice(NOTE_URLS + LOGIN_URLS))   # one edit away
        at = self.r.randint(0, len(base))
        edit = self.r.choice(list("sn:/?#@%.+-~!\\ \"{}^") + ["%73", "\0", "\u00e9", "\t", "A", "5", "_"])
        if base and self.chance(0.5):
            base[min(at, len(base) - 1)] = self.r.choice(["", edit])
        else:
            base.insert(at, edit)
        return "".join(base)

    def write(self, text, wild):
        """A cell as it stands in the file."""
        special = any(c in text for c in '",\n')
        k = self.r.random()
        if k < wild:
            q = self.r.randrange(11)
            if q == 0:
                return text                                            # unquoted, whatever it holds
            if q == 1:
                return '"' + text.replace('"', '""') + '\\"'           # ends in a backslash
            if q == 2:
                return '"' + text.replace('"', '""') + '\\""'          # balanced again
            if q == 3:
                return '"' + text.replace('"', '""')                   # never closed
            if q == 4:
                return self.r.choice([" ", "\t", "x", "\u0301"]) + '"' + text.replace('"', '""') + '"'
            if q == 5:
                return '"' + text.replace('"', '""') + '"' + self.r.choice([" ", "x", "\r"] + MARKS)
            if q == 6:
                return '"' + self.r.choice(MARKS) + text.replace('"', '""') + '"' + self.r.choice(["", "\u0301"])
            if q == 7:
                return self.r.choice(['"', '""', '"""', '""""', '" "', '"\\"', '\\"\\"', '","', '"\n"', '"\r\n"', '"\r"'])
            if q == 8:
                return '"' + text.replace('"', '\\"') + '"'
            if q == 9:
                return '"' + text + '"'
            return self.raw(6)
        if special or k < wild + 0.4 * (1 - wild):
            style = self.r.choice(['""', '""', '\\"'])
            return '"' + text.replace('"', style) + '"'
        return text

    def row(self, order, width, wild):
        cells = {"url": self.url(), "fav": self.r.choice(["0", "1", ""]), "grouping": self.content(False),
                 "username": self.content(False), "password": self.content(True), "name": self.content(True),
                 "extra": self.content(True)}
        k = self.r.random()
        if k < 0.12:            # tested columns empty, the others perhaps not
            for key in ("username", "password", "name"):
                cells[key] = ""
            if self.chance(0.6):
                cells["url"] = ""
            if self.chance(0.3):
                cells["extra"] = ""
        elif k < 0.25:          # notes with empty title, content or both
            cells["url"] = self.r.choice(NOTE_URLS)
            for key in self.r.sample(["extra", "name"], self.r.randint(1, 2)):
                cells[key] = ""
        elif k < 0.3:
            keep = self.r.choice(HEADERS)
            cells = {key: cells[key] if key == keep else "" for key in HEADERS}
        out = [self.write(cells.get(key, ""), wild) for key in order]
        while len(out) < width:
            out.append(self.write(self.content(False), wild))
        k = self.r.random()
        if k < 0.15:
            out = out[:self.r.randint(1, len(out))]
        elif k < 0.22:
            out += [self.write(self.content(False), wild) for _ in range(self.r.randint(1, 3))]
        return ",".join(out)

    def filler(self):
        return self.r.choice(["", "", " ", "\t", " \t\u00a0", "\u3000", '""', '""""', ",,,,,,", ",", " ,", "\r", " \r", "\\",
                              "".join(self.r.choices(BLANKS, k=3)), self.r.choice(NOT_BLANKS), self.r.choice(NOT_BLANKS),
                              "\u200b", "\u180e",
                              " " + self.r.choice(NOT_BLANKS), self.r.choice(BLANKS) + self.r.choice(MARKS),
                              "http://sn", '"http://sn"', "x", '"",""', ",,,e,,g,1"])

    def structured(self):
        wild = self.r.choice([0, 0.02, 0.02, 0.1, 0.3])
        order = list(HEADERS)
        if self.chance(0.3):
            self.r.shuffle(order)
        header = list(order)
        width = 7
        k = self.r.random()
        if k < 0.12:
            i = self.r.randrange(7)
            name = header[i]
            header[i] = self.r.choice([name.upper(), name.capitalize(), name + " ", " " + name, name[:-1], name + "\u0301",
                                       "", "x", header[(i + 1) % 7], "\ufeff" + name, name + "\r", name + "\0", name + "\\"])
            if self.chance(0.7):
                order = list(HEADERS)
        elif k < 0.15:
            del header[self.r.randrange(7)]
            width = 6
        elif k < 0.18:
            header.insert(self.r.randrange(8), self.r.choice(["totp", "", "url", "x"]))
            width = 8
        if self.chance(0.15):
            header = ['"%s"' % h if self.chance(0.5) else h for h in header]
        lines = []
        while self.chance(0.1):
            lines.append(self.r.choice(["", " ", "\t\u00a0", "\u3000", self.filler() if self.chance(0.1) else ""]))
        if not self.chance(0.2):
            lines.append(",".join(header))
        else:                   # no header: keep the first row at seven cells mostly
            if self.chance(0.7):
                lines.append(",".join(self.r.choice(["", "a", '""', "x y", "\u00fc"]) or "" for _ in range(6)) + ",0")
            order = list(HEADERS)
        for _ in range(self.r.choice([0, 1, 1, 2, 3, 4, 6, 10])):
            lines.append(self.filler() if self.chance(0.15) else self.row(order, width if width == 8 else 7, wild))
        end = self.r.choice(["\n", "\n", "\n", "\r\n", "\r\n", "\r\n", None, None, "\r", "\r\r\n", "\n\r"]
                            if self.chance(0.6) else ["\n", "\r\n"])
        out = []
        for line in lines:
            out.append(line)
            out.append(end or self.r.choice(["\n", "\r\n", "\r\n\n", "\n\n", "\r\r\n", "\n \n"]))
        if out and self.chance(0.35):
            out.pop()
        return "".join(out)

    def headed_raw(self):
        header = list(HEADERS)
        if self.chance(0.3):
            self.r.shuffle(header)
        first = ",".join(header) if self.chance(0.7) else ",,,,,,"
        return first + self.r.choice(["\n", "\r\n"]) + self.raw(60)

    def seven(self):
        """Seven cells of short nonsense on the first line, more below; balanced by construction there."""
        def cell():
            text = self.raw(4)
            return text + '"' if ref.unescape(text).count('"') % 2 else text
        return "\n".join(",".join(cell().replace("\n", "") for _ in range(7)) for _ in range(self.r.randint(1, 4)))

    def mutate(self, data):
        data = bytearray(data)
        for _ in range(self.r.choice([1, 1, 2, 4])):
            at = self.r.randint(0, len(data))
            k = self.r.randrange(5)
            if k == 0:
                del data[at:at + self.r.choice([1, 1, 3])]
            elif k == 1:
                data[at:at] = self.r.choice(RAW_TEXTS).encode()
            elif k == 2:
                data[at:at + 1] = self.r.choice(RAW_TEXTS).encode()
            elif k == 3:
                piece = data[at:at + self.r.randint(1, 40)]
                where = self.r.randint(0, len(data))
                data[where:where] = piece
            else:
                data = data[:at] if self.chance(0.3) else data
        return bytes(data)

    def file(self):
        k = self.r.random()
        if k < 0.58:
            data = self.structured().encode("utf-8")
        elif k < 0.68:
            data = self.headed_raw().encode("utf-8")
        elif k < 0.78:
            data = self.seven().encode("utf-8")
        elif k < 0.92:
            data = self.mutate(self.structured().encode("utf-8"))
        elif k < 0.97:
            data = self.raw(self.r.choice([2, 8, 40])).encode("utf-8")
        else:
            data = bytes(self.r.choices(b'",\\\r\n \tasn:/\x00\xc2\xa0\xe3\x80\xef\xbb\xbf', k=self.r.randint(0, 30)))
        if self.chance(0.06):
            data = b"\xef\xbb\xbf" * self.r.choice([1, 1, 1, 2]) + data
        if self.chance(0.04):
            at = self.r.randint(0, len(data))     # may fall inside a sequence
            data = data[:at] + self.r.choice(BAD_BYTES) + data[at:]
        return data


def reaches_unpinned(path):
    try:
        return any(unpinned(record.get("url", "")) for record in ref.read(path))
    except ref.TextError:
        return False


def generate(seed, count, folder):
    """COUNT paths, a few of them no regular files; and how many drafts were thrown away."""
    generator = Generator(seed)
    paths, dropped = [], 0
    for number in range(count):
        path = os.path.join(folder, "f%06d.csv" % number)
        kind = generator.r.random()
        paths.append(path)
        if kind < 0.001:
            continue                                    # a missing file
        if kind < 0.002:
            os.mkdir(path)
            continue
        if kind < 0.003:
            os.mkfifo(path)
            continue
        if kind < 0.004:
            os.symlink("/dev/null", path)
            continue
        target = path
        if kind < 0.007:                                # a link to a regular file
            target = path + ".target"
            os.symlink(target, path)
        while True:
            with open(target, "wb") as file:
                file.write(generator.file())
            if not reaches_unpinned(path):
                break
            dropped += 1
    return paths, dropped


# ---------------------------------------------------------------- running and comparing

class Malformed(Exception):
    pass


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


def same(a, b):
    if type(a) is not type(b):
        return False
    if isinstance(a, dict):
        return a.keys() == b.keys() and all(same(a[k], b[k]) for k in a)
    if isinstance(a, list):
        return len(a) == len(b) and all(same(x, y) for x, y in zip(a, b))
    return a == b


def is_error(value):
    return (isinstance(value, dict) and list(value) == ["error"] and isinstance(value["error"], dict)
            and set(value["error"]) == {"domain", "code"} and isinstance(value["error"]["domain"], str)
            and value["error"]["domain"] != "" and type(value["error"]["code"]) is int and value["error"]["code"] == 1)


def call(tool, paths):
    """(exit status or text, list of lines or None, standard error)"""
    command = tool + ["import", "--source", "lastPass", "--format", "json", "--reveal"] + paths
    try:
        done = subprocess.run(command, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                              timeout=TIMEOUT)
    except subprocess.TimeoutExpired:
        return "timeout", None, b""
    lines = done.stdout.split(b"\n")        # only LF ends a line
    if lines.pop() != b"" or len(lines) != len(paths):
        return done.returncode, None, done.stderr
    return done.returncode, lines, done.stderr


def batches(random_, paths, expected):
    """Calls of mixed sizes; a part of the successes goes into calls of their own, so that status 0 occurs."""
    good = [p for p in paths if "error" not in expected[p]]
    random_.shuffle(good)
    clean = set(good[:len(good) // 2])
    for pool in ([p for p in paths if p in clean], [p for p in paths if p not in clean]):
        while pool:
            size = random_.choice([1, 2, 5, 50, PER_CALL, PER_CALL, PER_CALL])
            yield pool[:size]
            pool = pool[size:]


class Report:
    def __init__(self, folder):
        self.folder = folder
        self.differences = 0
        self.kept = []

    def add(self, path, expected, got, note=""):
        self.differences += 1
        if path is not None and path not in self.kept:
            self.kept.append(path)
        if self.differences > SHOWN:
            return
        print("DIFFERENCE" + (" (" + note + ")" if note else ""))
        if path is not None:
            data = ref.read_bytes(path)
            print("  file     %s (%s)" % (path, "no regular file" if data is None else "%d bytes" % len(data)))
            print("  bytes    %r" % (data[:300] if data is not None else None))
        print("  expected %.3000s" % (expected,))
        print("  got      %.3000s" % (got,))


def main_unpinned(tool):
    folder = tempfile.mkdtemp(prefix="lastpass-unpinned-")
    try:
        for number, url in enumerate(UNPINNED):
            path = os.path.join(folder, "u%d.csv" % number)
            with open(path, "w", encoding="utf-8", newline="") as file:
                file.write(",".join(HEADERS) + "\n" + url + ",u,p,e,n,g,0\n")
            status, lines, _ = call(tool, [path])
            try:
                value = parse_line(lines[0]) if lines else {}
            except Malformed:
                value = {}
            kind = "note" if value.get("notes") else "login" if value.get("passwords") else "status %s" % status
            wanted = "note" if ref.import_file(path)["notes"] else "login"
            print("%-40s tool %-6s reference %-6s%s" % (url, kind, wanted, "" if kind == wanted else "   <-- differs"))
    finally:
        shutil.rmtree(folder)
    return 0


def main(arguments):
    if len(arguments) == 2 and arguments[1] == "--unpinned":
        return main_unpinned(shlex.split(arguments[0]))
    if len(arguments) != 3:
        print(__doc__, file=sys.stderr)
        return 2
    tool, seed, count = shlex.split(arguments[0]), int(arguments[1]), int(arguments[2])
    folder = tempfile.mkdtemp(prefix="lastpass-compare-%d-" % seed)
    paths, dropped = generate(seed, count, folder)
    expected = {path: ref.import_file(path) for path in paths}
    report = Report(folder)
    compared = failures = passwords = notes = 0
    statuses, domains = {}, set()
    for group in batches(random.Random(seed + 1), paths, expected):
        status, lines, errors = call(tool, group)
        if lines is None and len(group) > 1:
            report.add(None, "%d lines" % len(group), "status %s, stderr %r" % (status, errors[:500]),
                       "call of %d files gave no usable output; going through them one by one" % len(group))
            runs = [([path],) + call(tool, [path]) for path in group]
        else:
            runs = [(group, status, lines, errors)]
        for group, status, lines, errors in runs:
            if lines is None:
                report.add(group[0], expected[group[0]], "status %s, stderr %r" % (status, errors[:500]), "no line")
                continue
            statuses[status] = statuses.get(status, 0) + 1
            for path, line in zip(group, lines):
                compared += 1
                wanted = expected[path]
                try:
                    got = parse_line(line)
                except Malformed as error:
                    report.add(path, wanted, line[:1000], "bad JSON: %s" % error)
                    continue
                if "error" in wanted:
                    failures += 1
                    if not is_error(got):
                        report.add(path, wanted, got)
                    else:
                        domains.add(got["error"]["domain"])
                else:
                    passwords += len(wanted["passwords"])
                    notes += len(wanted["notes"])
                    if not same(wanted, got):
                        report.add(path, wanted, got)
            wanted = 1 if any("error" in expected[path] for path in group) else 0
            if status != wanted:
                report.add(group[0], "exit status %d" % wanted, "exit status %s, stderr %r" % (status, errors[:500]),
                           "call of %d files, the first of them shown" % len(group))
    if len(domains) > 1:
        report.add(None, "one fixed domain", sorted(domains), "error domains")
    print("seed %d: %d files compared, %d of them failures; %d records in all (%d passwords, %d notes)"
          % (seed, compared, failures, passwords + notes, passwords, notes))
    print("calls by exit status: %s; error domain: %s; drafts dropped for unpinned URLs: %d"
          % (dict(sorted(statuses.items(), key=str)), ", ".join(sorted(domains)) or "none seen", dropped))
    print("differences: %d" % report.differences)
    if report.differences:
        for name in os.listdir(folder):
            path = os.path.join(folder, name)
            if path not in report.kept and path[:-len(".target")] not in report.kept:
                os.rmdir(path) if os.path.isdir(path) and not os.path.islink(path) else os.unlink(path)
        print("differing files kept in %s" % folder)
    else:
        shutil.rmtree(folder)
    if compared == 0:
        print("nothing was compared")
    return 1 if report.differences or compared == 0 else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
