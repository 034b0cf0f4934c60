#!/usr/bin/env python3
"""clang-tidy over all of src/:  tools/tidy.py [--deep] BUILD [FOLDER-OF-SRC...]

BUILD is a configured build folder with compile_commands.json. Most of clang-tidy's time is spent on the headers of
libraries, which it parses with each file. The files of a folder are therefore joined and checked as one; findings are
reported with their original file and line. The path-sensitive checks follow fewer paths and shorter functions unless
--deep is given, which takes four times as long. Exits with 1 where anything is found.
"""

import bisect
import concurrent.futures
import json
import os
import pathlib
import re
import shlex
import shutil
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parent.parent
LONGEST = 4000  # lines checked at a time, so that every processor has work to the end
# Without following a call to its end every widget that a parent owns is a leak.
SHALLOW = [f"--extra-arg={word}" for word in ("-Xclang", "-analyzer-config", "-Xclang", "mode=shallow")] + [
    "--checks=-clang-analyzer-cplusplus.NewDeleteLeaks"]


class Part:
    """Some files of a folder, joined."""

    def __init__(self, flags):
        self.flags = flags
        self.text = ""
        self.starts = []  # the first line of each file
        self.files = []

    def lines(self):
        return self.text.count("\n")

    def add(self, file):
        self.starts.append(self.lines() + 1)
        self.files.append(file)
        self.text += file.read_text(encoding="utf-8")

    def place(self, line):
        at = bisect.bisect_right(self.starts, line) - 1
        return self.files[at].relative_to(ROOT), line - self.starts[at] + 1


def flags_of(command):
    """The options of a compiler command, without launcher, compiler, file and output."""
    words = shlex.split(command)
    start = next(i for i, word in enumerate(words) if word.startswith("-"))
    flags = []
    rest = iter(words[start:])
    for word in rest:
        if word in ("-o", "-c", "-MF", "-MT"):
            next(rest)
        elif word != "-MD":
            flags.append(word)
    return flags


def parts_of(build, wanted):
    parts = {}
    for entry in sorted(json.loads((build / "compile_commands.json").read_text()), key=lambda e: e["file"]):
        file = pathlib.Path(entry["file"])
        if not file.is_relative_to(ROOT / "src"):
            continue
        folder = file.parent.relative_to(ROOT / "src")
        if wanted and str(folder) not in wanted:
            continue
        flags = flags_of(entry["command"])
        of_folder = parts.setdefault((folder, *flags), [])
        if not of_folder or of_folder[-1].lines() > LONGEST:
            of_folder.append(Part(flags))
        of_folder[-1].add(file)
    return sorted((part for each in parts.values() for part in each), key=Part.lines, reverse=True)


def check(build, part, depth):
    """The findings of clang-tidy with their places in src/; not empty where it fails for another reason."""
    with tempfile.TemporaryDirectory() as folder:
        # clang-tidy searches the configuration in the folders above the file: its own folder's and the project's.
        place = pathlib.Path(folder) / "folder"
        place.mkdir()
        shutil.copy(ROOT / ".clang-tidy", folder)
        own = part.files[0].parent / ".clang-tidy"
        if own.exists():
            shutil.copy(own, place)
        joined = place / "joined.cpp"
        joined.write_text(part.text, encoding="utf-8")
        done = subprocess.run(
            ["clang-tidy", "--quiet", "--header-filter=/rooms/", *depth, str(joined), "--", *part.flags,
             f"-I{part.files[0].parent}", "-Wno-unknown-warning-option"],
            stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True, check=False)

        def source(match):
            file, line = part.place(int(match[1]))
            return f"{file}:{line}:"

        said = re.sub(re.escape(str(joined)) + r":(\d+):", source, done.stdout)
        said = re.sub(re.escape(str(build)) + "/rooms/[^/]+/", "src/", said)
        if done.returncode != 0 and not said:
            said = f"clang-tidy ends with {done.returncode}: {done.stderr}\n"
        return [each for each in re.split(r"^(?=\S+:\d+:\d+: error)", said, flags=re.MULTILINE) if each]


def main():
    words = sys.argv[1:]
    depth = [] if "--deep" in words else SHALLOW
    build, *folders = (word for word in words if word != "--deep")
    build = pathlib.Path(build).resolve()
    parts = parts_of(build, folders)
    if not parts:
        sys.exit(f"{build} compiles nothing of these folders")
    told = set()  # findings in a header repeat for each folder that includes it
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as workers:
        for found in workers.map(lambda part: check(build, part, depth), parts):
            for each in found:
                if each not in told:
                    print(each, end="", flush=True)
                told.add(each)
    print(f"clang-tidy: {sum(len(part.files) for part in parts)} files,", "see above" if told else "nothing found")
    sys.exit(1 if told else 0)


main()
