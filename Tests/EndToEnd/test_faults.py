"""The tool on a machine that fails: without memory, with little stack, with files too large for it.

usage: test_faults.py TOOL FAILING_MEMORY STEP [unittest arguments]
FAILING_MEMORY is the library of Faults/failing-memory.c. Each STEP-th request for memory is refused, or each
fifth of these unless the environment has RELLINOR_THOROUGH.
"""
import json
import os
import resource
import shutil
import signal
import sys

from tool_case import Case, main, ROOT

EXPORTS = ROOT / "Examples" / "Exports"
STORES = (("chrome", "Chrome/Login Data"), ("dashlane", "Dashlane/export.csv"),
          ("firefox", "Firefox/current.profile"), ("firefox", "Firefox/old.profile"),
          ("keePass", "KeePass/export.csv"), ("keePassXC", "KeePassXC/export.csv"),
          ("lastPass", "LastPass/export.csv"), ("onePassword", "OnePassword/export.1pif"),
          ("tirel", "Tirel/export.json"))
SOURCES = sorted({source for source, _ in STORES})
NO_MEMORY = "rellinor: there is not enough memory\n"
MANY = 200_000

FAILING_MEMORY, STEP = "", 1


def limited(kind, size):
    return lambda: resource.setrlimit(kind, (size, size))


class FaultCase(Case):
    def run_tool(self, *arguments, environment=None, **options):
        return super().run_tool(*map(str, arguments), env={**os.environ, **(environment or {})},
                                **options)

    def file_of(self, source, folder):
        """Where in a folder a source has its file, and what is imported then."""
        if source == "firefox":
            return folder / "logins.json", folder
        return folder / "export", folder / "export"


