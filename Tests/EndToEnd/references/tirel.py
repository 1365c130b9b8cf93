"""Tirel: one JSON document with logins, notes and payment cards."""
from references.errors import TextError
from references.files import read_bytes
from references.records import assemble, imported_card, imported_note, imported_password
from references.tirel_export import card_record, decode_export, note_record, password_record


def read(path):
    data = read_bytes(path)
    export = None if data is None else decode_export(data)
    if export is None:
        raise TextError("The provided JSON file has an unexpected format")
    return ([password_record(login) for login in export["logins"]]
            + [note_record(note) for note in export["notes"]]
            + [card_record(card) for card in export["cards"]])


def required(record, key, type_):
    if key not in record or type(record[key]) is not type_:
        raise TextError("Record did not contain required fields")
    return record[key]


def optional(record, key, type_):
    return record[key] if key in record and type(record[key]) is type_ else None


def is_password(record):
    return "password" in record


def is_note(record):
    return "text" in record


def is_card(record):
    return "cardNumber" in record


def build_password(record):
    url = required(record, "url", str)
    password = required(record, "password", str)
    username = required(record, "username", str)
    return imported_password(username, password, url,
                             service=optional(record, "custName", str),
                             color=optional(record, "color", int),
                             note=optional(record, "note", str),
                             pwd_change=optional(record, "pwdChange", int))


def build_note(record):
    title = required(record, "label", str)
    content = required(record, "text", str)
    return imported_note(optional(record, "color", int), title, content)


def build_card(record):
    number = required(record, "cardNumber", str)
    holder_name = required(record, "holderName", str)
    cust_name = required(record, "custName", str)
    cvv = required(record, "cvv", str)
    pin = required(record, "pin", str)
    note = required(record, "note", str)
    day = required(record, "expirationDay", int)
    month = required(record, "expirationMonth", int)
    year = required(record, "expirationYear", int)
    return imported_card(number, cust_name, holder_name, cvv, pin, note, day, month, year)


def import_file(path):
    return assemble(read, path, [("passwords", is_password, build_password),
                                 ("notes", is_note, build_note),
                                 ("cards", is_card, build_card)])
