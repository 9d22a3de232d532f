#!/usr/bin/python3 -B
# SPDX-License-Identifier: Apache-2.0
"""Lines piped into a connection: netcat on TCP, socat on the local socket."""

import subprocess
import sys

import client_tests


def answers(command, lines):
    done = subprocess.run(command, input="".join(line + "\n" for line in lines).encode(), stdout=subprocess.PIPE,
                          timeout=60, check=False)
    assert done.returncode == 0, (command, done.returncode, done.stdout)
    return done.stdout


def test_netcat(host, _):
    """All lines in one piece, and the end right behind them: every answer still comes."""
    output = answers(["nc", "-N", "127.0.0.1", str(host.port)], client_tests.SESSION)
    client_tests.expect_in_order(output, client_tests.ANSWERS)
    assert output.endswith(b"# "), output


def test_netcat_logs_out(host, _):
    output = answers(["nc", "127.0.0.1", str(host.port)], [*client_tests.SESSION, "logout"])
    client_tests.expect_in_order(output, client_tests.ANSWERS)


def test_socat(host, _):
    output = answers(["socat", "-t", "30", "-", f"UNIX-CONNECT:{host.socket_path}"], client_tests.SESSION)
    client_tests.expect_in_order(output, client_tests.ANSWERS)
    assert b"configure terminal" not in output and b"\xff" not in output, output


def test_thousand_lines(host, _):
    """A pasted file is carried out in full and in order."""
    lines = ["enable", "configure terminal", "olt 0"]
    for value in range(1000, 2000):
        lines.append(f"set max-rtt {value}")
    lines += ["show olt parameters", "end"]
    output = answers(["nc", "-N", "127.0.0.1", str(host.port)], lines)
    client_tests.expect_in_order(output, [b"set max-rtt 1000\r\n", b"set max-rtt 1500\r\n", b"set max-rtt 1999\r\n",
                                         b"1999"])
    assert output.count(b"(OLT0)# ") == 1002, output.count(b"(OLT0)# ")


if __name__ == "__main__":
    sys.exit(client_tests.run([test_netcat, test_netcat_logs_out, test_socat, test_thousand_lines]))
