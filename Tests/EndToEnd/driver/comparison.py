"""Comparison of what the tool prints with what it must print."""
from driver.batches import batches
from driver.standard_error import complaints
from driver.tool import Malformed, parse_line
from references.errors import DECLARED_DOMAINS, TEXT_DOMAIN

LISTS = ["passwords", "notes", "cards"]


def same(a, b):
    if type(a) is not type(b):
        return False
    if isinstance(a, dict):
        return a.keys() == b.keys() and all(same(a[key], b[key]) for key in a)
    if isinstance(a, list):
        return len(a) == len(b) and all(same(x, y) for x, y in zip(a, b))
    return a == b


def domain_of_text(wanted, got):
    """The domain that the tool gives thrown texts, where one was due and GOT is such an error, else None."""
    if wanted["error"]["domain"] != TEXT_DOMAIN or not isinstance(got, dict) or not isinstance(got.get("error"), dict):
        return None
    domain = got["error"].get("domain")
    if not isinstance(domain, str) or domain == "" or domain in DECLARED_DOMAINS:
        return None
    return domain


class Comparison:
    def __init__(self, tool, files, report):
        self.tool, self.expected, self.report = tool, files.expected, report
        self.compared = self.failures = 0
        self.records = dict.fromkeys(LISTS, 0)
        self.statuses, self.domains, self.text_domains = {}, set(), set()

    def run(self, random_):
        for group in batches(random_, self.expected):
            status, lines, errors = self.tool.call(group)
            if lines is None and len(group) > 1:
                self.report.add(None, "%d lines" % len(group), "status %s, stderr %r" % (status, errors[:500]),
                                "call of %d files gave no usable output; going through them one by one" % len(group))
                for path in group:
                    self.compare_call([path], *self.tool.call([path]))
            else:
                self.compare_call(group, status, lines, errors)
        if len(self.text_domains) > 1:
            self.report.add(None, "one fixed domain", sorted(self.text_domains), "domains of thrown texts")

    def compare_call(self, group, status, lines, errors):
        if lines is None:
            self.report.add(group[0], self.expected[group[0]], "status %s, stderr %r" % (status, errors[:500]),
                            "no line")
            return
        self.statuses[status] = self.statuses.get(status, 0) + 1
        for path, line in zip(group, lines):
            self.compare_line(path, line)
        failed = {path for path in group if "error" in self.expected[path]}
        for complaint in complaints(errors, group, failed)[:1]:
            self.report.add(group[0], "one line for each failure, and gists", complaint, "standard error")
        wanted = 1 if failed else 0
        if status != wanted:
            self.report.add(group[0], "exit status %d" % wanted, "exit status %s, stderr %r" % (status, errors[:500]),
                            "call of %d files, the first of them shown" % len(group))

    def compare_line(self, path, line):
        self.compared += 1
        wanted = self.expected[path]
        try:
            got = parse_line(line)
        except Malformed as error:
            self.report.add(path, wanted, line[:1000], "bad JSON: %s" % error)
            return
        if "error" in wanted:
            self.failures += 1
            domain = domain_of_text(wanted, got)
            if domain is not None:
                self.text_domains.add(domain)
                wanted = {"error": dict(wanted["error"], domain=domain)}
            self.domains.add(wanted["error"]["domain"])
        else:
            for name in LISTS:
                self.records[name] += len(wanted[name])
        if not same(wanted, got):
            self.report.add(path, wanted, got)
