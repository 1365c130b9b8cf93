"""The files that products write today, as each quotes them, and what a faithful reading gives.

An entry that a product keeps in another way than the vault does stands in its file in that way: KeePass
has nothing but logins. What a file has no place for is not written.
"""
import json
import zipfile
from collections.abc import Callable
from dataclasses import dataclass, replace
from urllib.parse import urlsplit

from . import dashlane, keepass, keepassxc, lastpass, records
from .addresses import origin, website
from .entries import VAULT, Card, Login, Note
from .texts import quoted, quoted_if_needed

ADDED = 1_600_000_000  # when entries were made and changed, as far as the vault does not say


@dataclass(frozen=True)
class Layout:
    """A file; `row(entry)` gives the cells of an entry, or None if the product does not export it, and
    `kept(entry)` the entry as the file holds it."""
    layout: str
    file: str
    header: str
    row: Callable
    kept: Callable = lambda entry: entry
    quotes: Callable = quoted_if_needed
    end: str = "\n"
    has_last_end: bool = True

    def write(self, folder):
        path, data = folder / self.file, self.contents()
        path.parent.mkdir(parents=True, exist_ok=True)
        if path.exists() and path.read_bytes() == data:
            return False
        path.write_bytes(data)
        return True

    def held(self, folder):
        return (folder / self.file).read_bytes()

    def contents(self):
        rows = [self.row(entry) for entry in VAULT]
        lines = [",".join(map(self.quotes, row)) for row in rows if row is not None]
        header = [",".join(map(self.quotes, self.header.split(",")))] if self.header else []
        return (self.end.join(header + lines) + (self.end if self.has_last_end else "")).encode()

    def expected(self):
        kept = [self.kept(entry) for entry in VAULT if self.row(entry) is not None]
        return records.lists(map(_faithful, filter(None, kept)))


@dataclass(frozen=True)
class Sample(Layout):
    """A file that a source reads too, which is written there."""
    source: Callable = None

    def contents(self):
        return self.source(VAULT)

    def expected(self):
        lists = super().expected()
        if self.source is dashlane.contents:  # whose header is a row like any other
            title, url, username, password, note = dashlane.HEADER
            header = records.password("", username, password, url, service=title, note=note)
            lists["passwords"].insert(0, header.record)
        return lists


@dataclass(frozen=True)
class Archive:
    """A ZIP archive of such files, in the order in which they are read."""
    layout: str
    file: str
    members: tuple

    def write(self, folder):
        path, contents = folder / self.file, self.contents()
        path.parent.mkdir(parents=True, exist_ok=True)
        if path.exists() and _unpacked(path) == contents:
            return False
        with zipfile.ZipFile(path, "w", zipfile.ZIP_DEFLATED) as archive:
            for name, data in contents.items():
                archive.writestr(zipfile.ZipInfo(name), data, zipfile.ZIP_DEFLATED)
        return True

    def held(self, folder):
        return _unpacked(folder / self.file)

    def contents(self):
        return {member.file: member.contents() for member in self.members}

    def expected(self):
        lists = [member.expected() for member in self.members]
        return {kind: [record for each in lists for record in each[kind]] for kind in lists[0]}


def _unpacked(path):
    """What the members hold, by name; however they are packed."""
    try:
        with zipfile.ZipFile(path) as archive:
            return {name: archive.read(name) for name in archive.namelist()}
    except zipfile.BadZipFile:
        return {}


@dataclass(frozen=True)
class SafariCards(Layout):
    """The cards of Safari, which keeps neither CVV nor PIN nor note."""

    def contents(self):
        cards = [{"card_number": entry.number, "card_name": entry.title, "cardholder_name": entry.holder,
                  "card_expiration_month": entry.month, "card_expiration_year": entry.year}
                 for entry in VAULT if isinstance(entry, Card)]
        return _json({"metadata": {"browser_name": "Safari", "browser_version": "18.2",
                                   "data_type": "payment_cards", "schema_version": 1},
                      "payment_cards": cards}).encode()


