"""The sample vault in all formats: each import gives the records that the rules of its format let
through, and what two imports both hand over of an entry is the same.

usage: test_vault.py TOOL [unittest arguments]
TOOL may hold blanks (split as a shell would).
"""
import functools
import itertools
import json
import re
import shlex
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

from driver.standard_error import complaints

ROOT = Path(__file__).resolve().parents[2]
VAULT = ROOT / "Examples" / "Vault"
sys.path.insert(0, str(ROOT / "Scripts"))
from vault import entries  # noqa: E402
from vault.addresses import origin, page  # noqa: E402
from vault.layouts import LAYOUTS, WITHOUT_HEADER  # noqa: E402
from vault.stores import FILES, STORES  # noqa: E402

TOOL = []
TIMEOUT = 60


@functools.cache
def imported(store):
    """What the tool makes of the file: the three lists. Standard error may tell what is left out."""
    command = [*TOOL, "import", "--source", store.source, "--format", "json", "--reveal",
               str(VAULT / store.path)]
    ended = subprocess.run(command, capture_output=True, timeout=TIMEOUT)
    if ended.returncode != 0 or complaints(ended.stderr, [str(VAULT / store.path)], set()):
        raise AssertionError(f"exit status {ended.returncode}: {ended.stderr.decode()}")
    return json.loads(ended.stdout)


def make_vault(folder):
    """What Scripts/make-vault prints when it writes into `folder`."""
    return subprocess.run([sys.executable, ROOT / "Scripts" / "make-vault", folder], check=True,
                          capture_output=True, text=True, timeout=TIMEOUT).stdout


class Imports(unittest.TestCase):
    """Each import gives exactly the records expected of it."""
    maxDiff = None

    def test_every_source_is_there(self):
        self.assertEqual({store.source for store in STORES},
                         {"chrome", "lastPass", "dashlane", "onePassword", "tirel", "keePass",
                          "keePassXC", "firefox"})


for _store in STORES:
    def _test(self, store=_store):
        self.assertEqual(imported(store), store.expected())
    setattr(Imports, "test_" + re.sub(r"\W+", "_", _store.path), _test)


