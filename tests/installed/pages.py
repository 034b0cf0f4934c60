#!/usr/bin/env python3
"""Compares the documents with the tree and the program: pages.py CUCTL SOURCE-FOLDER

Links lead to files, files that are named exist, commands have the options with which they are named; the documents name
all documents, presets and fuzz targets."""

import glob
import json
import os
import re
import sys

from support import Help

cuctl, source = (os.path.abspath(argument) for argument in sys.argv[1:3])
PAGES = ["README.md", "README.it.md", "ARCHITECTURE.md", "CHANGELOG.md", "data/README.md",
         *(os.path.relpath(path, source) for path in sorted(glob.glob(os.path.join(source, "docs/*.md"))))]
FOLDERS = ("src", "tests", "docs", "data", "tools", "cmake", "packaging", "bench", ".ci")
NAME = re.compile(r"`([\w./-]+\.(?:cpp|h|md|sql|tsv|py|cmake|sh))`")
LINK = re.compile(r"\]\(([^)#:]+)(?:#[^)]*)?\)")
CALL = re.compile(r"\bcuctl ((?:[a-z]+ ?)+)([^`|]*)")
OPTION = re.compile(r"(?<![\w-])--[a-z][a-z-]*")
# Written by this program, or by its hidden command.
NOT_THERE = {"trace.sql"}
NOT_SHOWN = {"completion"}
faults = []


def expect(condition, text):
    if not condition:
        faults.append(text)


def read(*path):
    with open(os.path.join(source, *path), encoding="utf-8") as file:
        return file.read()


def every_file():
    found = {name for name in os.listdir(source) if os.path.isfile(os.path.join(source, name))}
    for top in FOLDERS:
        for folder, _, names in os.walk(os.path.join(source, top)):
            found.update(os.path.relpath(os.path.join(folder, name), source) for name in names)
    return found


def check_files(page, text, files):
    for name in NAME.findall(text):
        there = name in files or any(file.endswith("/" + name) for file in files)
        expect(there or name in NOT_THERE, f"{page}: there is no {name}")
    for link in LINK.findall(text):
        expect(os.path.exists(os.path.join(source, os.path.dirname(page), link)), f"{page}: a link leads to {link}")


def check_calls(page, text, commands):
    """`commands` has the options of each command, and of a group those of all commands in it."""
    for line in text.replace("\\\n", " ").splitlines():
        for words, rest in CALL.findall(line):
            path = words.split()[:2]
            while path and " ".join(path) not in commands:
                path.pop()
            if not path:
                expect(words.split()[0] in NOT_SHOWN, f"{page}: there is no command cuctl {words.split()[0]}")
                continue
            for option in OPTION.findall(rest.split("cuctl")[0]):
                expect(option in commands[" ".join(path)], f"{page}: cuctl {' '.join(path)} has no {option}")


def check_lists():
    faulty, readme = read("docs/guasti.md"), read("README.md")
    for path in glob.glob(os.path.join(source, "tests/fuzz/fuzz_*.cpp")):
        target = os.path.basename(path)[:-4]
        expect(f"| `{target}` |" in faulty, f"docs/guasti.md: {target} is missing")
    for preset in json.loads(read("CMakePresets.json"))["configurePresets"]:
        if not preset.get("hidden"):
            expect(f"`{preset['name']}`" in readme, f"README.md: the preset {preset['name']} is missing")
    for page in PAGES:
        expect(f"`{page}`" in readme or page == "README.md", f"README.md: {page} is missing")


files = every_file()
commands = {" ".join(one.path): one.all_options() for one in Help(cuctl).everything() if one.path}
for page in PAGES:
    text = read(page)
    check_files(page, text, files)
    check_calls(page, text, commands)
check_lists()
for fault in faults:
    print(fault)
sys.exit(1 if faults else 0)
