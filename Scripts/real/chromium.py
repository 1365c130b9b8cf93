"""Chromium, on a screen of its own: logins put in on its page of passwords, its database and its CSV export."""
import base64
import contextlib
import hashlib
import json
import os
import subprocess

from real.comparison import Export
from real.devtools import browser_of
from real.running import Unavailable, awaited, started, surroundings
from real.values import with_passwords

NAME = "Chromium"
PACKAGES = ("chromium", "openssl", "xdotool", "xvfb")
PROGRAMS = ("chromium", "openssl", "xdotool", "Xvfb")

# What the browser encrypts with where there is no keyring.
KEY = hashlib.pbkdf2_hmac("sha1", b"peanuts", b"saltysalt", 1, 16).hex()
YEAR_1601 = 11_644_473_600  # seconds before 1970


def version():
    ran = subprocess.run(["chromium", "--version"], check=True, text=True, capture_output=True)
    return ran.stdout.split()[1]


@contextlib.contextmanager
def screen():
    """The name of a display that nobody sees."""
    number, told = os.pipe()
    with started(["Xvfb", "-displayfd", str(told), "-screen", "0", "1920x1200x24"], pass_fds=(told,),
                 stderr=subprocess.DEVNULL):
        os.close(told)
        with os.fdopen(number) as line:
            answer = line.readline().strip()
        if not answer:
            raise Unavailable("Xvfb cannot be started")
        yield f":{answer}"


def exports(folder):
    profile = folder / "profiles"
    command = ["chromium", "--no-sandbox", "--password-store=basic", "--disable-gpu", "--no-first-run",
               f"--user-data-dir={profile}"]
    with screen() as display:
        home = surroundings(folder, DISPLAY=display, DBUS_SESSION_BUS_ADDRESS="disabled:")
        with browser_of(command, env=home, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL) as browser:
            browser.open("chrome://password-manager/passwords")
            awaited("the page of passwords", lambda: browser.run("!!chrome.passwordsPrivate?.addPassword"))
            put = with_passwords()
            for entry in put:
                browser.run(f"chrome.passwordsPrivate.addPassword({words_of(entry)})")
            held = awaited("the list of passwords", lambda: listed(browser, len(put)))
            yield Export("chromium-logins", profile / "Default",
                         {entry.number: row_of_database(entry, held[address_of(entry)]) for entry in put},
                         opened=opened, findings={
                             "stillEncrypted password_value": len(put),
                             "stillEncrypted password_notes": sum(bool(entry.note) for entry in put)})
            yield Export("chromium-csv", saved(browser, folder, home),
                         {entry.number: row_of_table(entry) for entry in put})


def words_of(entry):
    return json.dumps({"url": entry.url, "username": entry.username, "password": entry.password, "note": entry.note,
                       "useAccountStore": False})


def listed(browser, count):
    """The times of the browser's logins, by their URLs, once there are so many."""
    logins = browser.run("chrome.passwordsPrivate.getSavedPasswordList()")
    return {login["affiliatedDomains"][0]["url"]: login["creationTime"] for login in logins} \
        if len(logins) == count else None


def address_of(entry):
    """The product keeps of an address what stands before its question mark."""
    return entry.url.partition("?")[0]


def row_of_database(entry, milliseconds):
    def is_of_creation(times):
        return int(times[0]) // 1000 - YEAR_1601 * 1000 == int(milliseconds)

    return {"service": None, "url": address_of(entry), "username": entry.username, "password": entry.password,
            "note": entry.note or None, "pwdChange": int(milliseconds) // 1000,
            "extras": {"createdAt date_created": is_of_creation, "other times_used": ["0"],
                       "other signon_realm": [f"https://n{entry.number}.example.org/"]}}


def row_of_table(entry):
    return {"service": f"n{entry.number}.example.org", "url": address_of(entry), "username": entry.username,
            "password": entry.password, "note": entry.note or None}


def opened(record):
    """Decrypts what the database keeps encrypted."""
    for field in ("password", "note"):
        if record[field]:
            stored = base64.b64decode(record[field])
            ran = subprocess.run(["openssl", "enc", "-d", "-aes-128-cbc", "-K", KEY, "-iv", "20" * 16],
                                 input=stored.removeprefix(b"v10"), capture_output=True, check=True)
            record[field] = ran.stdout.decode()


def saved(browser, folder, home):
    """The browser's own export, whose dialog asks where to."""
    browser.run("chrome.passwordsPrivate.exportPasswords()")

    def press_save():
        subprocess.run(["xdotool", "search", "--onlyvisible", "--name", "Export", "windowfocus", "--sync",
                        "key", "alt+s"], env=home, capture_output=True, check=False, timeout=20)
        return next(folder.glob("*.csv"), None)

    table = awaited("the export", press_save)
    awaited("the end of the export", lambda: table.read_bytes().endswith(b"\n") or None, 10)
    return table
