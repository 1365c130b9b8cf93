"""1Password Interchange Format exports: record lines, separators and lines in between."""
from generators.damage import mark_and_break, mutate
from generators.json_text import NULL, JSONText, Members
from generators.tirel import PIECES

SEPARATOR = "***5642bee8-a5ff-11dc-8314-0800200c9a66***"
TYPES = ["webforms.WebForm"] * 30 + ["securenotes.SecureNote"] * 15 + [
    "identities.Identity", "system.folder.Regular", "wallet.computer.License", "wallet.financial.CreditCard",
    "wallet.government.DriversLicense", "wallet.membership.RewardProgram", "passwords.Password", "passwords.Password",
    "webforms.webform", "webforms.WebForm ", "securenotes.SecureNote\u0301", "", "WebForm", "webforms.WebForm\0"]
DESIGNATIONS = ["username", "username", "password", "password", "", "Username", "passwords", "email", "username "]
# Lines that are no records.  They begin with something else than an opening brace.
OTHER_LINES = ["", "", SEPARATOR, SEPARATOR, " ", "\r", "x", "[]", "[{}]", "null", ",", "]", "}", '"', " {}", "\t{}",
               "\ufeff{}", "\u00a0{}", "\u200b{}", "\\{}", ' {"typeName"', "\0", "\0{}", "\r{}", "\u0301{}", "***{}***",
               "// {}", "\u2028{}"]
# Lines that begin with a brace and take part in the whole, for good or ill.
STRANGE_LINES = [
    "{}", "{}", "{},{}", "{} , {}", "{}{}", "{} {}", "{},", "{},,{}",
    "{}]", "{}}", "{}],", '{}],"x":[{}', '{}], "x": 5, "y":[{}', '{}],"records":[{}', '{}],"records":5,"x":[{}',
    '{}],"x":{"y":[{}', '{}],"x":[[{}', "{}]}", "{}],[{}", '{}],"\\u0072ecords":[5,{}', "{} x", "{}//", "{", "{{}}",
    "{[]}", "{}\x0c", "{}\u00a0", "{}\ufeff", "{}\0", "{} \t\r", "{ }", "{\t}", "{\r}", "{,}", "{1}", "{null}",
    "{'a':1}", '{"a"}', '{"a":}', '{"a":1,}', '{"":{}}', '{"a":[', '{"a":"', "{}]}\r", '{}],"x":"', '{"a":1}1',
]

# Lines that make a valid document whose records are not all objects.
MISCAST_LINES = ["{},5", "{},null", '{},"a"', "{},[]", "{},[{}]", "{},true", '{}, {"a":1} ,-0.5e3',
                 '{},"\\ud83d\\ude00"']


