#!/usr/bin/python3 -B
# SPDX-License-Identifier: Apache-2.0
"""What the documents say is so: the sessions that they show are those that one sees, and the files, names and options
that they mention are there. Run by ctest; by hand: docs_test.py [--host EPON-HOST] [--console EPON-CONSOLE]."""

import os
import re
import subprocess
import sys

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "harness"))
sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "clients"))

import client_tests
from console_stream import ConsoleStream
from host_process import REPOSITORY

DOCUMENTS = ["README.md"] + sorted("docs/" + name for name in os.listdir(os.path.join(REPOSITORY, "docs"))
                                   if name.endswith(".md"))
SOURCES = ("CLI_GENERAL", "CTC_STACK_CLI", "REMOTE_MANAGEMENT_CLI", "bench", "cmake", "host", "include", "olt",
           "packaging", "pon_services", "scenarios", "scripts", "switching", "tests")

# Sections whose sessions are carried out, in this order at one host: the first one changes no setting.
SESSIONS = (("docs/operating.md", "Filters"), ("docs/operating.md", "Finding your way"), ("README.md", "A first session"))
# What stands at the left of a line that was typed, and the way to it.
PROMPT = re.compile(r"^(VNS(?:\(\w+\))?[>#]) ?(.*)$")
WAYS = {"VNS>": (), "VNS#": ("enable",), "VNS(config)#": ("enable", "configure terminal"),
        "VNS(OLT0)#": ("enable", "configure terminal", "olt 0")}
# Names that are others'.
NOT_OURS = {"find_package"}


def read(path):
    with open(os.path.join(REPOSITORY, path), encoding="utf-8") as file:
        return file.read()


def blocks(text, heading):
    """The fenced blocks between a heading and the next one."""
    section = re.search(rf"^#+ {re.escape(heading)}\n(.*?)(?=^#+ |\Z)", text, re.MULTILINE | re.DOTALL)
    assert section, f"no section {heading!r}"
    return re.findall(r"^```\n(.*?)^```$", section[1], re.MULTILINE | re.DOTALL)


def steps(block):
    """What the block shows before the first prompt, and (prompt, typed, shown) for each line that was typed."""
    before, typed = [], []
    for line in block.splitlines():
        match = PROMPT.match(line)
        if match:
            typed.append((match[1], match[2], []))
        else:
            (typed[-1][2] if typed else before).append(line.rstrip())
    return before, typed


class Operator:
    def __init__(self, host):
        self.stream = ConsoleStream(host.port)
        self.prompt = ""
        self.greeting = self.answer("")

    def answer(self, line):
        """The lines shown up to the next prompt, behind which that line stands."""
        pattern = re.compile(rf"(?:^|\n)(VNS[^\r\n]*[>#]) {re.escape(line)}$")
        while True:
            text = self.stream.pending.decode().replace("\r\n", "\n")
            match = pattern.search(text)
            if match:
                break
            assert self.stream.receive(20), f"no prompt comes behind {text!r}"
        self.stream.pending = b""
        self.prompt = match[1]
        return [line.rstrip() for line in text[:match.start()].split("\n") if match.start() > 0]

    def type(self, line):
        """The lines that are shown below what was typed. Help at a question mark needs no Enter, and is taken back."""
        if line.endswith("?"):
            self.stream.send(line.encode())
            shown = self.answer(line[:-1])[1:]
            self.stream.send(b"\x15\r")
            self.answer("")
            return shown
        self.stream.send(line.encode() + b"\r")
        return self.answer("")[1:]


def agree(wanted, shown):
    """Whether what is shown is what is wanted; "..." stands for any lines."""
    if not wanted:
        return not shown
    if wanted[0] == "...":
        return any(agree(wanted[1:], shown[skipped:]) for skipped in range(len(shown) + 1))
    return bool(shown) and wanted[0] == shown[0] and agree(wanted[1:], shown[1:])


def carry_out(host, block):
    before, typed = steps(block)
    operator = Operator(host)
    if before:
        assert before == operator.greeting, f"{before} is {operator.greeting}"
    for command in WAYS[typed[0][0]]:
        operator.type(command)
    for prompt, line, wanted in typed:
        assert operator.prompt == prompt, f"{prompt} {line}: the prompt is {operator.prompt}"
        if line:
            shown = operator.type(line)
            assert agree(wanted, shown), f"{prompt} {line}: {wanted} is {shown}"
    operator.stream.close()


