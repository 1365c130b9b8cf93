"""The stores that are compared."""
from dataclasses import dataclass

from . import tools


@dataclass(frozen=True)
class Store:
    name: str           # as rellinor-generate names it
    title: str
    source: str         # as rellinor names it
    format: str         # csv, json or sqlite
    file: str = ""      # within the profile folder, if there is one

    def file_of(self, path):
        return path / self.file if self.file else path

    def programs(self):
        """The peers in other languages, as rellinor-compare is told of them."""
        if self.format == "sqlite":
            return []
        names = {f"python-{self.format}": f"python_{self.format}.py"}
        if self.format == "csv" and tools.has_papaparse():
            names["papaparse"] = "papaparse.mjs"
        return [word for name, file in names.items()
                for word in ("--program", f"{name}={tools.PEERS / file}")]


STORES = {store.name: store for store in (
    Store("lastPass", "LastPass", "lastPass", "csv"),
    Store("keePass", "KeePass", "keePass", "csv"),
    Store("keePassXC", "KeePassXC", "keePassXC", "csv"),
    Store("dashlane", "Dashlane", "dashlane", "csv"),
    Store("tirel", "Tirel", "tirel", "json"),
    Store("onePassword", "1Password", "onePassword", "json"),
    Store("firefox", "Firefox, logins.json", "firefox", "json", "logins.json"),
    Store("firefoxSignons", "Firefox, signons.sqlite", "firefox", "sqlite", "signons.sqlite"),
    Store("chrome", "Chrome", "chrome", "sqlite"),
)}

# Everybody who takes part, in the order of tables and plots.
CONTESTANTS = {
    "import": "Rellinor",
    "faithful": "Rellinor, faithfully",
    "floor": "floor",
    "libcsv": "libcsv",
    "simdjson-ondemand": "simdjson, on demand",
    "simdjson-dom": "simdjson, DOM",
    "rapidjson": "RapidJSON",
    "nlohmann-json": "nlohmann::json",
    "sqlite-nothing": "SQLite, keeping nothing",
    "sqlite": "SQLite, filling structs",
    "python-csv": "Python's csv",
    "python-json": "Python's json",
    "papaparse": "Papa Parse",
}

# These have no bound, and take most of the time: python-csv, which has one, is not among them.
SLOW = ("nlohmann-json", "python-json", "papaparse")
