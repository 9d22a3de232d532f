#!/usr/bin/python3 -B
# SPDX-License-Identifier: Apache-2.0
"""epon-console: with piped lines, and at a terminal that is put back as it was on every way out."""

import fcntl
import os
import pty
import select
import signal
import socket
import struct
import subprocess
import sys
import termios
import time

import client_tests

SECONDS = 30


def piped(console, host, text):
    return subprocess.run([console, "--socket", host.socket_path], input=text.encode(), capture_output=True,
                          timeout=60, check=False)


def test_piped_lines(host, console):
    done = piped(console, host, "".join(line + "\n" for line in client_tests.SESSION))
    assert done.returncode == 0 and done.stderr == b"", done
    client_tests.expect_in_order(done.stdout, client_tests.ANSWERS)
    assert b"\r" not in done.stdout and b"\xff" not in done.stdout, done.stdout


def test_piped_last_line_without_end(host, console):
    done = piped(console, host, "enable\nconfigure terminal\nolt 0\nset max-rtt 12345\nshow olt parameters")
    assert done.returncode == 0 and b"12345" in done.stdout.split(b"show olt parameters")[-1], done


def test_piped_logout(host, console):
    """Lines behind a logout are not carried out, and the session's end is a good end."""
    done = piped(console, host, "logout\nenable\n")
    assert done.returncode == 0 and b"# " not in done.stdout, done


def test_nobody_there(host, console):
    done = subprocess.run([console, "--socket", host.socket_path + ".none"], capture_output=True, timeout=60,
                          check=False)
    assert done.returncode == 2 and done.stdout == b"", done
    assert done.stderr.startswith(b"epon-console: cannot connect to ") and done.stderr.count(b"\n") == 1, done


class Terminal:
    """epon-console at a pseudo-terminal."""

    def __init__(self, console, host, columns=80, rows=24):
        self.main, self.side = pty.openpty()
        self.resize(columns, rows)
        self.before = termios.tcgetattr(self.side)
        self.process = subprocess.Popen([console, "--socket", host.socket_path], stdin=self.side, stdout=self.side,
                                        stderr=self.side, start_new_session=True,
                                        preexec_fn=lambda: fcntl.ioctl(0, termios.TIOCSCTTY, 0))
        self.output = b""

    def resize(self, columns, rows):
        fcntl.ioctl(self.main, termios.TIOCSWINSZ, struct.pack("HHHH", rows, columns, 0, 0))

    def wait_for(self, wanted):
        """Takes what is shown up to the wanted bytes."""
        deadline = time.monotonic() + SECONDS
        while wanted not in self.output:
            ready, _, _ = select.select([self.main], [], [], max(0, deadline - time.monotonic()))
            assert ready, f"wanted {wanted!r}, shown is {self.output!r}"
            self.output += os.read(self.main, 65536)
        end = self.output.index(wanted) + len(wanted)
        shown, self.output = self.output[:end], self.output[end:]
        return shown

    def type(self, keys):
        os.write(self.main, keys)

    def is_raw(self):
        return not termios.tcgetattr(self.side)[3] & (termios.ICANON | termios.ECHO | termios.ISIG)

    def end(self):
        """Waits for the program's end and checks that the terminal is as it was. The exit status."""
        status = self.process.wait(SECONDS)
        assert termios.tcgetattr(self.side) == self.before, "the terminal was left in another mode"
        os.close(self.main)
        os.close(self.side)
        return status


def test_terminal_session(host, console):
    terminal = Terminal(console, host)
    terminal.wait_for(b"> ")
    assert terminal.is_raw()
    terminal.type(b"ena\t\r")
    shown = terminal.wait_for(b"# ")
    assert b"enable" in shown and b"\xff" not in shown, shown
    terminal.type(b"abc\x03")  # Ctrl-C is the console's
    terminal.wait_for(b"# ")
    terminal.type(b"logout\r")
    assert terminal.end() == 0


def test_leave_key(host, console):
    terminal = Terminal(console, host)
    terminal.wait_for(b"> ")
    terminal.type(b"ena\x1d")
    assert terminal.end() == 0


def test_signals_restore_the_terminal(host, console):
    for number in (signal.SIGTERM, signal.SIGHUP, signal.SIGINT, signal.SIGQUIT):
        terminal = Terminal(console, host)
        terminal.wait_for(b"> ")
        terminal.process.send_signal(number)
        assert terminal.end() == -number


def test_host_ends(host, console):
    terminal = Terminal(console, host)
    terminal.wait_for(b"> ")
    host.stop()
    assert terminal.end() == 0


def test_host_is_killed(host, console):
    """Nobody can say goodbye then; the client says it, in one line."""
    terminal = Terminal(console, host)
    terminal.wait_for(b"> ")
    host.stop(signal.SIGKILL, check=False)
    terminal.wait_for(b"\r\nepon-console: the connection to the console was lost; the host may have stopped\r\n")
    assert terminal.end() == 1


def test_console_without_telnet(host, console):
    """What a console has said before it knows that the client speaks telnet tells whether it ended or was lost."""
    path = host.socket_path + ".silent"
    with socket.socket(socket.AF_UNIX) as listener:
        listener.bind(path)
        listener.listen()
        for said, status in ((b"", 1), (b"Console of VNS.\r\nVNS> ", 1), (b"% Too many sessions.\r\n", 0),
                             (b"Console of VNS.\r\nVNS> \r\n% The host ends.\r\n", 0)):
            process = subprocess.Popen([console, "--socket", path], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                       stderr=subprocess.PIPE)
            connection, _ = listener.accept()
            connection.sendall(said)
            connection.close()
            shown, errors = process.communicate(timeout=SECONDS)
            shown_lines = said.replace(b"\r", b"")
            assert shown == shown_lines + (b"\n" if shown_lines and not shown_lines.endswith(b"\n") else b""), shown
            lost = b"epon-console: the connection to the console was lost; the host may have stopped\n"
            assert (process.returncode, errors) == (status, lost if status else b""), (said, process.returncode, errors)


def test_stopped_and_continued(host, console):
    """A stop from outside gives the terminal back; going on takes it again."""
    terminal = Terminal(console, host)
    terminal.wait_for(b"> ")
    terminal.process.send_signal(signal.SIGTSTP)
    wait_until(lambda: termios.tcgetattr(terminal.side) == terminal.before)
    terminal.process.send_signal(signal.SIGCONT)
    wait_until(terminal.is_raw)
    terminal.type(b"enable\r")
    terminal.wait_for(b"# ")
    terminal.type(b"\x1d")
    assert terminal.end() == 0


def wait_until(condition):
    deadline = time.monotonic() + SECONDS
    while not condition():
        assert time.monotonic() < deadline, "it never became so"
        time.sleep(0.02)


def test_window_size(host, console):
    """Help is laid out for the window's width, and for the new one after a change."""
    terminal = Terminal(console, host, columns=40, rows=50)
    terminal.wait_for(b"> ")

    def lines_of_help():
        terminal.type(b"?")
        return terminal.wait_for(b"> ").split(b"\r\n")

    narrow = lines_of_help()
    assert max(len(line) for line in narrow) <= 40, narrow
    terminal.resize(160, 50)
    terminal.process.send_signal(signal.SIGWINCH)
    wait_until(lambda: len(lines_of_help()) < len(narrow))
    terminal.type(b"\x1d")
    assert terminal.end() == 0


if __name__ == "__main__":
    sys.exit(client_tests.run([test for name, test in list(globals().items()) if name.startswith("test_")]))
