"""SQLite files, told apart by what they hold: their bytes depend on the version of SQLite."""
import contextlib
import os
import sqlite3
import tempfile
from pathlib import Path

FIXTURES = Path(__file__).resolve().parents[2] / "Tests" / "Fixtures"


def schema(name):
    return (FIXTURES / name).read_text(encoding="utf-8")


def dump(path):
    """All that a database holds, as SQL."""
    address = path.resolve().as_uri() + "?mode=ro"
    with contextlib.closing(sqlite3.connect(address, uri=True)) as database:
        database.text_factory = lambda text: text.decode(errors="surrogateescape")
        settings = [f"PRAGMA {name} = {database.execute(f'PRAGMA {name}').fetchone()[0]};"
                    for name in ("page_size", "encoding", "user_version")]
        return "\n".join([*settings, *database.iterdump()])


def write_database(path, fill):
    """Has `fill` make a database at `path`; false if the same is there already."""
    handle, name = tempfile.mkstemp(dir=path.parent)
    os.close(handle)
    made = Path(name)
    try:
        with contextlib.closing(sqlite3.connect(made)) as database:
            fill(database)
            database.commit()
        if _holds_the_same(path, made):
            return False
        made.chmod(0o644)
        made.replace(path)
        return True
    finally:
        made.unlink(missing_ok=True)


def _holds_the_same(path, made):
    try:
        return path.exists() and dump(path) == dump(made)
    except sqlite3.DatabaseError:
        return False
