"""Slow and literal reference for the import of LastPass exports, independent of the library.

Follows the written rules step by step.  "Character" is a Unicode code point throughout.  import_file(path) gives the object that the tool's `json` format
prints with --reveal, or {"error": True}.
"""
import os
import stat
import unicodedata


class TextError(Exception):
    """A plain message text thrown as an error: domain fixed, code 1."""


# ---------------------------------------------------------------- files, text

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


# ---------------------------------------------------------------- CSV dialect

def is_white(character):
    return character == "\t" or unicodedata.category(character) == "Zs"


def is_blank(line):
    return all(is_white(character) for character in line)


def split(built, piece, joiner):
    """The shared joining rule."""
    if not built:
        built.append(piece)
    elif built[-1].count('"') % 2 == 0:
        built.append(piece)
    else:
        built[-1] = built[-1] + joiner + piece


def records_from_string(text):
    lines = []
    for physical in text.split("\n"):
        split(lines, physical, "\n")
    return [line for line in lines if not is_blank(line)]


def unquote(cell):
    if cell == '"':             # never shorter than the empty text
        return ""
    if cell[:1] == '"' and cell[-1:] == '"':
        return cell[1:-1]
    return cell


def cells_of(line):
    cells = []
    for piece in line.split(","):
        split(cells, piece, ",")
    return [unquote(cell) for cell in cells]


def unescape(text):
    return text.replace('\\"', '""')


def unify_line_ends(text):
    return text.replace("\r\n", "\n")


def parse_file_data(text):
    text = unescape(text)
    text = unify_line_ends(text)
    return [cells_of(line) for line in records_from_string(text)]


def rows_of(path):
    data = read_bytes(path)
    if data is None:
        return None
    text = decode_text(data)
    if text is None:
        return None
    return parse_file_data(text)


def dictionary(pairs):
    result = {}
    for key, value in pairs:
        result[key] = value
    return result


def keyed_records(rows, expected):
    if not rows:
        raise TextError("Could not read the csv at: ")
    first = rows[0]
    if all(header in first for header in expected):
        placed = []
        for header in expected:
            for position, cell in enumerate(first):
                if cell == header:
                    placed.append((header, position))
                    break
        if len(placed) != len(expected):
            raise TextError("File does not contain expected headers")
        placed.sort(key=lambda pair: pair[1])
        headers = [pair[0] for pair in placed]
        positions = sorted(pair[1] for pair in placed)
        result = []
        for row in rows[1:]:
            cells = [row[p] if p < len(row) else "" for p in positions]
            result.append(dictionary(zip(headers, cells)))
        return result
    if len(first) != len(expected):
        raise TextError("The number of fields must be equal to the number of headers "
                        "for a csv without headers")
    return [dictionary(zip(expected, row)) for row in rows]


# ---------------------------------------------------------------- RFC 3986 URI-reference

ALPHA = frozenset("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz")
DIGIT = frozenset("0123456789")
HEXDIG = frozenset("0123456789ABCDEFabcdef")
UNRESERVED = ALPHA | DIGIT | frozenset("-._~")
SUB_DELIMS = frozenset("!$&'()*+,;=")
SCHEME = ALPHA | DIGIT | frozenset("+-.")
REG_NAME = UNRESERVED | SUB_DELIMS
USERINFO = REG_NAME | frozenset(":")
PCHAR = REG_NAME | frozenset(":@")
PATH = PCHAR | frozenset("/")
QUERY = PCHAR | frozenset("/?")


def made_of(text, allowed):
    """*( allowed / pct-encoded )"""
    i = 0
    while i < len(text):
        if text[i] == "%":
            pair = text[i + 1:i + 3]
            if len(pair) != 2 or pair[0] not in HEXDIG or pair[1] not in HEXDIG:
                return False
            i += 3
        elif text[i] in allowed:
            i += 1
        else:
            return False
    return True


def only(text, allowed):
    """*allowed, no percent escapes"""
    return all(character in allowed for character in text)


def is_dec_octet(text):
    if not 1 <= len(text) <= 3 or not only(text, DIGIT):
        return False
    return str(int(text)) == text and int(text) <= 255


def is_ipv4(text):
    parts = text.split(".")
    return len(parts) == 4 and all(is_dec_octet(part) for part in parts)


