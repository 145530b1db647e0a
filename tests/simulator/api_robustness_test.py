#!/usr/bin/python3
"""Every refused call to `liveview serve` answers a 4xx whose JSON body is exactly
{"error", "field"}, naming the member at fault; and a batch of refused calls changes nothing the
simulator holds (held live views, history, clock, apps, rate limit, change count).

Usage: api_robustness_test.py --liveview PATH"""
import argparse
import concurrent.futures
import copy
import http.client
import json
import os
import subprocess
import sys

sys.dont_write_bytecode = True  # leave no cache in the source tree
sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from sim_process import Cases, Simulator, wire_request  # noqa: E402

APP = {"bundle": "com.example.robust", "uid": 20030001}
PUBLISH = {"app": APP, "request": wire_request(7, version=3, title="kept")}
MAX_BODY = 8 * 1024 * 1024
MALFORMED = "the HTTP request is malformed"
TOO_LARGE = f"the body is larger than {MAX_BODY} bytes"
INT32 = "out of range -2147483648..2147483647"
VERSION_RANGE = "out of range 0..4294967295"
MILLIS_RANGE = "out of range 0..4503599627370496"
LIMIT = "expected a whole number 0..100000"
FRAMING = "Content-Length must be one whole number"
JSON_TYPE = "application/json; charset=utf-8"


def edit(body, path, value=KeyError):
    """A copy of body with the member at the dotted path set to value, or removed."""
    body = copy.deepcopy(body)
    *parents, last = path.split(".")
    node = body
    for name in parents:
        node = node[name]
    if value is KeyError:
        del node[last]
    else:
        node[last] = value
    return body


