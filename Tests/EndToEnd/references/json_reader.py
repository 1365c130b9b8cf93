"""A strict reader of RFC 8259 documents: UTF-8, at most 512 nested containers, array or object at
the top, no recursion, no floating point.  Objects become dictionaries (the first of equal keys
counts), arrays lists, numbers a Number."""
from references.errors import NotPinned
from references.files import decode_text

DEEPEST = 512
WHITE = frozenset(" \t\n\r")
DIGITS = frozenset("0123456789")
HEX_DIGITS = frozenset("0123456789ABCDEFabcdef")
ESCAPES = {'"': '"', "\\": "\\", "/": "/", "b": "\b", "f": "\f", "n": "\n", "r": "\r", "t": "\t"}
LITERALS = {"true": True, "false": False, "null": None}


class JSONFailure(Exception):
    """No JSON document."""


class Number:
    """A number by its spelling: digits times ten to the exponent."""

    def __init__(self, negative, digits, exponent):
        self.negative, self.digits, self.exponent = negative, digits, exponent

    def int64(self):
        """The value when it is integral and fits, else None."""
        digits = self.digits.lstrip("0")
        if digits == "":
            return 0
        shorter = digits.rstrip("0")
        exponent = self.exponent + len(digits) - len(shorter)
        if exponent < 0 or len(shorter) + exponent > 19:
            return None
        value = int(shorter) * 10 ** exponent
        if self.negative:
            value = -value
        return value if -2 ** 63 <= value < 2 ** 63 else None


class Reader:
    def __init__(self, text):
        self.text = text
        self.at = 0

    def peek(self):
        return self.text[self.at:self.at + 1]

    def take(self):
        character = self.peek()
        if character == "":
            raise JSONFailure("the text ends")
        self.at += 1
        return character

    def expect(self, wanted):
        if self.take() != wanted:
            raise JSONFailure("no %s before %d" % (wanted, self.at))

    def blanks(self):
        text, at = self.text, self.at
        while at < len(text) and text[at] in WHITE:
            at += 1
        self.at = at

    # number = [ minus ] int [ frac ] [ exp ]
    def digits(self):
        begin = self.at
        while self.peek() in DIGITS and self.peek() != "":
            self.at += 1
        if self.at == begin:
            raise JSONFailure("no digit at %d" % begin)
        return self.text[begin:self.at]

    def number(self):
        negative = self.peek() == "-"
        if negative:
            self.at += 1
        whole = self.digits()
        if len(whole) > 1 and whole[0] == "0":
            raise JSONFailure("leading zero")
        fraction = ""
        if self.peek() == ".":
            self.at += 1
            fraction = self.digits()
        exponent = 0
        if self.peek() in ("e", "E"):
            self.at += 1
            sign = ""
            if self.peek() in ("+", "-"):
                sign = self.take()
            spelled = self.digits()
            if len(spelled) > 9:
                raise NotPinned("an exponent of %d digits" % len(spelled))
            exponent = -int(spelled) if sign == "-" else int(spelled)
        return Number(negative, whole + fraction, exponent - len(fraction))

    # string
    def four_hex_digits(self):
        value = 0
        for _ in range(4):
            character = self.take()
            if character not in HEX_DIGITS:
                raise JSONFailure("no hexadecimal digit")
            value = value * 16 + int(character, 16)
        return value

    def escape(self):
        letter = self.take()
        if letter in ESCAPES:
            return ESCAPES[letter]
        if letter != "u":
            raise JSONFailure("unknown escape")
        unit = self.four_hex_digits()
        if 0xDC00 <= unit <= 0xDFFF:
            raise JSONFailure("lone low surrogate")
        if not 0xD800 <= unit <= 0xDBFF:
            return chr(unit)
        self.expect("\\")
        self.expect("u")
        low = self.four_hex_digits()
        if not 0xDC00 <= low <= 0xDFFF:
            raise JSONFailure("lone high surrogate")
        return chr(0x10000 + (unit - 0xD800) * 0x400 + (low - 0xDC00))

    def string(self):
        self.expect('"')
        text, out = self.text, []
        while True:
            begin = at = self.at
            while at < len(text) and text[at] != '"' and text[at] != "\\" and text[at] >= "\x20":
                at += 1
            out.append(text[begin:at])
            self.at = at
            character = self.take()
            if character == '"':
                return "".join(out)
            if character != "\\":
                raise JSONFailure("raw control character")
            out.append(self.escape())

    def literal(self):
        for word, value in LITERALS.items():
            if self.text[self.at:self.at + len(word)] == word:
                self.at += len(word)
                return value
        raise JSONFailure("no value at %d" % self.at)

    def scalar(self):
        character = self.peek()
        if character == '"':
            return self.string()
        if character == "-" or character in DIGITS and character != "":
            return self.number()
        return self.literal()

    def key(self):
        self.blanks()
        key = self.string()
        self.blanks()
        self.expect(":")
        return key

    def document(self):
        """One array or object with blanks around it."""
        self.blanks()
        if self.peek() not in ("[", "{"):
            raise JSONFailure("no array or object at the top")
        stack = []              # open containers, each with the key its next value goes to
        while True:
            # Here a value begins.
            self.blanks()
            character = self.peek()
            if character in ("[", "{"):
                self.at += 1
                if len(stack) == DEEPEST:
                    raise JSONFailure("too deep")
                value = [] if character == "[" else {}
                self.blanks()
                if self.peek() != ("]" if character == "[" else "}"):
                    stack.append((value, None if character == "[" else self.key()))
                    continue
                self.at += 1
            else:
                value = self.scalar()
            # Here a value has ended; so may the containers around it.
            while stack:
                container, key = stack.pop()
                if key is None:
                    container.append(value)
                elif key not in container:          # the first of equal keys counts
                    container[key] = value
                self.blanks()
                mark = self.take()
                if mark == ",":
                    stack.append((container, None if key is None else self.key()))
                    break
                if mark != ("]" if key is None else "}"):
                    raise JSONFailure("no comma and no end at %d" % self.at)
                value = container
            else:
                self.blanks()
                if self.at != len(self.text):
                    raise JSONFailure("text behind the document")
                return value


def parse_text(text):
    return Reader(text).document()


def parse_bytes(data):
    """One leading byte-order mark is dropped."""
    text = decode_text(data)
    if text is None:
        raise JSONFailure("not UTF-8")
    return parse_text(text)
