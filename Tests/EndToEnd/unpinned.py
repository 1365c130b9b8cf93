"""What is not pinned: inputs for which any reasonable outcome will do.  They are never compared;
`compare.py TOOL SOURCE --unpinned` shows what a tool makes of the examples.

- The corners of URL texts in URLS and everything of their kind.
- Numbers in JSON with an exponent of more than nine digits (references/json_reader.py refuses them).
- A line of a PIF file whose opening brace is followed by another code point that could be part of
  the same character: does the line begin with a brace?
- Code points in Dashlane rows that references/characters.py does not know (it refuses them).

Of equal keys in a JSON object the first counts; that is compared.
"""
import references.lastpass
from references.errors import NotPinned, TextError
from references.files import decode_text, read_bytes
from references.lastpass import ALL_KEYS
from references.uri import DIGIT, HEXDIG, only, percent_decode

URLS = [
    "http://sn:", "http://sn:/", "http://sn:/x", "//sn:", "http://u@sn:",     # empty port
    "http://sn:65536/", "http://sn:99999/", "http://sn:000080/",              # port out of 16 bits / long
    "http://sn:18446744073709551696/",
    "http://sn:x/", "http://sn:80x", "http://sn:-1/", "http://sn:+80",        # port not digits
    "http://sn:80:90/", "http://sn:%38%30/",
    "http://sn/[", "http://sn/]", "http://sn/[x]", "http://sn?[x]", "http://sn?a[]=1",
    "http://sn#[x]", "http://[u]@sn/",                                        # brackets outside a literal
    "http://sn#a#b", "http://sn/##",                                          # second number sign
    "http://a@b@sn/", "http://sn@b@c/", "http://@@sn",                        # second at sign
    "http://[sn]/", "http://[sn", "http://sn]", "http://[]sn", "http://[::1]sn/",   # malformed literal
    "http://[v1.sn]/", "http://[v1.sn]:80/",                                  # IPvFuture
]
FORBIDDEN = frozenset('"<>\\^`{|} ')


def is_unpinned_url(url):
    """True when the outcome (note or login) hangs on a corner that is not pinned."""
    if url in URLS:
        return True
    if any(c in FORBIDDEN or not "!" <= c <= "~" for c in url):
        return False            # does not parse
    for i, c in enumerate(url):
        if c == "%" and not (len(url[i + 1:i + 3]) == 2 and only(url[i + 1:i + 3], HEXDIG)):
            return False        # a bad escape: does not parse
    before = url.partition("#")[0].partition("?")[0]
    colon = before.partition("/")[0].find(":")
    hier = before[colon + 1:]
    if hier[:2] != "//":
        return False            # no authority, no host
    authority = hier[2:].partition("/")[0]
    if b"sn" not in percent_decode(authority):
        return False            # a login on any reading
    tail = url[colon + 3 + len(authority):]
    if "[" in tail or "]" in tail or tail.count("#") > 1 or authority.count("@") > 1:
        return True
    userinfo, _, host = authority.rpartition("@")
    if "[" in userinfo or "]" in userinfo or "[" in host or "]" in host:
        return True
    host, colon, port = host.partition(":")
    return colon == ":" and not (only(port, DIGIT) and 1 <= len(port) <= 5
                                 and int(port) <= 65535)


def has_unpinned_url(path):
    try:
        return any(is_unpinned_url(record.get("url", "")) for record in references.lastpass.read(path))
    except TextError:
        return False


def has_unpinned_line(path):
    data = read_bytes(path)
    text = None if data is None else decode_text(data)
    return text is not None and any(line[:1] == "{" and line[1:2] > "\x7f" for line in text.split("\n"))


FURTHER_CHECKS = {"lastPass": has_unpinned_url, "onePassword": has_unpinned_line}


def outcome(source, path):
    """What the tool must print for the file, or None when that is not pinned."""
    if source.name in FURTHER_CHECKS and FURTHER_CHECKS[source.name](path):
        return None
    try:
        return source.import_file(path)
    except NotPinned:
        return None


# ---------------------------------------------------------------- examples

EXPONENTS = ["1e9999999999", "1E-9999999999", "1.0e+0000000000", "0e0000000001", "0e9999999999"]


def examples(name):
    """(label, bytes) pairs for a source; the outcome of each is not pinned."""
    if name == "lastPass":
        return [(url, (",".join(ALL_KEYS) + "\n" + url + ",u,p,e,n,g,0\n").encode()) for url in URLS]
    if name == "tirel":
        form = '{"logins":[],"notes":[{"color":%s,"label":"","text":""}],"cards":[],"?":%s}'
        return [("color " + e, (form % (e, "1")).encode()) for e in EXPONENTS] + \
            [("unknown " + e, (form % ("1", e)).encode()) for e in EXPONENTS]
    if name == "onePassword":
        return [("record " + e, ('{"?":%s}' % e).encode()) for e in EXPONENTS] + \
            [("{ and U+%04X" % ord(c), ("{" + c + "}\n").encode()) for c in "\u0301\u200d\ufe0f\u0903\u00e9"]
    if name == "dashlane":
        identifier = "{01234567-89AB-CDEF-0123-456789ABCDEF}"
        return [("U+%04X" % ord(c), ("a,b,c,d," + 2 * c + identifier + "\n").encode())
                for c in "\u0903\u0e33\u1100\u0600\u200b\u20e3\u00ad\u2028\U000e0061"]
    return []