def test_sessions(host, _):
    for document, heading in SESSIONS:
        sessions = [block for block in blocks(read(document), heading) if PROMPT.search(block.splitlines()[0]) or
                    block.startswith("Console of ")]
        # Remarks behind a command are for the reader, and two operators at once are not played.
        sessions = [block for block in sessions if not re.search(r"^VNS\S+ .*\S {3}|^VNS# who", block, re.MULTILINE)
                    and "| save" not in block]
        assert sessions, f"{document}: {heading} shows no session"
        for block in sessions:
            carry_out(host, block)


def mentioned(text):
    """What stands between back quotes outside of fenced blocks."""
    return re.findall(r"`([^`\n]+)`", re.sub(r"^```.*?^```$", "", text, flags=re.MULTILINE | re.DOTALL))


def test_files_exist(_host, _console):
    for document in DOCUMENTS:
        text = read(document)
        links = re.findall(r"\]\(([^)#]+)\)", text)
        for link in links:
            assert re.match("https?:", link) or os.path.exists(
                os.path.join(REPOSITORY, os.path.dirname(document), link)), f"{document}: {link}"
        for name in mentioned(text):
            path = name.split()[0].removeprefix("./").rstrip("/")
            is_path = re.fullmatch(r"[\w.-]+(/[\w.*-]+)+|[\w-]+\.(cpp|h|c|py|toml|md|txt)", path)
            if not is_path or path.startswith(("build/", "packages")) or "FILE" in path:
                continue
            assert exists(path), f"{document}: there is no {path}"


def exists(path):
    """A path from the root, or the end of the path of one of our files; a star stands for any letters."""
    ending = re.compile(r"(^|/)" + re.escape(path).replace(r"\*", "[^/]*") + r"(/|$)")
    return any(ending.search(known) for known in known_paths())


def known_paths(paths=[]):  # pylint: disable=dangerous-default-value
    if not paths:
        for top in SOURCES + ("docs",):
            for folder, folders, names in os.walk(os.path.join(REPOSITORY, top)):
                inside = os.path.relpath(folder, REPOSITORY)
                paths += [inside] + [os.path.join(inside, name) for name in names + folders]
        paths += os.listdir(REPOSITORY)
    return paths


def source_words():
    """Every identifier of the sources."""
    words = set()
    for path in known_paths():
        if path.endswith((".cpp", ".h", ".c", ".py", ".txt", ".cmake", ".in")) and os.path.isfile(
                os.path.join(REPOSITORY, path)) and path != "tests/docs/docs_test.py":
            with open(os.path.join(REPOSITORY, path), encoding="utf-8", errors="replace") as file:
                words.update(re.findall(r"\w+", file.read()))
    return words


def test_names_exist(_host, _console):
    """Functions, types, variables and CMake targets."""
    words = source_words()
    for document in DOCUMENTS:
        for name in mentioned(read(document)):
            if re.fullmatch(r"[A-Za-z]\w*_\w*[A-Za-z0-9]", name) and name not in NOT_OURS:
                assert name in words, f"{document}: nothing is called {name}"


def test_options_exist(host, console):
    known = set()
    for program in (host.program, console):
        known |= set(re.findall(r"--[a-z][a-z-]+", subprocess.run([program, "--help"], capture_output=True, text=True,
                                                                 timeout=60, check=True).stdout))
    for folder in ("scripts", "tests/transcripts"):
        for name in os.listdir(os.path.join(REPOSITORY, folder)):
            if folder == "scripts" or name.endswith(".py"):
                known |= set(re.findall(r"--[a-z][a-z-]+", read(os.path.join(folder, name))))
    for document in DOCUMENTS:
        for name in mentioned(read(document)):
            for option in re.findall(r"(?:^|\s)(--[a-z][a-z-]+)", name):
                is_cmake = name.startswith("cmake ")
                assert is_cmake or option in known, f"{document}: nothing takes {option}"


if __name__ == "__main__":
    sys.exit(client_tests.run([test_sessions, test_files_exist, test_names_exist, test_options_exist]))