def json_rows(token):
    """(label, "METHOD path", body: dict | bytes | None, status, error, field[, options])."""
    wrong = token[:-1] + ("0" if token[-1] != "0" else "1")
    app = {"app": APP}
    big = b" " * (MAX_BODY + 1)
    pub = "POST /api/publish"
    rate = "POST /api/rate-limit"
    clock = "POST /api/clock"
    fail = "POST /api/fail-next"
    events = "expected a whole number 0..2147483647"
    return [
        ("without a token", pub, PUBLISH, 401, "missing token", "token", {"token": ""}),
        ("a token one digit off", pub, PUBLISH, 401, "wrong token", "token", {"token": wrong}),
        ("a wrong query token", rate + "?token=" + wrong, {"perSecond": 3}, 401, "wrong token",
         "token", {"token": ""}),
        ("an empty query token", "GET /api/clock?token=", None, 401, "wrong token", "token",
         {"token": ""}),
        ("Basic authorization", "POST /api/kill", {}, 401, "wrong token", "token",
         {"token": "", "headers": {"Authorization": "Basic " + token}}),
        ("unknown, without a token", "GET /api/nope", None, 401, "missing token", "token",
         {"token": ""}),
        # The size is refused while the body is read, before any handler looks at the token.
        ("oversized, without a token", pub, big, 413, TOO_LARGE, "", {"token": ""}),
        ("an unknown call", "GET /api/nope", None, 404, "no such call: GET /api/nope", ""),
        ("publish by GET", "GET /api/publish", None, 404, "no such call: GET /api/publish", ""),
        ("held by DELETE", "DELETE /api/held", None, 404, "no such call: DELETE /api/held", ""),
        ("a call below a call", "POST /api/clock/set", {"set": 1}, 404,
         "no such call: POST /api/clock/set", ""),
        ("no such page", "GET /nowhere", None, 404, "no such call: GET /nowhere", "",
         {"token": ""}),
        ("an oversized body", pub, big, 413, TOO_LARGE, ""),
        ("an unclosed object", rate, b"{", 400, "the body is not JSON: syntax error at byte 0", ""),
        ("text after the object", rate, b'{"perSecond": 3} x', 400,
         "the body is not JSON: syntax error at byte 17", ""),
        ("a trailing comma", rate, b'{"perSecond":3,}', 400,
         "the body is not JSON: syntax error at byte 15", ""),
        ("not UTF-8", pub, b"\xff\xfe", 400, "the body is not JSON: syntax error at byte 0", ""),
        ("nesting 65 deep", "POST /api/held", b"[" * 65 + b"]" * 65, 400,
         "the body is not JSON: nested deeper than 64 levels", ""),
        ("a null body", "POST /api/kill", b"null", 400, "the body must be a JSON object", ""),
        ("an array body", pub, b"[]", 400, "the body must be a JSON object", ""),
        ("an empty body", pub, b"", 400, "missing", "app"),
        ("no request", pub, app, 400, "missing", "request"),
        ("a member too many", pub, {**PUBLISH, "priority": 1}, 400, "unknown member", "priority"),
        ("a repeated member", rate, b'{"perSecond":3,"perSecond":-1}', 400, "duplicate member",
         "perSecond"),
        ("a repeated app", pub, b'{"app":{"bundle":"b","uid":1},"app":{"bundle":"","uid":1}}', 400,
         "duplicate member", "app"),
        # Another app's name with a NUL and more after it must not pass for that app.
        ("a NUL in the bundle", pub,
         b'{"app":{"bundle":"com.example.robust\\u0000x","uid":20030001}}', 400,
         "the body is not JSON: a text holds \\u0000 at byte 36; texts cannot hold NUL "
         "characters", ""),
        ("app as text", pub, edit(PUBLISH, "app", "x"), 400, "expected an object", "app"),
        ("app without uid", pub, edit(PUBLISH, "app.uid"), 400, "missing", "app.uid"),
        ("app with a colour", pub, edit(PUBLISH, "app.colour", "red"), 400, "unknown member",
         "app.colour"),
        ("bundle 5", pub, edit(PUBLISH, "app.bundle", 5), 400, "expected a string", "app.bundle"),
        ("an empty bundle", pub, edit(PUBLISH, "app.bundle", ""), 400, "must not be empty",
         "app.bundle"),
        ("uid as text", pub, edit(PUBLISH, "app.uid", "7"), 400, "expected a whole number",
         "app.uid"),
        ("uid 1.5", pub, edit(PUBLISH, "app.uid", 1.5), 400, "expected a whole number", "app.uid"),
        ("uid 2^31", pub, edit(PUBLISH, "app.uid", 2 ** 31), 400, INT32, "app.uid"),
        ("request 5", pub, edit(PUBLISH, "request", 5), 400, "expected an object", "request"),
        ("request without ownerUid", pub, edit(PUBLISH, "request.ownerUid"), 400, "missing",
         "request.ownerUid"),
        ("request id 1e10", pub, edit(PUBLISH, "request.id", 1e10), 400, INT32, "request.id"),
        ("version as text", pub, edit(PUBLISH, "request.content.version", "2"), 400,
         "expected a number", "request.content.version"),
        ("version -1", pub, edit(PUBLISH, "request.content.version", -1), 400, VERSION_RANGE,
         "request.content.version"),
        ("version 2^32", pub, edit(PUBLISH, "request.content.version", 2 ** 32), 400,
         VERSION_RANGE, "request.content.version"),
        ("status 4", pub, edit(PUBLISH, "request.content.status", 4), 400, "unknown status 4",
         "request.content.status"),
        ("content type 7", pub, edit(PUBLISH, "request.content.contentType", 7), 400,
         "unknown content type 7", "request.content.contentType"),
        ("content with a colour", pub, edit(PUBLISH, "request.content.colour", 1), 400,
         "unknown member", "request.content.colour"),
        ("buttons as an object", pub, edit(PUBLISH, "request.actionButtons", {}), 400,
         "expected an array", "request.actionButtons"),
        ("a small keep time as text", pub, edit(PUBLISH, "request.autoDeletedTime", "12"), 400,
         "within ±2^53: expected a number, not text", "request.autoDeletedTime"),
        ("no filter", "POST /api/get", app, 400, "missing", "filter"),
        ("keys as text", "POST /api/get", {**app, "filter": {"bundle": "b", "uid": 1, "id": 1,
                                                             "keys": "k"}},
         400, "expected an array of strings", "filter.keys"),
        ("a number among keys", "POST /api/get", {**app, "filter": {
            "bundle": "b", "uid": 1, "id": 1, "keys": ["k", 2]}}, 400, "expected a string",
         "filter.keys[1]"),
        ("no filter id", "POST /api/get", {**app, "filter": {"bundle": "b", "uid": 1}}, 400,
         "missing", "filter.id"),
        ("slotType as text", "POST /api/enabled", {**app, "slotType": "5"}, 400,
         "expected a whole number", "slotType"),
        ("slotType 2^31", "POST /api/subscribe", {**app, "slotType": 2 ** 31}, 400, INT32,
         "slotType"),
        ("no uid", "POST /api/subscribe", {"app": {"bundle": "b"}}, 400, "missing", "app.uid"),
        ("no button", "POST /api/press", {**app, "id": 7}, 400, "missing", "button"),
        ("id true", "POST /api/press", {**app, "id": True, "button": "b"}, 400,
         "expected a whole number", "id"),
        ("enabled 1", "POST /api/slot", {**app, "enabled": 1}, 400, "expected true or false",
         "enabled"),
        ("no enabled", "POST /api/slot", app, 400, "missing", "enabled"),
        ("no perSecond", rate, {}, 400, "missing", "perSecond"),
        ("perSecond -1", rate, {"perSecond": -1}, 400, "out of range 0..1000000", "perSecond"),
        ("perSecond 1000001", rate, {"perSecond": 1000001}, 400, "out of range 0..1000000",
         "perSecond"),
        ("perSecond 1e400", rate, b'{"perSecond": 1e400}', 400, "out of range 0..1000000",
         "perSecond"),
        ("perSecond 2.5", rate, {"perSecond": 2.5}, 400, "expected a whole number", "perSecond"),
        ("perSecond as text", rate, {"perSecond": "10"}, 400, "expected a whole number",
         "perSecond"),
        ("a burst", rate, {"perSecond": 5, "burst": 2}, 400, "unknown member", "burst"),
        ("nothing", clock, {}, 400, "give exactly one of set, advance and real", ""),
        ("set and advance", clock, {"set": 1, "advance": 1}, 400,
         "give exactly one of set, advance and real", ""),
        ("set -1", clock, {"set": -1}, 400, MILLIS_RANGE, "set"),
        ("advance 2^52+1", clock, {"advance": 2 ** 52 + 1}, 400, MILLIS_RANGE, "advance"),
        ("real false", clock, {"real": False}, 400, "must be true", "real"),
        ("real 1", clock, {"real": 1}, 400, "expected true or false", "real"),
        ("a when", clock, {"when": 1}, 400, "unknown member", "when"),
        ("an unknown call", fail, {"call": "nope", "error": 1}, 400,
         "expected publish, subscribe, getActive or getEnabled", "call"),
        ("call 1", fail, {"call": 1, "error": 1}, 400, "expected a string", "call"),
        ("no error", fail, {"call": "publish"}, 400, "missing", "error"),
        ("error 0", fail, {"call": "publish", "error": 0}, 400,
         "must not be 0: an injected fault answers an error number", "error"),
        ("times as text", fail, {"call": "publish", "error": 1, "times": "1"}, 400,
         "expected a whole number", "times"),
        ("an id without app", "POST /api/held", {"id": 7}, 400,
         "an id needs the app it belongs to", "id"),
        ("id as text", "POST /api/held", {**app, "id": "7"}, 400, "expected a whole number", "id"),
        ("an empty bundle", "POST /api/held", {"app": {**APP, "bundle": ""}}, 400,
         "must not be empty", "app.bundle"),
        ("a member", "POST /api/kill", {"now": True}, 400, "unknown member", "now"),
        ("limit -1", "GET /api/history?limit=-1", None, 400, LIMIT, "limit"),
        ("limit 100001", "GET /api/history?limit=100001", None, 400, LIMIT, "limit"),
        ("limit empty", "GET /api/history?limit=", None, 400, LIMIT, "limit"),
        ("limit abc", "GET /api/history?limit=abc", None, 400, LIMIT, "limit"),
        ("limit +1", "GET /api/history?limit=%2B1", None, 400, LIMIT, "limit"),
        ("limit with a blank", "GET /api/history?limit=%201", None, 400, LIMIT, "limit"),
        ("requests 2", "GET /api/history?requests=2", None, 400, "expected a whole number 0..1",
         "requests"),
        ("no bundle", "GET /api/events?uid=1", None, 400, "missing", "bundle"),
        ("no uid", "GET /api/events?bundle=b", None, 400, "missing", "uid"),
        ("uid -1", "GET /api/events?bundle=b&uid=-1", None, 400, events, "uid"),
        ("uid 2^31", "GET /api/events?bundle=b&uid=2147483648", None, 400, events, "uid"),
    ]


