"""What the texts of generated files are made of."""


class Alphabet:
    def __init__(self, words, marks, blanks, not_blanks, raw):
        self.words, self.marks, self.blanks, self.not_blanks = words, marks, blanks, not_blanks
        self.raw_texts = [text for text, _ in raw]
        self.raw_weights = [weight for _, weight in raw]


FULL = Alphabet(
    words=["a", "b", "x", "Zz", "me@x.org", "pass word", "p\u00e4ss", "\u00e9", "e\u0301", "\U0001f600",
           "\U0001f1e9\U0001f1ea", "\U0001f468\u200d\U0001f469\u200d\U0001f467", "0", "1", "\ufffd", "\uffff", "\u05d0",
           "\uac00", "null", "true", "NoteType:Server", "</b>&amp;", "\\", "\\n", "\\u0041", "{", "}", "[", ";", "'",
           "`", "\u201c", "\x08", "\x1b"],
    marks=["\u0301", "\u0308", "\u200d", "\ufe0f", "\u20dd", "\U0001f3fb", "\u0903", "\u0e33", "\u1160"],
    blanks=[" ", "\t", "\u00a0", "\u3000", "\u1680", "\u2000", "\u2009", "\u200a", "\u202f", "\u205f"],
    not_blanks=["\u200b", "\u180e", "\ufeff", "\u0085", "\u2028", "\u2029", "\x0b", "\x0c", "\x1c", "\x1d", "\x1e",
                "\x1f", "\0", "\r", "\u2060", "\u00ad", "\x7f", "\u2800", "\u3164"],
    raw=[('"', 14), (",", 16), ("\\", 5), ('\\"', 4), ("\r", 3), ("\n", 7), ("\r\n", 4), (" ", 4), ("\t", 2),
         ("\u00a0", 1), ("\u3000", 1), ("a", 5), ("b", 2), ("\u00e4", 2), ("\U0001f600", 1), ("\0", 1), ("\ufeff", 1),
         ('""', 4), ('"\u0301', 1), ("http://sn", 3), ("//sn", 1), ('",', 3), (',"', 3), (",,", 2), ("\r\r\n", 1),
         ("\u2028", 1), ("\u0085", 1), ("\u200d", 1), ('\\\\"', 1), (",,,,,,", 2)])

# Only what references/characters.py knows how to count.
COUNTABLE = Alphabet(
    words=["a", "b", "x", "Zz", "me@x.org", "pass word", "p\u00e4ss", "\u00e9", "e\u0301", "\U0001f600",
           "\U0001f1e9\U0001f1ea", "\U0001f1e9", "\U0001f468\u200d\U0001f469\u200d\U0001f467", "\U0001f44d\U0001f3fd",
           "\u2764\ufe0f\u200d\U0001f525", "\U0001f3f3\ufe0f", "0", "12", "#", "\ufffd", "\u5bc6\u7801", "\uac00\ud55c",
           "{", "}", "-", "\\", "[", ";", "'", "\x08", "\x1b"],
    marks=["\u0301", "\u0308", "\u036f", "\u200d", "\ufe0f", "\U0001f3fb", "\U0001f3ff"],
    blanks=[" ", "\t", "\u00a0", "\u3000"],
    not_blanks=["\ufeff", "\x0b", "\x0c", "\x1c", "\x1f", "\0", "\r", "\x7f"],
    raw=[('"', 14), (",", 26), ("\\", 5), ('\\"', 4), ("\r", 3), ("\n", 7), ("\r\n", 4), (" ", 4), ("\t", 2),
         ("\u00a0", 1), ("\u3000", 1), ("a", 5), ("b", 2), ("\u00e4", 2), ("\U0001f600", 1), ("\0", 1), ("\ufeff", 1),
         ('""', 4), ('"\u0301', 1), ('",', 3), (',"', 3), (",,", 2), ("\r\r\n", 1), ("\u200d", 1), ('\\\\"', 1),
         (",,,,,,", 2)])
