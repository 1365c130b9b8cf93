#!/usr/bin/env python3
"""Python's csv module.  usage: python_csv.py SOURCE FILE"""
import csv
import re
import sys

sys.dont_write_bytecode = True
from measured import Login, Note, Records, main  # noqa: E402

IDENTIFIER = re.compile(r"\{[0-9A-Fa-f]{8}(-[0-9A-Fa-f]{4}){3}-[0-9A-Fa-f]{12}\}")


def last_pass(rows, records):
    next(rows)
    for url, username, password, extra, name, _, _ in rows:
        if url == "http://sn":
            if extra or name:
                records.notes.append(Note(name, extra))
        elif url or username or password or name:
            records.logins.append(Login(username, password, url, name))


def kee_pass(rows, records):
    next(rows)
    for title, username, password, url, _ in rows:
        records.logins.append(Login(username, password, url, title))


def kee_pass_xc(rows, records):
    next(rows)
    for _, title, username, password, url, _ in rows:
        records.logins.append(Login(username, password, url, title))


def dashlane(rows, records):
    for row in rows:
        if len(row) > 4 and not any("{" in cell and IDENTIFIER.search(cell) for cell in row):
            records.logins.append(Login(row[2], row[-2], row[1], row[0]))


def reader(fill):
    def read(path):
        records = Records()
        with open(path, newline="", encoding="utf-8") as file:
            fill(csv.reader(file), records)
        return records
    return read


if __name__ == "__main__":
    main({"lastPass": reader(last_pass), "keePass": reader(kee_pass),
          "keePassXC": reader(kee_pass_xc), "dashlane": reader(dashlane)})
