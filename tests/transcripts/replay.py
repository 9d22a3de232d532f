#!/usr/bin/python3 -B
# SPDX-License-Identifier: Apache-2.0
"""Replays transcripts against a real epon-host and compares every byte. See transcript.py for the notation.

  replay.py FILE...            each with a host of its own; a difference is shown as a unified diff
  replay.py --record FILE...   writes what really comes back into the files, to be read before it is committed
"""

import argparse
import difflib
import os
import re
import sys
import tempfile
import time

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "harness"))

from console_stream import ConsoleStream
from host_process import DEFAULT_PROGRAM, REPOSITORY, HostError, HostProcess
from transcript import Printed, Remark, TranscriptError, Typed, parse, render

ANSWER_SECONDS = 10.0  # an answer takes at most so long, unless the transcript says otherwise
QUIET_SECONDS = 0.4    # after so long without a byte, an answer that is not known counts as complete
END_SECONDS = 0.2      # nothing may follow the last expected byte for so long


class Replay:
    """One run of a transcript. out collects the transcript's text as it really went."""

    def __init__(self, elements, host, record):
        self.elements = elements
        self.host = host
        self.record = record
        self.streams = {}
        self.stream = None
        self.echoes = {}
        self.name = "1"
        self.size = (80, 24)
        self.timeout = ANSWER_SECONDS
        self.out = ""
        self.failed = False

    def run(self):
        index = 0
        while index < len(self.elements):
            element = self.elements[index]
            if isinstance(element, Remark):
                self.obey(element)
                index += 1
                continue
            if self.stream is None:
                self.open("1", "tcp")
            run = []
            while index < len(self.elements) and isinstance(self.elements[index], Printed):
                run.append(self.elements[index])
                index += 1
            following = self.elements[index] if index < len(self.elements) else None
            if run or self.record:
                self.expect(run, following)
            if isinstance(following, Typed):
                index += 1
                self.type(following)
                after = self.elements[index] if index < len(self.elements) else None
                if self.record and (after is None or isinstance(after, Remark)):
                    self.expect([], after)
        self.expect_silence()

    # --- Directives --------------------------------------------------------------------------------------------

    def obey(self, element):
        self.out += element.source
        words = element.words
        if element.directive == "session":
            self.open(words[0], words[1] if len(words) > 1 else "tcp")
        elif element.directive == "size":
            self.size = tuple(int(number) for number in words[0].split("x"))
        elif element.directive == "timeout":
            self.timeout = float(words[0])
        elif element.directive == "close":
            self.stream.close()
            del self.streams[self.name]
            self.stream = None
        elif element.directive == "closed":
            deadline = time.monotonic() + self.timeout
            rest = self.stream.drain(self.timeout, deadline)
            self.failed = self.failed or bool(rest) or not self.stream.closed
            if rest:
                self.out = self.out.removesuffix(element.source)
                self.show(rest, False)
                self.out += element.source
            if not self.stream.closed:
                self.out = self.out.removesuffix(element.source)
            del self.streams[self.name]
            self.stream = None

    def open(self, name, transport):
        if name not in self.streams:
            target = self.host.port if transport == "tcp" else self.host.socket_path
            self.streams[name] = ConsoleStream(target, *self.size)
            self.echoes[name] = transport == "tcp"
        self.name, self.stream = name, self.streams[name]

    # --- Printed text ------------------------------------------------------------------------------------------

    def expect(self, run, following):
        """Waits for a run of printed text; what comes instead goes into out."""
        pattern = re.compile(b"".join(element.pattern for element in run), re.DOTALL)
        literals = [element.literal for element in run]
        literal = None if None in literals else b"".join(literals)
        deadline = time.monotonic() + self.timeout
        stream = self.stream
        actual = None
        if self.record:
            actual = stream.drain(QUIET_SECONDS, deadline)
            matched = pattern.fullmatch(actual) is not None
        else:
            matched = self.wait(pattern, literal, deadline)
            if not matched:
                actual = stream.drain(QUIET_SECONDS, time.monotonic() + self.timeout)
        if matched:
            self.out += "".join(element.source for element in run)
            return
        self.failed = True
        self.show(actual, isinstance(following, Typed))

    def show(self, actual, typing_follows):
        """Adds received bytes to out."""
        text = render(actual, self.at_line_start())
        if self.at_line_start() and text.startswith("\n") and not self.in_text():
            text = "\\r\\n\\" + text  # an empty line that counts, where blank lines do not
        if not typing_follows and not text.endswith("\n") and (text or not self.at_line_start()):
            text += "\\\n"
        self.out += text

    def at_line_start(self):
        return not self.out or self.out.endswith("\n")

    def in_text(self):
        """Whether the last line of out is session text."""
        lines = self.out.splitlines()
        while lines and not lines[-1]:
            lines.pop()
        return bool(lines) and not lines[-1].startswith(("#", "@"))

    def wait(self, pattern, literal, deadline):
        """True when the printed text came, which is then taken from the stream."""
        stream = self.stream
        while True:
            match = pattern.match(stream.pending)
            if match:
                stream.take(match.end())
                return True
            if literal is not None and not literal.startswith(stream.pending[:len(literal)]):
                return False
            left = deadline - time.monotonic()
            if stream.closed or left <= 0:
                return False
            stream.receive(left)

    # --- Typed text --------------------------------------------------------------------------------------------

    def type(self, element):
        echo = self.echoes[self.name]
        for data, echoed, _ in element.pieces:
            self.stream.send(data)
            if echo and echoed and not self.wait(re.compile(re.escape(data)), data, time.monotonic() + self.timeout):
                self.unexpected_echo(element)
                return
        if not element.enter:
            self.out += element.source
            return
        self.stream.send(b"\r" if echo else b"\n")
        if echo and not self.wait(re.compile(b"\r\n"), b"\r\n", time.monotonic() + self.timeout):
            self.failed = True
            self.out += element.source[:-2] + "<CR>}"
            return
        self.out += element.source

    def unexpected_echo(self, element):
        """Shows the typed text as text without echo, so that what really came can follow."""
        self.failed = True
        ending = "<CR>}" if element.enter else "}"
        if element.enter:
            self.stream.send(b"\r")
        self.out += "{!" + element.source.rstrip("\n")[1:-1] + ending

    # --- The end -----------------------------------------------------------------------------------------------

    def expect_silence(self):
        for name, stream in self.streams.items():
            rest = stream.drain(END_SECONDS, time.monotonic() + self.timeout)
            if rest or stream.closed:
                self.failed = True
                if name != self.name:
                    self.out += f"@session {name}\n"
                self.show(rest, False)
                if stream.closed:
                    self.out += "@closed\n"
            stream.close()


