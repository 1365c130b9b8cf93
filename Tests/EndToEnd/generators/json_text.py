"""JSON values as trees, and the many ways to write them.

An array is a list, an object is Members (pairs, so that keys may repeat), a text is a str, and
Spelled stands for anything that is written as it is."""
from generators.alphabet import FULL
from generators.draw import Draw


class Spelled:
    def __init__(self, text):
        self.text = text


class Members(list):
    """[key, value] lists in order."""

    def get(self, key):
        for name, value in self:
            if name == key:
                return value
        return None


# What must be escaped, and what looks like the seam of two records.
HARD_TEXTS = ['"', "/", "\n", "\r\n", ",{", "},{"]
TRUE, FALSE, NULL = Spelled("true"), Spelled("false"), Spelled("null")

INT64_NUMBERS = [
    "0", "1", "-1", "5", "42", "-0", "-0.0", "0e5", "0.0e-3", "0e-99", "0e999", "1.0", "-5.0", "1e3", "10e-1", "1E+2",
    "1e0", "12300e-2", "1.5e1", "2.50e1", "0.000001e6", "100000e-5", "1534952160", "4294967296", "-2147483649",
    "1E00018", "9007199254740993", "9007199254740993.0", "9223372036854775807", "-9223372036854775808",
    "9223372036854775807.0", "922337203685477580.7e1", "-0.9223372036854775808e19", "9223372036854775807000e-3", "9e18",
    "1234567890123456789", "1." + "0" * 300, "1" + "0" * 40 + "e-40", "0." + "0" * 40 + "7e41",
    "-9223372036854775807.0000",
]
OTHER_NUMBERS = [
    "1.5", "-0.5", "1e-1", "0.1", "9223372036854775808", "-9223372036854775809", "1e19", "-1e19", "1e400", "1e-400",
    "1e99999999", "-1e-99999999", "9223372036854775807.5", "9223372036854775808e-1", "100000000000000000000", "1" * 400,
    "0.5e0", "18446744073709551615", "18446744073709551616", "1." + "0" * 30 + "1", "9223372036854775807.000000000001",
    "922337203685477580.8e1", "0.9223372036854775808e19", "12345e-4", "1e-0001", "-1.0e-1", "0." + "9" * 40,
]
NO_NUMBERS = [
    "01", "+1", ".5", "1.", "1.e5", "1e", "1e+", "1E-", "-", "--1", "- 1", "0x10", "NaN", "Infinity", "-Infinity",
    "1_000", "00", "-01", "1e1.5", "1f", "1 2", "\u0663", "\uff11", "1\u0663", "-a", "1e\u0661", "0.\u0661", "1..0",
    "1ee1", "1L",
]
GOOD_STRINGS = [
    '"\\u0041"', '"\\ud83d\\ude00"', '"\\uD83D\\uDE00"', '"\\u0000"', '"\\/"', '"\x7f"', '"\uffff"', '"\\""', '"\\\\"',
    '"\\b\\f\\n\\r\\t"', '"\\\\u0041"', '"\\udbff\\udfff"', '"\\ud800\\udc00"', '"\\uFfFf"', '"\\u2028\u2029"',
    '"\\u007f\x80"', '"\ud7ff\ue000"', '"\U0010ffff"', '"//"', '"\\uFEFF\ufeff"', '"\\\\\\""', '"\u0085\u00a0"',
]
BAD_STRINGS = [
    '"\\uD800"', '"\\uDC00"', '"\\ud83d\\u0041"', '"\\ud83dx"', '"\\ud83d\\ud83d\\ude00"', '"\\ude00\\ud83d"',
    '"\\ud83d\\n"', '"\\ud83d\\"', '"\\x41"', '"\\u00g0"', '"\\u 041"', '"\\u041"', '"\\U0041"', '"\\\'"', "'a'",
    '"a\tb"', '"\x00"', '"\x1f"', '"a\rb"', '"a', 'a"', '"\\', '"\\u+041"', '"\\u-001"', '"\\u0x41"',
    '"\\u00\u0661\u0661"', '"\\u00_1"', '"\\0"', '"\\a"', '"\\v"', '"\\ "', '"a""b"', '"a" "b"', "\u201ca\u201d", "`a`",
    '"\\\n"', '"a\nb"',
]
NO_VALUES = [
    "", "nul", "nulll", "NULL", "True", "TRUE", "none", "undefined", "tru", "truefalse", "[1,]", "[,1]", "[,]", "[1 2]",
    "[1", "1]", "{,}", '{"a"}', '{"a":}', '{"a" 1}', '{"a":1,}', "{a:1}", "{'a':1}", "{1:1}", '{"a":1 "b":2}',
    '{"a"::1}', "[1}", '{"a":1]', "[[]", "{{}}", "{[]}", "/*c*/1", "1//c", "(1)", "[1;2]", "[\u00a01]", "[\x0c1]",
    "[\u20281]", "[\x0b]", "[\ufeff]", "[\x00]", "[\u00851]", '{null:1}', '{"a":1,,"b":2}', "<a/>", "?", "\\", ",", ":",
]


