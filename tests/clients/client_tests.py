# SPDX-License-Identifier: Apache-2.0
"""What the client tests share: the command line, and running the functions of a file named test_..."""

import argparse
import os
import sys
import traceback

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "harness"))

from host_process import DEFAULT_PROGRAM, HostError, HostProcess

# Enough to reach an OLT of the demo network and to see that the answers are those of its commands.
SESSION = ["enable", "configure terminal", "olt 0", "set max-rtt 12000", "show olt parameters", "set max-rtt 70000",
           "end"]
ANSWERS = [b"12000", b"not in the range 0-65534"]


def run(tests, options=()):
    """Runs each test with a host of its own: test(host, console). Returns the exit code."""
    parser = argparse.ArgumentParser()
    parser.add_argument("--host", default=DEFAULT_PROGRAM)
    parser.add_argument("--console", default=os.path.join(os.path.dirname(DEFAULT_PROGRAM), "epon-console"))
    arguments = parser.parse_args()
    failed = 0
    for test in tests:
        try:
            with HostProcess(arguments.host, options) as host:
                test(host, os.path.abspath(arguments.console))
            print(f"{test.__name__}: good")
        except (AssertionError, HostError, OSError):
            print(f"{test.__name__}: FAILED")
            traceback.print_exc(file=sys.stdout)
            failed += 1
    return 1 if failed else 0


def expect_in_order(text, parts):
    """Asserts that the parts occur in the text one after the other."""
    position = 0
    for part in parts:
        found = text.find(part, position)
        assert found >= 0, f"{part!r} does not come (any more) in {text!r}"
        position = found + len(part)
