#!/usr/bin/env python3
"""Python's json module.  usage: python_json.py SOURCE FILE"""
import json
import os
import sys

sys.dont_write_bytecode = True
from measured import Card, Login, Note, Records, TirelLogin, main  # noqa: E402


def tirel(path):
    with open(path, encoding="utf-8") as file:
        document = json.load(file)
    records = Records()
    for login in document["logins"]:
        records.logins.append(TirelLogin(
            login["loginName"], login["pwd"], login["url"], login.get("custName", ""),
            login["note"], login["color"], login.get("pwdChange")))
    for note in document["notes"]:
        records.notes.append(Note(note["label"], note["text"], note["color"]))
    for card in document["cards"]:
        expiration = card["expirationDate"]
        records.cards.append(Card(
            card["cardNumber"], card["custName"], card["holderName"], card["cvv"], card["pin"],
            card["note"], expiration["day"], expiration["month"], expiration["year"]))
    return records


def one_password(path):
    records = Records()
    with open(path, encoding="utf-8") as file:
        for line in file:
            if line.startswith("{"):
                _add_record(json.loads(line), records)
    return records


def _add_record(record, records):
    contents = record["secureContents"]
    if record["typeName"] == "webforms.WebForm":
        values = {}
        for field in contents["fields"]:
            values.setdefault(field["designation"], field["value"])
        if "username" in values and "password" in values:
            records.logins.append(Login(values["username"], values["password"],
                                        contents["URLs"][0]["url"], record["title"]))
    elif record["typeName"] == "securenotes.SecureNote":
        records.notes.append(Note(record["title"], contents["notesPlain"]))


def firefox(path):
    with open(os.path.join(path, "logins.json"), encoding="utf-8") as file:
        document = json.load(file)
    records = Records()
    for login in document["logins"]:
        records.logins.append(Login(login["encryptedUsername"], login["encryptedPassword"],
                                    login["hostname"]))
    return records


if __name__ == "__main__":
    main({"tirel": tirel, "onePassword": one_password, "firefox": firefox})
