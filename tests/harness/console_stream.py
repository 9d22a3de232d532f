# SPDX-License-Identifier: Apache-2.0
"""A connection to the console as a terminal would hold it: telnet on TCP, plain bytes on the local socket."""

import select
import socket
import struct
import time

IAC, DONT, DO, WONT, WILL, SB, SE = 255, 254, 253, 252, 251, 250, 240
ECHO, SGA, NAWS = 1, 3, 31

CONNECT_SECONDS = 10


class TelnetFilter:
    """Takes telnet commands out of received bytes and gives the answers of a usual telnet client."""

    def __init__(self, columns, rows):
        self.size = (columns, rows)
        self.state = "data"
        self.verb = 0
        self.subnegotiation = b""
        self.answered = set()
        self.commands = []  # (verb, option) and (SB, option, body) as they came
        self.saw_cr = False

    def feed(self, received):
        """Returns (data, answer)."""
        data, answer = bytearray(), bytearray()
        for byte in received:
            if self.state == "data":
                if byte == IAC:
                    self.state = "command"
                elif self.saw_cr and byte == 0:  # CR NUL is a carriage return alone
                    self.saw_cr = False
                else:
                    data.append(byte)
                    self.saw_cr = byte == 13
            elif self.state == "command":
                if byte == IAC:
                    data.append(byte)
                    self.state = "data"
                elif byte in (WILL, WONT, DO, DONT):
                    self.verb, self.state = byte, "option"
                elif byte == SB:
                    self.subnegotiation, self.state = b"", "subnegotiation"
                else:
                    self.commands.append((byte,))
                    self.state = "data"
            elif self.state == "option":
                self.commands.append((self.verb, byte))
                answer += self._answer(self.verb, byte)
                self.state = "data"
            elif self.state == "subnegotiation":
                if byte == IAC:
                    self.state = "subnegotiation command"
                else:
                    self.subnegotiation += bytes([byte])
            elif byte == SE:
                self.commands.append((SB, self.subnegotiation[:1], self.subnegotiation[1:]))
                self.state = "data"
            else:
                self.subnegotiation += bytes([byte])
                self.state = "subnegotiation"
        return bytes(data), bytes(answer)

    def _answer(self, verb, option):
        if (verb, option) in self.answered:
            return b""
        self.answered.add((verb, option))
        if verb == WILL:
            return bytes([IAC, DO if option in (ECHO, SGA) else DONT, option])
        if verb == DO and option == NAWS:
            return bytes([IAC, WILL, NAWS]) + window_size(*self.size)
        if verb == DO:
            return bytes([IAC, WILL if option == SGA else WONT, option])
        return b""


def window_size(columns, rows):
    """The subnegotiation that tells the terminal's size."""
    return bytes([IAC, SB, NAWS]) + struct.pack(">HH", columns, rows).replace(b"\xff", b"\xff\xff") + bytes([IAC, SE])


class ConsoleStream:
    """One session of the console. target is a port number (telnet) or a path (local socket)."""

    def __init__(self, target, columns=80, rows=24):
        if isinstance(target, int):
            self.socket = socket.create_connection(("127.0.0.1", target), CONNECT_SECONDS)
            self.filter = TelnetFilter(columns, rows)
        else:
            self.socket = socket.socket(socket.AF_UNIX, socket.SOCK_STREAM)
            self.socket.connect(target)
            self.filter = None
        self.pending = b""
        self.closed = False

    def receive(self, seconds):
        """Waits for bytes, at most so long, and adds them to pending. False when nothing came."""
        ready, _, _ = select.select([self.socket], [], [], max(0.0, seconds))
        if not ready:
            return False
        try:
            received = self.socket.recv(65536)
        except ConnectionError:
            received = b""
        if not received:
            self.closed = True
            return False
        if self.filter:
            received, answer = self.filter.feed(received)
            if answer:
                self.send_raw(answer)
        self.pending += received
        return True

    def send_raw(self, data):
        try:
            self.socket.sendall(data)
        except ConnectionError:
            self.closed = True

    def send(self, data):
        """Types bytes."""
        self.send_raw(data.replace(b"\xff", b"\xff\xff") if self.filter else data)

    def drain(self, quiet, deadline):
        """Takes everything that comes until the console has been quiet for so many seconds."""
        while not self.closed and time.monotonic() < deadline and (self.receive(quiet)):
            pass
        return self.take(len(self.pending))

    def read_until(self, wanted, seconds=20):
        """Takes everything up to and including the wanted bytes. An error names what came instead."""
        deadline = time.monotonic() + seconds
        while wanted not in self.pending:
            left = deadline - time.monotonic()
            if self.closed or left <= 0:
                raise AssertionError(f"wanted {wanted!r}, got {self.pending!r}{' and the end' if self.closed else ''}")
            self.receive(left)
        return self.take(self.pending.index(wanted) + len(wanted))

    def read_to_end(self, seconds=20):
        """Takes everything up to the end of the connection."""
        deadline = time.monotonic() + seconds
        while not self.closed:
            left = deadline - time.monotonic()
            if left <= 0:
                raise AssertionError(f"the connection was not closed; got {self.pending!r}")
            self.receive(left)
        return self.take(len(self.pending))

    def take(self, count):
        taken, self.pending = self.pending[:count], self.pending[count:]
        return taken

    def close(self):
        self.closed = True
        self.socket.close()
