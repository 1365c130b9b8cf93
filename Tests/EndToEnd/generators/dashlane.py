"""Dashlane exports: rows with braced identifiers near the end of the searched window."""
from generators.alphabet import COUNTABLE
from generators.csv_text import CSVText
from generators.damage import mark_and_break, mutate
from references.characters import number_of_characters, utf16_units

WIDE = ["\U0001f600", "e\u0301", "\U0001f1e9\U0001f1ea", "\U0001f1e9", "\U0001f468\u200d\U0001f469\u200d\U0001f467",
        "\U0001f44d\U0001f3fd", "\u2764\ufe0f", "\u2764\ufe0f\u200d\U0001f525", "\U0001f600\u200d", "\u200d\U0001f600",
        "\r\n", "\r", "\n", "a\u0301\u0308", "\u0301", "\ufe0f", "\u00e9", "\u5bc6", "\uac00", "x", "\t\u0301",
        "\U0001f3fb", "1\ufe0f", "\ufeff\u0301"]
FILLERS = ["a,b,c,d", "a,b,c,d,e", ",,,", ",,,,", '"","","","",""', "{},{},{},{},{}"]


class Generator(CSVText):
    SUFFIX = ".csv"

    def __init__(self, seed):
        super().__init__(seed, COUNTABLE)

    def identifier(self):
        digits = self.pick(["0123456789ABCDEF", "0123456789abcdef", "0123456789ABCDEFabcdef"])
        return "{" + "-".join("".join(self.r.choices(digits, k=k)) for k in (8, 4, 4, 4, 12)) + "}"

    def spoilt_identifier(self):
        text = self.identifier()
        at = self.r.randrange(len(text))
        k = self.r.randrange(6)
        if k == 0:
            return text[:at] + text[at + 1:]
        if k == 1:
            return text[:at] + self.pick(["0", "f", "-", "{", "}", "\u0301", " ", ","]) + text[at:]
        if k == 2:
            return text[:at] + self.pick(["g", "G", "-", "0", "{", "}", "\u00e9", "_"]) + text[at + 1:]
        if k == 3:
            return text[:9] + text[14:]         # a group less
        if k == 4:
            return self.pick([text[1:], text[:-1], text[1:-1], "(" + text[1:-1] + ")"])
        return text[:at] + text[at:].swapcase()

    def wide(self, most):
        return "".join(self.pick(WIDE) for _ in range(self.r.randint(0, most)))

    def around_identifier(self):
        """An identifier with texts before and behind it, so that it often just fits or just does not."""
        before = self.pick(["", self.words(), self.wide(3), self.wide(12)])
        middle = self.spoilt_identifier() if self.chance(0.25) else self.identifier()
        if self.chance(0.1):
            middle += self.pick(["", self.wide(2)]) + self.identifier()
        surplus = len(utf16_units(before)) - number_of_characters(before)
        behind = "".join(self.r.choices("abcxyz09", k=max(0, surplus + self.r.randint(-2, 2))))
        if self.chance(0.15):
            behind = self.pick([self.wide(3), self.words(), behind + self.wide(2)])
        return before + middle + behind

    def cut(self, text, n):
        """The text in n cells."""
        places = sorted(self.r.randint(0, len(text)) for _ in range(n - 1))
        return [text[a:b] for a, b in zip([0] + places, places + [len(text)])]

    def row(self, wild):
        n = self.weighted([(0, 1), (1, 2), (2, 1), (3, 1), (4, 5), (5, 14), (6, 10), (7, 8), (8, 4), (12, 2)])
        k = self.r.random()
        if n > 0 and k < 0.3:
            cells = self.cut(self.around_identifier(), n)
        else:
            cells = [self.content(True) for _ in range(n)]
            if n > 0 and k < 0.4:
                cells[self.r.randrange(n)] += self.pick([self.identifier, self.spoilt_identifier])()
            if k > 0.95:
                cells = [""] * n
        return ",".join(self.write(cell, wild) for cell in cells)

    def structured(self):
        wild = self.wildness()
        lines = []
        if self.chance(0.4):
            lines.append(self.pick(["name,url,username,password,note", "Type,name,url,user,user2,password,note",
                                    "a,b,c,d"]))
        for _ in range(self.pick([0, 1, 2, 3, 4, 6, 10])):
            lines.append(self.filler(FILLERS) if self.chance(0.1) else self.row(wild))
        return self.file_of(lines)

    def file(self):
        k = self.r.random()
        if k < 0.72:
            data = self.structured().encode("utf-8")
        elif k < 0.87:
            data = mutate(self, self.structured().encode("utf-8"), COUNTABLE.raw_texts)
        elif k < 0.97:
            data = self.raw(self.pick([2, 8, 60])).encode("utf-8")
        else:
            data = bytes(self.r.choices(b'",,,,,,\\\r\n \t{}-09afAF\x00\xc2\xa0\xe3\x80\xef\xbb\xbf',
                                        k=self.r.randint(0, 40)))
        return mark_and_break(self, data)
