"""KeePass and KeePassXC exports: five and six named columns, and counts between and beyond."""
from generators.alphabet import FULL
from generators.damage import mark_and_break, mutate
from generators.keyed_csv import KeyedCSV
from references.keepass import Keepass, KeepassXC

FORKS = [Keepass.all_keys, KeepassXC.all_keys]
# First rows of the right length that are no header of their own fork.
MISTAKEN = [["Group", "Title", "Username", "Password", "URL"],
            ["Account", "Login Name", "Password", "Web Site", "Comments", "x"],
            ["Web Site", "Login Name", "Password", "", ""],
            ["URL", "Username", "Password", "x", "y", "z"],
            ["Password", "Password", "Password", "Password", "Password"],
            ["account", "login name", "password", "web site", "comments"]]
FILLERS = {5: ["a,b,c,d", "a,b,c", ",,,", ",,,,", '"","","",""', "a,b,c,d,e,f"],
           6: ["a,b,c,d,e", "a,b,c,d", ",,,,", ",,,,,", '"","","","",""', "a,b,c,d,e,f,g"]}


class Generator(KeyedCSV):
    SUFFIX = ".csv"

    def __init__(self, seed):
        super().__init__(seed, FULL)
        self.FILLERS = FILLERS[5] + FILLERS[6]

    def cells(self, headers):
        return {key: self.content(key in ("Password", "Comments", "Notes")) for key in headers}

    def mistaken(self):
        """A first row that is read by position."""
        first = self.pick(MISTAKEN)
        lines = [",".join(first)]
        for _ in range(self.r.randint(0, 5)):
            cells = [self.write(self.content(True), 0.02) for _ in first]
            if self.chance(0.5):        # a record without its last columns may lack a required one
                cells = cells[:self.r.randint(1, len(cells))]
            lines.append(",".join(cells))
        return self.file_of(lines)

    def file(self):
        headers = self.pick(FORKS)
        k = self.r.random()
        if k < 0.58:
            data = self.structured(headers).encode("utf-8")
        elif k < 0.66:
            data = self.mistaken().encode("utf-8")
        elif k < 0.72:
            data = self.headed_raw(headers).encode("utf-8")
        elif k < 0.80:
            data = self.balanced(self.pick([5, 6])).encode("utf-8")
        elif k < 0.93:
            data = mutate(self, self.structured(headers).encode("utf-8"), FULL.raw_texts)
        elif k < 0.97:
            data = self.raw(self.pick([2, 8, 40])).encode("utf-8")
        else:
            data = bytes(self.r.choices(b'",,,,,,\\\r\n \tab\x00\xc2\xa0\xe3\x80\xef\xbb\xbf', k=self.r.randint(0, 40)))
        return mark_and_break(self, data)
