"""KeePassXC: CSV with a header, everything quoted. Every entry is a login.

Groups and notes are left out, and with them the texts of notes and most of a card.
"""
from . import records
from .entries import Card, Login
from .keepass import card_details
from .texts import doubled, quoted

HEADER = ("Group", "Title", "Username", "Password", "URL", "Notes")


def contents(vault):
    rows = [HEADER] + [_cells(entry) for entry in vault]
    return "".join(",".join(map(quoted, row)) + "\n" for row in rows).encode()


def arrivals(vault):
    for entry in vault:
        _, title, username, password, url, _ = map(doubled, _cells(entry))
        yield records.password(entry.key, username, password, url, service=title)


def _cells(entry):
    group = "/".join(filter(None, ("Root", entry.group)))
    if isinstance(entry, Login):
        return (group, entry.title or "", entry.username or "", entry.password,
                "".join(entry.urls[:1]), entry.note)
    if isinstance(entry, Card):
        return group, entry.title, entry.holder, entry.pin, "", card_details(entry)
    return group, entry.title or "", "", "", "", entry.text