def _faithful(entry):
    if isinstance(entry, Login):
        return records.password(entry.key, entry.username or "", entry.password,
                                "".join(entry.urls[:1]), service=entry.title or None,
                                note=entry.note or None, changed=entry.changed)
    if isinstance(entry, Note):
        return records.note(entry.key, entry.title or "", entry.text)
    return records.card(entry.key, entry.number, entry.title, entry.holder, entry.cvv, entry.pin,
                        entry.note, 0, entry.month, entry.year)


def _title(entry):
    return entry.title or ""


def _url(entry):
    return "".join(entry.urls[:1])


def _favourite(entry, yes, no):
    return yes if getattr(entry, "is_favourite", False) else no


def _json(value):
    return json.dumps(value, ensure_ascii=False, separators=(",", ":"))


def _backslashed(cell):
    escaped = cell.replace("\\", "\\\\").replace('"', '\\"')
    return f'"{escaped}"'


def _bare_if_empty(cell):
    return _backslashed(cell) if cell else ""


# ---------------------------------------------------------------- what is kept of an entry

def _unchanged(entry):
    """Without the time of the password's change."""
    return replace(entry, changed=None) if isinstance(entry, Login) else entry


def _as_login(entry):
    """As a product keeps it that has logins alone."""
    if isinstance(entry, Login):
        return _unchanged(entry)
    if isinstance(entry, Card):
        return Login(key=entry.key, title=entry.title, username=entry.holder, password=entry.pin,
                     note=keepass.card_details(entry))
    return Login(key=entry.key, title=entry.title, username="", password="", note=entry.text)


def _as_keepass(entry):
    """With the line ends of Windows."""
    login = _as_login(entry)
    return replace(login, note=login.note.replace("\n", "\r\n"))


def _without_pin(entry):
    return replace(entry, pin="") if isinstance(entry, Card) else _unchanged(entry)


def _note_if_nothing_else(*fields):
    """As a product keeps it whose files do not tell an empty login from a note."""
    def kept(entry):
        if isinstance(entry, Login) and not any(getattr(entry, field) for field in fields):
            return Note(key=entry.key, title=entry.title, text=entry.note)
        return _unchanged(entry)
    return kept


# ---------------------------------------------------------------- the products

def _lastpass(entry):
    cells = lastpass._cells(entry)
    url = cells[0] or "http://"
    return (url, *cells[1:3], "", *cells[3:])


def _dashlane_credentials(entry):
    if isinstance(entry, Login):
        return (entry.username or "", entry.second_username, "", _title(entry), entry.password,
                entry.note, _url(entry), entry.group, "")
    return None


def _dashlane_notes(entry):
    return (_title(entry), entry.text, entry.group) if isinstance(entry, Note) else None


def _dashlane_payments(entry):
    if isinstance(entry, Card):
        return ("payment_card", entry.holder, "", entry.number, entry.cvv, f"{entry.month:02}",
                str(entry.year), "", "", "US", "", entry.note, entry.title)
    return None


def _dashlane_old(entry):
    """A card becomes a note of its cells, of which the first is no identifier; a note is too short."""
    if isinstance(entry, Card):
        _, title, *cells = dashlane._cells(entry)
        return Note(key=entry.key, title=title, text="\n".join(filter(None, cells)))
    return _unchanged(entry) if isinstance(entry, Login) else None


def _keepassxc(entry):
    return (*keepassxc._cells(entry), "", "0", "2024-01-02T03:04:05Z", "2023-01-02T03:04:05Z")


def _onepassword8(entry):
    if isinstance(entry, Login):
        return (_title(entry), _url(entry), entry.username or "", entry.password, "",
                _favourite(entry, "true", "false"), "false", entry.group, entry.note)
    return None


def _onepassword_mac(entry):
    made = str(ADDED)
    tags = '{(\n    "' + entry.group + '"\n)}' if entry.group else "{(\n)}"
    if isinstance(entry, Login):
        return ("", made, "", entry.note, "", entry.password, "", "Default", tags, _title(entry),
                "Login", _url(entry), entry.username or "", "", "")
    if isinstance(entry, Card):
        return (entry.holder, made, f"{entry.month:02}/{entry.year}", entry.note, entry.number, "",
                entry.pin, "Default", tags, entry.title, "Credit Card", "", "", entry.cvv, "")
    return ("", made, "", entry.text, "", "", "", "Default", tags, _title(entry), "Secure Note", "",
            "", "", "")


