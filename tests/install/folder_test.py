#!/usr/bin/python3 -B
# SPDX-License-Identifier: Apache-2.0
"""Installs a build into a folder, builds a host of another project against it, and serves a console from it."""

import glob
import os
import re
import subprocess
import sys
import tempfile

from installation import HERE, check_console, options, run


def build_small_host(given, prefix, folder):
    """The minimal C host as another project builds it, with the installed CMake package."""
    library = os.path.join(prefix, "lib", "libepon_cli.so")
    sources = os.path.join(HERE, "..", "load")
    operations = os.path.join(folder, "operations.c")
    run(sys.executable, "-B", os.path.join(sources, "unused_operations.py"), library, operations)
    build = os.path.join(folder, "small_host")
    run(given.cmake, "-S", os.path.join(HERE, "small_host"), "-B", build, f"-DCMAKE_C_COMPILER={given.compiler}",
        f"-Depon_cli_DIR={prefix}/lib/cmake/epon_cli", f"-DHOST_SOURCES={sources}", f"-DOPERATIONS={operations}")
    run(given.cmake, "--build", build)
    print(run(*given.emulator, os.path.join(build, "small_host"), library), end="")


def check_pkg_config(given, prefix, folder):
    """The flags of pkg-config are enough to compile and to find the library."""
    where = dict(os.environ, PKG_CONFIG_PATH=os.path.join(prefix, "lib", "pkgconfig"))
    flags = run("pkg-config", "--cflags", "--libs", "epon-cli", env=where).split()
    source = os.path.join(folder, "version.c")
    with open(source, "w", encoding="utf-8") as file:
        file.write("#include <epon/cli.h>\nint main(void) { char text[CLI_INFORMATION_SIZE]; return CLI_information(text); }\n")
    run(given.compiler, source, "-o", os.path.join(folder, "version"), *flags, "-Wl,--unresolved-symbols=ignore-in-shared-libs")


def check_headers(given, prefix):
    """Every header stands alone, in C and in C++."""
    for language in ("c", "c++"):
        for header in glob.glob(os.path.join(prefix, "include", "epon", "**", "*.h"), recursive=True):
            run(given.compiler, "-x", language, "-fsyntax-only", "-Wall", "-Wextra", "-Werror", "-I",
                os.path.join(prefix, "include"), "-include", header, "/dev/null")


def main():
    given = options()
    with tempfile.TemporaryDirectory() as folder:
        prefix = os.path.join(folder, "installed")
        run(given.cmake, "--install", given.build, "--prefix", prefix)
        needed = subprocess.run(["readelf", "-dW", os.path.join(prefix, "lib", "libepon_cli.so")], check=True,
                                capture_output=True, text=True).stdout
        if re.findall(r"\(RUNPATH\)|\(RPATH\)", needed):
            raise SystemExit("the library looks for others in a folder of its own")
        check_headers(given, prefix)
        build_small_host(given, prefix, folder)
        check_pkg_config(given, prefix, folder)
        check_console(os.path.join(prefix, "bin", "epon-host"), os.path.join(prefix, "bin", "epon-console"), given.emulator)


if __name__ == "__main__":
    main()
