"""LastPass: a CSV export with seven named columns."""
from references.csv_dialect import keyed_records, rows_of
from references.errors import TextError
from references.records import assemble, imported_note, imported_password
from references.uri import url_host

ALL_KEYS = ["url", "username", "password", "extra", "name", "grouping", "fav"]
LOGIN_KEYS = ["url", "username", "password", "name"]
NOTE_KEYS = ["name", "extra"]


def read(path):
    rows = rows_of(path)
    number_of_fields = len(rows[0]) if rows else None
    if number_of_fields is None or number_of_fields != 7:
        raise TextError("The provided CSV file doesnt have the expected number of fields")
    return keyed_records(rows, ALL_KEYS)


def is_note(record):
    if "url" not in record:
        return False
    return url_host(record["url"]) == b"sn"


def is_password(record):
    return not is_note(record)


def has_at_least_one_non_empty_value(record, keys):
    for key in keys:
        if record.get(key) != "":       # a missing column counts as non-empty
            return True
    return False


def build_password(record):
    if not has_at_least_one_non_empty_value(record, LOGIN_KEYS):
        raise TextError("All the fileds appear to be empty")
    return imported_password(record.get("username", ""), record.get("password", ""),
                             record.get("url", ""), record.get("name"))


def build_note(record):
    if not has_at_least_one_non_empty_value(record, NOTE_KEYS):
        raise TextError("All the fileds appear to be empty")
    return imported_note(None, record.get("name", ""), record.get("extra", ""))


def import_file(path):
    return assemble(read, path, [("passwords", is_password, build_password),
                                 ("notes", is_note, build_note)])
