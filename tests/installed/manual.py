#!/usr/bin/env python3
"""Compares the manual with the programs: manual.py CUCTL CUWIZARD FOLDER-OF-THE-PAGES

Each command has a page in each language, with the options of its --help and no other; the columns of the tables are
those of the templates; the profile of the examples in the pages works. Where man is installed, it lays out each page
without a warning."""

import os
import re
import shutil
import subprocess
import sys
import tempfile

from support import Help, output, run

cuctl, cuwizard, folder = (os.path.abspath(argument) for argument in sys.argv[1:4])
faults = []


def expect(condition, text):
    if not condition:
        faults.append(text)


def plain(text):
    """The words of a page, without its markup."""
    text = re.sub(r"\\f[BIR]", "", text)
    for written, meant in (("\\-", "-"), ("\\(aq", "'"), ("\\(ti", "~"), ("\\&", ""), ("\\e", "\\")):
        text = text.replace(written, meant)
    return text


class Page:
    def __init__(self, language, section, name):
        self.path = os.path.join(folder, language, f"man{section}", f"{name}.{section}")
        self.exists = os.path.exists(self.path)
        self.lines = []
        if self.exists:
            with open(self.path, encoding="utf-8") as file:
                self.lines = file.read().splitlines()
        self.text = plain("\n".join(self.lines))
        terms = [plain(after) for line, after in zip(self.lines, self.lines[1:]) if line == ".TP"]
        self.options = set()
        for term in terms:
            self.options.update(re.findall(r"(?:^|, )(--?[a-z][a-z-]*)", term))

    def example(self):
        """The last text of the page that is set as it is written."""
        ends = [i for i, line in enumerate(self.lines) if line == ".fi"]
        begin = max(i for i, line in enumerate(self.lines[: ends[-1]]) if line == ".nf")
        return plain("\n".join(self.lines[begin + 1 : ends[-1]])) + "\n"


def check_options(language, name, shown):
    page = Page(language, 1, name)
    expect(page.exists, f"{page.path}: missing")
    for option in sorted(shown - page.options):
        expect(False, f"{page.path}: {option} is in --help alone")
    for option in sorted(page.options - shown):
        expect(False, f"{page.path}: {option} is in the page alone")
    return page


def check_programs(language, top, window):
    check_options(language, "cuwizard", window.options)
    page = check_options(language, "cuctl", top.options)
    for command, help in zip(top.commands, top.below):
        expect(f".BR cuctl-{command} (1)" in page.text, f"{page.path}: {command} is not listed")
        own = check_options(language, f"cuctl-{command}", help.all_options())
        for below in help.commands:
            expect(re.search(rf"\b{below}\b", own.text), f"{own.path}: {below} is not mentioned")
    written = {f"cuctl-{command}.1" for command in top.commands} | {"cuctl.1", "cuwizard.1"}
    for name in sorted(set(os.listdir(os.path.join(folder, language, "man1"))) - written):
        expect(False, f"{language} man1/{name}: no such command")


def check_columns(language, work):
    page = Page(language, 5, "cuctl-import")
    for kind in ("companies", "payees", "payments"):
        table = os.path.join(work, kind + ".csv")
        if not os.path.exists(table):
            output(cuctl, "template", kind, table)
        with open(table, encoding="utf-8-sig") as file:
            for column in file.readline().strip().split(";"):
                expect(re.search(rf"\b{column}\b", page.text), f"{page.path}: {column} is missing")


def check_profile(language, work):
    page = Page(language, 5, "cuwizard-profile")
    profile = os.path.join(work, "profilo.toml")
    with open(profile, "w", encoding="utf-8") as file:
        file.write(page.example())
    if not os.path.exists(os.path.join(work, "prova.db")):
        output(cuctl, "create", "--database", "sqlite:prova.db", "--demo", cwd=work)
    ended = run(cuctl, "status", "--profile", profile, "--year", "2017", cwd=work)
    expect(ended.returncode == 0, f"{page.path}: the profile does not work: {ended.stderr}")


def check_layout():
    """As lintian does."""
    if not shutil.which("man"):
        print("man is not installed: the layout of the pages is not checked")
        return
    for path, _, names in os.walk(folder):
        for name in names:
            page = os.path.join(path, name)
            environment = dict(os.environ, LC_ALL="C.UTF-8", MANWIDTH="80", MANROFFSEQ="")
            laid = subprocess.run(["man", "--warnings", "-E", "UTF-8", "-l", "-Tutf8", "-Z", page], env=environment,
                                  capture_output=True, text=True, check=False)
            expect(laid.returncode == 0 and not laid.stderr, f"{page}: {laid.stderr}")
            # A divided option cannot be copied.
            narrow = subprocess.run(["man", "-l", page], env=dict(environment, MANWIDTH="60"), capture_output=True,
                                    text=True, check=False).stdout
            expect("\u2010\n" not in narrow, f"{page}: a word is divided at the end of a line")
            if shutil.which("lexgrog"):
                expect(run("lexgrog", page).returncode == 0, f"{page}: no name and purpose for whatis")


top, window = Help(cuctl), Help(cuwizard)
with tempfile.TemporaryDirectory() as work:
    for language in ("", "it"):
        check_programs(language, top, window)
        check_columns(language, work)
        check_profile(language, work)
check_layout()
for fault in faults:
    print(fault)
sys.exit(1 if faults else 0)
