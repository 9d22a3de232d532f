#!/usr/bin/python3 -B
# SPDX-License-Identifier: Apache-2.0
"""Tests of the transcript runner itself: the notation, and that a single wrong byte does not pass.

  replay_test.py EPON-HOST FOLDER     FOLDER takes what the runner writes
"""

import os
import subprocess
import sys

from transcript import Printed, Typed, TranscriptError, parse, render

HERE = os.path.dirname(os.path.abspath(__file__))

GOOD = "\n".join([
    "# Help and a refused word", "", "@session 1 socket", "Console of VNS. Type ? for the commands, help for a first tour.",
    "VNS> {frobnicate}", "     ^", "% Unknown command.", "VNS> {quit}", "@closed", ""])

# Each change of the good transcript must be noticed.
CHANGES = [
    ("% Unknown command.", "% Unknown command"),
    ("% Unknown command.", "% Unknown command.\\s"),
    ("% Unknown command.", "% Unknown  command."),
    ("% Unknown command.\n", "% Unknown command.\\n\\\n"),
    ("% Unknown command.\n", ""),
    ("% Unknown command.", "% Unknown command.\n"),
    ("% Unknown command.", "% Unknown \\/[0-9]+/."),
    ("     ^", "      ^"),
    ("VNS> {quit}\n@closed\n", "VNS> {}\nVNS> "),
    ("VNS> {quit}\n@closed\n", "VNS> {help}\nVNS> \\\n@closed\n"),
    ("VNS> {quit}\n@closed\n", "VNS> {quit}\n"),
    ("{frobnicate}", "{!frobnicate}frobnicate"),
]
SAME = [
    ("@session 1 socket\n", ""),  # over TCP the console echoes, on the local socket the terminal does: it looks the same
    ("% Unknown command.", "% Unknown \\/[a-z]+/."),
    ("% Unknown command.\n", "% Unknown command.\\r\\n\\\n"),
    ("% Unknown command.", "\\x25 Unknown command\\\n."),
]


def replay(host, folder, text):
    path = os.path.join(folder, "runner.txt")
    with open(path, "w", encoding="utf-8") as file:
        file.write("@timeout 1\n" + text)
    return subprocess.run([sys.executable, "-B", os.path.join(HERE, "replay.py"), "--host", host, "--actual-dir", folder,
                           path], capture_output=True, text=True, timeout=120, check=False)


def check_notation():
    for data in (b"plain\r\n", b"blank \r\nx", b"\r\n\r\n", b"a\nb\r\n", b"\x1b[K\r   \r{x} <y> \\ ?\r\n", b"\xff\x00\x80 \xc3\xa9\r\n",
                 b"#no remark\r\n@no directive\r\n", b"\ttab\abell\bback\x7f\r\n"):
        text = render(data, True)
        elements = parse("x\n" + text + "\\", "notation")
        assert all(isinstance(element, Printed) for element in elements), (data, text)
        literal = b"".join(element.literal for element in elements)
        assert literal == b"x\r\n" + data, (data, text, literal)
    typed = [element for element in parse("> {ab<TAB>c?}{!secret}", "notation") if isinstance(element, Typed)]
    assert [element.source for element in typed] == ["{ab<TAB>}", "{c?}", "{!secret}\n"], typed
    assert [element.enter for element in typed] == [False, False, True], typed
    assert typed[0].pieces == [(b"ab", True, False), (b"\t", False, True)], typed[0]
    assert typed[2].pieces == [(b"secret", False, False)], typed[2]
    for wrong in ("{abc", "{<NOKEY>}", "{<TAB}", "\\q", "\\x4", "\\/abc", "@unknown"):
        try:
            parse(wrong, "notation")
        except TranscriptError:
            continue
        raise AssertionError(f"{wrong!r} was taken")


def check_runner(host, folder):
    for change in [("", ""), *SAME]:
        done = replay(host, folder, GOOD.replace(*change))
        assert done.returncode == 0, (change, done.stdout, done.stderr)
    for change in CHANGES:
        assert change[0] in GOOD, change
        done = replay(host, folder, GOOD.replace(*change))
        assert done.returncode == 1 and not done.stderr, (change, done.stdout, done.stderr)
        assert "+++" in done.stdout or "went on" in done.stdout, (change, done.stdout)
    # What differs is shown, and taken over when recording.
    assert "+% Unknown command." in replay(host, folder, GOOD.replace("Unknown", "unknown")).stdout
    path = os.path.join(folder, "runner.txt")
    subprocess.run([sys.executable, "-B", os.path.join(HERE, "replay.py"), "--host", host, "--record", path], check=True,
                   timeout=120, stdout=subprocess.DEVNULL)
    with open(path, encoding="utf-8") as file:
        assert file.read() == "@timeout 1\n" + GOOD


def main():
    if len(sys.argv) != 3:
        print(__doc__, file=sys.stderr)
        return 2
    check_notation()
    check_runner(os.path.abspath(sys.argv[1]), os.path.abspath(sys.argv[2]))
    return 0


if __name__ == "__main__":
    sys.exit(main())
