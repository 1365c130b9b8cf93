"""The files of the vault: which source reads which path, and who writes and knows them."""
from collections.abc import Callable
from dataclasses import dataclass
from functools import partial

from . import (chrome, dashlane, firefox, keepass, keepassxc, lastpass, onepassword, records,
               tirel)
from .databases import dump, write_database
from .entries import VAULT
from .layouts import LAYOUTS, Sample


@dataclass(frozen=True)
class Store:
    source: str  # as the tool names it
    path: str  # what is imported
    file: str  # what is written; the same, if no profile folder is imported
    arrivals: Callable

    def expected(self):
        """What the tool prints for it."""
        return records.lists(self.arrivals(VAULT))


@dataclass(frozen=True)
class TextStore(Store):
    contents: Callable

    def write(self, folder):
        """Writes it under `folder`; false if the same is there already."""
        path, data = folder / self.file, self.contents(VAULT)
        path.parent.mkdir(parents=True, exist_ok=True)
        if path.exists() and path.read_bytes() == data:
            return False
        path.write_bytes(data)
        return True

    def held(self, folder):
        return (folder / self.file).read_bytes()


@dataclass(frozen=True)
class DatabaseStore(Store):
    fill: Callable

    def write(self, folder):
        path = folder / self.file
        path.parent.mkdir(parents=True, exist_ok=True)
        return write_database(path, partial(self.fill, vault=VAULT))

    def held(self, folder):
        return dump(folder / self.file)


def _text(source, path, module):
    return TextStore(source, path, path, module.arrivals, module.contents)


STORES = (
    DatabaseStore("chrome", "Chrome/Login Data", "Chrome/Login Data", chrome.arrivals, chrome.fill),
    _text("lastPass", "LastPass/export.csv", lastpass),
    _text("dashlane", "Dashlane/export.csv", dashlane),
    _text("onePassword", "OnePassword/export.1pif", onepassword),
    _text("tirel", "Tirel/export.json", tirel),
    _text("keePass", "KeePass/export.csv", keepass),
    _text("keePassXC", "KeePassXC/export.csv", keepassxc),
    TextStore("firefox", "Firefox/current.profile", "Firefox/current.profile/logins.json",
              firefox.arrivals, firefox.contents),
    DatabaseStore("firefox", "Firefox/old.profile", "Firefox/old.profile/signons.sqlite",
                  firefox.arrivals_old, firefox.fill_old),
)

# Every file once, with how it is written and held.
FILES = STORES + tuple(layout for layout in LAYOUTS if not isinstance(layout, Sample))
