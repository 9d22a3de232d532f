# SPDX-License-Identifier: Apache-2.0
"""A terminal emulator on a telnet session: what an operator sees after each key. Nothing here waits by the clock: a
telnet timing mark tells when the console has dealt with everything that was typed."""

import os
import re
import sys
import time

import pyte
from wcwidth import wcswidth

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "harness"))
sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "clients"))

from console_stream import DO, IAC, NAWS, WONT, ConsoleStream, window_size

TIMING_MARK = 6
SECONDS = 30

KEYS = {
    "left": "\x1b[D", "right": "\x1b[C", "up": "\x1b[A", "down": "\x1b[B", "home": "\x1b[H", "end": "\x1b[F",
    "delete": "\x1b[3~", "backspace": "\x7f", "enter": "\r", "tab": "\t", "esc": "\x1b", "word-left": "\x1b[1;5D",
    "word-right": "\x1b[1;5C",
}


def keys(text):
    """Bytes of a text in which <left> and the like are keys, and <^A> is Ctrl-A."""
    def key(match):
        name = match[1]
        return chr(ord(name[1]) & 31) if name[0] == "^" else KEYS[name]
    return re.sub(r"<(\^.|[a-z-]+)>", key, text).encode()


class Screen:
    """An operator at a terminal of that size."""

    def __init__(self, host, columns=80, rows=24, enabled=True):
        self.emulator = pyte.Screen(columns, rows)
        self.stream = pyte.ByteStream(self.emulator)
        self.console = ConsoleStream(host.port, columns, rows)
        self.until(lambda: self.shown().endswith("VNS>"))
        self.settle()
        if enabled:
            self.type("enable<enter>")
            self.type("<^L>")

    def take(self):
        self.stream.feed(self.console.take(len(self.console.pending)))

    def until(self, condition):
        """Waits until the condition holds."""
        deadline = time.monotonic() + SECONDS
        while not condition():
            assert not self.console.closed and time.monotonic() < deadline, "\n".join(self.rows())
            self.console.receive(0.05)
            self.take()

    def settle(self):
        """Takes all that the console says to what was typed. It answers a mark when it has looked at the typed bytes,
        and looks at a second one when it has acted on them."""
        for _ in range(2):
            marks = self.marks()
            self.console.send_raw(bytes([IAC, DO, TIMING_MARK]))
            self.until(lambda: self.marks() > marks)

    def marks(self):
        return self.console.filter.commands.count((WONT, TIMING_MARK))

    def type(self, text):
        """Presses keys, see keys()."""
        self.console.send(keys(text))
        self.settle()

    def resize(self, columns, rows):
        self.emulator.resize(rows, columns)
        self.console.filter.size = (columns, rows)
        self.console.send_raw(window_size(columns, rows))
        self.settle()

    def rows(self):
        """The rows of the screen down to the last one that is not blank, without blanks at their ends."""
        rows = [row.rstrip() for row in self.emulator.display]
        while rows and not rows[-1]:
            rows.pop()
        return rows

    def shown(self):
        return "\n".join(self.rows())

    def cursor(self):
        return self.emulator.cursor.x, self.emulator.cursor.y

    def expect(self, *last_rows):
        """Asserts what the last rows are; "|" in the last one that holds it is the cursor."""
        rows = self.rows()
        wanted = list(last_rows)
        for index, row in enumerate(wanted):
            if "|" not in row:
                continue
            column = row.index("|")
            wanted[index] = (row[:column] + row[column + 1:]).rstrip()
            expected = (wcswidth(row[:column]), len(rows) - len(wanted) + index)
            assert self.cursor() == expected, f"cursor at {self.cursor()}, wanted {expected}:\n{self.shown()}"
        found = rows[-len(wanted):]
        assert found == wanted, "\n".join(["the screen:", *rows, "wanted at its end:", *wanted])

    def expect_line(self, prompt, line, cursor):
        """Asserts that the screen ends in prompt and line, wrapped at its width, with the cursor at that character."""
        width = self.emulator.columns
        text = prompt + line
        wanted = [text[start:start + width].rstrip() for start in range(0, max(len(text), 1), width)]
        rows = self.rows()
        trailing = 0
        while wanted and not wanted[-1]:
            wanted.pop()  # blanks at the end cannot be told from nothing
            trailing += 1
        start = len(rows) - len(wanted)
        found = rows[start:]
        at = len(prompt) + cursor
        places = [(at % width, start + at // width)]
        if at % width == 0 and at > 0:
            places.append((width, start + at // width - 1))  # it hangs behind the last column
        assert found == wanted, "\n".join(["the screen:", *rows, "wanted at its end:", *wanted])
        assert self.cursor() in places, f"cursor at {self.cursor()}, wanted {places}:\n{self.shown()}"

    def close(self):
        self.console.close()
