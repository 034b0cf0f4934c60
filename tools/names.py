#!/usr/bin/env python3
"""Names in anonymous namespaces that repeat within a folder:  tools/names.py FOLDER...

Where a tree is built once, the files of a room or of a test program are compiled as one file. A function of the same
name in two of them is then an overload, and the wrong one may be called without an error; a name of a header of the
folder is then ambiguous. Exits with 1 where a name repeats. Folders of independent programs (fuzz) are not examined.
"""

import collections
import pathlib
import re
import sys

FUNCTION = re.compile(
    r"(?!using\b|return\b|class\b|struct\b|enum\b|//|#|\}|TEST|INSTANTIATE|constexpr .*=)"
    r"[A-Za-z\[][\w:<>&*\[\], ()]*?[ &*](\w+)\(")
TYPE = re.compile(r"(?:class|struct|enum class|enum) (\w+)")
ALIAS = re.compile(r"using (\w+) = (.*)")
CONSTANT = re.compile(r"(?:constexpr|const) [^=({]*?\b(k[A-Z]\w*)(?:\[[^\]]*\])* *[={]")

HEADER = re.compile(
    r"^(?:inline constexpr [^=({;]*?\b(?=k[A-Z])|(?:class|struct|enum class|enum) (?=\w+[^;]*$)|using (?=\w+ =))(\w+)",
    re.MULTILINE)


def names_of(file):
    """Yields each name with what it means: an alias of the same type may repeat."""
    anonymous = False
    for line in file.read_text(encoding="utf-8").splitlines():
        if line.startswith("namespace {"):
            anonymous = True
        elif line == "}  // namespace":
            anonymous = False
        elif anonymous and (alias := ALIAS.match(line)):
            yield alias[1], alias[2]
        elif anonymous:
            for pattern in (TYPE, CONSTANT, FUNCTION):
                if found := pattern.match(line):
                    if pattern is not FUNCTION or not line.endswith(";"):
                        yield found[1], file.name
                    break


def main():
    repeated = 0
    for root in sys.argv[1:]:
        folders = collections.defaultdict(list)
        for file in sorted(pathlib.Path(root).rglob("*.cpp")):
            if file.parent.name != "fuzz":
                folders[file.parent].append(file)
        for folder, files in sorted(folders.items()):
            places = collections.defaultdict(set)
            meanings = collections.defaultdict(set)
            headers = collections.defaultdict(set)
            for header in folder.glob("*.h"):
                for name in HEADER.findall(header.read_text(encoding="utf-8")):
                    headers[name].add(header.name)
            for file in files:
                for name, meaning in names_of(file):
                    places[name].add(file.name)
                    meanings[name].add(meaning)
            for name, where in places.items():
                where |= headers[name]
                if len(where) > 1 and (len(meanings[name]) > 1 or headers[name]):
                    repeated += 1
                    print(f"{folder}: {name} in {', '.join(sorted(where))}")
    sys.exit(1 if repeated else 0)


main()
