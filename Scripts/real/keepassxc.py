"""KeePassXC: databases made of XML and by the command line, exported as CSV and XML."""
import base64
import datetime
import re
import subprocess
from xml.sax.saxutils import escape

from real.comparison import ANY, Export
from real.running import Unavailable, surroundings
from real.values import VALUES, Entry, entries

NAME = "KeePassXC"
PACKAGES = ("keepassxc",)
PROGRAMS = ("keepassxc-cli",)

ROOT, GROUP = 'Da"ta, base;', 'Work, "A"; <b>'
CREATED, MODIFIED, USED, EXPIRES = (f"20{year}-01-02T03:04:05Z" for year in (20, 21, 22, 30))
OTP = "otpauth://totp/Mail:ann?secret=JBSWY3DPEHPK3PXP&period=30&digits=6&issuer=Mail"
LONGEST = 50_000  # of what the command line takes


class Database:
    """A database, which a key file alone opens."""

    def __init__(self, folder, name):
        self.folder, self.path, self.key = folder, folder / f"{name}.kdbx", folder / f"{name}.key"
        self.key.write_text("the key of a database of invented entries")

    def run(self, command, *words, options=(), given=""):
        """What the program prints."""
        new = command in ("import", "db-create")
        key = ["--set-key-file", self.key, "--decryption-time", "100"] if new else \
            ["--key-file", self.key, "--no-password"]
        ran = subprocess.run(["keepassxc-cli", command, "--quiet", *key, *options, "--", *words], check=False,
                             input=given.encode(), capture_output=True,
                             env=surroundings(self.folder, QT_QPA_PLATFORM="offscreen"))
        if ran.returncode != 0:
            raise Unavailable(f"keepassxc-cli {command} failed: {ran.stderr.decode()[:200]}")
        return ran.stdout

    def put(self, command, path, entry):
        self.run(command, self.path, path, given=entry.password + "\n",
                 options=[f"--username={entry.username}", f"--url={entry.url}", f"--notes={entry.note}",
                          "--password-prompt"])

    def exported(self, form):
        path = self.path.with_suffix(f".{form}")
        path.write_bytes(self.run("export", self.path, options=["--format", form]))
        return path


def version():
    return subprocess.run(["keepassxc-cli", "--version"], check=True, text=True, stdout=subprocess.PIPE).stdout.strip()


def exports(folder):
    yield from of_xml(Database(folder, "imported"))
    yield from of_command_line(Database(folder, "typed"))


def kept(text):
    """What the product keeps of a text: its database is XML, which knows one line end and no control characters."""
    return re.sub(r"[\x00-\x08\x0b\x0c\x0e-\x1f\x7f]", "", text.replace("\r\n", "\n").replace("\r", "\n"))


def kept_secret(text):
    """And of a password, which is kept as bytes."""
    return text.removeprefix("\ufeff")


def fields(entry):
    return {"service": kept(entry.title) or None, "url": kept(entry.url), "username": kept(entry.username),
            "password": kept_secret(entry.password), "note": kept(entry.note) or None}


def fields_of_xml(entry):
    return fields(entry) | {"password": kept(kept_secret(entry.password))}


def of_xml(database):
    """Entries that a file of XML holds, with all that the command line cannot give them."""
    put = entries([without_controls(value) for value in VALUES])
    source = database.folder / "source.xml"
    with open(source, "w", encoding="utf-8", newline="") as file:
        file.write(f"<KeePassFile><Meta/><Root><Group><UUID>{uuid(1)}</UUID><Name>{escaped(ROOT)}</Name>")
        file.writelines(entry_of_xml(entry) for entry in put if entry.number % 2 == 0)
        file.write(f"<Entry><UUID>{uuid(2)}</UUID></Entry><Group><UUID>{uuid(3)}</UUID><Name>{escaped(GROUP)}</Name>")
        file.writelines(entry_of_xml(entry) for entry in put if entry.number % 2 == 1)
        file.write("</Group></Group></Root></KeePassFile>")
    database.run("import", source, database.path)
    rows, elements = {}, {}
    for entry in put:
        group = {"folder Group": [f"{ROOT}/{GROUP}" if entry.number % 2 else ROOT]}
        rows[entry.number] = fields(entry) | {"extras": group | {
            # The product makes the address of one-time passwords anew.
            "modifiedAt Last Modified": [MODIFIED], "createdAt Created": [CREATED], "oneTimePassword TOTP": ANY}}
        elements[entry.number] = fields_of_xml(entry) | {"extras": group | {
            'customSecret PIN, "x"': [kept(kept_secret(entry.password))] if entry.password else None,
            "oneTimePassword otp": [OTP], "tag Tags": ["blue", 'red "1"'], "furtherURL OverrideURL": ["cmd://open"],
            "createdAt CreationTime": [CREATED], "modifiedAt LastModificationTime": [MODIFIED],
            "lastUsedAt LastAccessTime": [USED], "other ExpiryTime": [EXPIRES]}}
    yield Export("keepassxc-csv", database.exported("csv"), rows, {"empty": 1})
    yield Export("keepass-xml", database.exported("xml"), elements, {"empty": 1})