class Rules(unittest.TestCase):
    """What is expected, worked out by hand from Scripts/vault/entries.py."""

    def test_counts(self):
        """Of 24 logins, 7 notes and 3 cards."""
        self.assertEqual(
            {store.path: tuple(map(len, store.expected().values())) for store in STORES}, {
                "Chrome/Login Data": (17, 0, 0),  # of 19 websites; one has no user name, one no password
                "LastPass/export.csv": (23, 10, 0),  # one login has nothing but a note
                "Dashlane/export.csv": (24, 0, 0),  # the header more, the identifier less
                "OnePassword/export.1pif": (23, 6, 0),  # a password alone, a note without a title
                "Tirel/export.json": (24, 7, 3),
                "KeePass/export.csv": (34, 0, 0),
                "KeePassXC/export.csv": (34, 0, 0),
                "Firefox/current.profile": (19, 0, 0),
                "Firefox/old.profile": (19, 0, 0)})

    def test_double_quotes(self):
        def login(service, username, password):
            return {"username": username, "password": password, "url": "https://rail.example/tickets",
                    "service": service, "color": None, "note": None, "pwdChange": None}
        doubled = login('""Harbour"" railway', '""ann""', '""Zug""um""Zug""')
        for source in ("lastPass", "dashlane", "keePass", "keePassXC"):
            self.assertEqual(self._expected(source, "quotes"), [doubled], source)
        plain = login('"Harbour" railway', '"ann"', '"Zug"um"Zug"')
        self.assertEqual(self._expected("onePassword", "quotes"), [plain])
        self.assertEqual(self._expected("tirel", "quotes"), [{**plain, "color": 0, "note": '"'}])

    def test_backslashes(self):
        for source, username, password in (
                ("keePass", r"EXAMPLE\\ann", r"C:\\new\\table"),
                ("keePassXC", r"EXAMPLE\ann", r"C:\new\table"),
                ("lastPass", r"EXAMPLE\ann", r"C:\new\table"),
                ("onePassword", r"EXAMPLE\ann", r"C:\new\table")):
            self.assertEqual([(record["username"], record["password"])
                              for record in self._expected(source, "backslash")], [(username, password)])

    def test_addresses(self):
        for source, urls in (
                ("tirel", ["https://shop.example/account?sort=price,name&lang=de#orders"]),
                ("chrome", ["https://shop.example/account"]),
                ("firefox", ["https://shop.example"] * 2)):
            self.assertEqual([record["url"] for record in self._expected(source, "shop")], urls)
        self.assertEqual([record["url"] for record in self._expected("firefox", "port")],
                         ["http://[2001:db8::1]:8080"] * 2)

    def test_cards(self):
        self.assertEqual(self._expected("lastPass", "card-umlauts"), [{
            "color": None, "title": "Büro, Reisen",
            "content": 'NoteType:Credit Card\nLanguage:en-GB\nName on Card:Jürgen ""Jo"" Groß\n'
                       "Type:Mastercard\nNumber:5555555555554444\nSecurity Code:007\nStart Date:,\n"
                       "Expiration Date:February,2030\nNotes:"}])
        self.assertEqual(self._expected("keePassXC", "card-umlauts"), [{
            "username": 'Jürgen ""Jo"" Groß', "password": "", "url": "", "service": "Büro, Reisen",
            "color": None, "note": None, "pwdChange": None}])
        for source in ("chrome", "firefox", "dashlane", "onePassword"):
            self.assertEqual(self._expected(source, "card-umlauts"), [], source)

    def test_what_is_left_out(self):
        for key, sources in (
                ("no-title", set()),
                ("password-alone", {"chrome", "firefox", "onePassword"}),
                ("no-username", {"chrome"}), ("no-password", {"chrome"}),
                ("no-website", {"chrome", "firefox"}), ("identifier", {"dashlane"}),
                ("note-alone", {"chrome", "firefox", "lastPass"}),
                ("wifi", {"chrome", "firefox", "dashlane"}),
                ("no-title-note", {"chrome", "firefox", "dashlane", "onePassword"})):
            self.assertEqual({store.source for store in STORES
                              if not self._expected(store.source, key)}, sources, key)

    def test_lines_of_the_files(self):
        """As the products write them."""
        for file, line in (
                ("LastPass/export.csv", 'https://rail.example/tickets,"""ann""","""Zug""um""Zug""",'
                                        '"""","""Harbour"" railway",Travel,0\n'),
                ("KeePass/export.csv", '"\\"Harbour\\" railway","\\"ann\\"","\\"Zug\\"um\\"Zug\\"",'
                                       '"https://rail.example/tickets","\\""\r\n'),
                ("KeePassXC/export.csv", '"Root/Travel","""Harbour"" railway","""ann""",'
                                         '"""Zug""um""Zug""","https://rail.example/tickets",""""\n'),
                ("Dashlane/export.csv", '"Bücher & mehr",'
                                        '"https://shop.example/account?sort=price,name&lang=de#orders",'
                                        '"ann.berg","ann.second@mail.example","Kn0bl4uch!",""\n'),
                ("Tirel/export.json", '{"color":3,"custName":"Mail","loginName":"ann.berg@mail.example",'
                                      '"note":"","pwd":"Violet-Harbor-82","pwdChange":1690000000,'
                                      '"url":"https:\\/\\/mail.example\\/login"}')):
            self.assertIn(line.encode(), (VAULT / file).read_bytes(), file)

    def _expected(self, source, key):
        return [arrival.record for store in STORES if store.source == source
                for arrival in store.arrivals(entries.VAULT) if arrival.key == key]


# ---------------------------------------------------------------- what two imports must agree on

def _halved(text, character):
    if character in text.replace(2 * character, ""):
        raise AssertionError(f"a {character} stands alone")
    return text.replace(2 * character, character)


def _quotes(text):
    return _halved(text, '"')


def _quotes_and_backslashes(text):
    return _halved(_quotes(text), "\\")


def _same(text):
    return text