def host_options(elements):
    options = []
    for element in elements:
        if isinstance(element, Remark) and element.directive == "scenario":
            options += ["--scenario", element.words[0]]
        if isinstance(element, Remark) and element.directive == "host":
            options += element.words
    return options


def replay(path, arguments):
    """Replays one file. True when every byte was as written."""
    with open(path, encoding="utf-8") as file:
        text = file.read()
    elements = parse(text, os.path.relpath(path, REPOSITORY))
    expected = "".join(element.source for element in elements)
    with HostProcess(arguments.host, host_options(elements)) as host:
        run = Replay(elements, host, arguments.record)
        run.run()
    if arguments.record:
        if run.out != text:
            with open(path, "w", encoding="utf-8") as file:
                file.write(run.out)
            print(f"{path}: recorded")
        return True
    if not run.failed:
        return True
    actual = os.path.join(arguments.actual_dir, os.path.basename(path) + ".actual")
    with open(actual, "w", encoding="utf-8") as file:
        file.write(run.out)
    sys.stdout.writelines(difflib.unified_diff(expected.splitlines(True), run.out.splitlines(True), path, actual))
    if run.out == expected:
        print(f"{path}: the console went on, or ended, where the transcript does not show it")
    return False


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("files", nargs="+", metavar="FILE")
    parser.add_argument("--host", default=DEFAULT_PROGRAM, help="the epon-host program (build/bin/epon-host)")
    parser.add_argument("--record", action="store_true", help="write what comes back into the files")
    parser.add_argument("--actual-dir", default=tempfile.gettempdir(),
                        help="where FILE.actual goes when a transcript differs (the folder for temporary files)")
    arguments = parser.parse_args()
    good = True
    for path in arguments.files:
        try:
            good = replay(path, arguments) and good
        except (TranscriptError, HostError) as error:
            print(error)
            good = False
    return 0 if good else 1


if __name__ == "__main__":
    sys.exit(main())
