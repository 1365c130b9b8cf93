"""Damage to the bytes of a file, blind to what they mean."""

BYTE_ORDER_MARK = b"\xef\xbb\xbf"
BAD_BYTES = [b"\xff", b"\xfe", b"\x80", b"\xc0\x80", b"\xc3", b"\xe2\x82", b"\xed\xa0\x80", b"\xed\xb0\x80",
             b"\xf4\x90\x80\x80", b"\xf0\x8f\xbf\xbf", b"\xe0\x80\xaf", b"\xf8\x88\x80\x80\x80", b"\xf0\x9f\x98"]


def mutate(draw, data, pieces):
    """Some deletions, insertions of PIECES, copies within the data, and cuts."""
    data = bytearray(data)
    for _ in range(draw.pick([1, 1, 2, 4])):
        at = draw.r.randint(0, len(data))
        k = draw.r.randrange(6)
        if k == 0:
            del data[at:at + draw.pick([1, 1, 3])]
        elif k == 1:
            data[at:at] = draw.pick(pieces).encode()
        elif k == 2:
            data[at:at + 1] = draw.pick(pieces).encode()
        elif k == 3:
            piece = data[at:at + draw.r.randint(1, 40)]
            where = draw.r.randint(0, len(data))
            data[where:where] = piece
        elif k == 4:
            data = data[:at] if draw.chance(0.3) else data
        elif at < len(data):
            data[at] ^= 1 << draw.r.randrange(8)
    return bytes(data)


def mark_and_break(draw, data, marked=0.06, broken=0.04):
    """Now and then a byte-order mark in front, now and then bytes that are no UTF-8."""
    if draw.chance(marked):
        data = BYTE_ORDER_MARK * draw.pick([1, 1, 1, 2]) + data
    if draw.chance(broken):
        at = draw.r.randint(0, len(data))       # may fall inside a sequence
        data = data[:at] + draw.pick(BAD_BYTES) + data[at:]
    return data