def ipv6_groups(text, ipv4_at_end):
    """Number of 16-bit groups in h16 *( ":" h16 ), the last possibly an IPv4; None if malformed."""
    if text == "":
        return 0
    parts = text.split(":")
    groups = 0
    for index, part in enumerate(parts):
        if ipv4_at_end and index == len(parts) - 1 and is_ipv4(part):
            groups += 2
        elif 1 <= len(part) <= 4 and only(part, HEXDIG):
            groups += 1
        else:
            return None
    return groups


def is_ipv6(text):
    at = text.find("::")
    if at < 0:
        return ipv6_groups(text, True) == 8
    left = ipv6_groups(text[:at], False)
    right = ipv6_groups(text[at + 2:], True)
    return left is not None and right is not None and left + right <= 7


def is_ipvfuture(text):
    if text[:1] not in ("v", "V"):
        return False
    version, dot, rest = text[1:].partition(".")
    return (version != "" and only(version, HEXDIG) and dot == "." and rest != ""
            and only(rest, USERINFO))


def parse_authority(text):
    """(userinfo, host, port), userinfo and port None when absent; None when malformed."""
    userinfo, port = None, None
    if "@" in text:
        userinfo, _, text = text.partition("@")
        if not made_of(userinfo, USERINFO):
            return None
    if text[:1] == "[":
        literal, bracket, rest = text[1:].partition("]")
        if bracket != "]" or not (is_ipv6(literal) or is_ipvfuture(literal)):
            return None
        host = "[" + literal + "]"
        if rest != "":
            if rest[0] != ":":
                return None
            port = rest[1:]
    else:
        host, colon, rest = text.partition(":")
        if colon == ":":
            port = rest
        if not made_of(host, REG_NAME):      # every IPv4address is a reg-name too
            return None
    if port is not None and not only(port, DIGIT):
        return None
    return userinfo, host, port


def parse_uri_reference(text):
    """Dictionary of components (None when absent), or None when the text does not parse."""
    rest, hash_mark, fragment = text.partition("#")
    rest, question, query = rest.partition("?")
    if hash_mark and not made_of(fragment, QUERY):
        return None
    if question and not made_of(query, QUERY):
        return None
    scheme = None
    first_segment = rest.partition("/")[0]
    if ":" in first_segment:
        # A relative reference has no colon in its first segment, so this must be a scheme.
        scheme, _, rest = rest.partition(":")
        if scheme[:1] not in ALPHA or scheme == "" or not only(scheme, SCHEME):
            return None
    authority = None
    path = rest
    if rest[:2] == "//":
        inside, slash, after = rest[2:].partition("/")
        authority = parse_authority(inside)
        if authority is None:
            return None
        path = slash + after
    if not made_of(path, PATH):
        return None
    return {"scheme": scheme, "authority": authority, "path": path,
            "query": query if question else None,
            "fragment": fragment if hash_mark else None}


def percent_decode(text):
    """ASCII text with well-formed escapes to bytes."""
    out = bytearray()
    i = 0
    while i < len(text):
        if text[i] == "%":
            out.append(int(text[i + 1:i + 3], 16))
            i += 3
        else:
            out.append(ord(text[i]))
            i += 1
    return bytes(out)


def url_host(text):
    """Decoded host as bytes (possibly empty), or None: no parse, or no authority."""
    if text == "":              # RFC 3986 allows it; it does not parse here
        return None
    parsed = parse_uri_reference(text)
    if parsed is None or parsed["authority"] is None:
        return None
    return percent_decode(parsed["authority"][1])


# ---------------------------------------------------------------- LastPass

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


def has_at_least_one_non_empty_value(record, keys):
    for key in keys:
        if record.get(key) != "":       # a missing column counts as non-empty
            return True
    return False


def build_password(record):
    if not has_at_least_one_non_empty_value(record, LOGIN_KEYS):
        raise TextError("All the fileds appear to be empty")
    return {"username": record.get("username", ""),
            "password": record.get("password", ""),
            "url": record.get("url", ""),
            "service": record.get("name"),
            "color": None,
            "note": None,
            "pwdChange": None}


def build_note(record):
    if not has_at_least_one_non_empty_value(record, NOTE_KEYS):
        raise TextError("All the fileds appear to be empty")
    return {"color": None,
            "title": record.get("name", ""),
            "content": record.get("extra", "")}


def import_file(path):
    try:
        records = read(path)
    except TextError:
        return {"error": True}
    passwords, notes = [], []
    for record in records:
        try:
            if not is_note(record):
                passwords.append(build_password(record))
            else:
                notes.append(build_note(record))
        except TextError:
            pass
    return {"passwords": passwords, "notes": notes, "cards": []}
