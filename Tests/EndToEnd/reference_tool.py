"""Stands in for the tool in the tests of the driver: prints what the references say.

usage: reference_tool.py LIE import --source SOURCE --format json --reveal PATH...
LIE names one way in which to be wrong, or is "honest".
"""
import json
import os
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from references.errors import TEXT_DOMAIN  # noqa: E402
from sources import SOURCES  # noqa: E402


def first_record(result):
    return ((result.get("passwords") or []) + (result.get("notes") or []) + [{}])[0]


def fewer_records(result):
    result.get("passwords", [0])[:1] = []


def other_order(result):
    result.get("passwords", []).reverse()


def empty_for_absent(result):
    record = first_record(result)
    if record.get("color", 0) is None:
        record["color"] = 0


def fraction_for_integer(result):
    record = first_record(result)
    if record.get("color") is not None:
        record["color"] = float(record["color"])


def missing_member(result):
    first_record(result).pop("color", None)


def more_members(result):
    result["count"] = 0


def other_code(result):
    if "error" in result:
        result["error"]["code"] += 1


def other_domain(result):
    if "error" in result:
        domain = result["error"]["domain"]
        result["error"]["domain"] = "Text" if domain == "Rellinor.JSONError" else "Rellinor.JSONError"


def changing_domain(result, calls=[]):
    if "error" in result and result["error"]["domain"] == "Text":
        calls.append(1)
        result["error"]["domain"] += str(len(calls) % 2)


def success_for_error(result):
    if "error" in result:
        result.clear()
        result.update({"passwords": [], "notes": [], "cards": []})


def error_for_success(result):
    if "error" not in result:
        result.clear()
        result["error"] = {"domain": "Text", "code": 1}


CHANGES = {change.__name__: change for change in (
    fewer_records, other_order, empty_for_absent, fraction_for_integer, missing_member, more_members, other_code,
    other_domain, changing_domain, success_for_error, error_for_success)}
# Wrong otherwise than by a changed result.
OTHER_LIES = ["status", "no_last_line", "no_line_end", "no_json", "key_twice", "no_utf8", "crash", "silent",
              "noisy"]


def main(arguments):
    lie, source, paths = arguments[0], SOURCES[arguments[3]], arguments[7:]
    if arguments[1:3] != ["import", "--source"] or arguments[4:7] != ["--format", "json", "--reveal"]:
        return 2
    lines, failed = [], False
    for path in paths:
        result = source.import_file(path)
        if "error" in result:
            failed = True
            if lie != "silent":
                print("rellinor: %s: not imported as %s: some reason" % (path, arguments[3]), file=sys.stderr)
        elif lie == "noisy":
            print("rellinor: %s: some news" % path, file=sys.stderr)
        if "error" in result and result["error"]["domain"] == TEXT_DOMAIN:
            result["error"]["domain"] = "Text"
        if lie in CHANGES:
            CHANGES[lie](result)
        lines.append(json.dumps(result).encode())
    if lie == "no_json":
        lines[0] = lines[0][:-1]
    if lie == "key_twice":
        lines[0] = b'{"notes":[],' + lines[0][1:]
    if lie == "no_utf8":
        lines[0] = lines[0][:1] + b'"\xff":0,' + lines[0][1:]
    if lie == "no_last_line":
        lines.pop()
    if lie == "crash":
        os.abort()
    end = b"" if lie == "no_line_end" else b"\n"
    sys.stdout.buffer.write(b"\n".join(lines) + (end if lines else b""))
    return int(failed) ^ (lie == "status")


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