def raw_rows(token):
    """(label, bytes sent as they are, status, error, field). Each would set the rate limit to 3
    if the server took it for a good call."""
    auth = b"Authorization: Bearer " + token.encode() + b"\r\n"
    body = b'{"perSecond":3}'

    def post(line=b"POST /api/rate-limit HTTP/1.1", headers=b"", payload=body, length=True):
        size = b"Content-Length: %d\r\n" % len(payload) if length else b""
        return line + b"\r\nHost: x\r\n" + auth + size + headers + b"\r\n" + payload

    return [
        ("a garbage request line", b"GARBAGE\r\n\r\n", 400, MALFORMED, ""),
        ("binary bytes", b"\x00\xff\xfe\x01\r\n\r\n", 400, MALFORMED, ""),
        ("an empty request line", b"\r\nHost: x\r\n\r\n", 400, MALFORMED, ""),
        ("HTTP version 9.9", post(b"POST /api/rate-limit HTTP/9.9"), 400, MALFORMED, ""),
        ("an unknown method", post(b"FROB /api/rate-limit HTTP/1.1"), 400, MALFORMED, ""),
        ("a request line without version", post(b"POST /api/rate-limit"), 400, MALFORMED, ""),
        ("a target over 8 KiB", post(b"POST /api/rate-limit?x=" + b"a" * 9000 + b" HTTP/1.1"),
         414, MALFORMED, ""),
        ("a header over 8 KiB", post(headers=b"X-Big: " + b"a" * 9000 + b"\r\n"),
         400, MALFORMED, ""),
        ("a chunk size that is not hex",
         post(headers=b"Transfer-Encoding: chunked\r\n", payload=b"zz\r\n" + body + b"\r\n0\r\n\r\n",
              length=False), 400, MALFORMED, ""),
        ("a Content-Length past the body (read times out)",
         post(headers=b"Content-Length: 100\r\n", length=False), 400, MALFORMED, ""),
        ("a Content-Length past 64 bits",
         post(headers=b"Content-Length: 99999999999999999999999\r\n", length=False),
         413, TOO_LARGE, ""),
        ("a Content-Length that is not a number", post(headers=b"Content-Length: abc\r\n",
                                                       length=False), 400, FRAMING, "Content-Length"),
        ("a negative Content-Length", post(headers=b"Content-Length: -5\r\n", length=False), 400,
         FRAMING, "Content-Length"),
        ("two Content-Lengths that differ", post(headers=b"Content-Length: 3\r\n"), 400, FRAMING,
         "Content-Length"),
    ]


