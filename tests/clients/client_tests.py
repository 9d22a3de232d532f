# SPDX-License-Identifier: Apache-2.0
"""What the client tests share: the command line, and running the functions of a file named test_..."""

import argparse
import os
import subprocess
import sys
import tempfile
import time
import traceback

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "harness"))

from host_process import DEFAULT_PROGRAM, HostError, HostProcess

# Enough to reach an OLT of the demo network and to see that the answers are those of its commands.
SESSION = ["enable", "configure terminal", "olt 0", "set max-rtt 12000", "show olt parameters", "set max-rtt 70000",
           "end"]
ANSWERS = [b"12000", b"not in the range 0-65534"]


# A network of 2,000 links with much to tell.
BIG_NETWORK = """name = "BIG"

[life]
alarm_interval = 0.005

[[olt]]
first = 0
count = 8
mac = "02-4e-50-70-00-00"

[[olt.onu]]
first = 0
count = 250
mac = "02-4e-50-80-00-00"
"""
LINKS = 2000
USER, PASSWORD = "anna", "open sesame"

time_scale = 1.0  # how much longer than usual things may take: sanitizers make programs slow


def run(tests, options=()):
    """Runs each test with a host of its own: test(host, console). options may be a function that gets a folder for
    files and the path of epon-console. Returns the exit code."""
    global time_scale
    parser = argparse.ArgumentParser()
    parser.add_argument("--host", default=DEFAULT_PROGRAM)
    parser.add_argument("--console", default=os.path.join(os.path.dirname(DEFAULT_PROGRAM), "epon-console"))
    parser.add_argument("--time-scale", type=float, default=1.0)
    arguments = parser.parse_args()
    time_scale = arguments.time_scale
    console = os.path.abspath(arguments.console)
    failed = 0
    for test in tests:
        try:
            with tempfile.TemporaryDirectory() as folder:
                wanted = options(folder, console) if callable(options) else options
                with HostProcess(arguments.host, wanted) as host:
                    test(host, console)
            print(f"{test.__name__}: good")
        except Exception:  # of any client library
            print(f"{test.__name__}: FAILED")
            traceback.print_exc(file=sys.stdout)
            failed += 1
    return 1 if failed else 0


def big_guarded_network(folder, console):
    """Options for 2,000 links, a user and a journal."""
    files = {name: os.path.join(folder, name) for name in ("network.toml", "users", "journal")}
    with open(files["network.toml"], "w", encoding="utf-8") as file:
        file.write(BIG_NETWORK)
    hashed = subprocess.run([console, "--hash-password"], input=PASSWORD.encode(), stdout=subprocess.PIPE, timeout=60,
                            check=True)
    with open(os.open(files["users"], os.O_WRONLY | os.O_CREAT, 0o600), "w", encoding="utf-8") as file:
        file.write(f"{USER}:admin:{hashed.stdout.decode()}")
    return ["--scenario", files["network.toml"], "--users", files["users"], "--sdk-log", files["journal"]]


def journal(host):
    """The SDK calls of the host so far, one a line."""
    with open(host.options[host.options.index("--sdk-log") + 1], encoding="utf-8") as file:
        return file.read().splitlines()


class Stopwatch:
    """Measures steps, prints what they took, and knows the limits."""

    def __init__(self, client):
        self.client = client
        self.start = time.monotonic()

    def step(self, what, limit=None):
        took = time.monotonic() - self.start
        print(f"  {self.client}: {what} {took * 1000:.1f} ms")
        if limit is not None:
            assert took < limit * time_scale, f"{self.client}: {what} took {took:.2f} s"
        self.start = time.monotonic()


def expect_in_order(text, parts):
    """Asserts that the parts occur in the text one after the other."""
    position = 0
    for part in parts:
        found = text.find(part, position)
        assert found >= 0, f"{part!r} does not come (any more) in {text!r}"
        position = found + len(part)
