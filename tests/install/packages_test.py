#!/usr/bin/python3 -B
# SPDX-License-Identifier: Apache-2.0
"""Makes the Debian packages of a build, looks into them, and serves a console from what they hold alone."""

import glob
import gzip
import os
import re
import tempfile

from installation import check_console, long_options, options, run

PACKAGES = {"libepon-cli2", "libepon-cli-dev", "epon-host", "epon-console"}
# What each of them must hold; paths under /usr.
CONTENTS = {
    "libepon-cli2": ["lib/libepon_cli.so.2"],
    "libepon-cli-dev": ["lib/libepon_cli.so", "lib/pkgconfig/epon-cli.pc", "include/epon/cli.h",
                        "lib/cmake/epon_cli/epon_cliConfig.cmake"],
    "epon-host": ["bin/epon-host", "lib/systemd/system/epon-host.service", "share/man/man1/epon-host.1.gz",
                  "share/epon-host/scenarios/demo.toml"],
    "epon-console": ["bin/epon-console", "share/man/man1/epon-console.1.gz"],
}


def unpack(folder, root):
    """Unpacks every package; returns their names and the files each of them holds."""
    contents = {}
    for path in glob.glob(os.path.join(folder, "*.deb")):
        name = run("dpkg-deb", "--field", path, "Package").strip()
        contents[name] = re.findall(r" \./usr/(\S*[^/\s])(?: -> .*)?$", run("dpkg-deb", "--contents", path), re.MULTILINE)
        depends = run("dpkg-deb", "--field", path, "Depends")
        if name == "epon-host" and not re.search(r"libepon-cli2 \(= \d", depends):
            raise SystemExit(f"epon-host would go with any library: {depends}")
        if name == "libepon-cli2" and re.search(r"libstdc\+\+|libgcc", depends):
            raise SystemExit(f"the library needs more than libc: {depends}")
        run("dpkg-deb", "--extract", path, root)
    return contents


def check_man_page(root, program, emulator):
    """The page names exactly the options that the program has."""
    with gzip.open(os.path.join(root, "usr", "share", "man", "man1", program + ".1.gz"), "rt", encoding="utf-8") as page:
        described = long_options(page.read())
    has = long_options(run(*emulator, os.path.join(root, "usr", "bin", program), "--help"))
    if described != has:
        raise SystemExit(f"{program}.1: missing {sorted(has - described)}, gone {sorted(described - has)}")


def main():
    given = options()
    with tempfile.TemporaryDirectory() as folder:
        run("cpack", "--config", os.path.join(given.build, "CPackConfig.cmake"), "-B", folder, cwd=folder)
        root = os.path.join(folder, "root")
        contents = unpack(folder, root)
        if set(contents) != PACKAGES:
            raise SystemExit(f"packages: {sorted(contents)}")
        for name, paths in CONTENTS.items():
            missing = [path for path in paths if path not in contents[name]]
            if missing:
                raise SystemExit(f"{name} lacks {missing}; it holds {contents[name]}")
        for program in ("epon-host", "epon-console"):
            check_man_page(root, program, given.emulator)
        binaries = os.path.join(root, "usr", "bin")
        check_console(os.path.join(binaries, "epon-host"), os.path.join(binaries, "epon-console"), given.emulator)


if __name__ == "__main__":
    main()
