#!/usr/bin/python3 -B
# SPDX-License-Identifier: Apache-2.0
"""Compares the lines that a command prints, sorted, with those of a file.

  same_lines.py FILE COMMAND [ARGUMENT...]
"""

import difflib
import subprocess
import sys


def main():
    expected_file, *command = sys.argv[1:]
    with open(expected_file, encoding="utf-8") as file:
        expected = sorted(file.read().splitlines())
    run = subprocess.run(command, check=True, capture_output=True, text=True)
    actual = sorted(run.stdout.splitlines())
    for line in difflib.unified_diff(expected, actual, expected_file, " ".join(command), lineterm="", n=0):
        print(line)
    if actual != expected:
        sys.exit(1)
    print(f"{len(actual)} lines, as expected")


if __name__ == "__main__":
    main()
