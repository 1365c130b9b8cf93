"""What an import may write on standard error: for each path at most one line, which names it."""
import re

# Behind the path. A failure may be told apart from what is worth knowing of a success.
FAILURE = re.compile(r"not imported as \w+: \S.*")
GIST = re.compile(r"(\S.* \(rellinor check\b.* tells more\)|this looks like \S.*|There is no row in the file\.)")


def complaints(errors, paths, failed):
    """What is wrong with the bytes ERRORS of a call with PATHS, of which those in FAILED are failures."""
    found = []
    lines = errors.decode("utf-8", "replace").split("\n")
    if lines.pop() != "":
        found.append("a line without an end")
    rest = list(paths)
    for line in lines:
        while rest and not line.startswith("rellinor: %s: " % rest[0]):
            if rest.pop(0) in failed:
                found.append("nothing about a failure")
        if not rest:
            found.append("about no path in its turn: %r" % line)
            break
        path = rest.pop(0)
        said = line[len("rellinor: %s: " % path):]
        if not (FAILURE if path in failed else GIST).fullmatch(said):
            found.append("strange: %r" % line)
    found += ["nothing about a failure" for path in rest if path in failed]
    return found
