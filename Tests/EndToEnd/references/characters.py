"""Characters (extended grapheme clusters, UAX 29), for the few pieces of Unicode that the
generators use.  Any other code point is refused with NotPinned."""
from references.errors import NotPinned

CR, LF, CONTROL, EXTEND, ZWJ, REGIONAL, PICTOGRAPH, OTHER = (
    "CR", "LF", "Control", "Extend", "ZWJ", "Regional_Indicator", "Extended_Pictographic", "Other")

# smiley, fire, heart, man, woman, girl, thumb, rocket, key, white flag
PICTOGRAPHS = frozenset("\U0001f600\U0001f525\u2764\U0001f468\U0001f469\U0001f467\U0001f44d\U0001f680\U0001f511\U0001f3f3")


def kind(character):
    code = ord(character)
    if code == 0x0D:
        return CR
    if code == 0x0A:
        return LF
    if code < 0x20 or code == 0x7F or code == 0xFEFF:
        return CONTROL
    if code < 0x7F:
        return OTHER                            # ASCII, digits and number sign included
    if code == 0xA0 or code == 0x3000 or code == 0xFFFD:
        return OTHER
    if 0xC0 <= code <= 0xFF:
        return OTHER                            # Latin letters, multiplication and division signs
    if 0x300 <= code <= 0x36F:
        return EXTEND                           # combining diacritical marks
    if code == 0xFE0F or 0x1F3FB <= code <= 0x1F3FF:
        return EXTEND                           # variation selector 16, skin tones
    if code == 0x200D:
        return ZWJ
    if 0x1F1E6 <= code <= 0x1F1FF:
        return REGIONAL
    if character in PICTOGRAPHS:
        return PICTOGRAPH
    if 0x4E00 <= code <= 0x9FFF:
        return OTHER                            # CJK unified ideographs
    if 0xAC00 <= code <= 0xD7A3:
        return OTHER                            # Hangul syllables: no letters to join with here
    raise NotPinned("U+%04X" % code)


def is_boundary(kinds, at):
    """Whether a character ends between kinds[at - 1] and kinds[at]."""
    before, after = kinds[at - 1], kinds[at]
    if before == CR and after == LF:                                # GB3
        return False
    if before in (CR, LF, CONTROL) or after in (CR, LF, CONTROL):   # GB4, GB5
        return True
    if after in (EXTEND, ZWJ):                                      # GB9
        return False
    if before == ZWJ and after == PICTOGRAPH:                       # GB11
        base = at - 2
        while base >= 0 and kinds[base] == EXTEND:
            base -= 1
        if base >= 0 and kinds[base] == PICTOGRAPH:
            return False
    if before == REGIONAL and after == REGIONAL:                    # GB12, GB13
        first = at - 1
        while first > 0 and kinds[first - 1] == REGIONAL:
            first -= 1
        if (at - first) % 2 == 1:
            return False
    return True                                                     # GB999


def number_of_characters(text):
    kinds = [kind(character) for character in text]
    count = 1 if kinds else 0
    for at in range(1, len(kinds)):
        if is_boundary(kinds, at):
            count += 1
    return count


def utf16_units(text):
    data = text.encode("utf-16-le")
    return [data[i] | data[i + 1] << 8 for i in range(0, len(data), 2)]