class Generator(JSONText):
    SUFFIX = ".1pif"

    def __init__(self, seed):
        super().__init__(seed, line_feeds=False)

    def members(self, pairs):
        pairs = [[key, value] for key, value in pairs]
        if self.chance(0.2):
            self.r.shuffle(pairs)
        return Members(pairs)

    def url(self):
        k = self.r.random()
        if k < 0.75:
            return Members([["url", self.text_or_spelled()]])
        return self.pick([Members(), Members([["URL", "x"]]), Members([["url", NULL]]),
                          Members([["label", "x"], ["url", self.text()], ["url", "later"]]),
                          Members([["url", self.integer()]])])

    def urls(self):
        return [self.url() for _ in range(self.pick([0, 1, 1, 1, 2, 3]))]

    def field(self, designation):
        value = self.text_or_spelled() if self.chance(0.95) else self.anything()
        return self.members([("value", value), ("name", self.text()), ("type", "T"), ("designation", designation)])

    def fields(self):
        found = []
        if self.chance(0.95):
            found.append(self.field("username"))
        if self.chance(0.95):
            found.append(self.field("password"))
        while self.chance(0.35):
            found.append(self.field(self.pick(DESIGNATIONS)))
        if self.chance(0.4):
            self.r.shuffle(found)
        if self.chance(0.03):
            found.insert(self.r.randint(0, len(found)), self.anything())
        return found

    def record(self):
        type_ = self.pick(TYPES)
        contents = []
        if "Note" in type_ or self.chance(0.2):
            contents.append(("notesPlain", self.text_or_spelled()))
        if "Note" not in type_ or self.chance(0.1):
            if self.chance(0.9):
                contents.append(("URLs", self.urls()))
            contents.append(("fields", self.fields()))
        if "Password" in type_:
            contents.append(("password", self.text()))
        pairs = [("uuid", "0F" * 16), ("typeName", type_), ("secureContents", self.members(contents))]
        if self.chance(0.9):
            pairs.insert(1, ("title", self.text_or_spelled()))
        record = self.members(pairs)
        while self.chance(0.15):
            self.add_unknown(record)
        while self.chance(0.06):
            self.repeat_later(record)
        return record

    def line_of(self, change):
        record = self.record()
        if change:
            self.change(record)
        return self.write(record)

    def break_up(self, line):
        """The same document in several lines: the join puts the comma back."""
        return line.replace(",{", "\n{")

    def deep_line(self):
        record = self.record()
        wanted = self.pick([511, 512, 512, 512, 513, 513, 2000])
        record.insert(self.r.randint(0, len(record)), ["?", self.tower(wanted - 3)])
        return self.write(record)

    def lines(self, change, strange):
        lines = []
        for _ in range(self.pick([0, 1, 2, 2, 3, 3, 4, 6, 8])):
            k = self.r.random()
            if k < 0.1:
                lines.append(self.pick(OTHER_LINES))
            elif k < 0.14:
                lines.append(self.pick([" ", "\t", "\ufeff", ","]) + self.line_of(False))
            elif k < 0.18:
                lines.append(self.break_up(self.line_of(False)))
            elif k < 0.21:
                lines.append(self.line_of(False) + "," + self.line_of(False))
            else:
                lines.append(self.line_of(False))
                if self.chance(0.8):
                    lines.append(SEPARATOR)
        if change:
            lines.insert(self.r.randint(0, len(lines)), self.line_of(True))
        if strange:
            lines.insert(self.r.randint(0, len(lines)), self.pick(STRANGE_LINES + MISCAST_LINES * 3))
            if self.chance(0.3):
                lines.insert(self.r.randint(0, len(lines)), self.pick(STRANGE_LINES))
        return lines

    def file_of(self, lines):
        end = self.pick(["\n", "\n", "\n", "\r\n", "\r\n", "\n\n", None,
                         "\r"] if self.chance(0.9) else ["\r", "\n\r", "\r\r\n"])
        out = []
        for line in lines:
            out += [line, end or self.pick(["\n", "\r\n", "\n\n"])]
        if out and self.chance(0.3):
            out.pop()
        return "".join(out)

    def long(self):
        record = Members([["typeName", "securenotes.SecureNote"], ["title", "t" * 1000],
                          ["secureContents", Members([["notesPlain", "\U0001f600\\\n{" * 1000]])]])
        many = self.pick([0, 150])
        small = '{"typeName":"securenotes.SecureNote","title":"%d","secureContents":{"notesPlain":""}}'
        return [self.write(record)] + [small % i for i in range(many)]

    def file(self):
        self.new_style()
        k = self.r.random()
        if k < 0.45:
            lines = self.lines(False, False)
        elif k < 0.72:
            lines = self.lines(True, False)
        elif k < 0.82:
            lines = self.lines(False, True)
        elif k < 0.93:
            return mark_and_break(self, mutate(self, self.file_of(self.lines(False, False)).encode("utf-8"),
                                               PIECES + [SEPARATOR]))
        elif k < 0.96:
            lines = self.lines(False, False) + [self.deep_line()]
        elif k < 0.97:
            lines = self.long()
        elif k < 0.98:
            lines = [self.pick(["{", '{"a":[', '{"a":', "{}],[", "{[["]) * self.pick([5, 600, 5000])]
        elif k < 0.99:
            lines = self.r.choices(OTHER_LINES, k=self.r.randint(0, 4))
        else:
            return self.file_of(self.lines(False,
                                           False)).encode(self.pick(["utf-16", "utf-16-le", "utf-16-be", "utf-32-le"]))
        return mark_and_break(self, self.file_of(lines).encode("utf-8"), broken=0.02)
