"""Generated files on disk."""
import os

import unpinned


class Files:
    """COUNT paths, a few of them no regular files, with the outcome wanted of each."""

    def __init__(self, source, seed, count, folder):
        self.source, self.folder = source, folder
        self.generator = source.generator(seed)
        self.dropped = 0            # drafts whose outcome is not pinned
        self.expected = {}          # by path, in order
        for number in range(count):
            self.add(os.path.join(folder, "f%06d%s" % (number, self.generator.SUFFIX)))

    def add(self, path):
        kind = self.generator.r.random()
        target = path
        if kind < 0.004:
            if 0.001 <= kind < 0.002:                   # below: a missing file
                os.mkdir(path)
            elif 0.002 <= kind < 0.003:
                os.mkfifo(path)
            elif 0.003 <= kind:
                os.symlink("/dev/null", path)
            self.expected[path] = self.source.import_file(path)
            return
        if kind < 0.007:                                # a link to a regular file
            target = path + ".target"
            os.symlink(target, path)
        while True:
            with open(target, "wb") as file:
                file.write(self.generator.file())
            wanted = unpinned.outcome(self.source, path)
            if wanted is not None:
                self.expected[path] = wanted
                return
            self.dropped += 1
