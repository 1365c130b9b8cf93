"""LastPass: CSV with a header, quoted where needed. Every entry has its row.

The extra text of a login is left out. A secure note is a row with the address "http://sn", and so is a
card, whose fields stand in the extra text under the names of a template.
"""
import calendar

from . import records
from .entries import Card, Login
from .texts import doubled, quoted_if_needed

HEADER = "url,username,password,extra,name,grouping,fav"


def contents(vault):
    lines = [HEADER] + [",".join(quoted_if_needed(cell) for cell in _cells(entry)) for entry in vault]
    return "".join(line + "\n" for line in lines).encode()


def arrivals(vault):
    for entry in vault:
        if isinstance(entry, Login):
            url, username, name = "".join(entry.urls[:1]), entry.username or "", entry.title or ""
            if url or username or entry.password or name:
                yield records.password(entry.key, doubled(username), doubled(entry.password),
                                       doubled(url), service=doubled(name))
        elif isinstance(entry, Card):
            yield records.note(entry.key, doubled(entry.title), doubled(_template(entry)))
        elif entry.title or entry.text:
            yield records.note(entry.key, doubled(entry.title or ""), doubled(entry.text))


def _cells(entry):
    if isinstance(entry, Login):
        return ("".join(entry.urls[:1]), entry.username or "", entry.password, entry.note,
                entry.title or "", entry.group, "1" if entry.is_favourite else "0")
    if isinstance(entry, Card):
        return "http://sn", "", "", _template(entry), entry.title, entry.group, "0"
    return ("http://sn", "", "", entry.text, entry.title or "", entry.group,
            "1" if entry.is_favourite else "0")


def _template(card):
    return "\n".join([
        "NoteType:Credit Card", "Language:en-GB", f"Name on Card:{card.holder}", f"Type:{card.brand}",
        f"Number:{card.number}", f"Security Code:{card.cvv}", "Start Date:,",
        f"Expiration Date:{calendar.month_name[card.month]},{card.year}", f"Notes:{card.note}"])
