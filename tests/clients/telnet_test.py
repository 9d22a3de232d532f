#!/usr/bin/python3 -B
# SPDX-License-Identifier: Apache-2.0
"""The telnet program, driven by expect, as an operator uses it."""

import os
import subprocess
import sys

import client_tests

SCRIPT = os.path.join(os.path.dirname(os.path.abspath(__file__)), "telnet_session.exp")


def test_operator_at_telnet(host, _):
    done = subprocess.run(["expect", "-f", SCRIPT, str(host.port), "0"], stdin=subprocess.DEVNULL,
                          capture_output=True, timeout=200, check=False)
    assert done.returncode == 0, done.stdout.decode("utf-8", "replace")


def test_three_operators_at_once(host, _):
    running = [subprocess.Popen(["expect", "-f", SCRIPT, str(host.port), olt], stdin=subprocess.DEVNULL,
                                stdout=subprocess.PIPE) for olt in ("0", "1", "3")]
    results = [(process.communicate(timeout=200)[0], process.returncode) for process in running]
    for output, status in results:
        assert status == 0, output.decode("utf-8", "replace")


if __name__ == "__main__":
    sys.exit(client_tests.run([test_operator_at_telnet, test_three_operators_at_once]))
