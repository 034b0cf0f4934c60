#!/usr/bin/env python3
"""Compares the completions with the programs: completions.py CUCTL CUWIZARD FOLDER-OF-THE-SCRIPTS

What bash and zsh propose is what --help shows, command by command; files are proposed by their type. Where zsh is not
installed, only the text of its script is compared."""

import os
import re
import shutil
import subprocess
import sys
import tempfile

import zsh_answers
from support import Help

cuctl, cuwizard, folder = (os.path.abspath(argument) for argument in sys.argv[1:4])
faults = []

ASK = r"""
ask() {
  COMP_WORDS=("$@") COMP_CWORD=$(($# - 1)) COMPREPLY=()
  "_$1"
  printf '%s\t' "${COMPREPLY[@]}"
  printf '\n'
}
"""


def expect_same(got, wanted, of):
    if sorted(got) != sorted(wanted):
        faults.append(f"{of}: proposed {sorted(got)}, expected {sorted(wanted)}")


def quoted(word):
    return "'" + word.replace("'", "'\\''") + "'"


def bash_answers(program, questions, work):
    """What bash proposes for each of the lines, given as words of which the last is being written."""
    lines = "\n".join("ask " + " ".join(quoted(word) for word in question) for question in questions)
    script = f". {quoted(os.path.join(folder, program + '.bash'))}\n{ASK}\n{lines}\n"
    ended = subprocess.run(["bash", "--norc", "-u", "-c", script], cwd=work, capture_output=True, text=True, check=False)
    if ended.returncode != 0 or ended.stderr:
        sys.exit(f"bash: {ended.returncode} {ended.stderr}")
    return [[word for word in line.split("\t") if word] for line in ended.stdout.splitlines()]


def zsh_shown(program, questions, work):
    """The same of zsh, for which "--option=value" and "scheme:rest" are one word each."""
    lines = [re.sub(r" ([:=])( |$)", r"\1", " ".join(question)) for question in questions]
    with tempfile.TemporaryDirectory() as scratch:
        return zsh_answers.answers(os.path.join(folder, program + ".zsh"), program, lines, work, scratch)


SHELLS = [bash_answers]
if shutil.which("zsh"):
    SHELLS.append(zsh_shown)
else:
    print("zsh is not installed: what it proposes is not checked")


def check_names(answers, program, help, work):
    """Options and commands: those of --help, neither more nor fewer."""
    helps = help.everything()
    questions = [(program, *one.path, word) for one in helps for word in ("--", "-", "")]
    got = answers(program, questions, work)
    for i, one in enumerate(helps):
        line = " ".join((program, *one.path))
        expect_same(got[3 * i], [option for option in one.options if option.startswith("--")], f"{line} --")
        expect_same(got[3 * i + 1], one.options, f"{line} -")
        if one.commands:
            expect_same(got[3 * i + 2], one.commands, line)


CASES = [
    # what is written, what is proposed
    ("cuctl val", ["validate"]),
    ("cuctl import pay", ["payees", "payments"]),
    ("cuctl make --kind ", ["1", "2", "3"]),
    ("cuctl make --from-reason Z", ["Z", "ZO"]),
    ("cuctl print --report Conto", ["ContoIndividuale.rpt"]),
    ("cuctl make --profile ", ["profilo.toml", "cartella", "PROFILO.TOML"]),
    ("cuctl make --profile pro", ["profilo.toml"]),
    ("cuctl make --profile = pro", ["profilo.toml"]),
    ("cuctl make --profile p --folder ", ["cartella"]),
    ("cuctl make --yes --signature-date ", []),
    ("cuctl validate ", ["due parole.cur", "uno.cur", "cartella"]),
    ("cuctl validate uno.cur due\\ ", ["due parole.cur"]),
    ("cuctl import payments ", ["compensi.csv", "compensi.xlsx", "cartella"]),
    ("cuctl import payments --charset utf-16", ["utf-16be", "utf-16le"]),
    ("cuctl import invoices ", ["fattura.xml", "fattura.xml.p7m", "archivio.zip", "cartella"]),
    ("cuctl import payments x --accept V0", ["V04", "V07", "V09"]),
    ("cuctl check --database ", ["odbc:", "sqlite:"]),
    ("cuctl check --database sqlite :", ["azienda.db", "cartella"]),
    ("cuctl check --database sqlite : azi", ["azienda.db"]),
    ("cuctl check --database = sqlite : azi", ["azienda.db"]),
    ("cuctl check --database odbc : a", []),
    ("cuctl diff uno.cur uno", ["uno.cur"]),
    ("cuctl restore a", ["azienda.db", "archivio.zip", "altro.txt.bak"]),
    ("cuctl backup --log car", ["cartella"]),
    ("cuctl check --log alt", ["altro.txt.bak"]),
    ("cuwizard --colori ", ["chiari", "scuri", "sistema"]),
    ("cuwizard uno", ["uno.cur"]),
]
FILES = ["profilo.toml", "PROFILO.TOML", "uno.cur", "due parole.cur", "compensi.csv", "compensi.xlsx", "fattura.xml",
         "fattura.xml.p7m", "archivio.zip", "azienda.db", "altro.txt.bak"]


def make_files(work):
    for name in FILES:
        with open(os.path.join(work, name), "w", encoding="utf-8"):
            pass
    os.mkdir(os.path.join(work, "cartella"))


def check_cases(answers, work):
    for program in ("cuctl", "cuwizard"):
        cases = [(line, wanted) for line, wanted in CASES if line.startswith(program + " ")]
        questions = [re.split(r"(?<!\\) ", line) for line, _ in cases]
        for (line, wanted), got in zip(cases, answers(program, questions, work)):
            expect_same(got, wanted, line)


def check_zsh(program, help):
    path = os.path.join(folder, program + ".zsh")
    with open(path, encoding="utf-8") as file:
        text = file.read()
    functions = dict(re.findall(r"^(_[\w-]+)\(\) \{\n(.*?)^\}", text, flags=re.M | re.S))
    for one in help.everything():
        name = "_" + "-".join((program, *one.path))
        body = functions.pop(name, "")
        options = set(re.findall(r"^ {4}'\*?(--[\w-]+)", body, flags=re.M))
        for group in re.findall(r"\{(-[^}]*)\}", body):
            options.update(group.split(","))
        expect_same(options, one.options, f"{path}: {name}")
        commands = re.findall(r"^ {8}'([\w-]+):", body, flags=re.M)
        expect_same(commands, one.commands, f"{path}: {name}, commands")
        for command in one.commands:
            if f"{command}) {name}-{command} ;;" not in body:
                faults.append(f"{path}: {name} does not call the function of {command}")
    functions.pop(f"_{program}_address", None)
    expect_same(functions, [], f"{path}: functions without a command")


with tempfile.TemporaryDirectory() as work:
    make_files(work)
    helps = {"cuctl": Help(cuctl), "cuwizard": Help(cuwizard)}
    for answers in SHELLS:
        check_cases(answers, work)
        for program, help in helps.items():
            check_names(answers, program, help, work)
    for program, help in helps.items():
        check_zsh(program, help)
for fault in faults:
    print(fault)
sys.exit(1 if faults else 0)