def _onepassword_windows(entry):
    if isinstance(entry, Card):
        return None  # its date does not come out
    password = getattr(entry, "password", "")
    username = getattr(entry, "username", "") or ""
    note = entry.note if isinstance(entry, Login) else entry.text
    return (entry.key, _title(entry), username, password, _url(entry) if isinstance(entry, Login) else "",
            "", "Default", "Default", entry.group, note)


def _chromium(entry):
    url = website(entry)
    return url and (urlsplit(url).hostname, url, entry.username or "", entry.password, entry.note)


def _as_chromium(entry):
    return replace(_unchanged(entry), title=urlsplit(website(entry)).hostname)


def _firefox(entry):
    url = website(entry)
    changed = str((ADDED if entry.changed is None else entry.changed) * 1000) if url else ""
    return url and (origin(url), entry.username or "", entry.password, None, origin(url),
                    f"{{{entry.key}}}", f"{ADDED}000", f"{ADDED}000", changed)


def _as_firefox(entry):
    return replace(entry, title=None, note="", urls=(origin(website(entry)),),
                   changed=ADDED if entry.changed is None else entry.changed)


def _quoted_unless_null(cell):
    return "" if cell is None else quoted(cell)


def _apple(entry):
    if isinstance(entry, Login):
        return (_title(entry), _url(entry), entry.username or "", entry.password, entry.note, "")
    return None


def _card_alone(entry):
    return entry if isinstance(entry, Card) else None


def _safari_card(entry):
    return replace(entry, cvv="", pin="", note="")


def _bitwarden(entry):
    if isinstance(entry, Card):
        return None
    favourite = _favourite(entry, "1", "")
    if isinstance(entry, Note):
        return (entry.group, favourite, "note", _title(entry), entry.text, "", "0", "", "", "", "")
    return (entry.group, favourite, "login", _title(entry), entry.note, "", "0", ",".join(entry.urls),
            entry.username or "", entry.password, "")


def _as_bitwarden(entry):
    """Addresses with commas cannot be told from several."""
    if isinstance(entry, Login) and any("," in url for url in entry.urls):
        return replace(_unchanged(entry), urls=(",".join(entry.urls),))
    return _unchanged(entry)


def _quoted_as_papaparse(cell):
    return quoted(cell) if cell != cell.strip(" ") else quoted_if_needed(cell)


def _proton(entry):
    times = (str(ADDED), str(ADDED), "Personal")
    if isinstance(entry, Login):
        return ("login", _title(entry), ", ".join(entry.urls), "", entry.username or "", entry.password,
                entry.note, "", *times)
    if isinstance(entry, Note):
        return ("note", _title(entry), "", "", "", "", entry.text, "", *times)
    contents = {"cardholderName": entry.holder, "cardType": 1, "number": entry.number,
                "verificationNumber": entry.cvv, "expirationDate": f"{entry.year}-{entry.month:02}",
                "pin": entry.pin, "note": entry.note}
    return ("creditCard", entry.title, "", "", "", "", _json(contents), "", *times)


def _nordpass(entry):
    rest = ("",) * 8  # of a person
    more = _json(list(getattr(entry, "urls", ())[1:]))
    if isinstance(entry, Login):
        return (_title(entry), _url(entry), "" if more == "[]" else more, entry.username or "",
                entry.password, entry.note, *("",) * 6, entry.group, *rest, "password", "")
    if isinstance(entry, Note):
        return (_title(entry), "", "", "", "", entry.text, *("",) * 6, entry.group, *rest, "note", "")
    return (entry.title, "", "", "", "", entry.note, entry.holder, entry.number, entry.cvv, entry.pin,
            f"{entry.month:02}/{entry.year % 100:02}", "", entry.group, *rest, "credit_card", "")


def _as_nordpass(entry):
    """Years have two digits."""
    return replace(entry, year=2000 + entry.year % 100) if isinstance(entry, Card) else _unchanged(entry)