class JSONText(Draw):
    """White space and escapes vary by file; LINE_FEEDS tells whether LF may be white space."""

    def __init__(self, seed, line_feeds):
        super().__init__(seed)
        self.line_feeds = line_feeds
        self.new_style()

    def new_style(self):
        self.blank_chance = self.pick([0, 0, 0.05, 0.3])
        self.escape_chance = self.pick([0, 0, 0.05, 0.4])
        self.blanks = [" ", " ", "\t", "\r", "  ", " \t\r "] + (["\n", "\r\n", "\n\n"] if self.line_feeds else [])

    # ------------------------------------------------ values

    def text(self, empty=0.15):
        k = self.r.random()
        if k < empty:
            return ""
        if k < empty + 0.005:
            return self.pick(FULL.words) * self.pick([20, 60])
        out = []
        for _ in range(self.r.randint(1, 4)):
            out.append(self.pick(FULL.words))
            if self.chance(0.25):
                out.append(self.pick(FULL.marks + FULL.blanks + FULL.not_blanks + HARD_TEXTS))
        return "".join(out)

    def text_or_spelled(self):
        return Spelled(self.pick(GOOD_STRINGS)) if self.chance(0.05) else self.text()

    def integer(self):
        if self.chance(0.6):
            return Spelled(str(self.r.randint(-10, 2000)))
        return Spelled(self.pick(INT64_NUMBERS))

    def scalar(self):
        return self.pick([self.text, self.integer, lambda: Spelled(self.pick(OTHER_NUMBERS)), lambda: TRUE,
                          lambda: FALSE,
                          lambda: NULL, lambda: Spelled(self.pick(GOOD_STRINGS))])()

    def anything(self, depth=2):
        """A valid value of any type."""
        if depth == 0 or self.chance(0.5):
            return self.scalar()
        if self.chance(0.5):
            return [self.anything(depth - 1) for _ in range(self.r.randint(0, 3))]
        return Members([self.text(), self.anything(depth - 1)] for _ in range(self.r.randint(0, 3)))

    def nothing(self):
        """Text where a value should be, which is none."""
        return Spelled(self.pick(self.pick([NO_NUMBERS, BAD_STRINGS, NO_VALUES])))

    def tower(self, depth):
        """DEPTH nested containers."""
        k = self.r.randrange(4)
        if k == 0:
            opening, closing = "[" * depth, "]" * depth
        elif k == 1:
            opening, closing = '{"a":' * (depth - 1) + "{", "}" * depth
        elif k == 2:
            opening, closing = "[1," * (depth - 1) + "[", "]" * depth
        else:
            kinds = self.r.choices("[{", k=depth)
            opening = "".join('{"":' if kind == "{" else "[" for kind in kinds[:-1]) + kinds[-1]
            closing = "".join("}" if kind == "{" else "]" for kind in reversed(kinds))
        return Spelled(opening + closing)

    # ------------------------------------------------ writing

    def blank(self):
        return self.pick(self.blanks) if self.chance(self.blank_chance) else ""

    def hexadecimal(self, unit):
        text = "%04x" % unit
        return "\\u" + "".join(c.upper() if self.chance(0.5) else c for c in text)

    def character(self, c):
        short = {'"': '\\"', "\\": "\\\\", "\b": "\\b", "\f": "\\f", "\n": "\\n", "\r": "\\r", "\t": "\\t", "/": "\\/"}
        must = c in '"\\' or ord(c) < 0x20
        if not must and not self.chance(self.escape_chance):
            return c
        if c in short and self.chance(0.7):
            return short[c]
        data = c.encode("utf-16-be")
        return "".join(self.hexadecimal(data[i] << 8 | data[i + 1]) for i in range(0, len(data), 2))

    def string(self, text):
        if self.escape_chance == 0 and text.isprintable() and '"' not in text and "\\" not in text:
            return '"' + text + '"'
        return '"' + "".join(self.character(c) for c in text) + '"'

    def write(self, value):
        if isinstance(value, Spelled):
            return value.text
        if isinstance(value, str):
            return self.string(value)
        if isinstance(value, Members):
            inside = ",".join(self.blank() + self.write(key) + self.blank() + ":" + self.blank() + self.write(member)
                              + self.blank() for key, member in value)
            return "{" + (inside or self.blank()) + "}"
        inside = ",".join(self.blank() + self.write(element) + self.blank() for element in value)
        return "[" + (inside or self.blank()) + "]"

    # ------------------------------------------------ changes

    def containers(self, value):
        """All arrays and objects of the tree, the outermost first."""
        found, todo = [], [value]
        while todo:
            value = todo.pop()
            if isinstance(value, list):
                found.append(value)
                todo += [member[1] for member in value] if isinstance(value, Members) else value
        return found

    def add_unknown(self, tree):
        """An unknown member in a random object: never changes what a file holds."""
        objects = [c for c in self.containers(tree) if isinstance(c, Members)]
        members = self.pick(objects)
        members.insert(self.r.randint(0, len(members)), ["?" + self.text(), self.anything()])

    def repeat_later(self, tree):
        """A key that comes again later with any other value."""
        objects = [c for c in self.containers(tree) if isinstance(c, Members) and c]
        if objects:
            members = self.pick(objects)
            at = self.r.randrange(len(members))
            members.insert(self.r.randint(at + 1, len(members)), [members[at][0], self.anything()])

    def respell_key(self, key):
        if not isinstance(key, str) or key == "":
            return "x"
        return self.pick([key.upper(), key.lower(), key.capitalize(), key + " ", " " + key, key[:-1], key + "\u0301",
                          key + "\0", "", Spelled('"\\u%04x%s"' % (ord(key[0]), key[1:])), Spelled(key),
                          Spelled("'" + key + "'")])

    def change_value(self, value):
        k = self.r.random()
        if k < 0.25:
            return self.anything()
        if k < 0.4:
            return NULL
        if k < 0.55:
            return Spelled(self.pick(INT64_NUMBERS + OTHER_NUMBERS))
        if k < 0.65:
            return [value]
        if k < 0.75:
            return self.pick([[], Members(), [Members()], [NULL], Members([["0", value]])])
        if k < 0.85:
            return self.text_or_spelled()
        return self.nothing()

    def change(self, tree):
        """One change anywhere in the tree."""
        container = self.pick(self.containers(tree))
        k = self.r.random()
        if isinstance(container, Members) and container:
            at = self.r.randrange(len(container))
            if k < 0.2:
                del container[at]
            elif k < 0.65:
                container[at] = [container[at][0], self.change_value(container[at][1])]
            elif k < 0.75:
                container[at] = [self.respell_key(container[at][0]), container[at][1]]
            elif k < 0.9:           # a repeated key, the new one in front half of the time
                container.insert(self.pick([at, at + 1]), [container[at][0], self.change_value(container[at][1])])
            else:
                container.insert(at, [self.text(), self.nothing() if self.chance(0.3) else self.anything()])
        elif container:
            at = self.r.randrange(len(container))
            if k < 0.2:
                del container[at]
            elif k < 0.6:
                container[at] = self.change_value(container[at])
            else:
                container.insert(self.pick([at, at + 1]), self.pick([NULL, Members(), [], self.anything(),
                                                                     self.nothing()]))
        elif isinstance(container, Members):
            container.append([self.text(), self.anything()])
        else:
            container.append(self.anything())
