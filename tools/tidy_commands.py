#!/usr/bin/env python3
"""Prints the compile commands for clang-tidy: one for each source file that is to be looked at.

    tools/tidy_commands.py SCOPE COMPILE_COMMANDS FILE...

SCOPE is all, code (no tests), tests, or changed: then a header among the files stands for the first source file that
includes it. Kernels are compiled once for each instruction set; the last of them, the richest, is taken, since
clang-tidy would run once for each. Precompiled headers, which are another compiler's, are left out.
"""

import json
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent


def includer(header, sources):
    """The first source file that includes the header by the end of its path; None where there is none."""
    pattern = re.compile(r'#include ["<](?:[\w./]*/)?' + re.escape(header.name) + '[">]')
    return next((source for source in sources if pattern.search(source.read_text(encoding="utf-8"))), None)


def main():
    scope, database, *names = sys.argv[1:]
    commands = {}
    for entry in json.loads(pathlib.Path(database).read_text(encoding="utf-8")):
        source = pathlib.Path(entry["file"])
        if source.suffix in (".c", ".cpp"):
            entry["command"] = re.sub(r" -Winvalid-pch| -include \S*cmake_pch\.\w+", "", entry["command"])
            commands[source] = entry

    wanted = set()
    for name in names:
        file = ROOT / name
        if scope == "code" and name.startswith("tests/") or scope == "tests" and not name.startswith("tests/"):
            continue
        if file.suffix != ".h":
            wanted.add(file)
        elif scope == "changed":
            wanted.add(includer(file, sorted(commands)))
    json.dump([commands[source] for source in sorted(commands) if source in wanted], sys.stdout, indent=1)


if __name__ == "__main__":
    main()
