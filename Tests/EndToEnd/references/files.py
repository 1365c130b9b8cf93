"""Files and their text: what counts as a file, and what as text."""
import os
import stat


def read_bytes(path):
    """The whole file, or None.  A folder, device or pipe cannot be read as a file."""
    try:
        if not stat.S_ISREG(os.stat(path).st_mode):
            return None
        with open(path, "rb") as file:
            return file.read()
    except OSError:
        return None


def decode_text(data):
    """Strict UTF-8; one leading byte-order mark is dropped.  None when it does not decode."""
    try:
        text = data.decode("utf-8", "strict")
    except UnicodeDecodeError:
        return None
    if text[:1] == "\ufeff":
        text = text[1:]
    return text
