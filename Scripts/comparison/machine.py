"""Where and with what it was measured."""
import datetime
import os
import re
import shutil
import subprocess
from pathlib import Path

_PACKAGES = ("libcsv-dev", "libsimdjson-dev", "rapidjson-dev", "nlohmann-json3-dev", "libsqlite3-dev",
             "libboost-json1.81-dev")


def description():
    return {"date": datetime.date.today().isoformat(), "machine": _machine(), "versions": _versions()}


def _machine():
    model = re.search(r"^model name\s*: (.*)$", Path("/proc/cpuinfo").read_text(), re.MULTILINE)
    memory = re.search(r"^MemTotal:\s*(\d+) kB", Path("/proc/meminfo").read_text(), re.MULTILINE)
    return (f"{model[1] if model else os.uname().machine}, {os.cpu_count()} processors, "
            f"{int(memory[1]) / 2**20:.0f} GiB of memory, Linux {os.uname().release.partition('-')[0]}")


def _versions():
    versions = [_first_line("g++", "--version"), _first_line("python3", "--version")]
    if shutil.which("node"):
        versions.append("Node.js " + _first_line("node", "--version"))
    for package in _PACKAGES:
        version = _first_line("dpkg-query", "--show", "--showformat=${Version}", package)
        if version:
            versions.append(f"{package} {version}")
    return versions


def _first_line(*command):
    output = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True).stdout
    return output.partition("\n")[0].strip()
