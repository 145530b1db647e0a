"""A `liveview serve` process for tests: started on a free port of 127.0.0.1, called over its
real socket, stopped politely (SIGTERM) or killed (SIGKILL); and the small harness that the
simulator's test programs share (one line per case, a failing exit status, a run-time bound)."""
import atexit
import http.client
import json
import os
import re
import select
import shutil
import signal
import socket
import subprocess
import sys
import tempfile
import time

ADDRESS = re.compile(r"liveview serve: (http://127\.0\.0\.1:(\d+)/\?token=([0-9a-f]+))")
RUNNING = []  # every running simulator, so that a run cut short can still kill them
atexit.register(lambda: [sim.kill() for sim in list(RUNNING)])


class Simulator:
    def __init__(self, liveview, db=None, resources=None):
        self.liveview = liveview
        self.db = db
        self.resources = resources
        self.process = None
        self.url = self.port = self.token = None
        self.folder = tempfile.mkdtemp(prefix="liveview-serve-")
        self.token_file = os.path.join(self.folder, "token")

    def start(self, timeout=10):
        command = [self.liveview, "serve", "--port", "0", "--token-file", self.token_file]
        if self.db:
            command += ["--db", self.db]
        if self.resources:
            command += ["--res", self.resources]
        self.process = subprocess.Popen(command, stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        RUNNING.append(self)
        line = self._first_line(timeout)
        match = ADDRESS.search(line)
        if not match:
            self.kill()
            raise RuntimeError("liveview serve did not start: " + repr(line))
        self.url, self.port, self.token = match.group(1), int(match.group(2)), match.group(3)
        return self

    def _first_line(self, timeout):
        out, deadline = b"", time.monotonic() + timeout
        while b"\n" not in out and time.monotonic() < deadline:
            ready, _, _ = select.select([self.process.stdout], [], [], 0.1)
            if ready:
                chunk = os.read(self.process.stdout.fileno(), 4096)
                if not chunk:
                    break
                out += chunk
        return out.decode(errors="replace")

    def connection(self, timeout=10):
        return http.client.HTTPConnection("127.0.0.1", self.port, timeout=timeout)

    def request(self, method, path, body=None, token=None, raw=None, connection=None,
                headers=None):
        """(status, content type, body bytes). body is sent as JSON; raw as bytes as it is;
        token "" sends none."""
        own = connection is None
        connection = connection or self.connection()
        sent = {"Content-Type": "application/json"}
        token = self.token if token is None else token
        if token:
            sent["Authorization"] = "Bearer " + token
        sent.update(headers or {})
        data = raw if raw is not None else (None if body is None else json.dumps(body))
        try:
            connection.request(method, path, body=data, headers=sent)
            response = connection.getresponse()
            return response.status, response.getheader("Content-Type"), response.read()
        finally:
            if own:
                connection.close()

    def call(self, method, path, body=None, **kwargs):
        """(status, decoded JSON answer); a body that is not JSON raises ValueError."""
        status, _, text = self.request(method, path, body, **kwargs)
        return status, json.loads(text) if text else None

    def post(self, path, body, **kwargs):
        status, answer = self.call("POST", path, body, **kwargs)
        if status != 200:
            raise AssertionError(f"POST {path}: {status} {answer}")
        return answer

    def get(self, path, **kwargs):
        status, answer = self.call("GET", path, **kwargs)
        if status != 200:
            raise AssertionError(f"GET {path}: {status} {answer}")
        return answer

    def exchange(self, data, timeout=10, half_close=True):
        """Sends bytes as they are on a new connection and reads until the server closes it or one
        whole answer is in: (status or None when nothing came back, body bytes, all bytes)."""
        with socket.create_connection(("127.0.0.1", self.port), timeout=timeout) as sock:
            try:
                sock.sendall(data)
                if half_close:
                    sock.shutdown(socket.SHUT_WR)
            except (BrokenPipeError, ConnectionResetError):
                pass  # the server may answer before it has read everything
            got = b""
            try:
                while not _whole_answer(got):
                    chunk = sock.recv(65536)
                    if not chunk:
                        break
                    got += chunk
            except ConnectionResetError:
                pass
        head, _, body = got.partition(b"\r\n\r\n")
        status = re.match(rb"HTTP/1\.[01] (\d{3}) ", head)
        return (int(status.group(1)) if status else None), body, got

    def stop(self):
        self._end(signal.SIGTERM)

    def kill(self):
        self._end(signal.SIGKILL)

    def _end(self, sig):
        if self.process and self.process.poll() is None:
            self.process.send_signal(sig)
            try:
                self.process.wait(timeout=15)
            except subprocess.TimeoutExpired:
                self.process.kill()
                self.process.wait(timeout=15)
        if self.process:
            for stream in (self.process.stdout, self.process.stderr):
                stream.close()
        if self in RUNNING:
            RUNNING.remove(self)
        shutil.rmtree(self.folder, ignore_errors=True)


def _whole_answer(got):
    head, sep, body = got.partition(b"\r\n\r\n")
    length = re.search(rb"(?im)^content-length:\s*(\d+)\s*$", head)
    return bool(sep) and length is not None and len(body) >= int(length.group(1))


class Cases:
    """Prints one line per case and ends the run with status 1 when any failed. The whole run
    is bounded by seconds: past it every started simulator is killed and the run fails."""

    def __init__(self, seconds):
        self.failures = 0
        signal.signal(signal.SIGALRM, self._out_of_time)
        signal.alarm(seconds)

    @staticmethod
    def _out_of_time(*_):
        print("FAIL the run took longer than its bound", flush=True)
        for sim in list(RUNNING):
            sim.kill()
        os._exit(1)

    def check(self, label, ok, detail=""):
        print(("ok   " if ok else "FAIL ") + label + ("" if ok else ": " + detail), flush=True)
        self.failures += 0 if ok else 1
        return ok

    def equal(self, label, got, want):
        return self.check(label, got == want, f"got {got!r}, want {want!r}")

    def finish(self):
        for sim in list(RUNNING):
            sim.kill()
        print(f"{self.failures} failed" if self.failures else "all passed", flush=True)
        sys.exit(1 if self.failures else 0)


def wire_request(view_id, status=0, version=1, title="", text="", extra=None, keep=-1,
                 target=None):
    """A live view request in the simulator's wire form; status 0 create, 1 update, 2 end,
    3 full update; extra maps keys to (box type, value)."""
    boxes = None if extra is None else {k: {"type": t, "value": v} for k, (t, v) in extra.items()}
    return {"id": view_id, "slotType": 5, "inProgress": True, "autoDeletedTime": keep,
            "wantAgent": None if target is None else {"target": target},
            "content": {"contentType": 1, "title": title, "text": text, "singlePicture": None,
                        "status": status, "version": version, "onlyLocalUpdate": False,
                        "extraInfo": boxes, "pictures": {}},
            "actionButtons": [], "coverActionButtons": False, "ownerBundleName": "",
            "ownerUid": -1}
