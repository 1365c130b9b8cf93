"""The records that an import hands over, as the tool's JSON shows them."""
from dataclasses import dataclass


@dataclass(frozen=True)
class Arrival:
    """An entry of the vault as it arrives: in one of the three lists, as one record."""
    key: str
    kind: str
    record: dict


def password(key, username, password, url, service=None, color=None, note=None, changed=None):
    return Arrival(key, "passwords", {
        "username": username, "password": password, "url": url, "service": service, "color": color,
        "note": note, "pwdChange": changed})


def note(key, title, content, color=None):
    return Arrival(key, "notes", {"color": color, "title": title, "content": content})


def card(key, number, name, holder, cvv, pin, note, day, month, year):
    return Arrival(key, "cards", {
        "cardNumber": number, "custName": name, "holderName": holder, "cvv": cvv, "pin": pin,
        "note": note, "expirationDay": day, "expirationMonth": month, "expirationYear": year})


def lists(arrivals):
    """What the tool prints for one file: the three lists, each in the order of the file."""
    arrivals = list(arrivals)
    return {kind: [arrival.record for arrival in arrivals if arrival.kind == kind]
            for kind in ("passwords", "notes", "cards")}
