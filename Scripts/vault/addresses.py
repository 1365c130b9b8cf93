"""How browsers keep the address of a login."""
from urllib.parse import quote, urlsplit, urlunsplit


def website(entry):
    """The first address of a login if a browser can show it, or None: no browser keeps the others."""
    urls = getattr(entry, "urls", ())
    return urls[0] if urls and urlsplit(urls[0]).scheme in ("http", "https") else None


def origin(url):
    parts = urlsplit(url)
    return urlunsplit((parts.scheme, parts.netloc, "", "", ""))


def page(url):
    """The address without query and fragment, in ASCII."""
    parts = urlsplit(url)
    return urlunsplit((parts.scheme, parts.netloc, quote(parts.path, safe="/,;=:@%"), "", ""))
