#!/usr/bin/python3 -B
# SPDX-License-Identifier: Apache-2.0
"""The telnet protocol byte by byte: what the console offers, what it refuses, and that the local socket is silent."""

import socket
import sys
import time

import client_tests
from console_stream import DO, DONT, ECHO, IAC, NAWS, SB, SE, SGA, WILL, WONT, ConsoleStream, window_size

OFFER = {(WILL, ECHO), (WILL, SGA), (DO, NAWS)}
STATUS, LINEMODE, TERMINAL_TYPE, BINARY = 5, 34, 24, 0


def raw_connection(host):
    connection = socket.create_connection(("127.0.0.1", host.port), 10)
    connection.settimeout(10)
    return connection


def receive_until(connection, wanted):
    received = b""
    while wanted not in received:
        more = connection.recv(4096)
        assert more, f"closed after {received!r}, wanted {wanted!r}"
        received += more
    return received


def receive_quiet(connection, quiet=0.3):
    received = b""
    connection.settimeout(quiet)
    try:
        while more := connection.recv(4096):
            received += more
    except TimeoutError:
        pass
    connection.settimeout(10)
    return received


def commands(received):
    """The three-byte telnet commands among received bytes."""
    found = set()
    for index, byte in enumerate(received):
        if byte == IAC and index + 2 < len(received) and received[index + 1] >= WILL:
            found.add((received[index + 1], received[index + 2]))
    return found


def test_offer_on_connecting(host, _):
    """Exactly: the console echoes, needs no go-ahead, and asks for the window's size; then readable text."""
    connection = raw_connection(host)
    received = receive_until(connection, b"> ") + receive_quiet(connection)
    assert commands(received) == OFFER, commands(received)
    assert received.count(IAC) == len(OFFER), received
    text = received
    for verb, option in OFFER:
        text = text.replace(bytes([IAC, verb, option]), b"")
    assert all(32 <= byte < 127 or byte in b"\r\n" for byte in text), text
    connection.close()


def test_agreed_options_are_not_answered_again(host, _):
    """An answer to an offer ends the exchange; otherwise two programs would talk for ever."""
    connection = raw_connection(host)
    receive_until(connection, b"> ")
    connection.sendall(bytes([IAC, DO, ECHO, IAC, DO, SGA, IAC, WILL, NAWS]) + window_size(120, 40))
    assert receive_quiet(connection) == b""
    connection.sendall(b"zzz\r")
    assert b"zzz" in receive_until(connection, b"> ")
    connection.close()


def test_unknown_options_are_refused_once(host, _):
    connection = raw_connection(host)
    receive_until(connection, b"> ")
    connection.sendall(bytes([IAC, DO, STATUS, IAC, WILL, LINEMODE]))
    assert commands(receive_quiet(connection)) == {(WONT, STATUS), (DONT, LINEMODE)}
    connection.sendall(bytes([IAC, DONT, STATUS, IAC, WONT, LINEMODE]))
    assert receive_quiet(connection) == b""
    connection.close()


def test_client_that_refuses_everything_is_served(host, _):
    connection = raw_connection(host)
    receive_until(connection, b"> ")
    connection.sendall(bytes([IAC, DONT, ECHO, IAC, DONT, SGA, IAC, WONT, NAWS]))
    connection.sendall(b"enable\r\n")
    receive_until(connection, b"# ")
    connection.close()


def test_every_line_end_is_one_line(host, _):
    """CR LF, CR NUL, CR alone and LF alone each end one line: no second prompt comes for the second byte."""
    for ending in (b"\r\n", b"\r\0", b"\r", b"\n"):
        connection = raw_connection(host)
        receive_until(connection, b"> ")
        connection.sendall(b"enable" + ending)
        received = receive_until(connection, b"# ") + receive_quiet(connection)
        assert received.count(b"# ") == 1, (ending, received)
        connection.close()


def test_commands_within_a_word(host, _):
    """Telnet commands between the letters of a word, byte by byte, do not become part of it."""
    connection = raw_connection(host)
    receive_until(connection, b"> ")
    for byte in b"ena" + bytes([IAC, 241]) + b"b" + bytes([IAC, SB, NAWS, 0, 80, 0, 24, IAC, SE]) + b"le\r":
        connection.sendall(bytes([byte]))
        time.sleep(0.002)
    receive_until(connection, b"# ")
    connection.close()


def test_endless_subnegotiation_ends_the_connection_only(host, _):
    connection = raw_connection(host)
    receive_until(connection, b"> ")
    try:
        connection.sendall(bytes([IAC, SB, TERMINAL_TYPE]) + b"x" * 100000)
        received = b"more"
        while received:
            received = connection.recv(4096)
    except ConnectionError:
        pass  # cut off while sending
    connection.close()
    other = ConsoleStream(host.port)
    other.read_until(b"> ")
    other.close()


def test_local_socket_is_plain_text(host, _):
    """Programs on the local socket see text and nothing else, and no echo unless they ask for it."""
    stream = ConsoleStream(host.socket_path)
    greeting = stream.read_until(b"> ")
    assert IAC not in greeting, greeting
    stream.send(b"enable\n")
    assert b"enable" not in stream.read_until(b"# ")
    stream.send(bytes([IAC, DO, ECHO]) + b"disable\n")
    assert b"disable\r\n" in stream.read_until(b"> ")
    stream.close()


if __name__ == "__main__":
    sys.exit(client_tests.run([test for name, test in list(globals().items()) if name.startswith("test_")]))
