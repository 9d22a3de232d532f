#!/usr/bin/python3 -B
# SPDX-License-Identifier: Apache-2.0
"""Writes a C file that defines every operation which libepon_cli.so leaves undefined.

  unused_operations.py path/to/libepon_cli.so OUTPUT.c

The library keeps addresses of SDK operations in its tables, so a host must have them all. A host brings its own
definitions of those that its run uses; these, which are weak, stand for the others, and a call of one ends the run.
"""

import sys

from library_needs import engine_and_sdk, symbols

DATA = {"vtyvec", "RBX_vty_kill_all_flag"}


def main():
    library, output = sys.argv[1:]
    names = sorted((set(symbols(library, "--undefined-only")) & engine_and_sdk()) - DATA)
    with open(output, "w", encoding="utf-8") as file:
        file.write("#include <stdio.h>\n#include <stdlib.h>\n\n"
                   "static void not_expected(const char* name)\n"
                   '{\n    fprintf(stderr, "wrong: the run calls %s\\n", name);\n    exit(1);\n}\n\n')
        for name in names:
            file.write(f"__attribute__((weak)) void {name}(void) {{ not_expected(\"{name}\"); }}\n")


if __name__ == "__main__":
    main()
