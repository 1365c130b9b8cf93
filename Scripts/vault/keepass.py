"""KeePass: CSV with a header and CR LF, everything quoted, double quotes and backslashes escaped with a
backslash. Every entry is a login.

A quote so escaped arrives doubled, as any other, and a backslash as the two that are written. Comments
are left out, and with them the texts of notes and most of a card.
"""
from . import records
from .entries import Card, Login

HEADER = ("Account", "Login Name", "Password", "Web Site", "Comments")


def contents(vault):
    rows = [HEADER] + [_cells(entry) for entry in vault]
    return "".join(",".join(map(_escaped, row)) + "\r\n" for row in rows).encode()


def arrivals(vault):
    for entry in vault:
        account, username, password, url, _ = map(_arriving, _cells(entry))
        yield records.password(entry.key, username, password, url, service=account)


def card_details(card):
    """What a user who keeps cards among logins writes down beside the holder and the PIN."""
    return "\n".join([f"{card.brand} {card.number}", f"CVV {card.cvv}",
                      f"valid until {card.day}.{card.month}.{card.year}", card.note])


def _cells(entry):
    if isinstance(entry, Login):
        return (entry.title or "", entry.username or "", entry.password, "".join(entry.urls[:1]),
                entry.note)
    if isinstance(entry, Card):
        return entry.title, entry.holder, entry.pin, "", card_details(entry)
    return entry.title or "", "", "", "", entry.text


def _escaped(cell):
    text = cell.replace("\\", "\\\\").replace('"', '\\"').replace("\n", "\r\n")
    return f'"{text}"'


def _arriving(cell):
    return cell.replace("\\", "\\\\").replace('"', '""')