def _guarded(cell):
    return "'" + cell if cell[:1] in ("@", "'", "=", "+", "-") and cell else cell


def _roboform(entry):
    if isinstance(entry, Card):
        return None
    folder = "/" + entry.group
    if isinstance(entry, Note):
        return tuple(map(_guarded, (_title(entry), "", "", "", "", entry.text, folder)))
    second = (f"Second user$,,,txt,{entry.second_username}",) if entry.second_username else ()
    return tuple(map(_guarded, (_title(entry), _url(entry), _url(entry), entry.username or "",
                                entry.password, entry.note, folder, *second)))


def _strongbox(entry):
    if isinstance(entry, Login):
        return (_title(entry), entry.username or "", entry.second_username, entry.password,
                _url(entry), "", entry.note)
    return None


def _buttercup(entry):
    if isinstance(entry, Login):
        return ("entry", "g-" + entry.group, entry.group, "", _title(entry), entry.username or "",
                entry.password, _url(entry), "e-" + _title(entry), entry.note)
    return None


def _enpass(entry):
    if isinstance(entry, Note):
        return _title(entry), entry.text
    if isinstance(entry, Card):
        pairs = (("Cardholder", entry.holder), ("Number", entry.number), ("*CVC", entry.cvv),
                 ("*PIN", entry.pin), ("Expiry date", f"{entry.month:02}/{entry.year}"))
    else:
        pairs = (("Username", entry.username), ("E-mail", entry.second_username),
                 ("*Password", entry.password), ("URL", _url(entry)))
    return (_title(entry), *(cell for pair in pairs if pair[1] for cell in pair), entry.note)


def _keeper(entry):
    if isinstance(entry, Card):
        return None
    if isinstance(entry, Note):
        return entry.group, _title(entry), "", "", "", entry.text, ""
    second = ("second user", entry.second_username) if entry.second_username else ()
    return (entry.group, _title(entry), entry.username or "", entry.password, _url(entry), entry.note,
            "", *second)


def _other(entry):
    if isinstance(entry, Login):
        return (_title(entry), _url(entry), entry.username or "", entry.password, entry.note)
    return None


NOTE_UNLESS_LOGIN = _note_if_nothing_else("username", "password", "urls")

DASHLANE = (
    Layout("dashlane-csv", "Dashlane/credentials.csv",
           "username,username2,username3,title,password,note,url,category,otpUrl",
           _dashlane_credentials, _unchanged, end="\r\n", has_last_end=False),
    Layout("dashlane-csv", "Dashlane/securenotes.csv", "title,note,category", _dashlane_notes,
           end="\r\n", has_last_end=False),
    Layout("dashlane-csv", "Dashlane/payments.csv",
           "type,account_name,account_holder,cc_number,code,expiration_month,expiration_year,"
           "routing_number,account_number,country,issuing_bank,note,name", _dashlane_payments,
           _without_pin, end="\r\n", has_last_end=False),
)

