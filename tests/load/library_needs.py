#!/usr/bin/python3 -B
# SPDX-License-Identifier: Apache-2.0
"""Checks what libepon_cli.so needs and carries, so that it loads into any host on a small board.

  library_needs.py path/to/libepon_cli.so

It needs the C library alone; what it leaves undefined is the C library's, the engine's or the SDK's; it runs nothing
when it is loaded; and what it exports belongs to the interface.
"""

import glob
import os
import re
import subprocess
import sys

NEEDED = re.compile(r"libc\.so(\.6)?|ld-linux.*\.so\.\d+")

HEADERS = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "include", "epon")

C_LIBRARY = set("""
    strtol strtoul strtoll strtoull atoi sscanf __isoc99_sscanf __isoc23_sscanf __isoc23_strtol __isoc23_strtoul
    snprintf vsnprintf printf fprintf sprintf __snprintf_chk __vsnprintf_chk __sprintf_chk __fprintf_chk
    fopen fopen64 fread fwrite fclose fseek fseeko fseeko64 ftell ftello ftello64 ferror feof fgets fputs fputc
    fstat fstat64 stat stat64 fileno __errno_location errno strerror unlink remove rename
    malloc calloc realloc free
    memcpy memmove memset memcmp memchr strlen strnlen strcmp strncmp strcasecmp strncasecmp strcpy strncpy strcat
    strchr strrchr strstr strspn strcspn strtok_r strdup strpbrk
    __memcpy_chk __memset_chk __strcpy_chk __stack_chk_fail __ctype_b_loc toupper tolower isxdigit isdigit
    time localtime_r gmtime_r
""".split())

# Weak references that every shared object of this toolchain carries.
TOOLCHAIN = {"__cxa_finalize", "__gmon_start__", "_ITM_deregisterTMCloneTable", "_ITM_registerTMCloneTable"}
# Arithmetic that 32-bit ARM takes from the compiler's own library, linked in or from libc; its division by zero raises.
ARM_ARITHMETIC = re.compile(r"__aeabi_(?!unwind)\w+|raise")


def tool(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def engine_and_sdk():
    """The functions and data that the headers of the engine and the SDK declare."""
    names = set()
    for path in [os.path.join(HEADERS, "engine.h"), *glob.glob(os.path.join(HEADERS, "sdk", "*.h"))]:
        with open(path, encoding="utf-8") as file:
            text = re.sub(r"/\*.*?\*/|//[^\n]*", "", file.read(), flags=re.DOTALL)
        # A declaration at the start of a line; the name is followed by its parameters, or by the end of the data.
        names.update(re.findall(r"^(?!typedef|#|static|enum \{)[A-Za-z][\w \*]*?\b(\w+)(?:\(|;)", text, flags=re.MULTILINE))
    return names


def needed(library):
    return re.findall(r"\(NEEDED\).*\[(.*)\]", tool("readelf", "-dW", library))


def symbols(library, *options):
    """Names of the dynamic symbol table, without versions."""
    lines = tool("nm", "-D", *options, library).splitlines()
    return sorted({line.split()[-1].split("@")[0] for line in lines})


def all_symbols(library):
    """Names of the full symbol table; empty when the library is stripped."""
    return sorted({line.split()[-1] for line in tool("nm", library).splitlines() if line})


def section_sizes(library):
    sizes = {}
    for name, size in re.findall(r"\]\s+(\.\S+)\s+\S+\s+[0-9a-f]+\s+[0-9a-f]+\s+([0-9a-f]+)",
                                 tool("readelf", "-SW", library)):
        sizes[name] = int(size, 16)
    return sizes


def findings(library):
    host = engine_and_sdk()
    for name in needed(library):
        if not NEEDED.fullmatch(name):
            yield f"needs {name}"
    for name in symbols(library, "--undefined-only"):
        if name in C_LIBRARY or name in TOOLCHAIN:
            continue
        if name not in host and not ARM_ARITHMETIC.fullmatch(name):
            yield f"leaves {name} undefined"
    for name in symbols(library, "--defined-only"):
        if name.startswith("_Z"):
            yield f"exports {name}, a C++ name"
        if name in host:
            yield f"defines {name}, which is the engine's or the SDK's"
    sizes = section_sizes(library)
    for name in (".init", ".fini", ".init_array", ".fini_array", ".preinit_array", ".ctors", ".dtors"):
        if name in sizes:
            yield f"runs code at load or unload ({name})"
    for name in (".tdata", ".tbss"):
        if name in sizes:
            yield f"has thread-local data ({name})"
    for name in (".gcc_except_table", ".ARM.extab"):
        if name in sizes:
            yield f"has tables of exceptions ({name})"
    # All that is left of unwinding is what the compiler's arithmetic brings along.
    for name, limit in ((".eh_frame", 256), (".eh_frame_hdr", 64), (".ARM.exidx", 64)):
        if sizes.get(name, 0) > limit:
            yield f"has tables for unwinding ({name}, {sizes[name]} bytes)"
    for name in all_symbols(library):
        if re.match(r"_ZT[ISV]|__gxx_personality|__aeabi_unwind", name):
            yield f"carries {name}, of type information or exceptions"
    if "TEXTREL" in tool("readelf", "-dW", library):
        yield "has relocations in its code"


def main():
    if len(sys.argv) != 2:
        print(__doc__, file=sys.stderr)
        return 2
    found = list(findings(sys.argv[1]))
    for finding in found:
        print(f"{sys.argv[1]}: {finding}")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
