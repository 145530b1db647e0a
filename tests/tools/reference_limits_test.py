"""Every limit of docs/live-view-reference.md is the one the library enforces: for each row of its
limits table, an example live view with the member set at the limit passes `liveview validate`,
and with the member one past the limit it is refused with 401.

Usage: reference_limits_test.py LIVEVIEW EXAMPLES_DIR REFERENCE_MD
Prints "N passed, N failed" and exits 1 on any failure.
"""

import copy
import glob
import json
import os
import re
import shutil
import subprocess
import sys
import tempfile

# What a section needs beside the member under test; added where an example lacks it.
SEEDS = {
    "liveViewData.primary.extensionData": {"type": 3, "text": "Call", "pic": "res://call"},
    "liveViewData.external": {"title": "Order", "content": [{"text": "On the way"}],
                              "backgroundColor": "#1A2B3C"},
}
# Members whose example must be of a given kind: one that no example has, and one whose larger
# values need a companion member that only this example gives.
KIND_OF = {"competitionDesc": "score-layout.json", "indicatorType": "progress-layout.json"}


def number(text):
    return int(text.replace(",", ""))


def limit_rows(reference):
    with open(reference, encoding="utf-8") as f:
        text = f.read()
    table = text.split("## Limits", 1)[1].split("\n## ", 1)[0]
    rows = []
    for line in table.splitlines():
        match = re.match(r"\|\s*`([^`]+)`\s*\|\s*([a-z ]+?)\s*\|\s*([0-9,]+)(?:\s+to\s+([0-9,]+))?", line)
        if match:
            path, rule, low, high = match.groups()
            rows.append((path, rule, number(low), number(high) if high else None))
    return rows


def get(document, parts):
    for part in parts:
        if not isinstance(document, dict) or part not in document:
            return None
        document = document[part]
    return document


def base_for(examples, path):
    parts = path.split(".")
    wanted = KIND_OF.get(parts[-1])
    for name, document in examples:
        if name == wanted:
            return copy.deepcopy(document)
    for name, document in examples:
        if get(document, parts) is not None:
            return copy.deepcopy(document)
    return copy.deepcopy(examples[0][1])


def with_member(document, path, value):
    for prefix, seed in SEEDS.items():
        if path.startswith(prefix + "."):
            parent = get(document, prefix.split(".")[:-1])
            section = parent.setdefault(prefix.split(".")[-1], {})
            for name, needed in seed.items():
                section.setdefault(name, copy.deepcopy(needed))
    parts = path.split(".")
    node = document
    for part in parts[:-1]:
        node = node.setdefault(part, {})
    node[parts[-1]] = value
    return document


def values(rule, low, high):
    """(value, accepted) pairs at and one past the limits of a rule."""
    if rule == "text":
        return [("a" * low, True), ("a" * (low + 1), False)]
    if rule == "rich text":
        return [([{"text": "a" * low}], True), ([{"text": "a" * (low + 1)}], False)]
    if rule == "picture":
        def picture(size):
            return {"width": size, "height": 1, "format": "ALPHA_8"}
        return [(picture(low), True), (picture(low + 1), False)]
    if rule == "items":
        def icons(count):
            return [f"res://icon_{i}" for i in range(count)]
        return [(icons(low), True), (icons(high), True), (icons(low - 1), False),
                (icons(high + 1), False)]
    if rule == "entries":
        def entries(count):
            return {f"key{i}": "value" for i in range(count)}
        return [(entries(low), True), (entries(high), True), (entries(low - 1), False),
                (entries(high + 1), False)]
    if rule == "range":
        return [(low, True), (high, True), (low - 1, False), (high + 1, False)]
    raise ValueError(f"unknown rule {rule}")


def main():
    liveview, examples_dir, reference = sys.argv[1:4]
    scratch = tempfile.mkdtemp()
    shutil.copytree(os.path.join(examples_dir, "images"), os.path.join(scratch, "images"))
    os.makedirs(os.path.join(scratch, "liveviews"))
    examples = []
    for path in sorted(glob.glob(os.path.join(examples_dir, "liveviews", "*.json"))):
        with open(path, encoding="utf-8") as f:
            examples.append((os.path.basename(path), json.load(f)))

    rows = limit_rows(reference)
    passed = failed = 0
    for path, rule, low, high in rows:
        for value, accepted in values(rule, low, high):
            document = with_member(base_for(examples, path), path, value)
            file = os.path.join(scratch, "liveviews", "case.json")
            with open(file, "w", encoding="utf-8") as f:
                json.dump(document, f)
            result = subprocess.run([liveview, "validate", file], capture_output=True,
                                    text=True, timeout=60)
            ok = (result.returncode == 0) if accepted else (
                result.returncode == 1 and result.stdout.startswith("401 "))
            if ok:
                passed += 1
            else:
                failed += 1
                shown = json.dumps(value)[:60]
                print(f"FAILED {path} = {shown}: expected {'pass' if accepted else '401'}, "
                      f"exit {result.returncode}\n{result.stdout}{result.stderr}")
    if len(rows) < 30:
        failed += 1
        print(f"FAILED only {len(rows)} rows read from the limits table")
    print(f"{passed} passed, {failed} failed")
    shutil.rmtree(scratch)
    return 0 if failed == 0 else 1


if __name__ == "__main__":
    sys.exit(main())
