"""Chrome: a database of logins. It keeps those of websites, and of an address the page alone.

The password arrives as the Base64 of its encrypted bytes. Without a user name or a password a login
does not arrive, nor do an address that must never be saved, notes and titles.
"""
import base64

from . import records
from .addresses import origin, page, website
from .databases import schema
from .entries import NEVER_SAVED
from .opaque import chrome_secret


def fill(database, vault):
    database.execute("PRAGMA page_size = 2048")
    database.executescript(schema("Chrome/schema.sql"))
    for entry in vault:
        url = website(entry)
        if url is None:
            continue
        login = _insert(database, page(url), entry.username or "", _secret(entry),
                        changed=entry.changed)
        if entry.note:
            # The browser stores these bytes as a text, which they are not.
            database.execute(
                "INSERT INTO password_notes (parent_id, key, value, date_created, confidential)"
                " VALUES (?, '', CAST(? AS TEXT), ?, 0)",
                (login, chrome_secret(entry.note, entry.key, "note"), _time(entry.changed)))
    _insert(database, NEVER_SAVED + "/", "", b"", is_never_saved=True)


def arrivals(vault):
    for entry in vault:
        url = website(entry)
        if url is not None and entry.username and entry.password:
            yield records.password(entry.key, entry.username, base64.b64encode(_secret(entry)).decode(),
                                   page(url))


def _secret(login):
    return chrome_secret(login.password, login.key, "password")


def _time(seconds):
    """Microseconds since 1601."""
    return ((1_700_000_000 if seconds is None else seconds) + 11_644_473_600) * 1_000_000


def _insert(database, url, username, secret, *, changed=None, is_never_saved=False):
    values = {
        "origin_url": url, "action_url": "" if is_never_saved else url,
        "username_element": "" if is_never_saved else "user", "username_value": username,
        "password_element": "" if is_never_saved else "pass", "password_value": secret,
        "submit_element": "", "signon_realm": origin(url) + "/", "date_created": _time(changed),
        "blacklisted_by_user": int(is_never_saved), "scheme": 0, "password_type": 0,
        "times_used": 0 if is_never_saved else 3, "form_data": b"", "display_name": "", "icon_url": "",
        "federation_url": "", "skip_zero_click": 0, "generation_upload_status": 0,
        "possible_username_pairs": b"", "moving_blocked_for": b"",
        "date_password_modified": _time(changed)}
    return database.execute(f"INSERT INTO logins ({', '.join(values)})"
                            f" VALUES ({', '.join('?' * len(values))})", (*values.values(),)).lastrowid