class Memory(FaultCase):
    def refusing(self, number, mode, *arguments):
        return self.run_tool(*arguments, environment={
            "LD_PRELOAD": FAILING_MEMORY, "RELLINOR_FAILING_REQUEST": str(number), **mode})

    def first_request(self, mode):
        """The first that the tool itself makes: what the libraries make before ends the process."""
        number = 1
        while self.refusing(number, mode, "sources").returncode == -signal.SIGABRT:
            number += 1
        self.assertLess(number, 30)
        return number

    def test_lack_of_memory_is_told_wherever_it_comes(self):
        told, modes = 0, ({}, {"RELLINOR_FAILING_ON": "1"})
        first = max(map(self.first_request, modes))
        for source, store in STORES:
            arguments = ("import", "--source", source, "--format", "json", EXPORTS / store)
            requests = self.folder / "requests"
            whole = self.run_tool(*arguments, environment={
                "LD_PRELOAD": FAILING_MEMORY, "RELLINOR_REQUESTS": str(requests)})
            self.assertEqual(whole.returncode, 0, whole.stderr)
            count = int(requests.read_text())
            self.assertGreater(count, 100)
            for mode in modes:
                for number in range(first, count + 1, STEP):
                    ended = self.refusing(number, mode, *arguments)
                    what = (source, store, number, mode, ended.stderr)
                    self.assertIn(ended.returncode, (0, 1, 2), what)
                    if ended.returncode == 0:
                        self.assertEqual(ended.stdout, whole.stdout, what)
                        self.assertIn(ended.stderr, ("", whole.stderr), what)
                    elif ended.returncode == 1:
                        error = json.loads(ended.stdout)["error"]
                        self.assertEqual(error["domain"], "Rellinor.UnexpectedError", what)
                        told += 1
                    else:
                        self.assertTrue(ended.stderr.endswith(NO_MEMORY), what)
                        told += 1
        self.assertGreater(told, 50 // STEP)

    def test_lack_of_memory_never_leads_to_something_untrue(self):
        """It is told, as the tool's own or as the import's error, or everything is as usual."""
        told, modes = 0, ({}, {"RELLINOR_FAILING_ON": "1"})
        first = max(map(self.first_request, modes))
        for source, store in STORES:
            for command in (("check", "--source", source), ("detect",)):
                arguments = (*command, EXPORTS / store)
                requests = self.folder / "requests"
                usual = self.run_tool(*arguments, environment={
                    "LD_PRELOAD": FAILING_MEMORY, "RELLINOR_REQUESTS": str(requests)})
                for mode in modes:
                    for number in range(first, int(requests.read_text()) + 1, STEP):
                        ended = self.refusing(number, mode, *arguments)
                        what = (arguments, number, mode, ended.returncode)
                        self.assertIn(ended.returncode, (0, 1, 2), what)
                        if (ended.returncode, ended.stdout) != (usual.returncode, usual.stdout):
                            self.assertNotEqual(ended.returncode, 0, what)
                            self.assertRegex(ended.stdout + ended.stderr,
                                             "[Tt]here is not enough memory|Rellinor.UnexpectedError", what)
                            told += 1
        self.assertGreater(told, 50 // STEP)

    def test_a_file_that_is_too_large_is_told(self):
        files = [(source, *self.file_of(source, self.folder)) for source in SOURCES]
        files.append(("firefox", self.folder / "signons.sqlite", self.folder))
        for source, file, imported in files:
            with open(file, "wb") as stream:
                stream.truncate(5 << 30)
            limit = limited(resource.RLIMIT_AS, 1 << 30)
            ended = self.run_tool("import", "--source", source, "--format", "json", imported,
                                  preexec_fn=limit)
            if file.name == "signons.sqlite" or source == "chrome":  # read in parts, and no database
                self.assertEqual((ended.returncode, json.loads(ended.stdout)["passwords"]), (0, []))
            elif ended.returncode == 1:
                self.assertEqual(json.loads(ended.stdout)["error"],
                                 {"domain": "Rellinor.UnexpectedError", "code": 0})
            else:
                self.assertEqual((ended.returncode, ended.stdout, ended.stderr),
                                 (2, "", NO_MEMORY), source)
            for command in (("check", "--source", source), ("detect",)):
                ended = self.run_tool(*command, imported, preexec_fn=limit)
                self.assertIn(ended.returncode, (0, 1, 2), (source, command, ended.stderr))
                self.assertIn(ended.stderr, ("", NO_MEMORY), (source, command))
            file.unlink()

    def test_a_database_with_nothing_behind_its_pages_is_read(self):
        limit = limited(resource.RLIMIT_AS, 1 << 30)
        for source, store, imported in (
                ("chrome", "Chrome/Login Data", "Login Data"),
                ("firefox", "Firefox/old.profile/signons.sqlite", "")):
            file = self.folder / (imported or "signons.sqlite")
            shutil.copyfile(EXPORTS / store, file)
            os.truncate(file, 5 << 30)
            arguments = ("import", "--source", source, "--format", "json")
            ended = self.run_tool(*arguments, self.folder / imported, preexec_fn=limit)
            expected = self.run_tool(*arguments, (EXPORTS / store).parent / imported)
            self.assertEqual((ended.returncode, ended.stdout), (0, expected.stdout), source)


class Stack(FaultCase):
    """Nothing goes deeper the larger or the more nested a file is."""
    TEXTS = ("[" * MANY, '{"a":' * MANY, "[" * MANY + "]" * MANY, '{"logins":' + '[{"a":' * MANY,
             '{"secureContents":{"fields":[{"value":' * MANY, "{}\n" * MANY, "," * MANY, '"' * MANY,
             '""' * MANY + '"', '","' * MANY, '"\n' * MANY, "<a>" * MANY, "<" * MANY,
             '"' + '\\"' * MANY + '"', "url,username,password,extra,name,grouping,fav\n" + "," * MANY,
             '{"logins":[],"notes":[],"cards":[],"x":' + "[" * 505 + "]" * 505 + "}")

    def test_little_stack_is_enough(self):
        limit = limited(resource.RLIMIT_STACK, 64 << 10)
        for source, store in STORES:
            for command in (("import", "--source", source, "--format", "json"),
                            ("check", "--source", source), ("detect",)):
                ended = self.run_tool(*command, EXPORTS / store, preexec_fn=limit)
                expected = self.run_tool(*command, EXPORTS / store)
                self.assertEqual((ended.returncode, ended.stdout, ended.stderr),
                                 (expected.returncode, expected.stdout, expected.stderr))

    def test_little_stack_is_enough_for_every_sample(self):
        limit = limited(resource.RLIMIT_STACK, 64 << 10)
        samples = [path for path in (ROOT / "Examples" / "Vault").glob("*/*") if path.name[0] != "."]
        self.assertGreater(len(samples), 20)
        for path in samples:
            for command in (("import", "--format", "json", "--output", self.output, "--force"),
                            ("check",), ("detect",)):
                ended = self.run_tool(*command, path, preexec_fn=limit)
                self.assertIn(ended.returncode, (0, 1), (command, path, ended.stderr))

    def test_little_stack_is_enough_for_extreme_texts(self):
        limit = limited(resource.RLIMIT_STACK, 64 << 10)
        for source in SOURCES:
            file, imported = self.file_of(source, self.folder)
            for text in self.TEXTS:
                file.write_text(text)
                for command in (("import", "--source", source), ("check", "--source", source)):
                    ended = self.run_tool(*command, imported, preexec_fn=limit)
                    self.assertIn(ended.returncode, (0, 1), (command, text[:40], ended.stderr))
                if source in ("firefox", "lastPass"):  # it is the same file for the others
                    ended = self.run_tool("detect", imported, preexec_fn=limit)
                    self.assertIn(ended.returncode, (0, 1), (text[:40], ended.stderr))
            file.unlink()


if __name__ == "__main__":
    FAILING_MEMORY, STEP = sys.argv.pop(2), int(sys.argv.pop(2))
    if "RELLINOR_THOROUGH" not in os.environ:
        STEP *= 5
    main(__doc__)
