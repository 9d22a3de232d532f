#!/usr/bin/python3 -B
# SPDX-License-Identifier: Apache-2.0
"""Prints what the command library takes of the board, by module and in all, beside the bytes of its own texts.

  size_report.py [--write | --check] BUILD-FOLDER RECORD.md

The difference to the figures that RECORD.md holds is printed; --write puts the new ones there. --check ends with
status 1 when the library exceeds its budget. A module's figures are those of its object files, before the linker drops
what is not used and keeps one of equal texts; those of the library are what the board loads.
"""

import argparse
import glob
import os
import re
import subprocess
import sys

BUDGET = 2.2  # times its texts
COLUMNS = ("text", "read-only", "relocated", "bss", "texts")


def tool(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def column_of(section):
    """The column that a section of an object or of the library counts in; None: it is not loaded or not ours."""
    if section.startswith((".text", ".plt", ".init", ".fini")):
        return "text"
    if section.startswith((".data", ".got", ".dynamic", ".init_array", ".fini_array")):
        return "relocated"
    if section.startswith(".bss"):
        return "bss"
    return "read-only"


def sections(path):
    """Name, file offset and size of each section that is loaded."""
    for line in tool("readelf", "-SW", path).splitlines():
        found = re.match(r"\s*\[\s*\d+\]\s+(\.\S+)\s+(\S+)\s+[0-9a-f]+\s+([0-9a-f]+)\s+([0-9a-f]+)\s+\S+\s+(\S*)", line)
        if found and "A" in found[5]:
            yield found[1], found[2], int(found[3], 16), int(found[4], 16)


def bytes_of_texts(content):
    """Bytes of printable texts with their terminators; four letters are the shortest that tell a text from numbers."""
    return sum(len(text) for text in re.findall(rb"[\x09\x0a\x0d\x20-\x7e]{4,}\x00", content))


def sizes(path):
    result = dict.fromkeys(COLUMNS, 0)
    with open(path, "rb") as file:
        content = file.read()
    for name, kind, offset, size in sections(path):
        if name.startswith((".rel.", ".rela.")) and path.endswith(".o"):
            continue
        result[column_of(name)] += size
        if kind == "PROGBITS" and name.startswith(".rodata"):
            result["texts"] += bytes_of_texts(content[offset:offset + size])
    return result


def measure(folder):
    modules = {}
    objects = os.path.join(folder, "CLI_GENERAL", "CMakeFiles", "epon_cli.dir")
    for path in sorted(glob.glob(os.path.join(objects, "**", "*.o"), recursive=True)):
        parts = os.path.relpath(path, objects).split(os.sep)
        module = parts[1] if parts[0] == "__" else "CLI_GENERAL"
        total = modules.setdefault(module, dict.fromkeys(COLUMNS, 0))
        for column, size in sizes(path).items():
            total[column] += size
    modules["libepon_cli.so"] = sizes(os.path.join(folder, "CLI_GENERAL", "libepon_cli.so"))
    return modules


def recorded(path):
    rows = {}
    if os.path.exists(path):
        with open(path, encoding="utf-8") as file:
            for line in file:
                cells = [cell.strip(" `") for cell in line.strip().strip("|").split("|")]
                if len(cells) == len(COLUMNS) + 1 and cells[1].replace(",", "").isdigit():
                    rows[cells[0]] = dict(zip(COLUMNS, (int(cell.replace(",", "")) for cell in cells[1:])))
    return rows


def loaded(row):
    return row["text"] + row["read-only"] + row["relocated"] + row["bss"]


def verdict(library):
    return (f"The library takes {loaded(library):,} bytes, {loaded(library) / library['texts']:.2f} times the "
            f"{library['texts']:,} bytes of its texts; its budget is {BUDGET} times.")


def write(path, now):
    with open(path, "w", encoding="utf-8") as file:
        file.write("# Size of the library\n\n"
                   "Bytes of `libepon_cli.so` for the board, as `scripts/size --write` recorded them. The rows of the\n"
                   "modules count object files, before the linker drops what is not used and keeps one of equal texts;\n"
                   "the last row is what the board loads, tables of the dynamic linker included. The texts are grammars,\n"
                   "help and messages, a part of the read-only data.\n\n")
        file.write("| | " + " | ".join(COLUMNS) + " |\n|---|" + "---:|" * len(COLUMNS) + "\n")
        for name, row in now.items():
            file.write(f"| `{name}` | " + " | ".join(f"{row[column]:,}" for column in COLUMNS) + " |\n")
        file.write("\n" + verdict(now["libepon_cli.so"]) + "\n")


def show(now, before):
    print(f"{'':22}" + "".join(f"{column:>20}" for column in COLUMNS))
    for name, row in now.items():
        cells = []
        for column in COLUMNS:
            change = row[column] - before[name][column] if name in before else 0
            cells.append(f"{row[column]:,}" + (f" ({change:+,})" if change else ""))
        print(f"{name:22}" + "".join(f"{cell:>20}" for cell in cells))
    print(verdict(now["libepon_cli.so"]))


def main():
    parser = argparse.ArgumentParser(usage=__doc__)
    parser.add_argument("--write", action="store_true")
    parser.add_argument("--check", action="store_true")
    parser.add_argument("folder")
    parser.add_argument("record")
    options = parser.parse_args()
    now = measure(options.folder)
    show(now, recorded(options.record))
    if options.write:
        write(options.record, now)
    library = now["libepon_cli.so"]
    return 1 if options.check and loaded(library) > BUDGET * library["texts"] else 0


if __name__ == "__main__":
    sys.exit(main())
