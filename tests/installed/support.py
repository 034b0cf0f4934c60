"""What the tests of the installed files share."""

import os
import re
import subprocess
import sys


def run(*command, **more):
    environment = dict(os.environ, QT_QPA_PLATFORM="offscreen")
    return subprocess.run(command, capture_output=True, text=True, env=environment, check=False, **more)


def output(*command, **more):
    ended = run(*command, **more)
    if ended.returncode != 0:
        sys.exit(f"{' '.join(command)}: {ended.returncode}\n{ended.stderr}")
    return ended.stdout


class Help:
    """What a program's --help shows of a command and of the commands below it."""

    def __init__(self, program, *path):
        self.path = path
        text = output(program, *path, "--help")
        part = re.split(r"^(\w+):$", text, flags=re.M)
        parts = dict(zip(part[1::2], part[2::2]))
        self.options = set()
        for line in parts["Opzioni"].splitlines():
            written = re.match(r" {2}(-\S+)", line)
            if written:
                self.options.update(written.group(1).split(","))
        self.commands = re.findall(r"^ {2}(\w+)", parts.get("Comandi", ""), flags=re.M)
        self.below = [Help(program, *path, command) for command in self.commands]

    def everything(self):
        """This one and those below it."""
        return [self] + [one for help in self.below for one in help.everything()]

    def all_options(self):
        return set().union(*(help.options for help in self.everything()))