def without_controls(text):
    """A text that XML can hold."""
    return re.sub(r"[\x00-\x08\x0b\x0c\x0e-\x1f]", "", text)


def uuid(number):
    return base64.b64encode(number.to_bytes(16, "big")).decode()


def escaped(text):
    return escape(text, {"\r": "&#13;"})


def entry_of_xml(entry):
    secret = ' ProtectInMemory="True"'
    strings = [("Title", entry.title, ""), ("UserName", entry.username, ""), ("Password", entry.password, secret),
               ("URL", entry.url, ""), ("Notes", entry.note, ""), ('PIN, "x"', entry.password, secret),
               ("otp", OTP, secret)]
    return (f"<Entry><UUID>{uuid(1000 + entry.number)}</UUID><OverrideURL>cmd://open</OverrideURL>"
            f"<Tags>red \"1\";blue</Tags><Times><CreationTime>{CREATED}</CreationTime>"
            f"<LastModificationTime>{MODIFIED}</LastModificationTime><LastAccessTime>{USED}</LastAccessTime>"
            f"<ExpiryTime>{EXPIRES}</ExpiryTime><Expires>True</Expires></Times>"
            + "".join(f"<String><Key>{key}</Key><Value{how}>{escaped(value)}</Value></String>"
                      for key, value, how in strings) + "</Entry>")


def of_command_line(database):
    """Entries that were typed, one of them edited and one thrown away."""
    database.run("db-create", database.path)
    database.run("mkdir", database.path, GROUP)
    begin = datetime.datetime.now(datetime.timezone.utc).replace(microsecond=0)
    # A path ends at a slash, a typed password at a line end, and in a typed note \\n is a line feed.
    put = [Entry(entry.number, entry.title.replace("/", "|")[:LONGEST], entry.username[:LONGEST],
                 re.sub(r"[\r\n]", " ", entry.password[:LONGEST]), entry.note[:LONGEST].replace("\\n", "|"), entry.rest)
           for entry in entries() if entry.title]
    for entry in put:
        database.put("add", f"{GROUP}/{entry.title}", entry)
    edited, thrown_away = put[0], put[1]
    edited.note += "edited"
    database.put("edit", f"{GROUP}/{edited.title}", edited)
    database.run("attachment-import", database.path, f"{GROUP}/{edited.title}", "a key", database.key)
    database.run("rm", database.path, f"{GROUP}/{thrown_away.title}")
    shows_what_is_kept(database)

    def is_of_now(times):
        return begin <= time_of(times[0]) <= datetime.datetime.now(datetime.timezone.utc)

    rows, elements = {}, {}
    for entry in put:
        rows[entry.number] = fields(entry) | {"extras": {
            "folder Group": [f"Passwords/{'Recycle Bin' if entry is thrown_away else GROUP}"],
            "modifiedAt Last Modified": is_of_now, "createdAt Created": is_of_now}}
        elements[entry.number] = fields_of_xml(entry) | {"extras": {
            "folder Group": [f"Passwords/{GROUP}"], "modifiedAt LastModificationTime": is_of_now,
            "createdAt CreationTime": is_of_now, "lastUsedAt LastAccessTime": is_of_now}}
    del elements[thrown_away.number]
    yield Export("keepassxc-csv", database.exported("csv"), rows)
    yield Export("keepass-xml", database.exported("xml"), elements, {"trashed": 1},
                 unread={"old versions of entries": 1, "attachments": 1})


def time_of(text):
    """A time as the files hold it: as a date, or as the seconds since the year 1."""
    if text.endswith("Z"):
        return datetime.datetime.fromisoformat(text.replace("Z", "+00:00"))
    seconds = int.from_bytes(base64.b64decode(text), "little")
    return datetime.datetime(1, 1, 1, tzinfo=datetime.timezone.utc) + datetime.timedelta(seconds=seconds)


def shows_what_is_kept(database):
    """Holds `kept` against what the product shows of its database."""
    path, note = f"{GROUP}/probe", "".join(value for value in VALUES if re.search(r"[\r\x00-\x08]", value))
    database.put("add", path, Entry(0, note=note))
    shown = database.run("show", database.path, path, options=["--attributes", "Notes"]).decode()
    database.run("rm", database.path, path)
    database.run("rm", database.path, "Recycle Bin/probe")
    if shown != kept(note) + "\n":
        raise Unavailable(f"this version keeps {note!r} as {shown!r}")
