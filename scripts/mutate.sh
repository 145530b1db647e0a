#!/usr/bin/env bash
# Mutation check of the test suite: plants the faults of scripts/mutations.txt one at a time in a
# copy of the tree, rebuilds, runs CTest, and reports which faults the suite caught. Slow; not part
# of CI. See docs/testing.md.
#
#   scripts/mutate.sh                  every fault
#   scripts/mutate.sh --only NAME...   only the named faults
#   scripts/mutate.sh --list           each fault and what it breaks, or why it does not apply to
#                                      the working tree; builds nothing
#
# The copy (the working tree without .git and build*/), its build and one log per fault live in
# $MUTATE_DIR (default /tmp/lv-mutate); a second run reuses the build, so only what changed is
# rebuilt. $MUTATE_TEST_TIMEOUT is each test's time limit in seconds (default 300);
# $MUTATE_LIST replaces the fault list (default scripts/mutations.txt).
#
# Exit status: 0 when every fault applied, compiled and was caught; 1 when one did not;
# 2 when the check could not run (bad arguments, or the unmutated tree fails to build or to pass).
set -euo pipefail

ROOT="$(cd "$(dirname "$0")/.." && pwd)"
LIST="${MUTATE_LIST:-$ROOT/scripts/mutations.txt}"
WORK="${MUTATE_DIR:-/tmp/lv-mutate}"
TEST_TIMEOUT="${MUTATE_TEST_TIMEOUT:-300}"
SRC="$WORK/src"
BUILD="$WORK/build"
LOGS="$WORK/logs"
# Files that held a fault since the build last matched the copy; see CopyTree.
MUTATED="$WORK/mutated-files"

usage() {
    echo "usage: scripts/mutate.sh [--list] [--only NAME...]" >&2
    exit 2
}

# The fault list's reader and the one edit that plants a fault.
#   records LIST [NAME...]    name<TAB>file<TAB>breaks per selected fault, in the list's order
#   apply LIST NAME ROOT      plants NAME in ROOT; exit 3 and the reason when it does not apply
#   check LIST ROOT [NAME...] name<TAB>"applies" or the reason<TAB>breaks per selected fault
read -r -d '' FAULT_TOOL <<'PY' || true
import os
import sys

FIELDS = ("name", "file", "find", "replace", "breaks")


def die(message):
    print("mutate: " + message, file=sys.stderr)
    sys.exit(2)


def unescape(value):
    out, i = [], 0
    while i < len(value):
        pair = value[i:i + 2]
        if pair == "\\n":
            out.append("\n")
            i += 2
        elif pair == "\\\\":
            out.append("\\")
            i += 2
        else:
            out.append(value[i])
            i += 1
    return "".join(out)


def parse(path):
    faults, current, names = [], {}, set()

    def finish():
        if not current:
            return
        where = "%s:%d" % (path, current.pop("_line"))
        missing = [field for field in FIELDS if field not in current]
        if missing:
            die("%s: the fault lacks %s" % (where, ", ".join(missing)))
        if current["name"] in names:
            die("%s: a second fault named %s" % (where, current["name"]))
        if not current["find"] or current["find"] == current["replace"]:
            die("%s: %s changes nothing" % (where, current["name"]))
        names.add(current["name"])
        faults.append(dict(current))
        current.clear()

    with open(path, encoding="utf-8") as lines:
        for number, line in enumerate(lines, 1):
            line = line.rstrip("\n")
            if line.startswith("#"):
                continue
            if not line.strip():
                finish()
                continue
            key, colon, value = line.partition(":")
            if not colon or key not in FIELDS:
                die("%s:%d: expected one of %s" % (path, number, ", ".join(f + ":" for f in FIELDS)))
            if key in current:
                die("%s:%d: a second %s: in one fault" % (path, number, key))
            current.setdefault("_line", number)
            value = value.strip(" \t")
            current[key] = unescape(value) if key in ("find", "replace") else value
    finish()
    return faults


def select(faults, names):
    if not names:
        return faults
    known = {fault["name"] for fault in faults}
    unknown = [name for name in names if name not in known]
    if unknown:
        die("no fault named " + ", ".join(unknown) + " (scripts/mutate.sh --list)")
    return [fault for fault in faults if fault["name"] in names]


# The file's text with the fault planted, or None and the reason it does not apply.
def planted(fault, root):
    path = os.path.join(root, fault["file"])
    try:
        with open(path, encoding="utf-8", newline="") as source:
            text = source.read()
    except OSError:
        return None, "does not apply: %s is missing" % fault["file"]
    count = text.count(fault["find"])
    if count != 1:
        return None, "does not apply: the text to find occurs %d times in %s" % (count, fault["file"])
    return text.replace(fault["find"], fault["replace"]), None


def main(argv):
    command, faults = argv[0], parse(argv[1])
    if command == "records":
        for fault in select(faults, argv[2:]):
            print("\t".join((fault["name"], fault["file"], fault["breaks"])))
    elif command == "check":
        for fault in select(faults, argv[3:]):
            reason = planted(fault, argv[2])[1]
            print("\t".join((fault["name"], reason or "applies", fault["breaks"])))
    elif command == "apply":
        fault = select(faults, [argv[2]])[0]
        text, reason = planted(fault, argv[3])
        if text is None:
            print(reason)
            sys.exit(3)
        with open(os.path.join(argv[3], fault["file"]), "w", encoding="utf-8", newline="") as out:
            out.write(text)
    else:
        die("unknown command " + command)


