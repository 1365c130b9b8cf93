"""The sources that have a reference and a generator, by the names that the tool knows."""
import generators.dashlane
import generators.keepass
import generators.lastpass
import generators.onepassword
import generators.tirel
import references.dashlane
import references.keepass
import references.lastpass
import references.onepassword
import references.tirel


class Source:
    def __init__(self, name, reference, generator):
        self.name = name
        self.import_file = reference.import_file
        self.generator = generator.Generator


SOURCES = {name: Source(name, reference, generator) for name, reference, generator in [
    ("lastPass", references.lastpass, generators.lastpass),
    ("dashlane", references.dashlane, generators.dashlane),
    ("onePassword", references.onepassword, generators.onepassword),
    ("tirel", references.tirel, generators.tirel),
    ("keePass", references.keepass, generators.keepass),
    ("keePassXC", references.keepass, generators.keepass),
]}
