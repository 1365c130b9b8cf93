"""Texts, cells and lines of CSV exports."""
from generators.draw import Draw

LINE_ENDS = ["\n", "\n", "\n", "\r\n", "\r\n", "\r\n", None, None, "\r", "\r\r\n", "\n\r"]     # None: mixed
MIXED_LINE_ENDS = ["\n", "\r\n", "\r\n\n", "\n\n", "\r\r\n", "\n \n"]
LONE_QUOTES = ['"', '""', '"""', '""""', '" "', '"\\"', '\\"\\"', '","', '"\n"', '"\r\n"', '"\r"']


class CSVText(Draw):
    def __init__(self, seed, alphabet):
        super().__init__(seed)
        self.alphabet = alphabet

    def raw(self, most):
        return "".join(self.r.choices(self.alphabet.raw_texts, self.alphabet.raw_weights, k=self.r.randint(0, most)))

    def words(self, most=3):
        out = []
        for _ in range(self.r.randint(0, most)):
            out.append(self.pick(self.alphabet.words))
            if self.chance(0.2):
                out.append(self.pick(self.alphabet.marks + self.alphabet.blanks + self.alphabet.not_blanks))
        return "".join(out)

    def content(self, multi):
        """Plain content of a cell, before any quoting."""
        k = self.r.random()
        if k < 0.3:
            return ""
        if k < 0.4:
            odd = self.alphabet.blanks + self.alphabet.not_blanks + self.alphabet.marks
            return self.pick(odd) * self.r.randint(1, 2)
        text = self.words()
        if multi and self.chance(0.4):
            for _ in range(self.r.randint(1, 3)):
                text += self.pick(["\n", "\r\n", "\n\n", "\r", "\r\r\n", ",", '"', "\n \n", "\n,\n"]) + self.words(2)
        return text

    def write(self, text, wild):
        """A cell as it stands in the file."""
        special = any(c in text for c in '",\n')
        k = self.r.random()
        if k < wild:
            return self.write_wildly(text)
        if special or k < wild + 0.4 * (1 - wild):
            style = self.pick(['""', '""', '\\"'])
            return '"' + text.replace('"', style) + '"'
        return text

    def write_wildly(self, text):
        doubled = text.replace('"', '""')
        k = self.r.randrange(11)
        if k == 0:
            return text                                     # unquoted, whatever it holds
        if k == 1:
            return '"' + doubled + '\\"'                    # ends in a backslash
        if k == 2:
            return '"' + doubled + '\\""'                   # balanced again
        if k == 3:
            return '"' + doubled                            # never closed
        if k == 4:
            return self.pick([" ", "\t", "x", "\u0301"]) + '"' + doubled + '"'
        if k == 5:
            return '"' + doubled + '"' + self.pick([" ", "x", "\r"] + self.alphabet.marks)
        if k == 6:
            return '"' + self.pick(self.alphabet.marks) + doubled + '"' + self.pick(["", "\u0301"])
        if k == 7:
            return self.pick(LONE_QUOTES)
        if k == 8:
            return '"' + text.replace('"', '\\"') + '"'
        if k == 9:
            return '"' + text + '"'
        return self.raw(6)

    def filler(self, special):
        """A line that is no row of the export; SPECIAL are some that the source knows."""
        a = self.alphabet
        return self.pick(["", "", " ", "\t", " \t\u00a0", "\u3000", '""', '""""', ",,,,,,", ",", " ,", "\r", " \r",
                          "\\", "".join(self.r.choices(a.blanks, k=3)), self.pick(a.not_blanks),
                          self.pick(a.not_blanks),
                          " " + self.pick(a.not_blanks), self.pick(a.blanks) + self.pick(a.marks), "x",
                          '"",""'] + special)

    def wildness(self):
        """How often a file's cells are written wildly."""
        return self.pick([0, 0.02, 0.02, 0.1, 0.3])

    def file_of(self, lines):
        end = self.pick(LINE_ENDS if self.chance(0.6) else ["\n", "\r\n"])
        out = []
        for line in lines:
            out.append(line)
            out.append(end or self.pick(MIXED_LINE_ENDS))
        if out and self.chance(0.35):
            out.pop()
        return "".join(out)
