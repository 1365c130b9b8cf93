"""The library's CSV dialect, literally.  "Character" is a Unicode code point throughout."""
import unicodedata

from references.errors import TextError
from references.files import decode_text, read_bytes


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
