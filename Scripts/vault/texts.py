"""How the products spell cells of CSV and texts of JSON."""
import json


def quoted(text):
    return '"' + text.replace('"', '""') + '"'


def quoted_if_needed(text):
    return quoted(text) if any(character in text for character in ',"\r\n') else text


def doubled(text):
    """What arrives of a text that was written in quotes: its double quotes stay doubled."""
    return text.replace('"', '""')


def json_text(value):
    return json.dumps(value, ensure_ascii=False, separators=(",", ":"))


def json_text_with_escaped_slashes(value):
    return json_text(value).replace("/", "\\/")
