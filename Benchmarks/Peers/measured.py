"""What the peers in Python share: what they make of a store, and how they measure themselves."""
import resource
import sys
import time


class Login:
    __slots__ = ("username", "password", "url", "service")

    def __init__(self, username, password, url, service=""):
        self.username = username
        self.password = password
        self.url = url
        self.service = service

    def texts(self):
        return self.username, self.password, self.url, self.service


class TirelLogin(Login):
    __slots__ = ("note", "color", "pwd_change")

    def __init__(self, username, password, url, service, note, color, pwd_change):
        super().__init__(username, password, url, service)
        self.note = note
        self.color = color
        self.pwd_change = pwd_change

    def texts(self):
        return *super().texts(), self.note


class Note:
    __slots__ = ("title", "content", "color")

    def __init__(self, title, content, color=None):
        self.title = title
        self.content = content
        self.color = color

    def texts(self):
        return self.title, self.content


class Card:
    __slots__ = ("number", "name", "holder", "cvv", "pin", "note", "day", "month", "year")

    def __init__(self, number, name, holder, cvv, pin, note, day, month, year):
        self.number = number
        self.name = name
        self.holder = holder
        self.cvv = cvv
        self.pin = pin
        self.note = note
        self.day = day
        self.month = month
        self.year = year

    def texts(self):
        return self.number, self.name, self.holder, self.cvv, self.pin, self.note


class Records:
    def __init__(self):
        self.logins = []
        self.notes = []
        self.cards = []


def main(readers):
    """Reads the store by the reader of the source, both named on the command line, and prints what
    that took: seconds, peak memory and page faults, then how much was found."""
    source, path = sys.argv[1:]
    read = readers[source]
    base = _status("VmRSS") if _peak_starts_anew() else 0
    faults = resource.getrusage(resource.RUSAGE_SELF).ru_minflt
    start = time.perf_counter()
    records = read(path)
    seconds = time.perf_counter() - start
    faults = resource.getrusage(resource.RUSAGE_SELF).ru_minflt - faults
    peak = max(_status("VmHWM") - base, 0)

    everything = (records.logins, records.notes, records.cards)
    counts = [len(entries) for entries in everything]
    size = sum(len(text.encode()) for entries in everything for entry in entries
               for text in entry.texts())
    start = time.perf_counter()
    del records, everything
    seconds += time.perf_counter() - start
    print(seconds, peak, faults, *counts, size)


def _peak_starts_anew():
    try:
        with open("/proc/self/clear_refs", "w") as file:
            file.write("5")
        return True
    except OSError:
        return False


def _status(name):
    try:
        with open("/proc/self/status") as file:
            return next(int(line.split()[1]) * 1024 for line in file if line.startswith(name))
    except OSError:
        return 0
