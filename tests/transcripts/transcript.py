# SPDX-License-Identifier: Apache-2.0
"""The text form of a console session: what is typed, and every byte that comes back.

A transcript reads like the screen. Typed text stands in braces, everything else is what the console prints:

    # First steps
    # How an operator reaches an OLT.
    @scenario scenarios/demo.toml

    epon> {enable}
    epon# {show ol<TAB>}t {parameters}

Typed text
  {enable}     typed and echoed; braces at the end of a line include the Enter key and its line end
  {!secret}    typed and not echoed (passwords)
  {sh<TAB>}    keys are written <NAME>; they have no echo of their own, so what they bring follows as printed text,
               and further typed text in braces of its own. After a key at the end of a line no Enter is typed;
               {<CR>} and {} type one.
  {show ?}     "?" is a key, too
  Keys: <TAB> <CR> <LF> <BS> <DEL> <ESC> <UP> <DOWN> <LEFT> <RIGHT> <HOME> <END> <SPACE> <^A>..<^_> <0x00>..<0xff>

Printed text
  A line's end stands for CR LF. Other bytes: \\r \\n \\e \\a \\b \\t \\xHH; \\s is a blank at the end of a line.
  A backslash at the end of a line means that the printed text goes on in the next line without a line end.
  \\{ \\} \\< \\\\ \\? \\# \\@ are the characters themselves. \\/[0-9]+/ is a part that must match a regular expression.

Lines that begin with "#" are comments, and with "@" directives; blank lines before the first text and after a comment
or a directive do not count.
  @scenario FILE          the network (before the first text)
  @host OPTION...         further options of epon-host (before the first text); "@folder" in one is an empty folder
  @size COLUMNSxROWS      window size of the sessions opened from here on (80x24)
  @session NAME [socket]  goes on in another session and opens it if need be: over TCP, or over the local socket, where
                          the console does not echo
  @timeout SECONDS        how long the console may take for an answer from here on
  @closed                 here the console closes the session
  @close                  here the operator's side closes it
"""

import re
from dataclasses import dataclass, field

NAMED_KEYS = {"TAB": b"\t", "CR": b"\r", "LF": b"\n", "BS": b"\b", "DEL": b"\x7f", "ESC": b"\x1b", "UP": b"\x1b[A",
              "DOWN": b"\x1b[B", "RIGHT": b"\x1b[C", "LEFT": b"\x1b[D", "HOME": b"\x1b[H", "END": b"\x1b[F",
              "SPACE": b" "}
ESCAPES = {"r": b"\r", "n": b"\n", "e": b"\x1b", "a": b"\a", "b": b"\b", "t": b"\t", "s": b" ", "{": b"{", "}": b"}",
           "<": b"<", "\\": b"\\", "?": b"?", "#": b"#", "@": b"@"}
DIRECTIVES = ("scenario", "host", "size", "session", "timeout", "closed", "close")


class TranscriptError(Exception):
    """The text of a transcript is malformed."""


@dataclass
class Remark:
    """A comment, a directive or a blank line that does not count."""
    source: str
    directive: str = ""
    words: list = field(default_factory=list)


@dataclass
class Printed:
    """A piece of printed text: a regular expression over bytes, and the text if it is fixed."""
    source: str
    pattern: bytes
    literal: bytes | None


@dataclass
class Typed:
    """What one pair of braces holds: (bytes, echoed, key) pieces; enter: the Enter key follows."""
    source: str
    pieces: list
    enter: bool = False


def parse(text, name):
    """The transcript's elements in order. Their sources, joined, are the text again."""
    elements = []
    in_text = False  # inside a block of session text, where blank lines count
    for number, line in enumerate(text.splitlines(), 1):
        try:
            if line.startswith(("#", "@")):
                elements.append(remark(line))
                in_text = False
            elif not line and not in_text:
                elements.append(Remark("\n"))
            else:
                elements += text_line(line)
                in_text = True
        except TranscriptError as error:
            raise TranscriptError(f"{name}:{number}: {error}") from None
    return elements


def remark(line):
    if line.startswith("#"):
        return Remark(line + "\n")
    directive, *words = line[1:].split()
    if directive not in DIRECTIVES:
        raise TranscriptError(f'unknown directive "@{directive}"; there are {", ".join(DIRECTIVES)}')
    return Remark(line + "\n", directive, words)


