"""What arrives of a product's file, beside what was put in."""
import dataclasses
import json
import subprocess
from pathlib import Path

from real.running import Unavailable
from real.values import KEY

ANY = object()  # a value that the product alone knows


@dataclasses.dataclass
class Export:
    """A file that a product wrote, and the records that must arrive, by the numbers of their entries."""
    layout: str
    path: Path
    records: dict  # of fields, "extras" of which are lists of values by kind and label
    left_out: dict = dataclasses.field(default_factory=dict)  # reasons, and how many
    findings: dict = dataclasses.field(default_factory=dict)  # kinds and fields, and how many
    unread: dict = dataclasses.field(default_factory=dict)  # parts that must be told, and how many
    opened: object = None  # takes the record that arrived, and opens what is still encrypted in it


def differences(tool, export):
    """How many values were compared, and a line for each that differs."""
    ran = subprocess.run([tool, "import", "--format", "json", "--reveal", str(export.path)],
                         capture_output=True, check=False)
    answer = json.loads(ran.stdout)
    if "error" in answer:
        return 0, [f"cannot be read: {answer['error']}"]
    found = []

    def compare(what, expected, arrived):
        if expected is ANY:
            return 0
        if not (arrived and expected(arrived) if callable(expected) else expected == arrived):
            found.append(f"{what}: {shown(expected)} was put in, {shown(arrived)} arrived")
        return 1

    compared = compare("the layout", export.layout, answer["layout"])
    left_out = {entry["reason"]: entry["count"] for entry in answer["report"]["leftOut"]}
    compared += compare("what is left out", export.left_out, left_out)
    findings = {f"{entry['kind']} {entry['field']}": entry["count"] for entry in answer["report"]["findings"]}
    compared += compare("what is found", export.findings, findings)
    unread = {entry["part"]: entry["count"] for entry in answer["report"]["unread"]}
    compared += compare("what is unread", export.unread, {part: unread.get(part) for part in export.unread})
    compared += compare("notes and cards", [], answer["notes"] + answer["cards"])
    arrived = {}
    for record in answer["passwords"]:
        key = KEY.search(record["url"])
        arrived.setdefault(int(key[1]) if key else record["url"], []).append(record)
    compare("URLs of no entry", [], sorted(map(str, arrived.keys() - export.records.keys())))
    for number, expected in export.records.items():
        records = arrived.get(number, [])
        compare(f"records of entry {number}", 1, len(records))
        if not records:
            continue
        record = dict(records[0])
        record["extras"] = grouped(record["extras"])
        if export.opened:
            try:
                export.opened(record)
            except (ValueError, subprocess.CalledProcessError, Unavailable) as error:
                found.append(f"entry {number} cannot be decrypted: {error}")
                continue
        for field in sorted(expected.keys() - {"extras"}):
            compared += compare(f"{field} of entry {number}", expected[field], record[field])
        extras = expected.get("extras", {})
        for label in sorted(extras.keys() | record["extras"].keys()):
            compared += compare(f"extra {label} of entry {number}", extras.get(label), record["extras"].get(label))
    return compared, found


def grouped(extras):
    """The values of extras, by their kinds and labels."""
    values = {}
    for extra in extras:
        values.setdefault(f"{extra['kind']} {extra['label']}", []).append(extra["value"])
    return values


def shown(value):
    text = value.__name__ if callable(value) else repr(value)
    return text if len(text) <= 120 else f"{text[:80]}… ({len(text)} characters)"
