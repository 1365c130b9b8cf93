"""Differences, as they are shown and counted."""
import os

from references.files import read_bytes

SHOWN = 50          # differences printed in full; all are counted and their files kept


class Report:
    def __init__(self):
        self.differences = 0
        self.failing = []           # paths

    def add(self, path, expected, got, note=""):
        self.differences += 1
        if path is not None and path not in self.failing:
            self.failing.append(path)
        if self.differences > SHOWN:
            return
        print("DIFFERENCE" + (" (" + note + ")" if note else ""))
        if path is not None:
            data = read_bytes(path)
            print("  file     %s (%s)" % (path, "no regular file" if data is None else "%d bytes" % len(data)))
            print("  bytes    %r" % (data[:300] if data is not None else None))
        print("  expected %.3000s" % (expected,))
        print("  got      %.3000s" % (got,))

    def keep_failing(self, folder):
        """Removes all files but those with a difference."""
        for name in os.listdir(folder):
            path = os.path.join(folder, name)
            if path in self.failing or path.removesuffix(".target") in self.failing:
                continue
            if os.path.isdir(path) and not os.path.islink(path):
                os.rmdir(path)
            else:
                os.unlink(path)
