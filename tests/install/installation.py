# SPDX-License-Identifier: Apache-2.0
"""What the tests of an installation share: options, commands, and a console that is started from it."""

import argparse
import contextlib
import os
import re
import shlex
import subprocess
import tempfile

HERE = os.path.dirname(os.path.abspath(__file__))


def options():
    parser = argparse.ArgumentParser()
    parser.add_argument("--build", required=True, help="folder of a finished build")
    parser.add_argument("--cmake", default="cmake")
    parser.add_argument("--compiler", default="cc", help="C compiler for the machine that was built for")
    parser.add_argument("--emulator", default="", help="runs programs of that machine, when it is another one")
    result = parser.parse_args()
    result.build = os.path.abspath(result.build)
    result.emulator = shlex.split(result.emulator)
    return result


def run(*command, **more):
    """Runs a command and returns what it prints; ends the test, with all of it, when the command fails."""
    result = subprocess.run(command, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                            check=False, **more)
    if result.returncode != 0:
        raise SystemExit(f"{shlex.join(command)}\n{result.stdout}status {result.returncode}")
    return result.stdout


@contextlib.contextmanager
def served_console(host, emulator):
    """Starts the host; yields the path of its socket. It must end well."""
    with tempfile.TemporaryDirectory() as folder:
        socket = os.path.join(folder, "console")
        # A port that is taken is told at once, and the next one is tried.
        for port in range(20000 + os.getpid() % 10000, 40000):
            server = subprocess.Popen([*emulator, host, "--socket", socket, "--port", str(port)],
                                      stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
            line = server.stdout.readline()
            if "console on" in line:
                break
            server.wait()
            if "in use" not in line:
                raise SystemExit(f"{host}: {line}{server.stdout.read()}")
        try:
            yield socket
        finally:
            server.terminate()
            if server.wait(60) != 0:
                raise SystemExit(f"{host} ended with status {server.returncode}: {server.stdout.read()}")


def check_console(host, console, emulator):
    """An operator's first steps, from the programs of the installation alone."""
    with served_console(host, emulator) as socket:
        text = run(*emulator, console, "--socket", socket, "--node", "enable; configure terminal; olt 0", "-c",
                   "show olt parameters")
    if not re.search(r"^OLT_id: 0\s", text, re.MULTILINE):
        raise SystemExit(f"the console answers something else:\n{text}")


def long_options(text):
    """The options that a text names, man page or help."""
    text = re.sub(r"\\f.", "", text).replace("\\-", "-")
    return set(re.findall(r"(?<![\w-])--[a-z][a-z-]+", text))