LAYOUTS = (
    Sample("lastpass-csv", "LastPass/export.csv", "", lambda entry: entry, _without_pin,
           source=lastpass.contents),
    Layout("lastpass-csv", "LastPass/eight-columns.csv",
           "url,username,password,totp,extra,name,grouping,fav", _lastpass, _without_pin, end="\r\n"),
    Sample("dashlane-positional-csv", "Dashlane/export.csv", "", lambda entry: entry, _dashlane_old,
           source=dashlane.contents),
    *DASHLANE,
    Archive("dashlane-zip", "Dashlane/dashlane-credential-export.zip", (
        *(replace(layout, file=layout.file.removeprefix("Dashlane/")) for layout in DASHLANE),
        Layout("", "ids.csv", "type,number,name,issue_date,expiration_date,place_of_issue,state",
               lambda entry: None),
        Layout("", "personalInfo.csv",
               "type,title,first_name,middle_name,last_name,login,date_of_birth,place_of_birth,email,"
               "email_type,item_name,phone_number,address,country,state,city,zip", lambda entry: None))),
    Sample("keepass-csv", "KeePass/export.csv", "", lambda entry: entry, _as_keepass,
           source=keepass.contents),
    Sample("keepassxc-csv", "KeePassXC/export.csv", "", lambda entry: entry, _as_login,
           source=keepassxc.contents),
    Layout("keepassxc-csv", "KeePassXC/ten-columns.csv",
           "Group,Title,Username,Password,URL,Notes,TOTP,Icon,Last Modified,Created", _keepassxc,
           _as_login, quoted),
    Layout("1password8-csv", "OnePassword/version-8.csv",
           "Title,Url,Username,Password,OTPAuth,Favorite,Archived,Tags,Notes", _onepassword8,
           _unchanged),
    Layout("1password7-mac-csv", "OnePassword/version-7-mac.csv",
           "cardholder name(cardholder),Created Date,expiry date(expiry),Notes,number(ccnum),Password,"
           "PIN(pin),Scope,Tags,Title,Type,URL,Username,verification number(cvv),", _onepassword_mac,
           _unchanged, _bare_if_empty, has_last_end=False),
    Layout("1password7-windows-csv", "OnePassword/version-7-windows.csv",
           "UUID,TITLE,USERNAME,PASSWORD,URL,URLS,SCOPE,AUTOSUBMIT,TAGS,NOTES", _onepassword_windows,
           NOTE_UNLESS_LOGIN, _backslashed, "\r\n"),
    Layout("chromium-csv", "Chrome/passwords.csv", "name,url,username,password,note", _chromium,
           _as_chromium),
    Layout("firefox-csv", "Firefox/passwords.csv",
           "url,username,password,httpRealm,formActionOrigin,guid,timeCreated,timeLastUsed,"
           "timePasswordChanged", _firefox, _as_firefox, _quoted_unless_null, "\r\n", False),
    Layout("apple-csv", "Apple/Passwords.csv", "Title,URL,Username,Password,Notes,OTPAuth", _apple,
           _unchanged),
    Archive("safari-zip", "Apple/Safari.zip", (
        Layout("", "Passwords.csv", "Title,URL,Username,Password,Notes,OTPAuth", _apple, _unchanged),
        SafariCards("", "PaymentCards.json", "", _card_alone, _safari_card))),
    Layout("bitwarden-csv", "Bitwarden/export.csv",
           "folder,favorite,type,name,notes,fields,reprompt,login_uri,login_username,login_password,"
           "login_totp", _bitwarden, _as_bitwarden, _quoted_as_papaparse, "\r\n", False),
    Layout("protonpass-csv", "ProtonPass/export.csv",
           "type,name,url,email,username,password,note,totp,createTime,modifyTime,vault", _proton,
           _unchanged, _quoted_as_papaparse, "\r\n", False),
    Layout("nordpass-csv", "NordPass/export.csv",
           "name,url,additional_urls,username,password,note,cardholdername,cardnumber,cvc,pin,"
           "expirydate,zipcode,folder,full_name,phone_number,email,address1,address2,city,country,state,"
           "type,custom_fields", _nordpass, _as_nordpass),
    Layout("roboform-csv", "RoboForm/export.csv", "Name,Url,MatchUrl,Login,Pwd,Note,Folder,RfFieldsV2",
           _roboform, _note_if_nothing_else("username", "password"), end="\r\n"),
    Layout("strongbox-csv", "Strongbox/export.csv", "Title,Username,Email,Password,URL,OTPAuth,Notes",
           _strongbox, _unchanged),
    Layout("buttercup-csv", "Buttercup/export.csv",
           "!type,!group_id,!group_name,!group_parent,title,username,password,URL,id,Notes",
           _buttercup, _unchanged),
    Layout("enpass-csv", "Enpass/export.csv", "", _enpass, NOTE_UNLESS_LOGIN, quoted),
    Layout("keeper-csv", "Keeper/export.csv", "", _keeper, NOTE_UNLESS_LOGIN, quoted),
    Layout("generic-csv", "Other/export.csv", "site,website,user,pass,comment", _other, _unchanged),
)

# Whose file no header tells.
WITHOUT_HEADER = {"dashlane-positional-csv", "enpass-csv", "keeper-csv"}
