"""Tirel: one JSON document with three lists. All that it holds arrives.

It has room for one address, and none for groups, favourites and second user names. A login without a
title or a time of change goes without the member; what is missing elsewhere is an empty text.
"""
from . import records
from .entries import Card, Login, Note
from .texts import json_text_with_escaped_slashes


def contents(vault):
    def of(kind, make):
        return [make(entry) for entry in vault if isinstance(entry, kind)]
    return json_text_with_escaped_slashes(
        {"logins": of(Login, _login), "notes": of(Note, _note), "cards": of(Card, _card)}).encode()


def arrivals(vault):
    for entry in vault:
        if isinstance(entry, Login):
            yield records.password(entry.key, entry.username or "", entry.password,
                                   "".join(entry.urls[:1]), service=entry.title, color=entry.color,
                                   note=entry.note, changed=entry.changed)
        elif isinstance(entry, Note):
            yield records.note(entry.key, entry.title or "", entry.text, color=entry.color)
        else:
            yield records.card(entry.key, entry.number, entry.title, entry.holder, entry.cvv,
                               entry.pin, entry.note, entry.day, entry.month, entry.year)


def _login(login):
    members = {"color": login.color, "custName": login.title, "loginName": login.username or "",
               "note": login.note, "pwd": login.password, "pwdChange": login.changed,
               "url": "".join(login.urls[:1])}
    return {name: value for name, value in members.items() if value is not None}


def _note(note):
    return {"color": note.color, "label": note.title or "", "text": note.text}


def _card(card):
    return {"cardNumber": card.number, "custName": card.title, "holderName": card.holder,
            "cvv": card.cvv, "pin": card.pin, "note": card.note,
            "expirationDate": {"day": card.day, "month": card.month, "year": card.year}}
