"""Dashlane: CSV by position, everything quoted: title, address, user name, perhaps a second one,
password, note.

Nobody looks for a header, so this one arrives as a login. A secure note has too few cells to arrive.
A card begins with an identifier in braces; such a row is dropped, even if the identifier is a password.
"""
import re

from . import records
from .entries import Card, Login
from .opaque import identifier
from .texts import doubled, quoted

HEADER = ("Title", "Address", "Login", "Password", "Note")
IDENTIFIER = re.compile(r"\{[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}\}", re.IGNORECASE)


def contents(vault):
    rows = [HEADER] + [_cells(entry) for entry in vault]
    return "".join(",".join(map(quoted, row)) + "\n" for row in rows).encode()


def arrivals(vault):
    yield records.password("", "Login", "Password", "Address", service="Title")
    for entry in vault:
        if isinstance(entry, Login) and not IDENTIFIER.search("".join(_cells(entry))):
            yield records.password(entry.key, doubled(entry.username or ""), doubled(entry.password),
                                   doubled("".join(entry.urls[:1])), service=doubled(entry.title or ""))


def _cells(entry):
    if isinstance(entry, Login):
        second = (entry.second_username,) if entry.second_username else ()
        return (entry.title or "", "".join(entry.urls[:1]), entry.username or "", *second,
                entry.password, entry.note)
    if isinstance(entry, Card):
        return ("{" + identifier("dashlane", entry.key).upper() + "}", entry.title, entry.holder,
                entry.number, entry.cvv, f"{entry.year}-{entry.month:02}", entry.note)
    return entry.title or "", entry.text
