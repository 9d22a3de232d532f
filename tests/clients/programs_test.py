#!/usr/bin/python3 -B
# SPDX-License-Identifier: Apache-2.0
"""The programs that people have, each at a terminal of its own: what an operator does with them goes the same way."""

import os
import re
import sys
import threading

import client_tests
import pexpect

PASTED = 1000
PROMPT = r"BIG[^\r\n]*[>#] $"


def programs(host, console):
    tcp = f"TCP:127.0.0.1:{host.port}"
    return {
        "telnet": ["telnet", "127.0.0.1", str(host.port)],
        "plink": ["plink", "-telnet", "-P", str(host.port), "127.0.0.1"],
        "nc": ["nc", "127.0.0.1", str(host.port)],
        "socat": ["socat", "-,raw,echo=0", tcp],
        "epon-console": [console, "--socket", host.socket_path],
    }


class Operator:
    """Someone at a program."""

    def __init__(self, name, command):
        self.watch = client_tests.Stopwatch(name)
        self.name = name
        # nc leaves the terminal as it is, whose echo would fall into the middle of what the console prints.
        self.terminal = pexpect.spawn(command[0], command[1:], timeout=60, encoding="utf-8", codec_errors="replace",
                                      dimensions=(24, 200), maxread=65536, echo=name != "nc")
        self.terminal.delaybeforesend = None
        self.line_end = "\n" if name == "nc" else "\r"

    def answer(self, line, pattern=PROMPT):
        """What comes up to the prompt, when it ends in one."""
        self.terminal.send(line + self.line_end)
        self.terminal.expect(pattern)
        return self.terminal.before

    def log_in(self):
        if self.terminal.expect([r"Username: $", PROMPT]) == 0:
            self.answer(client_tests.USER, r"Password: $")
            self.answer(client_tests.PASSWORD)
        self.watch.step("login", 3)
        self.answer("terminal length 0")
        self.answer("enable")
        self.answer("configure terminal")
        self.watch.step("configuration mode")

    def leave(self):
        self.terminal.send("quit" + self.line_end)
        if self.name == "nc":
            self.terminal.sendeof()  # it waits for the end of both sides
        self.terminal.expect(pexpect.EOF)
        self.terminal.close()


def at_each_program(host, console, work):
    for name, command in programs(host, console).items():
        operator = Operator(name, command)
        operator.log_in()
        work(operator)
        operator.leave()


def test_many_rows(host, console):
    def work(operator):
        shown = operator.answer("show simulate links")
        operator.watch.step(f"{client_tests.LINKS} rows", 0.3)
        rows = re.findall(r"^(\d+) +(\d+) +[-0-9a-f]{17} +registered", shown, re.MULTILINE)
        assert rows == [(str(olt), str(link)) for olt in range(8) for link in range(250)], (operator.name, len(rows))

    at_each_program(host, console, work)


def test_pasting_without_waiting(host, console):
    """Every line is carried out, in order, and every answer comes."""
    def work(operator):
        before = len(client_tests.journal(host))
        lines = "".join(f"set max-rtt {10000 + number}{operator.line_end}" for number in range(PASTED))
        operator.answer("olt 0")
        pasting = threading.Thread(target=operator.terminal.send, args=(lines,))
        pasting.start()
        for _ in range(PASTED):
            operator.terminal.expect(r"BIG\(OLT0\)# ")
        pasting.join()
        operator.watch.step(f"{PASTED} pasted lines")
        calls = [call for call in client_tests.journal(host)[before:] if "NEP_update_olt_parameters" in call]
        values = re.findall(r"max_rtt=(\d+)", " ".join(calls))
        assert len(calls) == PASTED, (operator.name, len(calls))
        assert values == [str(10000 + number) for number in range(PASTED)], (operator.name, calls[:3])
        operator.answer("exit")

    at_each_program(host, console, work)


def test_events_during_a_command(host, console):
    """They come behind its answer, each whole; and the prompt is what comes last."""
    def work(operator):
        operator.answer("event-notify", r"\(config\)# ")
        for line in ("simulate fault NEP_get_olt_parameters code 0 count 1 delay 300", "olt 0", "show olt parameters",
                     "no event-notify"):
            operator.terminal.send(line + operator.line_end)
        event = r"(?:alarm: olt \d, |Got Event notification)[^\r\n]*\r*\n\r*"
        operator.terminal.expect(r"OLT_id: 0 \r*\n((?!alarm|Got)[^:\r\n]+: [^\r\n]*\r*\n){13}"
                                 rf"((?:{event})+)BIG\(OLT0\)# ")
        events = operator.terminal.match[2].count("\n")
        operator.watch.step(f"a slow command and {events} events")
        assert events > 10, (operator.name, events)
        operator.terminal.expect(PROMPT)
        operator.answer("end")

    at_each_program(host, console, work)


if __name__ == "__main__":
    os.environ["TERM"] = "xterm"
    sys.exit(client_tests.run([test for name, test in list(globals().items()) if name.startswith("test_")],
                              client_tests.big_guarded_network))
