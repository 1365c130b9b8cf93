"""What the vault holds. Everything in it is invented: the people, the domains, the numbers."""
from dataclasses import dataclass


@dataclass(frozen=True, kw_only=True)
class Login:
    key: str  # names the entry among the others; no product sees it
    title: str | None  # None: the entry has no title
    username: str | None  # None: nothing but a password
    password: str
    urls: tuple = ()
    note: str = ""
    second_username: str = ""
    group: str = ""
    is_favourite: bool = False
    color: int = 0
    changed: int | None = None


@dataclass(frozen=True, kw_only=True)
class Note:
    key: str
    title: str | None
    text: str
    group: str = ""
    is_favourite: bool = False
    color: int = 0


@dataclass(frozen=True, kw_only=True)
class Card:
    key: str
    title: str
    holder: str
    brand: str
    number: str
    cvv: str
    pin: str
    day: int
    month: int
    year: int
    note: str = ""
    group: str = ""


# The user told the browsers never to keep a password for this address.
NEVER_SAVED = "https://never.example"

# No cell may end in a backslash or hold one before a double quote: the CSV files of most products
# cannot tell the two from an escaped quote.
VAULT = (
    Login(key="mail", title="Mail", username="ann.berg@mail.example", password="Violet-Harbor-82",
          urls=("https://mail.example/login",), group="Private", is_favourite=True, color=3,
          changed=1_690_000_000),
    Login(key="bank", title="Bank, main account", username="40711523", password='m9$Qw,7"zP',
          urls=("https://bank.example/session/new",), group="Money", is_favourite=True,
          note='Phone banking: 555-0142\nBranch: "Harbour Street", counter 3\n\nAsk for Mr. Nobody.',
          changed=1_695_000_000),
    Login(key="shop", title="Bücher & mehr", username="ann.berg", password="Kn0bl4uch!",
          urls=("https://shop.example/account?sort=price,name&lang=de#orders",
                "https://checkout.shop.example/"),
          second_username="ann.second@mail.example", group="Shopping"),
    Login(key="umlauts", title="Forum für Gärtner", username="Jürgen Groß", password="Grüße-aus-Köln",
          urls=("https://xn--grten-gra.example/forum",), note="Ärger mit Öl? Übermäßig gießen."),
    Login(key="cjk", title="漢字かな交じり文", username="山田はなこ", password="비밀번호-パスワード-密码",
          urls=("https://kanji.example/ログイン",), note="第一行\n第二行、読点。", color=7),
    Note(key="wifi", title="Wi-Fi at home", group="Home", color=12,
         text='Network: Kranich\nPassword: blue, green & "grey"\nRouter in the hall'),
    Login(key="emoji", title="Photos 📷", username="ann+photos@mail.example",
          password="🐟🐠🐡 swim 👩\u200d👩\u200d👧\u200d👦 🇪🇺", note="👍🏽",
          urls=("https://photos.example/albums/1",), group="Private"),
    Login(key="right-to-left", title="דואר אלקטרוני", username="مستخدم",
          password="סיסמה-123-كلمة", urls=("https://dar.example/mail",),
          note="שלום (hello) مرحبا"),
    # An "e" and a "u" with an accent or dots of their own, which nobody may put together.
    Login(key="combining-accent", title="Cafe\u0301", username="zoe\u0308",
          password="cre\u0300me-bru\u0302le\u0301e", urls=("https://cafe.example/account",)),
    Login(key="semicolons", title="Parts; spares; tools", username="ann;berg", password="one;two;three",
          urls=("https://parts.example/list;page=2",), note="order 1; order 2;\norder 3"),
    Login(key="quotes", title='"Harbour" railway', username='"ann"', password='"Zug"um"Zug"',
          urls=("https://rail.example/tickets",), note='"', group="Travel"),
    Login(key="commas", title=",,,", username="berg, ann", password=",", group="a,b",
          urls=("https://commas.example/a,b",), note=",\n,"),
    Login(key="backslash", title="Office PC", username="EXAMPLE\\ann", password="C:\\new\\table",
          urls=("https://intranet.example:8443/login",), note="Share: \\\\files.example\\ann",
          group="Work"),
    Login(key="port", title="Router", username="admin", password="change-me-not",
          urls=("http://[2001:db8::1]:8080/setup",), group="Home"),
    Login(key="long-password", title="Archive", username="ann", color=-1,
          password="".join(f"{number:03}-Heron." for number in range(128)),
          urls=("https://archive.example/",)),
    Login(key="blanks", title=" Video ", username=" ann.berg", password="  blanks at both ends  ",
          urls=("https://video.example/",), note="\ttab first, blank last "),
    Login(key="no-title", title=None, username="ann.untitled@mail.example", password="Untitled-19",
          urls=("https://untitled.example/",)),
    Login(key="no-username", title="Door", username="", password="4711-0815",
          urls=("https://door.example/open",)),
    Login(key="password-alone", title="Bicycle lock", username=None, password="0000-0000",
          note="the red one"),
    Login(key="no-password", title="Newsletter", username="ann.news@mail.example", password="",
          urls=("https://news.example/read",)),
    Login(key="no-address", title="Old phone", username="ann", password="2580"),
    Login(key="no-scheme", title="Address without a scheme", username="ann.bare",
          password="Bare-Words", urls=("forum.example",)),
    Login(key="no-website", title="File server", username="ann", password="Anonymous-Not",
          urls=("ftp://files.example/pub",), group="Work", changed=0),
    Login(key="note-alone", title=None, username="", password="", note="nothing but this note"),
    # What Dashlane takes for one of its own identifiers.
    Login(key="identifier", title="Device key", username="device-7", group="Work",
          password="{0f8c2d14-1c2d-4b3e-8f40-5A6B7C8D9E01}", urls=("https://devices.example/7",)),
    Card(key="card", title="Everyday card", holder="Ann Berg", brand="Visa",
         number="4111 1111 1111 1111", cvv="123", pin="0000", day=31, month=12, year=2031,
         note="Lost? Call 555-0199.\nKeep the receipt.", group="Money"),
    Card(key="card-umlauts", title="Büro, Reisen", holder='Jürgen "Jo" Groß', brand="Mastercard",
         number="5555555555554444", cvv="007", pin="", day=1, month=2, year=2030),
    Note(key="passport", title="Passport", text="Number: X0000000\nIssued: 2021-04-01\nBy: Nowhere",
         group="Documents", is_favourite=True),
    Note(key="recipe", title="Brötchen 🥐", text="500 g Mehl; 300 ml Wasser\n\n1. Kneten\n2. Backen\n"),
    Note(key="haiku", title="俳句", text="古い池\n蛙が飛び込む\n水の音", color=5),
    Note(key="empty", title="A title alone", text=""),
    Note(key="no-title-note", title=None, text="a text alone, without a title"),
    Note(key="paths", title='Paths "and" quotes',
         text='C:\\Users\\ann\\notes.txt\n"quoted", \'single\''),
    Card(key="card-no-note", title="Weekend card", holder="Zoe\u0301 Nobody", brand="American Express",
         number="3782 822463 10005", cvv="0000", pin="9999", day=0, month=1, year=1999),
)
