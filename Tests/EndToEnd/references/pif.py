"""The 1Password Interchange Format: record lines wrapped into one JSON document, and the typed
look-up in the wrapped value."""
from references.errors import InvalidValueCast, PIFParsingError, ValueNotFound
from references.files import decode_text, read_bytes
from references.json_reader import JSONFailure, parse_text


def wrap(text, top_level_key):
    lines = text.split("\n")
    kept = [line for line in lines if line[:1] == "{"]
    return "{ \"" + top_level_key + "\": [" + ",".join(kept) + "] }"


def to_json(path, top_level_key):
    data = read_bytes(path)
    text = None if data is None else decode_text(data)
    if text is None:
        raise PIFParsingError("the file could not be loaded as a text")
    try:
        value = parse_text(wrap(text, top_level_key))
    except JSONFailure as failure:
        raise PIFParsingError(str(failure))
    if not isinstance(value, dict):
        raise PIFParsingError("Could not parse JSON object as [String: AnyObject]")
    return value


def list_of_dictionaries(value):
    """The value when it is a list with nothing but dictionaries in it, else None."""
    if not isinstance(value, list):
        return None
    if not all(isinstance(element, dict) for element in value):
        return None
    return value


def value_for_key(contents, key):
    if key not in contents:
        raise ValueNotFound(key)
    value = list_of_dictionaries(contents[key])
    if value is None:
        raise InvalidValueCast(key)
    return value