def snapshot(sim):
    state = sim.get("/api/state")
    return {"held": sim.post("/api/held", {}), "clock": sim.get("/api/clock"),
            "history": sim.get("/api/history?limit=0&requests=1"),
            "state": {key: state[key] for key in ("apps", "rateLimit", "seq")}}


def check_answer(cases, label, status, content_type, text, want_status, error, field):
    try:
        answer = json.loads(text)
    except ValueError:
        answer = text[:200]
    cases.check(label, (status, content_type, answer) ==
                (want_status, JSON_TYPE, {"error": error, "field": field}),
                f"got {status} {content_type} {answer!r}, want {want_status} "
                f'{{"error": {error!r}, "field": {field!r}}}')


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--liveview", required=True)
    args = parser.parse_args()
    cases = Cases(45)
    sim = Simulator(args.liveview).start()
    sim.post("/api/clock", {"set": 5_000_000})
    sim.post("/api/rate-limit", {"perSecond": 7})
    sim.post("/api/slot", {"app": APP, "enabled": True})
    for request in (PUBLISH["request"], wire_request(8), wire_request(8, status=2, version=2)):
        cases.equal(f"setup publish of id {request['id']} status {request['content']['status']}",
                    sim.post("/api/publish", {"app": APP, "request": request})["code"], 0)
    before = snapshot(sim)

    def raw(row):
        try:
            return row, sim.exchange(row[1], timeout=10, half_close=False)
        except OSError as failure:  # a timeout among them
            return row, (None, repr(failure).encode(), b"")

    # Raw rows run side by side: one of them waits out the server's read timeout.
    with concurrent.futures.ThreadPoolExecutor(max_workers=16) as pool:
        pending = pool.map(raw, raw_rows(sim.token))
        for label, call, body, status, error, field, *options in json_rows(sim.token):
            method, path = call.split(" ")
            raw_body = body if isinstance(body, bytes) else None
            try:
                got = sim.request(method, path, None if raw_body is not None else body,
                                  raw=raw_body, **(options[0] if options else {}))
            except (OSError, http.client.HTTPException) as failure:  # a timeout among them
                got = (None, None, repr(failure).encode())
            check_answer(cases, f"{call.split('?')[0]}: {label}", *got, status, error, field)
        for (label, _, status, error, field), (got_status, got_body, whole) in pending:
            head = whole.partition(b"\r\n\r\n")[0].decode(errors="replace")
            kind = JSON_TYPE if f"Content-Type: {JSON_TYPE}" in head else head
            check_answer(cases, f"raw {label}", got_status, kind, got_body, status, error, field)
    # A second simulator on the same port must not start and share it.
    second = subprocess.run(
        [args.liveview, "serve", "--port", str(sim.port), "--token-file",
         os.path.join(sim.folder, "second.token")], capture_output=True, text=True, timeout=20,
        check=False)
    cases.equal("a second simulator on the port", (second.returncode, second.stderr),
                (2, f"liveview serve: cannot listen on 127.0.0.1:{sim.port} "
                    "(in use? try another --port)\n"))
    after = snapshot(sim)
    for part in before:
        cases.equal(f"refused calls leave {part} as it was", after[part], before[part])
    sim.stop()
    cases.check("the server stops on SIGTERM", sim.process.returncode == 0,
                f"exit status {sim.process.returncode}")
    cases.finish()


if __name__ == "__main__":
    main()
