"""LastPass exports: URLs that do and do not make a note."""
from generators.alphabet import FULL
from generators.damage import mark_and_break, mutate
from generators.keyed_csv import KeyedCSV
from references.lastpass import ALL_KEYS

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
    "http://sn:80@x/", "http://x/sn", "http://x?//sn", "http://x#@sn/", "http://x/@sn/", "http://x?@sn",
    "http://\uff53\uff4e", "http://\u017fn", "http://sn\u0301", "http://s\u0301n", "http://\u202esn", "http://xn--sn-",
    "http://s\u00adn", 'http://sn/""', "http://sn/\\", "http://sn\\", "http://sn/<x>", "http://sn/^", "http://sn/`",
    "http://sn/{a}", "http://sn/|", "http://sn?\x7f", "http://sn/\x01", "http://sn/\U0001f600", "http://sn\U0001f600",
    "http sn", "javascript:alert(1)", "https://example.com/login?a=b,c", "https://ex\u00e4mple.com/", "http://1.2.3.4",
    "urn:a:b", "http://sn\uffff", "\u0000http://sn", "http://sn\u0085", "http://sn\u2028", "http://sn\x0b",
    "http://sn&", "http://'sn'",
]


class Generator(KeyedCSV):
    SUFFIX = ".csv"
    FILLERS = ["http://sn", '"http://sn"', ",,,e,,g,1"]

    def __init__(self, seed):
        super().__init__(seed, FULL)

    def url(self):
        k = self.r.random()
        if k < 0.35:
            return self.pick(NOTE_URLS)
        if k < 0.75:
            return self.pick(LOGIN_URLS)
        if k < 0.9:             # put together from parts
            pick = self.pick
            scheme = pick(["http:", "https:", "", "sn:", "a+b:", "A.1-:", "1:", "a_:", ":", "\u00e9:"])
            slashes = pick(["//", "//", "//", "//", "/", "", "///"])
            user = pick(["", "", "u@", "@", ":@", "u:p@", "%41@", "%@", "sn@", "sn:sn@", "\u00e9@", "a;b=c@"])
            host = pick(["sn", "sn", "sn", "%73n", "s%6E", "%73%6e", "SN", "sn.", "sn%00", "sn,", "", "%73%6", "snsn"])
            port = pick(["", "", "", ":0", ":80", ":65535", ":00443"])
            path = pick(["", "", "/", "//", "/sn", "/a:b@c", "/%2f", "/%2", "/a b", "/\u00fc", "/!$&'()*+,;=", "/\\"])
            query = pick(["", "", "?", "?q", "??", "?%41/:@?", "?%", "?^"])
            fragment = pick(["", "", "#", "#f", "#?/", "#%e", "#%ee", "#|"])
            return scheme + slashes + user + host + port + path + query + fragment
        base = list(self.pick(NOTE_URLS + LOGIN_URLS))   # one edit away
        at = self.r.randint(0, len(base))
        edit = self.pick(list("sn:/?#@%.+-~!\\ \"{}^") + ["%73", "\0", "\u00e9", "\t", "A", "5", "_"])
        if base and self.chance(0.5):
            base[min(at, len(base) - 1)] = self.pick(["", edit])
        else:
            base.insert(at, edit)
        return "".join(base)

    def cells(self, headers):
        cells = {"url": self.url(), "fav": self.pick(["0", "1", ""]), "grouping": self.content(False),
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
            cells["url"] = self.pick(NOTE_URLS)
            for key in self.r.sample(["extra", "name"], self.r.randint(1, 2)):
                cells[key] = ""
        elif k < 0.3:
            keep = self.pick(headers)
            cells = {key: cells[key] if key == keep else "" for key in headers}
        return cells

    def file(self):
        k = self.r.random()
        if k < 0.58:
            data = self.structured(ALL_KEYS).encode("utf-8")
        elif k < 0.68:
            data = self.headed_raw(ALL_KEYS).encode("utf-8")
        elif k < 0.78:
            data = self.balanced(7).encode("utf-8")
        elif k < 0.92:
            data = mutate(self, self.structured(ALL_KEYS).encode("utf-8"), FULL.raw_texts)
        elif k < 0.97:
            data = self.raw(self.pick([2, 8, 40])).encode("utf-8")
        else:
            data = bytes(self.r.choices(b'",\\\r\n \tasn:/\x00\xc2\xa0\xe3\x80\xef\xbb\xbf', k=self.r.randint(0, 30)))
        return mark_and_break(self, data)
