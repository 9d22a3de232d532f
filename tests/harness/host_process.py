# SPDX-License-Identifier: Apache-2.0
"""Starts epon-host for a test, on a free port and a socket of its own, and stops it again."""

import os
import select
import shutil
import signal
import socket
import subprocess
import tempfile
import time

REPOSITORY = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
DEFAULT_PROGRAM = os.path.join(REPOSITORY, "build", "bin", "epon-host")

START_SECONDS = 30  # generous: sanitizer builds on a loaded machine
STOP_SECONDS = 30
SERVING = "epon-host: console on "


class HostError(Exception):
    """The host did not start, or did not end well; the text says what it printed."""


class HostProcess:
    """A running epon-host. Use it with "with"; leaving the block stops it and checks that it ended cleanly. "@folder" in
    an option is a folder of its own, which is removed with it."""

    def __init__(self, program=DEFAULT_PROGRAM, options=()):
        self.program = program
        self.options = list(options)
        self.folder = None
        self.process = None
        self.port = 0
        self.socket_path = ""
        self.serving_line = ""

    def __enter__(self):
        self.folder = tempfile.mkdtemp(prefix="epon-test-")
        self.socket_path = os.path.join(self.folder, "console")
        try:
            self._start()
        except BaseException:
            shutil.rmtree(self.folder, ignore_errors=True)
            raise
        return self

    def __exit__(self, exception_type, exception, traceback):
        try:
            self.stop(check=exception_type is None)
        finally:
            shutil.rmtree(self.folder, ignore_errors=True)

    def _start(self):
        # Another test may take the free port before the host does: then the host says so and the next one is tried.
        for _ in range(10):
            self.port = free_port()
            command = [self.program, "--port", str(self.port), "--socket", self.socket_path,
                       *(option.replace("@folder", self.folder) for option in self.options)]
            self.errors = open(os.path.join(self.folder, "stderr"), "w+", encoding="utf-8", errors="replace")
            self.process = subprocess.Popen(command, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                                            stderr=self.errors, cwd=REPOSITORY)
            self.serving_line = self._first_line()
            if self.serving_line.startswith(SERVING):
                return
            self.process.kill()
            status = self.process.wait()
            self.process.stdout.close()
            text = self.error_text()
            self.errors.close()
            if "in use" not in text:
                raise HostError(f"{' '.join(command)}: not serving (status {status}): {self.serving_line}\n{text}")
        raise HostError("no free port found")

    def _first_line(self):
        deadline = time.monotonic() + START_SECONDS
        line = b""
        descriptor = self.process.stdout.fileno()
        while not line.endswith(b"\n"):
            ready, _, _ = select.select([descriptor], [], [], max(0, deadline - time.monotonic()))
            byte = os.read(descriptor, 1) if ready else b""
            if not byte:
                break
            line += byte
        return line.decode("utf-8", "replace").rstrip("\n")

    def error_text(self):
        """What the host has written to stderr so far."""
        self.errors.flush()
        with open(self.errors.name, encoding="utf-8", errors="replace") as file:
            return file.read()

    def stop(self, sign=signal.SIGTERM, check=True):
        """Ends the host as an operator would. With check, anything but a clean end is an error."""
        if self.process is None:
            return
        process, self.process = self.process, None
        process.send_signal(sign)
        try:
            status = process.wait(STOP_SECONDS)
        except subprocess.TimeoutExpired:
            process.kill()
            process.wait()
            status = "none: it did not end and was killed"
        process.stdout.close()
        text = self.error_text()
        self.errors.close()
        if check and status != 0:
            raise HostError(f"epon-host ended with status {status}\n{text}")


def free_port():
    """A TCP port that nobody listens on at the moment."""
    with socket.socket(socket.AF_INET, socket.SOCK_STREAM) as probe:
        probe.bind(("127.0.0.1", 0))
        return probe.getsockname()[1]
