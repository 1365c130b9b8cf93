"""Everybody who is compared finds the records of small stores, and nobody is believed who does not.

usage: test_compare.py GENERATE COMPARE [PEER...]: the programs, and the peers that were built in
"""
import json
import os
import subprocess
import sys
import tempfile
import unittest

sys.dont_write_bytecode = True
BENCHMARKS = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
GENERATE, COMPARE, *PEERS = sys.argv[1:]

ROWS = 400
ROUNDS = 2

# The source and format of each store, and how many of the rows are records; None if that is drawn.
STORES = {
    "lastPass": ("lastPass", "csv", ROWS),
    "keePass": ("keePass", "csv", ROWS),
    "keePassXC": ("keePassXC", "csv", ROWS),
    "dashlane": ("dashlane", "csv", None),
    "tirel": ("tirel", "json", ROWS),
    "onePassword": ("onePassword", "json", None),
    "firefox": ("firefox", "json", ROWS),
    "firefoxSignons": ("firefox", "sqlite", ROWS),
    "chrome": ("chrome", "sqlite", ROWS - ROWS // 20),
}

READ_FAITHFULLY = {"lastPass", "keePass", "keePassXC"}
JSON_PEERS = {"simdjson-dom", "simdjson-ondemand", "rapidjson", "nlohmann-json"}
PEERS_OF = {
    "csv": {"floor", "python-csv"} | {"libcsv"} & set(PEERS),
    "json": {"floor", "python-json"} | JSON_PEERS & set(PEERS),
    "sqlite": {"sqlite", "sqlite-nothing"},
}


class CompareTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = folder.name

    def store(self, name):
        path = os.path.join(self.folder, name)
        subprocess.run([GENERATE, name, str(ROWS), path], check=True)
        return path

    def program(self, text):
        path = os.path.join(self.folder, "program")
        with open(path, "w") as file:
            file.write("#!/bin/sh\n" + text + "\n")
        os.chmod(path, 0o755)
        return "other=" + path

    def compared(self, *arguments):
        return subprocess.run([COMPARE, *arguments], stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                              text=True)

    def measured(self, *arguments):
        outcome = self.compared(*arguments)
        self.assertEqual((outcome.stderr, outcome.returncode), ("", 0))
        return json.loads(outcome.stdout)

    def test_everybody_finds_the_records(self):
        for name, (source, form, records) in STORES.items():
            with self.subTest(name):
                peer = os.path.join(BENCHMARKS, "Peers", f"python_{form}.py")
                programs = [] if form == "sqlite" else ["--program", f"python-{form}={peer}"]
                result = self.measured(source, self.store(name), "--rounds", str(ROUNDS), *programs)
                self.assertEqual(result["source"], source)
                if records is None:
                    self.assertTrue(ROWS // 2 < result["records"] < ROWS)
                else:
                    self.assertEqual(result["records"], records)
                self.assertTrue(0 < result["delivered"] < result["bytes"])
                faithful = {"faithful"} if name in READ_FAITHFULLY else set()
                self.assertEqual(result["contestants"].keys(), {"import"} | PEERS_OF[form] | faithful)
                for runs in result["contestants"].values():
                    self.assertEqual({key: len(values) for key, values in runs.items()},
                                     {"seconds": ROUNDS, "peak": ROUNDS, "faults": ROUNDS})
                    self.assertTrue(all(0 < seconds < 60 for seconds in runs["seconds"]))
                    self.assertTrue(all(faults > 0 for faults in runs["faults"]))

    def test_the_bytes_are_those_of_the_file(self):
        path = self.store("lastPass")
        self.assertEqual(self.measured("lastPass", path)["bytes"], os.path.getsize(path))

    def test_a_warm_process_reads_many_times(self):
        result = self.measured("lastPass", self.store("lastPass"), "--warm", "--times", "3", "--rounds", "2")
        self.assertEqual(len(result["contestants"]["floor"]["seconds"]), 2)

    def test_a_hostile_store_may_fail(self):
        path = self.store("lastPass")
        self.assertEqual(self.measured("tirel", path, "--hostile")["records"], 0)
        self.assertEqual(self.measured("tirel", path, "--hostile")["contestants"].keys(),
                         {"import", "floor"})

    def test_any_other_store_must_not_fail(self):
        outcome = self.compared("tirel", self.store("lastPass"))
        self.assertEqual((outcome.returncode, outcome.stdout), (1, ""))
        self.assertIn("import: its process failed", outcome.stderr)

    def test_who_is_left_out(self):
        result = self.measured("chrome", self.store("chrome"), "--rounds", "1", "--without", "sqlite",
                               "--without", "nobody")
        self.assertEqual(result["contestants"].keys(), {"import", "sqlite-nothing"})

    def test_one_alone(self):
        self.assertEqual(self.measured("chrome", self.store("chrome"), "--alone", "sqlite"),
                         ROWS - ROWS // 20)

    def test_who_finds_other_records_is_not_believed(self):
        path = self.store("chrome")
        result = self.measured("chrome", path)
        right = f"{result['records']} 0 0 {result['delivered']}"
        believed = self.program(f"echo 0.5 4096 1 {right}")
        self.assertEqual(self.measured("chrome", path, "--rounds", "1", "--program", believed)
                         ["contestants"]["other"], {"seconds": [0.5], "peak": [4096], "faults": [1]})
        for wrong in (f"{result['records'] - 1} 1 0 {result['delivered']}",
                      f"{result['records']} 0 0 {result['delivered'] + 1}"):
            outcome = self.compared("chrome", path, "--program", self.program(f"echo 0.5 4096 1 {wrong}"))
            self.assertEqual((outcome.returncode, outcome.stdout), (1, ""))
            self.assertIn("other found other records", outcome.stderr)

    def test_who_fails_ends_the_comparison(self):
        path = self.store("chrome")
        for text in ("exit 1", "echo", "kill -9 $$"):
            outcome = self.compared("chrome", path, "--program", self.program(text))
            self.assertEqual((outcome.returncode, outcome.stdout), (1, ""))
            self.assertIn("rellinor-compare: other: ", outcome.stderr)

    def test_a_seed_gives_another_store(self):
        for name, (source, _, _) in STORES.items():
            with self.subTest(name):
                path = os.path.join(self.folder, "store")
                results = []
                for seed in ("1", "2", "1"):
                    subprocess.run([GENERATE, name, "100", path, seed], check=True)
                    results.append(self._bytes_below(path))
                    subprocess.run(["rm", "-r", path], check=True)
                self.assertNotEqual(results[0], results[1])
                self.assertEqual(results[0], results[2])

    def _bytes_below(self, path):
        if os.path.isdir(path):
            path = os.path.join(path, *os.listdir(path))
        with open(path, "rb") as file:
            return file.read()


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
