"""Where a picture is made: a home of its own with the demonstration database, the same for every run."""

import os
import shutil
import subprocess
from pathlib import Path

from programma import Missing, Program

# A folder whose name may be visible in a picture.
WORK = Path("/var/tmp/ufficio")

PROFILE = """[session]
user = 12
company = 1
branch = 1
title = "Quadrivio"
help_folder = "."
processes = [ {{ name = "Wizard stampa", function = {function} }} ]
today = 2017-03-05T10:30:00
[database]
url = "sqlite:demo.db"
[currency]
decimals = true
symbol = "€"
decimal = ","
thousands = "."
[folders]
documents = "CU 2017"
settings = "impostazioni.toml"
"""


class Place:
    def __init__(self, programs, documents, look):
        self.programs = Path(programs)
        self.documents = Path(documents)
        self.look = look
        self.program = None
        self.home = WORK / "casa"
        self.data = self.home / ".local/share/cuwizard/cuwizard"
        self.clear()
        # Made once, copied for each picture.
        self.model = WORK / "modello.db"
        self.cuctl("create", "--database", f"sqlite:{self.model}", "--demo")

    def clear(self):
        shutil.rmtree(WORK, ignore_errors=True)
        WORK.mkdir(0o700, parents=True)

    def renew(self):
        """As it was at the beginning."""
        self.stop()
        for each in WORK.iterdir():
            if each == self.model:
                continue
            if each.is_dir():
                shutil.rmtree(each)
            else:
                each.unlink()
        for folder in (self.home / "Documenti", self.data, WORK / "CU 2017"):
            folder.mkdir(parents=True)
        shutil.copy(self.model, WORK / "demo.db")
        shutil.copy(self.model, self.data / "dimostrativo.db")

    def environment(self):
        return dict(
            os.environ, HOME=str(self.home), XDG_CONFIG_HOME=str(self.home / ".config"),
            XDG_DATA_HOME=str(self.home / ".local/share"), XDG_RUNTIME_DIR=str(WORK), QT_QPA_PLATFORM="xcb",
            QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", LC_ALL="C.UTF-8")

    def start(self, *arguments):
        self.stop()
        command = [self.programs / "cuwizard", "--colori", self.look, *map(str, arguments)]
        self.program = Program(command, self.environment())
        return self.program

    def stop(self):
        if self.program is not None:
            self.program.stop()
            self.program = None

    def cuctl(self, *arguments, allowed=(0,)):
        done = subprocess.run([self.programs / "cuctl", *map(str, arguments)], env=self.environment(),
                              capture_output=True, text=True)
        if done.returncode not in allowed:
            raise Missing(f"cuctl {arguments[0]}: {done.stderr}{done.stdout}")
        return done.stdout

    def profile(self, function):
        """246 prints accounts, 247 certificates."""
        file = WORK / f"profilo{function}.toml"
        file.write_text(PROFILE.format(function=function), encoding="utf-8")
        return file
