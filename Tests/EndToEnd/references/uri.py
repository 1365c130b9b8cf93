"""URI-reference of RFC 3986, and the host of a URL text."""

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
