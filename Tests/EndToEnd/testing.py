"""What the tests of the references share."""
import os
import tempfile

from references.errors import TEXT_DOMAIN

ERROR = {"error": {"domain": TEXT_DOMAIN, "code": 1}}

# Paths that cannot be read as a file.
UNREADABLE = ["/nonexistent", "/tmp", "/dev/null"]


def imported(import_file, data):
    """The outcome for a file of these bytes, or of this text in UTF-8."""
    if isinstance(data, str):
        data = data.encode("utf-8")
    handle, path = tempfile.mkstemp()
    try:
        os.write(handle, data)
        os.close(handle)
        return import_file(path)
    finally:
        os.unlink(path)


def login(username="", password="", url="", service=None, color=None, note=None, pwdChange=None):
    return {"username": username, "password": password, "url": url, "service": service,
            "color": color, "note": note, "pwdChange": pwdChange}


def note(title="", content="", color=None):
    return {"color": color, "title": title, "content": content}


def ok(passwords=(), notes=(), cards=()):
    return {"passwords": list(passwords), "notes": list(notes), "cards": list(cards)}
