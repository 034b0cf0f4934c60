#!/usr/bin/env python3
"""Installs into an empty prefix and uses what is there: prefix.py CMAKE BUILD-FOLDER SOURCE-FOLDER BUILD-TYPE

The programs run from the prefix and make the telematic file of the examples; everything that belongs to them is there,
valid where a tool of the system can tell, and nothing contains a path of the folders from which it comes (programs with
debugging information have those)."""

import glob
import gzip
import os
import re
import shutil
import subprocess
import sys
import tempfile

from support import output, run

cmake, build, source, build_type = sys.argv[1:5]
faults = []

EXPECTED = ["bin/cuctl", "bin/cuwizard", "share/applications/cuwizard.desktop",
            "share/icons/hicolor/scalable/apps/cuwizard.svg", "share/icons/hicolor/48x48/apps/cuwizard.png",
            "share/metainfo/it.cuwizard.Cuwizard.metainfo.xml", "share/mime/packages/cuwizard.xml",
            "share/man/man1/cuctl.1.gz", "share/man/it/man1/cuctl.1.gz", "share/man/man5/cuwizard-profile.5.gz",
            "share/bash-completion/completions/cuctl", "share/bash-completion/completions/cuwizard",
            "share/doc/cuwizard/copyright", "share/doc/cuwizard/changelog.gz",
            "share/doc/cuwizard/examples/compensi.csv", "share/cuwizard/guida.md"]


def expect(condition, text):
    if not condition:
        faults.append(text)


def read(*path):
    with open(os.path.join(*path), "rb") as file:
        return file.read()


def check_files(prefix):
    for name in EXPECTED:
        expect(os.path.isfile(os.path.join(prefix, name)), f"{name} is not installed")
    libraries = glob.glob(os.path.join(prefix, "lib", "**", "cuwizard-stampe.so"), recursive=True)
    expect(len(libraries) == 1, f"the library of the prints is installed {len(libraries)} times")
    for folder, folders, names in os.walk(prefix):
        for name in folders + names:
            path = os.path.join(folder, name)
            expect(os.stat(path).st_mode & 0o022 == 0, f"{path} can be written by others")
        for name in names:
            path = os.path.join(folder, name)
            content = gzip.decompress(read(path)) if name.endswith(".gz") else read(path)
            for own in (build, source) if build_type == "Release" else ():
                expect(own.encode() not in content, f"{path} contains {own}")


def check_guide(prefix):
    """The pictures of the guide in both looks, and the folder in which the window looks for it."""
    guide = os.path.join(prefix, "share/cuwizard")
    for picture in re.findall(r"!\[[^]]*\]\(([^)]*)\)", read(guide, "guida.md").decode()):
        dark = os.path.join(os.path.dirname(picture), "scuri", os.path.basename(picture))
        for each in (picture, dark):
            expect(os.path.isfile(os.path.join(guide, each)), f"the guide lacks {each}")
    wanted = os.path.relpath(guide, os.path.join(prefix, "bin"))
    window = read(prefix, "bin/cuwizard")
    expect(any(form in window for form in (("/" + wanted).encode("utf-16le"), ("/" + wanted).encode())),
           f"the window does not look for its guide in {wanted}")


def check_notices(prefix, work):
    """Each list has the notice of its source, each licence its text, and what others have made of a print is named:
    its font and its colour profile."""
    text = read(prefix, "share/doc/cuwizard/copyright").decode()
    paragraphs = [dict(re.findall(r"^(\S+):\s*((?:.|\n )*)", part, flags=re.M)) for part in text.split("\n\n")]
    files = " ".join(part.get("Files", "") for part in paragraphs).split()
    for name in os.listdir(os.path.join(source, "data/liste")):
        expect(f"data/liste/{name}" in files, f"data/liste/{name} has no notice")
    for folder in ("data/demo", "data/sintetica"):
        expect(f"{folder}/*" in files, f"{folder} has no notice")
    texts = {part["License"].split("\n")[0] for part in paragraphs if "License" in part and "Files" not in part}
    used = {name for part in paragraphs if "Files" in part for name in part["License"].split("\n")[0].split(" and ")}
    expect(used == texts, f"licences used {sorted(used)}, with their texts {sorted(texts)}")
    font = re.search(r'kInstalled = "([^"]*)"', read(source, "src/reporting/print_font.cpp").decode()).group(1)
    expect(font in text, f"the font {font} has no notice")
    if not shutil.which("qpdf"):
        print("qpdf is not installed: the notice of the prints' colour profile is not checked")
        return
    forms = glob.glob(os.path.join(work, "CUR_*_2017_*.cur"))
    plain = subprocess.run(["qpdf", "--qdf", forms[0], "-"], capture_output=True, check=True).stdout
    claims = re.findall(rb"Copyright ([\w ]+), (\d{4})", plain)
    expect(claims, "no colour profile in a print")
    for owner, year in claims:
        expect(f"Copyright: {year.decode()} {owner.decode()}\n" in text, f"{owner.decode()} in a print has no notice")


