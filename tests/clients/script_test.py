#!/usr/bin/python3 -B
# SPDX-License-Identifier: Apache-2.0
"""epon-console without an operator: commands and files, exit codes, JSON, passwords."""

import crypt
import json
import os
import pty
import select
import subprocess
import sys
import time

import client_tests

OLT = ["--node", "enable; configure terminal; olt 0"]
CONFIG = ["--node", "enable; configure terminal"]


def run(console, host, *options, text=""):
    return subprocess.run([console, "--socket", host.socket_path, *options], input=text, capture_output=True,
                          timeout=60, check=False, encoding="utf-8")


def commands(*lines):
    return [word for line in lines for word in ("-c", line)]


def test_commands_in_a_node(host, console):
    done = run(console, host, *OLT, *commands("set max-rtt 12345", "show olt parameters"))
    assert (done.returncode, done.stderr) == (0, ""), done
    assert done.stdout.startswith("OLT_id: 0 \n") and "Max rtt: 12345 \n" in done.stdout, done
    assert "\r" not in done.stdout and "#" not in done.stdout, done


def test_stops_at_the_first_failure(host, console):
    """Whether the engine, the command or the SDK refuses, the command behind is not carried out."""
    for command, reason in (("olt 77777777", "OLT_id parameter"), ("bla", "% Unknown command."),
                            ("no olt 9", "OLT not exist (error code : -1003)"),
                            ("olt 9", "OLT id (9) doesn't exist. Can't enter to olt CLI mode with this parameter."),
                            ("no olt 3x", "Error reading OLT_id parameter for command from input, aborting")):
        done = run(console, host, *CONFIG, *commands("show history", command, "who"))
        assert done.returncode == 1, done
        assert done.stderr.startswith(f'epon-console: "{command}": ') and done.stderr.count("\n") == 1, done
        assert reason in done.stderr and " From " not in done.stdout, done


def test_a_long_line_is_named_by_its_beginning(host, console):
    done = run(console, host, *commands("x" * 17000))
    line = f'epon-console: "{"x" * 160}...": % Line too long (more than 16384 characters).\n'
    assert (done.returncode, done.stderr) == (1, line), done


def test_keep_going(host, console):
    done = run(console, host, *CONFIG, "--keep-going", *commands("bla", "who", "blub"))
    assert done.returncode == 1 and " From " in done.stdout and done.stderr.count("\n") == 2, done


def test_a_way_that_leads_nowhere(host, console):
    """Nothing is carried out in a node that the way did not lead to."""
    for way in ("enable; configure terminal; olt 9", "enable; who", "enable; bla", "quit", "enable; configure terminal; "
                "olt 0; llid 250"):
        done = run(console, host, "--node", way, "-c", "show history")
        assert done.returncode == 1 and "show history" not in done.stdout, done
        assert done.stderr.startswith("epon-console: --node: \"") and done.stderr.count("\n") == 1, done


def test_files(host, console):
    """Blank lines and comments do not count; failures are told with their line; every line end is one."""
    path = os.path.join(host.folder, "settings.txt")
    with open(path, "w", encoding="utf-8", newline="") as file:
        file.write("! settings\r\n# of OLT 0\n\n  enable\r\nconfigure terminal\rolt 0\nset max-rtt 99999\nshow olt parameters")
    for name, text in ((path, ""), ("-", open(path, encoding="utf-8", newline="").read())):
        done = run(console, host, "-f", name, text=text)
        shown = path if name == path else "standard input"
        assert done.returncode == 1 and done.stdout == "% Unknown word here: not in the range 0-65534.\n", done
        assert done.stderr.startswith(f'epon-console: {shown}:7: "set max-rtt 99999": % Unknown word here'), done
        done = run(console, host, "--keep-going", "-f", name, text=text)
        assert done.returncode == 1 and "Max rtt: " in done.stdout, done


def test_json(host, console):
    done = run(console, host, *CONFIG, "--json", "--keep-going", *commands("no olt 9", "bla", "who"))
    answers = [json.loads(line) for line in done.stdout.splitlines()]
    assert [answer["command"] for answer in answers] == ["no olt 9", "bla", "who"], done
    assert [answer["ok"] for answer in answers] == [False, False, True], done
    assert answers[0]["result"] == -1003 and "result" not in answers[1] and answers[2]["result"] == 0, done
    assert answers[0]["output"].splitlines()[0] == "Command return error.", done


def test_echo(host, console):
    done = run(console, host, "--echo", *commands("enable", "configure terminal", "bla"))
    assert done.stdout == "VNS> enable\nVNS# configure terminal\nVNS(config)# bla\n% Unknown command.\n", done


def test_events_are_awaited(host, console):
    """Events of commands come behind them; a session that is closed meanwhile is a failure."""
    done = run(console, host, *CONFIG, *commands("event-notify", "simulate olt 1 remove"), "--wait", "2")
    assert done.returncode == 0 and "olt-state-changed: olt 1, state absent" in done.stdout, done
    done = run(console, host, *CONFIG, *commands("simulate olt 1 return"))
    assert done.returncode == 0, done


