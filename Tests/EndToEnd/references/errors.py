"""What the library throws, and the error object that a host receives for it."""

# Texts that are thrown get one fixed domain, whose name the library is free to choose.
TEXT_DOMAIN = "(the fixed domain of thrown texts)"


class NotPinned(Exception):
    """The input reaches a corner where any reasonable outcome will do: nothing to compare."""


class Thrown(Exception):
    """An error that fails the import when the reading step throws it."""
    domain = TEXT_DOMAIN
    code = 1


class TextError(Thrown):
    """A plain message text; its words are lost."""


class PIFParsingError(Thrown):
    """A structure: code 1."""
    domain = "Rellinor.PIFParsingError"


class JSONError(Thrown):
    """An enumeration: the code is the ordinal of the case."""
    domain = "Rellinor.JSONError"


class ValueNotFound(JSONError):
    code = 0


class InvalidValueCast(JSONError):
    code = 1


DECLARED_DOMAINS = (PIFParsingError.domain, JSONError.domain)


def error_object(error):
    return {"error": {"domain": error.domain, "code": error.code}}