def check_use(prefix, work):
    cuctl = os.path.join(prefix, "bin/cuctl")
    version = re.search(r"VERSION (\S+)", read(source, "CMakeLists.txt").decode().split("project(")[1]).group(1)
    for program in ("cuctl", "cuwizard"):
        shown = output(os.path.join(prefix, "bin", program), "--version")
        said = re.match(rf"{program} (\S+) del (\S+)\n", shown)
        expect(said and said.group(1) == version, f"{program} --version: {shown}")
        heading = f"\n## {said.group(1)} ({said.group(2)})\n"
        changes = gzip.decompress(read(prefix, "share/doc/cuwizard/changelog.gz")).decode()
        expect(heading in changes and changes.index("\n## ") == changes.index(heading),
               f"the changes do not begin with {heading.strip()}")
        expect(f'version="{said.group(1)}" date="{said.group(2)}"' in
               read(prefix, "share/metainfo/it.cuwizard.Cuwizard.metainfo.xml").decode(),
               "the release in the metainfo is another one")
        check_libraries(os.path.join(prefix, "bin/cuwizard"), shown)
    output(cuctl, "create", "--database", "sqlite:prova.db", "--demo", cwd=work)
    shutil.copy(os.path.join(prefix, "share/doc/cuwizard/examples/profilo.toml"), work)
    output(cuctl, "make", "--profile", "profilo.toml", "--year", "2017", "--cumulative", "--yes", cwd=work)
    return os.path.join(work, "CUR_04123450233_2017.cur")


# As --version writes the name of a library, where its file has another one; none of those of the compiler.
WRITTEN = {"odbc": "unixODBC", "crypto": "OpenSSL", "sqlite3": "SQLite", "poppler-qt6": "Poppler",
           "stdc++": None, "m": None, "gcc_s": None, "c": None}


def check_libraries(window, shown):
    """Each library that the window links is in --version with its number; of its own alone, the previews'."""
    needed = re.findall(r"NEEDED.*\[lib([\w+-]+)\.so", output("readelf", "-d", window))
    expect("sqlite3" in needed, f"readelf names {needed}")
    for library in needed:
        name = "Qt" if library.startswith("Qt6") else WRITTEN.get(library, library)
        if name and not (name == "Poppler" and shown.startswith("cuctl")):
            expect(re.search(rf"\b(lib)?{name} \D*\d+\.\d", shown, flags=re.I), f"--version does not mention {name}:\n{shown}")


def check_types(prefix, work, telematic):
    """The type of the telematic file and of its forms, as the desktop finds them; a cursor stays one."""
    magic = re.search(r'value="([^"]*)"', read(prefix, "share/mime/packages/cuwizard.xml").decode()).group(1)
    expect(magic == "A" + 14 * " " + "CUR", f"the mark of the type is {magic!r}")
    expect(read(telematic).startswith(magic.encode()), "the telematic file does not begin with the mark of its type")
    if not (shutil.which("update-mime-database") and shutil.which("gio") and os.path.isdir("/usr/share/mime/packages")):
        print("The desktop's tools are not installed: the types are not checked")
        return
    data = os.path.join(work, "data")
    shutil.copytree("/usr/share/mime/packages", os.path.join(data, "mime/packages"))
    shutil.copy(os.path.join(prefix, "share/mime/packages/cuwizard.xml"), os.path.join(data, "mime/packages"))
    subprocess.run(["update-mime-database", os.path.join(data, "mime")], check=True, capture_output=True)
    form = os.path.join(work, "modulo.cur")
    cursor = os.path.join(work, "cursore.cur")
    with open(form, "wb") as file:
        file.write(b"%PDF-1.4\n" + 64 * b" ")
    with open(cursor, "wb") as file:
        file.write(bytes((0, 0, 2, 0, 1, 0, 32, 32, 0, 0, 0, 0)) + bytes(52))
    environment = dict(os.environ, XDG_DATA_DIRS=data, XDG_DATA_HOME=os.path.join(work, "home"))
    for path, wanted in ((telematic, "application/x-cu-telematico"), (form, "application/pdf"),
                         (cursor, "image/x-win-bitmap")):
        shown = subprocess.run(["gio", "info", "-a", "standard::content-type", path], env=environment, text=True,
                               capture_output=True, check=True).stdout
        expect(shown.strip().endswith(" " + wanted), f"{path} is of type {shown.strip().split()[-1]}, not {wanted}")


def check_desktop(prefix):
    """With the tools that are there."""
    tools = (("appstreamcli", ("validate", "--no-net"), "share/metainfo/it.cuwizard.Cuwizard.metainfo.xml"),
             ("desktop-file-validate", (), "share/applications/cuwizard.desktop"))
    for tool, arguments, name in tools:
        if shutil.which(tool):
            said = run(tool, *arguments, os.path.join(prefix, name))
            expect(said.returncode == 0, f"{tool}: {said.stdout}{said.stderr}")
        else:
            print(f"{tool} is not installed: {name} is not checked")
    entry = read(prefix, "share/applications/cuwizard.desktop").decode()
    for line in ("\nKeywords=", "\nKeywords[it]=", "\nMimeType=application/x-cu-telematico;\n", "\nExec=cuwizard %F\n"):
        expect(line in entry, f"the desktop file lacks {line.strip()}")


with tempfile.TemporaryDirectory() as folder:
    prefix, work = os.path.join(folder, "prefix"), os.path.join(folder, "work")
    os.mkdir(work)
    output(cmake, "--install", build, "--prefix", prefix)
    # Nothing may depend on where it was installed first.
    moved = os.path.join(folder, "moved")
    os.rename(prefix, moved)
    check_files(moved)
    check_guide(moved)
    telematic = check_use(moved, work)
    check_notices(moved, work)
    check_types(moved, work, telematic)
    check_desktop(moved)
for fault in faults:
    print(fault)
sys.exit(1 if faults else 0)
