"""Tirel exports."""
from generators.damage import mark_and_break, mutate
from generators.json_text import NULL, JSONText, Members

PIECES = ["{", "}", "[", "]", ",", ":", '"', "\\", " ", "\n", "\t", "\r", "0", "1", "-", ".", "e", "e-1", "null",
          "true", "\\u", "\\ud83d", '"logins":[]', "\u00a0", "\u00e9", "\U0001f600", "\0", "\x0c", "\ufeff", "//", "{}",
          "[]", '""', '"":']
BEHIND = [",", " {}", "x", "\0", "\ufeff", "]", "}", "//c", "\u00a0", "\x0c", "\n\n", " \t\r\n", "null", "\x1a", "#",
          "0"]
SMALL = ["", " ", "\n", "3", '"a"', "null", "true", "[]", "{}", "[{}]", '{"logins":[],"notes":[],"cards":[]}', "{", "[",
         '"', '[{"logins":[],"notes":[],"cards":[]}]', '{"logins":{},"notes":[],"cards":[]}',
         '{"logins":[],"notes":[]}',
         '{"logins":null,"notes":[],"cards":[]}', '{"logins":[null],"notes":[],"cards":[]}', "\ufeff", "\ufeff{}"]


class Generator(JSONText):
    SUFFIX = ".json"

    def __init__(self, seed):
        super().__init__(seed, line_feeds=True)

    def members(self, pairs):
        pairs = [[key, value] for key, value in pairs if value is not None]
        if self.chance(0.3):
            self.r.shuffle(pairs)
        return Members(pairs)

    def maybe(self, value):
        """For an optional member: missing, null or the value."""
        return self.pick([None, NULL, value, value])

    def login(self):
        t = self.text_or_spelled
        return self.members([("color", self.integer()), ("custName", self.maybe(t())), ("loginName", t()),
                             ("note", t()), ("pwd", t()), ("pwdChange", self.maybe(self.integer())), ("url", t())])

    def note(self):
        t = self.text_or_spelled
        return self.members([("color", self.integer()), ("label", t()), ("text", t())])

    def card(self):
        t, i = self.text_or_spelled, self.integer
        date = self.members([("day", i()), ("month", i()), ("year", i())])
        return self.members([("cardNumber", t()), ("custName", t()), ("holderName", t()), ("cvv", t()), ("pin", t()),
                             ("note", t()), ("expirationDate", date)])

    def export(self):
        sizes = [0, 1, 1, 2, 4]
        tree = self.members([("logins", [self.login() for _ in range(self.pick(sizes))]),
                             ("notes", [self.note() for _ in range(self.pick(sizes))]),
                             ("cards", [self.card() for _ in range(self.pick(sizes))])])
        while self.chance(0.25):
            self.add_unknown(tree)
        while self.chance(0.12):
            self.repeat_later(tree)
        return tree

    def valid(self):
        return self.blank() + self.write(self.export()) + self.blank()

    def changed(self):
        tree = self.export()
        for _ in range(self.pick([1, 1, 1, 2])):
            self.change(tree)
        return self.write(tree)

    def deep(self):
        """An unknown member that makes about as many nested containers as may be, or far too many."""
        tree = self.export()
        objects = [(1, tree)]
        for name in ("logins", "notes", "cards"):
            objects += [(3, entry) for entry in tree.get(name)[:1] if isinstance(entry, Members)] \
                if isinstance(tree.get(name), list) else []
        depth, members = self.pick(objects)
        wanted = self.pick([511, 512, 512, 512, 513, 513, 514, 2000])
        members.insert(self.r.randint(0, len(members)), ["?", self.tower(wanted - depth)])
        return self.write(tree)

    def hostile(self):
        k = self.r.randrange(7)
        if k == 0:
            return self.valid() + self.pick(BEHIND)
        if k == 1:
            return self.pick(BEHIND) + self.valid()
        if k == 2:
            return self.pick(SMALL)
        if k == 3:
            return self.pick(["[", '{"a":', "[{", '{"logins":[', "[[],"]) * self.pick([10, 600, 5000])
        if k == 4:          # long texts and many entries
            tree = self.export()
            self.pick([tree.get("logins"), tree.get("notes")]).extend(
                self.note() if self.chance(0.02) else self.login() for _ in range(self.pick([0, 60])))
            tree.append(["?" + "k" * self.pick([1, 5000]), self.text() + "\U0001f600\\" * 1000])
            return self.write(tree)
        return self.deep()

    def file(self):
        self.new_style()
        k = self.r.random()
        if k < 0.5:
            data = self.valid().encode("utf-8")
        elif k < 0.78:
            data = self.changed().encode("utf-8")
        elif k < 0.90:
            data = mutate(self, self.valid().encode("utf-8"), PIECES)
        elif k < 0.99:
            data = self.hostile().encode("utf-8")
        else:
            data = self.valid().encode(self.pick(["utf-16", "utf-16-le", "utf-16-be", "utf-32-le"]))
        return mark_and_break(self, data, broken=0.02)
