"""1Password: one JSON object to a line, with a separator line after each.

Web forms and secure notes arrive; folders, cards and passwords without a user name do not. A web form
keeps the first of its addresses and loses its notes, a secure note needs a title. Without a title a web
form has no service.
"""
from . import records
from .entries import Card, Login
from .opaque import identifier
from .texts import json_text_with_escaped_slashes

SEPARATOR = "***00000000-1111-4222-8333-444444444444***"


def contents(vault):
    folders = sorted({entry.group for entry in vault if entry.group})
    items = [_item("folder", "system.folder.Regular", folder, {}, key=folder) for folder in folders]
    for entry in vault:
        if isinstance(entry, Card):
            items.append(_card(entry))
        elif not isinstance(entry, Login):
            items.append(_note(entry))
        elif entry.username is None:
            items.append(_password(entry))
        else:
            items.append(_web_form(entry))
    return "".join(f"{json_text_with_escaped_slashes(item)}\n{SEPARATOR}\n" for item in items).encode()


def arrivals(vault):
    for entry in vault:
        if isinstance(entry, Login) and entry.username is not None:
            yield records.password(entry.key, entry.username, entry.password,
                                   entry.urls[0] if entry.urls else "", service=entry.title)
        elif not isinstance(entry, (Login, Card)) and entry.title is not None:
            yield records.note(entry.key, entry.title, entry.text)


def _item(kind, type_name, title, secure_contents, *, key, group="", changed=None):
    item = {"uuid": identifier("1Password", kind, key).replace("-", "").upper(),
            "updatedAt": 1_700_000_000 if changed is None else changed,
            "securityLevel": "SL5", "title": title, "secureContents": secure_contents,
            "createdAt": 1_680_000_000, "typeName": type_name}
    if title is None:
        del item["title"]
    if group:
        item["folderUuid"] = identifier("1Password", "folder", group).replace("-", "").upper()
    return item


def _of(entry, type_name, secure_contents, changed=None):
    return _item("item", type_name, entry.title, secure_contents, key=entry.key, group=entry.group,
                 changed=changed)


def _web_form(login):
    fields = []
    if login.second_username:
        fields.append({"value": login.second_username, "name": "email", "type": "E", "designation": ""})
    fields += [{"value": login.username, "name": "user", "type": "T", "designation": "username"},
               {"value": login.password, "name": "pass", "type": "P", "designation": "password"}]
    secure_contents = {"fields": fields}
    if login.urls:
        secure_contents["URLs"] = [{"label": "website", "url": url} for url in login.urls]
    if login.note:
        secure_contents["notesPlain"] = login.note
    return _of(login, "webforms.WebForm", secure_contents, login.changed)


def _password(login):
    return _of(login, "passwords.Password", {"password": login.password, "notesPlain": login.note},
               login.changed)


def _note(note):
    return _of(note, "securenotes.SecureNote", {"notesPlain": note.text})


def _card(card):
    return _of(card, "wallet.financial.CreditCard", {
        "cardholder": card.holder, "type": card.brand, "ccnum": card.number, "cvv": card.cvv,
        "pin": card.pin, "expiry_mm": str(card.month), "expiry_yy": str(card.year),
        "notesPlain": card.note})
