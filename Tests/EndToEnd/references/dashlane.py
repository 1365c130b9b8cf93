"""Dashlane: a CSV export read by position."""
from references.characters import number_of_characters, utf16_units
from references.csv_dialect import rows_of
from references.errors import TextError
from references.records import assemble, imported_password

HEX_UNITS = frozenset(ord(c) for c in "0123456789ABCDEFabcdef")
# An opening brace, 8, 4, 4, 4 and 12 hexadecimal digits joined by hyphens, a closing brace.
IDENTIFIER = "{xxxxxxxx-xxxx-xxxx-xxxx-xxxxxxxxxxxx}"


def is_identifier(units):
    if len(units) != len(IDENTIFIER):
        return False
    for unit, wanted in zip(units, IDENTIFIER):
        if wanted == "x":
            if unit not in HEX_UNITS:
                return False
        elif unit != ord(wanted):
            return False
    return True


def number_of_matches(text):
    """Matches that lie within the first n UTF-16 units, n being the number of characters."""
    units = utf16_units(text)[:number_of_characters(text)]
    count = at = 0
    while at < len(units):
        if is_identifier(units[at:at + len(IDENTIFIER)]):
            count += 1
            at += len(IDENTIFIER)
        else:
            at += 1
    return count


def read(path):
    rows = rows_of(path)
    if rows is None:
        raise TextError("failed to import dashlane records - not csv")
    return [row for row in rows if len(row) > 4]


def is_password(row):
    return number_of_matches("".join(row)) == 0 and len(row) > 4


def build_password(row):
    n = len(row)
    return imported_password(service=row[1 - 1], url=row[2 - 1], username=row[3 - 1], password=row[n - 1 - 1])


def import_file(path):
    return assemble(read, path, [("passwords", is_password, build_password)])
