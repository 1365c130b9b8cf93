"""Firefox: a profile folder with logins in JSON, and an older one with a database of them. It keeps
the logins of websites, and of an address the origin alone.

User name and password arrive encrypted as they are stored. Notes and titles have no place.
"""
from . import records
from .addresses import origin, website
from .databases import schema
from .entries import NEVER_SAVED
from .opaque import firefox_secret, identifier
from .texts import json_text


def contents(vault):
    logins = [{
        "id": number, "hostname": origin(website(entry)), "httpRealm": None,
        "formSubmitURL": origin(website(entry)), "usernameField": "user", "passwordField": "pass",
        "encryptedUsername": _username(entry, "current"),
        "encryptedPassword": _password(entry, "current"),
        "guid": _guid(entry, "current"), "encType": 1, "timeCreated": 1_680_000_000_000,
        "timeLastUsed": 1_700_000_000_000, "timePasswordChanged": _time(entry.changed),
        "timesUsed": 3, "syncCounter": 1, "everSynced": False, "encryptedUnknownFields": None,
    } for number, entry in enumerate(_kept(vault), 1)]
    return json_text({"nextId": len(logins) + 1, "logins": logins, "potentiallyVulnerablePasswords": [],
                      "dismissedBreachAlertsByLoginGUID": {}, "version": 3}).encode()


def fill_old(database, vault):
    database.executescript(schema("Firefox/signons.sql"))
    for number, entry in enumerate(_kept(vault), 1):
        address = origin(website(entry))
        database.execute(
            f"INSERT INTO moz_logins VALUES ({', '.join('?' * 14)})",
            (number, address, None, address, "user", "pass", _username(entry, "old"),
             _password(entry, "old"), _guid(entry, "old"), 1, 1_300_000_000_000, 1_310_000_000_000,
             _time(entry.changed), 3))
    database.execute("INSERT INTO moz_disabledHosts VALUES (1, ?)", (NEVER_SAVED,))


def arrivals(vault):
    return _arrivals(vault, "current")


def arrivals_old(vault):
    return _arrivals(vault, "old")


def _kept(vault):
    return [entry for entry in vault if website(entry) is not None]


def _arrivals(vault, profile):
    for entry in _kept(vault):
        yield records.password(entry.key, _username(entry, profile), _password(entry, profile),
                               origin(website(entry)))


def _username(login, profile):
    return firefox_secret(login.username or "", profile, login.key, "username")


def _password(login, profile):
    return firefox_secret(login.password, profile, login.key, "password")


def _guid(login, profile):
    return "{" + identifier("firefox", profile, login.key) + "}"


def _time(seconds):
    return 1000 * (1_700_000_000 if seconds is None else seconds)
