#!/usr/bin/python3 -B
# SPDX-License-Identifier: Apache-2.0
"""TAB in bash, at its own prompt, behind the names of the two programs."""

import os
import sys
import tempfile

import client_tests
import pexpect
from host_process import REPOSITORY

COMPLETION = os.path.join(REPOSITORY, "host", "completion.bash")


class Shell:
    """bash in a folder with a scenario, another file and a folder."""

    def __init__(self, host, console, folder):
        for name in ("bench.toml", "notes.txt"):
            open(os.path.join(folder, name), "w", encoding="utf-8").close()
        os.mkdir(os.path.join(folder, "more"))
        path = os.path.dirname(console) + ":" + os.path.dirname(os.path.abspath(host.program)) + ":" + os.environ["PATH"]
        self.terminal = pexpect.spawn("bash", ["--norc", "--noprofile", "-i"], cwd=folder, timeout=30, encoding="utf-8",
                                      dimensions=(50, 200), env={**os.environ, "PATH": path, "PS1": "$ ", "TERM": "dumb",
                                                                 "INPUTRC": "/dev/null", "HISTFILE": ""})
        self.terminal.delaybeforesend = None
        self.run(f"source {COMPLETION}; bind 'set enable-bracketed-paste off'")

    def run(self, line):
        self.terminal.send(line + "; echo d''one\r")
        self.terminal.expect("done\r\n")
        self.terminal.expect(r"\$ ")

    def complete(self, line):
        """The words that the line has after TAB."""
        self.terminal.send(line + "\t\x01echo words: \x05\r")
        self.terminal.expect(r"\nwords:([^\r\n]*)\r\n")
        words = self.terminal.match[1].strip()
        self.terminal.expect(r"\$ ")
        return words

    def candidates(self, *words):
        """What the last word could become."""
        typed = " ".join(f"'{word}'" for word in words)
        self.terminal.send(f"COMP_WORDS=({typed}); COMP_CWORD={len(words) - 1}; _epon_complete '{words[0]}' '{words[-1]}' "
                           f"'{words[-2]}'; echo words: ${{COMPREPLY[@]}}\r")
        self.terminal.expect(r"\nwords:([^\r\n]*)\r\n")
        found = self.terminal.match[1].split()
        self.terminal.expect(r"\$ ")
        return found


def with_shell(test):
    def run(host, console):
        with tempfile.TemporaryDirectory() as folder:
            shell = Shell(host, console, folder)
            test(shell)
            shell.terminal.close(force=True)

    run.__name__ = test.__name__
    return run


@with_shell
def test_options(shell):
    assert shell.complete("epon-host --sce") == "epon-host --scenario"
    assert shell.complete("epon-console --hash") == "epon-console --hash-password"
    assert set(shell.candidates("epon-console", "--ke")) == {"--keep-going"}
    assert {"--socket", "--node", "-c", "--command", "-f", "--json"} < set(shell.candidates("epon-console", ""))
    assert {"--socket", "--scenario", "--port", "--list-commands"} < set(shell.candidates("epon-host", "-"))
    assert shell.candidates("epon-console", "--json", "--ec") == ["--echo"]


@with_shell
def test_values(shell):
    assert shell.complete("epon-host --scenario be") == "epon-host --scenario bench.toml"
    assert shell.complete("epon-host --scenario=be") == "epon-host --scenario=bench.toml"
    assert shell.complete("epon-console -f no") == "epon-console -f notes.txt"
    assert set(shell.candidates("epon-host", "--scenario", "")) == {"bench.toml", "more"}
    assert set(shell.candidates("epon-console", "--file", "")) == {"bench.toml", "notes.txt", "more"}
    assert set(shell.candidates("epon-console", "--socket", "")) == {"bench.toml", "notes.txt", "more"}
    assert shell.complete("epon-host --users no") == "epon-host --users notes.txt"
    assert "127.0.0.1" in shell.candidates("epon-host", "--listen", "")
    for words in (("epon-host", "--port", ""), ("epon-console", "-c", ""), ("epon-console", "--node", "")):
        assert shell.candidates(*words) == [], words


if __name__ == "__main__":
    sys.exit(client_tests.run([test_options, test_values]))
