"""The lines where the rows of a CSV export begin that its import leaves out, by the references."""
import references.dashlane as dashlane
import references.keepass as keepass
import references.lastpass as lastpass
from references.csv_dialect import cells_of, is_blank, keyed_records, split, unescape, unify_line_ends
from references.errors import TextError
from references.files import decode_text, read_bytes


def rows_with_lines(path):
    """(line, cells) of each row."""
    lines, starts = [], []
    text = unify_line_ends(unescape(decode_text(read_bytes(path))))
    for number, physical in enumerate(text.split("\n"), 1):
        split(lines, physical, "\n")
        if len(lines) > len(starts):
            starts.append(number)
    return [(start, cells_of(line)) for start, line in zip(starts, lines) if not is_blank(line)]


def builds(build, record):
    try:
        build(record)
        return True
    except TextError:
        return False


def keyed(rows, keys):
    """(line, record) of each data row; the header is one that gives no record."""
    records = keyed_records([cells for _, cells in rows], keys)
    return zip([line for line, _ in rows][len(rows) - len(records):], records)


def of_lastpass(path):
    return [line for line, record in keyed(rows_with_lines(path), lastpass.ALL_KEYS)
            if not builds(lastpass.build_note if lastpass.is_note(record) else lastpass.build_password, record)]


def of_keepass(path):
    rows = rows_with_lines(path)
    fork = keepass.fork_of([cells for _, cells in rows])
    return [line for line, record in keyed(rows, fork.all_keys)
            if not builds(keepass.build_password, (fork, record))]


def of_dashlane(path):
    # Only a row with a brace is asked further, since the reference does not know all characters.
    return [line for line, cells in rows_with_lines(path)
            if len(cells) <= 4 or ("{" in "".join(cells) and not dashlane.is_password(cells))]


LEFT_OUT = {"lastPass": of_lastpass, "keePass": of_keepass, "keePassXC": of_keepass, "dashlane": of_dashlane}
