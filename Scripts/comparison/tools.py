"""The programs that measure, and where everything lies."""
import json
import os
import shutil
import subprocess
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
BUILD = ROOT / "build" / "gcc-release"
FOLDER = ROOT / "build" / "benchmark"
PEERS = ROOT / "Benchmarks" / "Peers"
NODE_MODULES = FOLDER / "node_modules"

RELLINOR = BUILD / "Host" / "rellinor"
COMPARE = BUILD / "Benchmarks" / "rellinor-compare"
GENERATE = BUILD / "Benchmarks" / "rellinor-generate"


def build():
    """Installs what is missing and builds what measures."""
    subprocess.run([ROOT / "Scripts" / "install-dependencies", "build", "test", "benchmark"],
                   check=True)
    subprocess.run(["cmake", "--preset", "benchmark"], cwd=ROOT, check=True)
    subprocess.run(["cmake", "--build", "--preset", "benchmark", "--target",
                    "rellinor", "rellinor-compare", "rellinor-generate"], cwd=ROOT, check=True)


def install_papaparse():
    """Into the build folder; without it, or without Node.js, the comparison does without."""
    FOLDER.mkdir(parents=True, exist_ok=True)
    if shutil.which("npm") and not (NODE_MODULES / "papaparse").exists():
        subprocess.run(["npm", "install", "--silent", "--no-save", "--prefix", FOLDER, "papaparse@5"])
    if not has_papaparse():
        print("Doing without Papa Parse, which npm could not install", flush=True)


def has_papaparse():
    return shutil.which("node") is not None and (NODE_MODULES / "papaparse").exists()


def compare(source, path, *options):
    """What rellinor-compare has to say of a store."""
    environment = os.environ | {"RELLINOR_NODE_MODULES": str(NODE_MODULES)}
    output = subprocess.run([COMPARE, source, path, *map(str, options)], check=True,
                            env=environment, stdout=subprocess.PIPE).stdout
    return json.loads(output)


def generate(store, records, path):
    subprocess.run([GENERATE, store, str(records), path], check=True)