LOGIN = {"title": "service", "username": "username", "password": "password", "url": "url"}
TITLE = {"title": "service"}
CARD_AS_LOGIN = {"title": "service", "holder": "username", "pin": "password"}
NOTE = {"title": "title", "text": "content"}

# Which member of a record carries which field of an entry. What is encrypted carries nothing.
CARRIED = {
    "chrome": {"Login": {"username": "username", "url": "url"}},
    "firefox": {"Login": {"url": "url"}},
    "lastPass": {"Login": LOGIN, "Note": NOTE, "Card": {"title": "title"}},
    "dashlane": {"Login": LOGIN},
    "keePass": {"Login": LOGIN, "Note": TITLE, "Card": CARD_AS_LOGIN},
    "keePassXC": {"Login": LOGIN, "Note": TITLE, "Card": CARD_AS_LOGIN},
    "onePassword": {"Login": LOGIN, "Note": NOTE},
    "tirel": {"Login": LOGIN, "Note": NOTE,
              "Card": {"title": "custName", "holder": "holderName", "pin": "pin"}},
}
# How the text in the file is found again in what a source hands over.
WRITTEN = {"lastPass": _quotes, "dashlane": _quotes, "keePassXC": _quotes,
           "keePass": _quotes_and_backslashes}
# What a source keeps of a field.
KEPT = {("chrome", "url"): page, ("firefox", "url"): origin,
        **{(source, "title"): lambda title: title or ""
           for source in ("lastPass", "dashlane", "keePass", "keePassXC")}}


class Agreement(unittest.TestCase):
    """Of each entry, any two imports hand over the same, as far as both formats go."""

    def test_every_two_sources_agree(self):
        carried = {store.path: self._carried(store) for store in STORES}
        compared = set()
        for one, other in itertools.combinations(STORES, 2):
            for key in carried[one.path].keys() & carried[other.path].keys():
                kind, fields = carried[one.path][key]
                _, others = carried[other.path][key]
                for field in fields.keys() & others.keys():
                    with self.subTest(entry=key, field=field, sources=(one.path, other.path)):
                        self.assertEqual(self._kept(other.source, field, fields[field]),
                                         self._kept(one.source, field, others[field]))
                    compared.add((one.path, other.path, kind, field))
        self.assertEqual(compared, {
            (one.path, other.path, kind, field)
            for one, other in itertools.combinations(STORES, 2)
            for kind in CARRIED[one.source].keys() & CARRIED[other.source].keys()
            for field in CARRIED[one.source][kind].keys() & CARRIED[other.source][kind].keys()})

    def _carried(self, store):
        """The fields that the import handed over of each entry."""
        kinds = {entry.key: type(entry).__name__ for entry in entries.VAULT}
        arrivals = list(store.arrivals(entries.VAULT))
        written = WRITTEN.get(store.source, _same)
        result = {}
        for list_name, records in imported(store).items():
            keys = [arrival.key for arrival in arrivals if arrival.kind == list_name]
            self.assertEqual(len(records), len(keys), store.path)
            for key, record in zip(keys, records):
                if key:
                    members = CARRIED[store.source][kinds[key]]
                    result[key] = kinds[key], {
                        field: None if record[member] is None else written(record[member])
                        for field, member in members.items()}
        return result

    def _kept(self, source, field, value):
        return KEPT.get((source, field), _same)(value)


class Layouts(unittest.TestCase):
    """The vault comes out the same through every layout, as far as the layout holds it."""
    maxDiff = None

    def test_every_layout(self):
        listed = subprocess.run([*TOOL, "layouts"], check=True, capture_output=True, text=True).stdout
        read = {line.split()[0] for line in listed.splitlines()}
        for layout in LAYOUTS:
            if layout.layout not in read:  # left out when the library was built
                self.assertRegex(layout.layout, "-zip$")
                continue
            with self.subTest(layout.file):
                self.assertEqual(self._read(layout), layout.expected())

    def _read(self, layout):
        """As what the file is taken for, if its header tells that."""
        option = ["--layout", layout.layout] if layout.layout in WITHOUT_HEADER else []
        command = [*TOOL, "import", *option, "--format", "json", "--reveal", str(VAULT / layout.file)]
        ended = subprocess.run(command, capture_output=True, timeout=TIMEOUT)
        self.assertEqual(ended.returncode, 0, ended.stderr)
        read = json.loads(ended.stdout)
        self.assertEqual(read["layout"], layout.layout)
        return {kind: [{name: value for name, value in record.items() if name != "extras"}
                       for record in read[kind]] for kind in ("passwords", "notes", "cards")}