def test_a_closed_session(host, console):
    done = run(console, host, *commands("quit"))
    assert done.returncode == 0, done
    done = run(console, host, *commands("quit", "who"))
    assert done.returncode == 1 and done.stderr == 'epon-console: "who": not carried out: the session is closed\n', done


def test_a_host_that_goes_away(host, console):
    process = subprocess.Popen([console, "--socket", host.socket_path, *CONFIG, *commands("event-notify"), "--wait",
                                "600"], stdout=subprocess.PIPE, stderr=subprocess.PIPE, encoding="utf-8")
    deadline = time.monotonic() + 30
    while "config" not in run(console, host, *commands("who")).stdout:
        assert time.monotonic() < deadline
    host.stop()
    output, errors = process.communicate(timeout=60)
    assert (process.returncode, output, errors) == (1, "", "epon-console: the console closed the session\n"), errors


def test_an_answer_that_takes_too_long(host, console):
    done = run(console, host, *CONFIG, "--timeout", "1",
               *commands("simulate fault NEP_reset_olt code 0 count 1 delay 2500", "no olt 1", "who"))
    assert done.returncode == 1 and done.stderr == 'epon-console: "no olt 1": no answer within 1 s\n', done


def test_the_socket_of_the_environment(host, console):
    done = subprocess.run([console, "-c", "enable", "--echo"], env={"EPON_SOCKET": host.socket_path}, timeout=60,
                          capture_output=True, check=False, encoding="utf-8")
    assert (done.returncode, done.stdout, done.stderr) == (0, "VNS> enable\n", ""), done


def test_wrong_options(host, console):
    for options in (["--json"], ["-f", "/no/such/file"], ["-c", "who", "-f", "-"], ["--wait", "-1", "-c", "who"],
                    ["--bla"], ["who"], ["-f", "/"]):
        done = run(console, host, *options)
        assert done.returncode == 2 and done.stdout == "", done
        assert done.stderr.startswith("epon-console: ") and done.stderr.count("\n") == 1, done


def test_hash_of_a_piped_password(host, console):
    for text in ("open sesame\n", "open sesame", "open sesame\r\nignored\n"):
        done = run(console, host, "--hash-password", text=text)
        assert done.returncode == 0 and done.stdout.startswith("$y$") and done.stdout.count("\n") == 1, done
        assert crypt.crypt("open sesame", done.stdout.strip()) == done.stdout.strip(), done
    for text in ("", "\n", "x" * 512 + "\n"):
        done = run(console, host, "--hash-password", text=text)
        assert (done.returncode, done.stdout, done.stderr.count("\n")) == (1, "", 1), done


class Asked:
    """epon-console at a terminal of its own, with standard output somewhere else."""

    def __init__(self, command):
        self.reading, writing = os.pipe()
        self.process, self.terminal = pty.fork()
        if self.process == 0:
            os.dup2(writing, 1)
            os.execv(command[0], command)
        os.close(writing)

    def answer(self, question, typed):
        shown = b""
        while not shown.endswith(question):
            assert select.select([self.terminal], [], [], 30)[0], shown
            shown += os.read(self.terminal, 4096)
        os.write(self.terminal, typed)
        return shown

    def end(self):
        output = b""
        while more := os.read(self.reading, 4096):
            output += more
        os.close(self.reading)
        status = os.waitstatus_to_exitcode(os.waitpid(self.process, 0)[1])
        shown = b""
        try:
            while more := os.read(self.terminal, 4096):
                shown += more
        except OSError:
            pass  # the terminal's other side is closed
        os.close(self.terminal)
        return status, output.decode(), shown


def test_hash_of_a_typed_password(_, console):
    """Typed twice, shown never; the erase keys work; Ctrl-C gives up."""
    asked = Asked([console, "--hash-password"])
    asked.answer(b"Password: ", b"wrong\x15open sesamx\x7fe\r")
    shown = asked.answer(b"Once more: ", b"open sesame\r")
    status, output, rest = asked.end()
    assert status == 0 and crypt.crypt("open sesame", output.strip()) == output.strip(), (status, output)
    assert b"e" not in shown.replace(b"Once more: ", b"") and rest == b"\r\n", (shown, rest)
    asked = Asked([console, "--hash-password"])
    asked.answer(b"Password: ", b"one\r")
    asked.answer(b"Once more: ", b"two\r")
    status, output, rest = asked.end()
    assert status == 1 and output == "" and b"the two passwords differ" in rest, (status, output, rest)
    asked = Asked([console, "--hash-password"])
    asked.answer(b"Password: ", b"one\x03")
    status, output, rest = asked.end()
    assert status == 1 and output == "" and b"given up" in rest, (status, output, rest)


if __name__ == "__main__":
    sys.exit(client_tests.run([test for name, test in list(globals().items()) if name.startswith("test_")]))
