"""Exports with named columns."""
from generators.csv_text import CSVText
from references.csv_dialect import unescape

EXTRA_HEADERS = ["totp", "", "x"]


class KeyedCSV(CSVText):
    """A subclass gives cells(headers), a dictionary from header to content, and FILLERS."""
    FILLERS = []

    def cells(self, headers):
        raise NotImplementedError

    def mistake(self, header, at):
        name = header[at]
        return self.pick([name.upper(), name.lower(), name.capitalize(), name + " ", " " + name, name[:-1],
                          name + "\u0301", "", "x", header[(at + 1) % len(header)], "\ufeff" + name, name + "\r",
                          name + "\0", name + "\\"])

    def row(self, headers, order, width, wild):
        cells = self.cells(headers)
        out = [self.write(cells.get(key, ""), wild) for key in order]
        while len(out) < width:
            out.append(self.write(self.content(False), wild))
        k = self.r.random()
        if k < 0.15:
            out = out[:self.r.randint(1, len(out))]
        elif k < 0.22:
            out += [self.write(self.content(False), wild) for _ in range(self.r.randint(1, 3))]
        return ",".join(out)

    def header_line(self, headers, order):
        """The line, the order of the columns below it and their number."""
        header, width, n = list(order), len(headers), len(headers)
        k = self.r.random()
        if k < 0.12:
            at = self.r.randrange(n)
            header[at] = self.mistake(header, at)
            if self.chance(0.7):
                order = list(headers)
        elif k < 0.15:
            del header[self.r.randrange(n)]
            width = n - 1
        elif k < 0.18:
            header.insert(self.r.randrange(n + 1), self.pick(EXTRA_HEADERS + [headers[0]]))
            width = n + 1
        if self.chance(0.15):
            header = ['"%s"' % h if self.chance(0.5) else h for h in header]
        return ",".join(header), order, width if width == n + 1 else n

    def structured(self, headers):
        wild = self.wildness()
        order = list(headers)
        if self.chance(0.3):
            self.r.shuffle(order)
        first, order, width = self.header_line(headers, order)
        lines = []
        while self.chance(0.1):
            lines.append(self.pick(["", " ", "\t\u00a0", "\u3000",
                                    self.filler(self.FILLERS) if self.chance(0.1) else ""]))
        if not self.chance(0.2):
            lines.append(first)
        else:                   # no header: keep the first row at the right number of cells mostly
            if self.chance(0.7):
                lines.append(",".join([self.pick(["", "a", '""', "x y", "\u00fc"]) for _ in headers[1:]] + ["0"]))
            order = list(headers)
        for _ in range(self.pick([0, 1, 1, 2, 3, 4, 6, 10])):
            lines.append(self.filler(self.FILLERS) if self.chance(0.15) else self.row(headers, order, width, wild))
        return self.file_of(lines)

    def headed_raw(self, headers):
        header = list(headers)
        if self.chance(0.3):
            self.r.shuffle(header)
        first = ",".join(header) if self.chance(0.7) else "," * (len(headers) - 1)
        return first + self.pick(["\n", "\r\n"]) + self.raw(60)

    def balanced(self, width):
        """WIDTH cells of short nonsense on the first line, more below; balanced by construction."""
        def cell():
            text = self.raw(4)
            return text + '"' if unescape(text).count('"') % 2 else text
        return "\n".join(",".join(cell().replace("\n", "") for _ in range(width)) for _ in range(self.r.randint(1, 4)))