class Files(unittest.TestCase):
    """Scripts/make-vault gives what is in the tree."""

    def test_the_tree_holds_what_the_script_writes(self):
        with tempfile.TemporaryDirectory() as name:
            folder = Path(name)
            self.assertEqual(make_vault(folder),
                             "".join(f"{folder / store.file}\n" for store in FILES))
            for store in FILES:
                with self.subTest(store.file):
                    self.assertEqual(store.held(folder), store.held(VAULT))

    def test_the_tree_holds_nothing_else(self):
        files = {str(path.relative_to(VAULT)) for path in VAULT.rglob("*") if path.is_file()}
        self.assertEqual(files, {store.file for store in FILES})

    def test_writing_again_changes_nothing(self):
        with tempfile.TemporaryDirectory() as name:
            folder = Path(name)
            make_vault(folder)
            before = self._state(folder)
            self.assertEqual(make_vault(folder), "")
            self.assertEqual(self._state(folder), before)

    def test_a_changed_file_is_written_again(self):
        with tempfile.TemporaryDirectory() as name:
            folder = Path(name)
            make_vault(folder)
            for store in FILES:
                (folder / store.file).write_bytes(b"changed")
            self.assertEqual(make_vault(folder),
                             "".join(f"{folder / store.file}\n" for store in FILES))
            for store in FILES:
                self.assertEqual(store.held(folder), store.held(VAULT), store.file)

    def _state(self, folder):
        return {path: (path.stat().st_mtime_ns, path.stat().st_ino, path.read_bytes())
                for path in folder.rglob("*") if path.is_file()}


class Contents(unittest.TestCase):
    """The vault holds what makes it worth importing, and nothing that is somebody's."""

    def test_it_holds_what_is_hard_to_carry(self):
        text = "\0".join(
            value for entry in entries.VAULT for value in vars(entry).values()
            if isinstance(value, str))
        for what, pattern in {
                "several lines": r"\w\n\w", "an empty line": r"\n\n", "a comma": ",",
                "a double quote": '"', "a semicolon": ";", "an umlaut": "ü", "Chinese": "漢",
                "Korean": "비", "an emoji": "🐟", "joined emoji": "\u200d", "Hebrew": "ש",
                "Arabic": "م", "a combining accent": "e\u0301", "a backslash": r"\\",
                "a leading blank": r"\0 ", "a trailing blank": r" \0", "an empty field": r"\0\0",
                "a very long password": r"[^\0\n]{1000}"}.items():
            with self.subTest(what):
                self.assertRegex(text, pattern)
        self.assertTrue(any(entry.title is None for entry in entries.VAULT))
        self.assertTrue(any(re.search(r":\d+/", url) for url in self._urls()))

    def test_keys_are_unique(self):
        keys = [entry.key for entry in entries.VAULT]
        self.assertEqual(len(set(keys)), len(keys))

    def test_hosts_are_reserved_for_examples(self):
        for url in [*self._urls(), entries.NEVER_SAVED]:
            host = re.sub(r"^\w+://", "", url).partition("/")[0]
            self.assertRegex(host, r"^([\w.-]+\.example|\[2001:db8::1\])(:\d+)?$")

    def test_browsers_hold_no_secret_in_the_clear(self):
        for store in STORES:
            if store.source in ("chrome", "firefox"):
                data = (VAULT / store.file).read_bytes()
                for entry in entries.VAULT:
                    password = getattr(entry, "password", "")
                    if len(password) > 1:
                        self.assertNotIn(password.encode(), data, f"{entry.key} in {store.file}")

    def _urls(self):
        return [url for entry in entries.VAULT for url in getattr(entry, "urls", ())]


if __name__ == "__main__":
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    TOOL = shlex.split(sys.argv.pop(1))
    unittest.main()
