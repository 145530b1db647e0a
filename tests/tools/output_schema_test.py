"""Every --format json document of the liveview command parses and matches
docs/liveview-output.schema.json: validate and convert of every example live view, play of every
example scenario, and the refusal, unusable-input and warning cases.

Usage: output_schema_test.py LIVEVIEW EXAMPLES_DIR SCHEMA TEST_DATA_DIR
Prints "N passed, N failed" and exits 1 on any failure.
"""

import glob
import json
import os
import subprocess
import sys
import tempfile

import jsonschema


def main():
    liveview, examples, schema_path, data = sys.argv[1:5]
    with open(schema_path, encoding="utf-8") as f:
        schema = json.load(f)
    jsonschema.Draft202012Validator.check_schema(schema)
    validator = jsonschema.Draft202012Validator(schema)
    scratch = tempfile.mkdtemp()
    unknown = os.path.join(scratch, "unknown.json")
    with open(unknown, "w", encoding="utf-8") as f:
        f.write('{"id": 1, "event": "E", "liveViewData": {"primary": {"title": "t", "keeptime": 3}}}')
    broken = os.path.join(scratch, "broken.json")
    with open(broken, "w", encoding="utf-8") as f:
        f.write('{"id": 1,, }')

    runs = []  # (args, expected status, check of the document)
    for live_view in sorted(glob.glob(os.path.join(examples, "liveviews", "*.json"))):
        runs.append((["validate", live_view], 0, lambda d: d["code"] == 0))
        runs.append((["convert", live_view], 0, lambda d: "notificationId" in d["request"]))
    for scenario in sorted(glob.glob(os.path.join(examples, "scenarios", "*.json"))):
        runs.append((["play", scenario], 0, lambda d: d["asExpected"] and len(d["steps"]) > 0))
    runs.append((["validate", os.path.join(data, "timer-negative.json")], 1,
                 lambda d: d["code"] == 401 and d["section"] == "timer" and d["path"] == "timer.time"))
    runs.append((["validate", unknown], 1,
                 lambda d: d["warnings"][0]["path"] == "liveViewData.primary.keeptime" and d["warnings"][0].get("suggestion") == "keepTime"))
    runs.append((["validate", broken], 2, lambda d: d["unusable"]["line"] == 1))

    passed = failed = 0
    for args, status, check in runs:
        label = " ".join([args[0], os.path.basename(args[1])])
        result = subprocess.run([liveview, *args, "--format", "json"], capture_output=True,
                                text=True, timeout=60)
        try:
            document = json.loads(result.stdout)
            validator.validate(document)
            ok = result.returncode == status == document["status"] and check(document)
        except (ValueError, KeyError, IndexError, jsonschema.ValidationError) as error:
            ok = False
            print(f"{label}: {error}")
        if ok:
            passed += 1
        else:
            failed += 1
            print(f"FAILED {label}: exit {result.returncode}\n{result.stdout}{result.stderr}")
    print(f"{passed} passed, {failed} failed")
    return 0 if failed == 0 else 1


if __name__ == "__main__":
    sys.exit(main())
