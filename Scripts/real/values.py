"""What is put into every product: values that files are apt to lose."""
import dataclasses
import re

VALUES = (
    'a "quoted" word', '"', '""', '", "', '"begins and ends"', "it's", "ends in a backslash\\", '\\"', "\\\\n",
    "a,b", "a;b", "a\tb", ",;\t", "two\nlines", "two\r\nlines", "two\rlines", "\nan empty line before",
    "and behind\n\n", "\n", " blanks at the ends ", "\ttabs at the ends\t", "\u00a0no break\u00a0", "   ",
    "=1+1", "+1", "-1", "@sum", "'=1", "#", "<b>&amp;</b>", "]]>", "<!--", "&#13;&quot;", "%41%00", "${HOME}", "{TITLE}",
    "{REF:P@T:Mail}", "null", "0", "001", "1e3", "2025-03-29", "Ж漢字かな한국어", "שלום", "\u202eleft", "\ufeffa mark",
    "\ufffd\uffee", "e\u0301 n\u0303 \u1e0b\u0323", "😀👩‍👩‍👧‍👦🇩🇪", "line\u2028separator", "\x01\x07\x1b control", "\x7f\x85",
    "http://", "NoteType:Credit Card", "x" * 4_095 + '"', "long, \"line\"\n" * 20_000,
)

KEY = re.compile(r"//n(\d+)\.example\.org")


@dataclasses.dataclass
class Entry:
    """What is put in. The number in the URL tells which entry a record is."""
    number: int
    title: str = ""
    username: str = ""
    password: str = ""
    note: str = ""
    rest: str = "/"  # of the URL, behind the host

    @property
    def url(self):
        return f"https://n{self.number}.example.org{self.rest}"


def entries(values=VALUES):
    """Every value in every field, each time beside others, and some entries that lack a field."""
    count = len(values)
    all_of_them = [Entry(number, values[(number + 1) % count], values[(number + 2) % count], value,
                         values[(number + 3) % count], "/a?b=1&c=%22,%20;#d") for number, value in enumerate(values)]
    return all_of_them + [Entry(count, "", "ann", "p"), Entry(count + 1, "No name", "", "p"),
                          Entry(count + 2, "No password", "ann", ""), Entry(count + 3)]


def with_passwords():
    """Those that browsers take."""
    return [entry for entry in entries() if entry.password]