def text_line(line):
    elements = []
    position = 0
    ended = False  # a backslash at the end: no line end
    while position < len(line):
        if line[position] == "{":
            end = closing_brace(line, position)
            elements += typed(line[position:end])
            position = end
            continue
        start, pattern, literal = position, b"", b""
        while position < len(line) and line[position] != "{":
            if line[position] == "\\" and position + 1 == len(line):
                ended = True
                position += 1
                break
            if line.startswith("\\/", position):
                end = line.find("/", position + 2)
                if end < 0:
                    raise TranscriptError("a regular expression is not ended by /")
                pattern += b"(?:" + line[position + 2:end].encode() + b")"
                literal = None
                position = end + 1
                continue
            data, position = character(line, position)
            pattern += re.escape(data)
            literal = None if literal is None else literal + data
        elements.append(Printed(line[start:position], pattern, literal))
    if ended:
        elements[-1].source += "\n"
        return elements
    last = elements[-1] if elements else None
    if isinstance(last, Typed) and not (last.pieces and last.pieces[-1][2]):
        last.enter = True
        last.source += "\n"
    else:
        elements.append(Printed("\n", b"\r\n", b"\r\n"))
    return elements


def character(line, position):
    """One character of the notation as bytes, and the position behind it."""
    if line[position] != "\\":
        return line[position].encode(), position + 1
    letter = line[position + 1:position + 2]
    if letter == "x":
        digits = line[position + 2:position + 4]
        if not re.fullmatch("[0-9a-fA-F]{2}", digits):
            raise TranscriptError("\\x wants two hexadecimal digits")
        return bytes([int(digits, 16)]), position + 4
    if letter not in ESCAPES:
        raise TranscriptError(f'unknown escape "\\{letter}"')
    return ESCAPES[letter], position + 2


def closing_brace(line, position):
    while position < len(line):
        if line[position] == "}":
            return position + 1
        position += 2 if line[position] == "\\" else 1
    raise TranscriptError("typed text is not ended by }")


def typed(source):
    """Typed text. What follows a key is typed when the key's answer has come, and so stands in braces of its own."""
    inner = source[1:-1]
    hidden = "!" if inner.startswith("!") else ""
    parts = [Typed("", [])]
    position = start = len(hidden)
    while position < len(inner):
        if inner[position] == "<":
            end = inner.find(">", position)
            if end < 0:
                raise TranscriptError("a key is not ended by >")
            piece = (key(inner[position + 1:end]), False, True)
            position = end + 1
        elif inner[position] == "?":
            piece = (b"?", False, True)
            position += 1
        else:
            before = position
            data, position = character(inner, position)
            if parts[-1].pieces and parts[-1].pieces[-1][2]:
                parts[-1].source = "{" + hidden + inner[start:before] + "}"
                parts.append(Typed("", []))
                start = before
            elif parts[-1].pieces:
                data = parts[-1].pieces.pop()[0] + data
            piece = (data, not hidden, False)
        parts[-1].pieces.append(piece)
    parts[-1].source = "{" + hidden + inner[start:] + "}"
    return parts


def key(name):
    if name in NAMED_KEYS:
        return NAMED_KEYS[name]
    if re.fullmatch(r"\^[@-_]", name):
        return bytes([ord(name[1]) - ord("@")])
    if re.fullmatch("0x[0-9a-f]{2}", name):
        return bytes([int(name[2:], 16)])
    raise TranscriptError(f"unknown key <{name}>")


def render(data, at_line_start):
    """Received bytes in the notation. What does not end with a line end is left open for typed text to follow."""
    lines = data.split(b"\r\n")
    rendered = []
    for index, line in enumerate(lines):
        first = index > 0 or at_line_start
        last = index == len(lines) - 1
        text = escape(line, first)
        if not last and text.endswith(" "):
            text = text[:-1] + "\\s"
        rendered.append(text)
    return "\n".join(rendered)


def escape(line, at_line_start):
    names = {b"\r": "\\r", b"\n": "\\n\\\n", b"\x1b": "\\e", b"\a": "\\a", b"\b": "\\b", b"\t": "\\t", b"{": "\\{",
             b"\\": "\\\\"}
    text = ""
    for letter in line.decode("utf-8", "surrogateescape"):
        data = letter.encode("utf-8", "surrogateescape")
        if data in names:
            text += names[data]
        elif letter.isprintable() and len(data) > 0:
            text += letter
        else:
            text += "".join(f"\\x{byte:02x}" for byte in data)
    if at_line_start and text.startswith(("#", "@")):
        text = "\\" + text
    return text