main(sys.argv[1:])
PY

fault_tool() {
    python3 -c "$FAULT_TOOL" "$@"
}

# A fresh copy of the working tree. The archive keeps modification times, so the build only redoes
# what changed since the last run; a file that held a fault when the build last ran is touched, so
# that its faulty object is not taken for current.
CopyTree() {
    rm -rf "$SRC"
    mkdir -p "$SRC" "$BUILD" "$LOGS"
    tar -C "$ROOT" --exclude=./.git --exclude='./build*' -cf - . | tar -C "$SRC" -xf -
    if [[ -f "$MUTATED" ]]; then
        sort -u "$MUTATED" | while read -r file; do
            if [[ -f "$SRC/$file" ]]; then
                touch "$SRC/$file"
            fi
        done
    fi
}

Build() {
    cmake --build "$BUILD" -j2
}

# The whole suite, stopping at the first failure.
RunSuite() {
    ctest --test-dir "$BUILD" -j2 --timeout "$TEST_TIMEOUT" --stop-on-failure --output-on-failure
}

# The first test that did not pass, from a CTest log.
FirstFailure() {
    sed -n 's/^ *[0-9]*\/[0-9]* Test *#[0-9]*: \([^ ]*\) .*\*\*\*.*/\1/p' "$1" | head -n 1
}

# ---- arguments

mode=run
only=()
while [[ $# -gt 0 ]]; do
    case "$1" in
        --list) mode=list ;;
        --only)
            shift
            while [[ $# -gt 0 && "$1" != --* ]]; do
                only+=("$1")
                shift
            done
            [[ ${#only[@]} -gt 0 ]] || usage
            continue
            ;;
        *) usage ;;
    esac
    shift
done

if [[ "$mode" == list ]]; then
    # Checked against the working tree itself, which is only read.
    status=0
    while IFS=$'\t' read -r name outcome breaks; do
        if [[ "$outcome" == applies ]]; then
            printf '%-40s %s\n' "$name" "$breaks"
        else
            printf '%-40s %s\n' "$name" "$outcome"
            status=1
        fi
    done < <(fault_tool check "$LIST" "$ROOT" ${only[@]+"${only[@]}"})
    exit "$status"
fi

mapfile -t records < <(fault_tool records "$LIST" ${only[@]+"${only[@]}"})
[[ ${#records[@]} -gt 0 ]] || exit 2

# ---- the unmutated tree must build and pass, or no result means anything

started=$SECONDS
CopyTree
echo "mutate: copy of $ROOT in $SRC, build in $BUILD, logs in $LOGS"
cmake -S "$SRC" -B "$BUILD" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DCMAKE_C_COMPILER=gcc \
    -DCMAKE_CXX_COMPILER=g++ -DLV_BUILD_TESTS=ON -DLV_BUILD_BENCHMARKS=OFF \
    -DLV_BUILD_FUZZERS=OFF >"$LOGS/configure.log" 2>&1 ||
    { echo "mutate: configuring failed; see $LOGS/configure.log" >&2; exit 2; }
Build >"$LOGS/baseline-build.log" 2>&1 ||
    { echo "mutate: the unmutated tree does not build; see $LOGS/baseline-build.log" >&2; exit 2; }
: >"$MUTATED"
RunSuite >"$LOGS/baseline-test.log" 2>&1 ||
    { echo "mutate: the unmutated suite fails; see $LOGS/baseline-test.log" >&2; exit 2; }
echo "mutate: unmutated tree built and passed in $((SECONDS - started)) s"

# ---- one fault at a time

applied_file=""
Revert() {
    if [[ -n "$applied_file" ]]; then
        cp "$WORK/original" "$SRC/$applied_file"  # a new modification time: rebuilt next time
        applied_file=""
    fi
}
trap Revert EXIT
trap 'exit 130' INT TERM

total=${#records[@]}
killed=0
survived=0
not_applied=0
not_compiled=0
index=0
for record in "${records[@]}"; do
    IFS=$'\t' read -r name file breaks <<<"$record"
    index=$((index + 1))
    log="$LOGS/$name.log"
    fault_started=$SECONDS
    printf '[%2d/%d] %-40s ' "$index" "$total" "$name"
    echo "$file" >>"$MUTATED"
    if [[ -f "$SRC/$file" ]]; then
        cp "$SRC/$file" "$WORK/original"
    fi
    if ! reason=$(fault_tool apply "$LIST" "$name" "$SRC"); then
        not_applied=$((not_applied + 1))
        echo "$reason"
        continue
    fi
    applied_file="$file"
    if ! Build >"$log" 2>&1; then
        not_compiled=$((not_compiled + 1))
        echo "does not compile ($log)"
    elif RunSuite >>"$log" 2>&1; then
        survived=$((survived + 1))
        echo "SURVIVED: $breaks ($((SECONDS - fault_started)) s)"
    else
        killed=$((killed + 1))
        first=$(FirstFailure "$log")
        echo "killed by ${first:-a failing test} ($((SECONDS - fault_started)) s)"
    fi
    Revert
done

echo "killed $killed of $total ($survived survived, $not_applied did not apply," \
    "$not_compiled did not compile) in $((SECONDS - started)) s"
[[ $killed -eq $total ]]
