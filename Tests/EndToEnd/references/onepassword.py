"""1Password: web-form logins and secure notes of a PIF export."""
from references.errors import TextError
from references.pif import list_of_dictionaries, to_json, value_for_key
from references.records import assemble, imported_note, imported_password


def string(value):
    return value if isinstance(value, str) else None


def dictionary(value):
    return value if isinstance(value, dict) else None


def read(path):
    return value_for_key(to_json(path, "records"), "records")


def is_password(record):
    return string(record.get("typeName")) == "webforms.WebForm"


def is_note(record):
    return string(record.get("typeName")) == "securenotes.SecureNote"


def url_of(secure_contents):
    urls = list_of_dictionaries(secure_contents.get("URLs"))
    if urls is None or urls == []:
        return None
    return string(urls[0].get("url"))


def value_of_field(secure_contents, designation):
    fields = list_of_dictionaries(secure_contents.get("fields"))
    if fields is None:
        return None
    for field in fields:
        if string(field.get("designation")) == designation:
            return string(field.get("value"))       # later fields are never looked at
    return None


def build_password(record):
    title = string(record.get("title"))
    secure_contents = dictionary(record.get("secureContents"))
    url = username = password = None
    if secure_contents is not None:
        url = url_of(secure_contents)
        username = value_of_field(secure_contents, "username")
        password = value_of_field(secure_contents, "password")
    if username is None or password is None:
        raise TextError("Record did not contain expected fields")
    return imported_password(username, password, "" if url is None else url, title)


def build_note(record):
    title = string(record.get("title"))
    secure_contents = dictionary(record.get("secureContents"))
    content = None
    if secure_contents is not None:
        content = string(secure_contents.get("notesPlain"))
    if title is None or content is None:
        raise TextError("Record did not contain expected fields")
    return imported_note(None, title, content)


def import_file(path):
    return assemble(read, path, [("passwords", is_password, build_password),
                                 ("notes", is_note, build_note)])
