"""What zsh proposes. Its completion runs only in a terminal with an editor of the line, which this gives it."""

import os
import pty
import re
import sys

# The shell asks itself: its line editor gets one question after the other as its line. What a completion adds passes
# through compadd; with -O, -A or -D it only sorts out candidates.
ASKING = r"""
PROMPT='' RPROMPT='' fpath=($SCRIPTS $fpath)
setopt no_auto_menu no_beep
autoload -Uz compinit && compinit -D -u
compadd() {
  local -a proposed
  if [[ ${@[1,(i)(-|--)]} != *-(O|A|D)\ * ]]; then
    builtin compadd -O proposed "$@"
    printf '%s\t' $proposed >> $ANSWERS
  fi
  builtin compadd "$@"
}
zle-line-init() {
  local question
  for question in "${(@f)$(<$QUESTIONS)}"; do
    BUFFER=$question CURSOR=$#question
    zle complete-word
    print >> $ANSWERS
  done
  exit
}
zle -N zle-line-init
"""


def written(path, text=""):
    with open(path, "w", encoding="utf-8") as file:
        file.write(text)
    return path


def answers(script, program, lines, work, scratch):
    """What is proposed at the end of each line, in the folder `work`; `scratch` is an empty folder for the files of
    the conversation."""
    os.mkdir(os.path.join(scratch, "scripts"))
    with open(script, encoding="utf-8") as file:
        written(os.path.join(scratch, "scripts", "_" + program), file.read())
    written(os.path.join(scratch, ".zshrc"), ASKING)
    answered = written(os.path.join(scratch, "answers"))
    asked = written(os.path.join(scratch, "questions"), "\n".join(lines) + "\n")
    environment = dict(os.environ, ZDOTDIR=scratch, SCRIPTS=os.path.join(scratch, "scripts"), ANSWERS=answered,
                       QUESTIONS=asked, TERM="dumb", LC_ALL="C.UTF-8")
    child, terminal = pty.fork()
    if child == 0:
        os.chdir(work)
        os.execvpe("zsh", ["zsh", "-d", "-i"], environment)
    shown = b""
    try:
        while piece := os.read(terminal, 65536):
            shown += piece
    except OSError:  # the end of a terminal
        pass
    os.waitpid(child, 0)
    os.close(terminal)
    with open(answered, encoding="utf-8") as file:
        given = file.read().splitlines()
    if len(given) != len(lines):
        sys.exit(f"zsh answered {len(given)} of {len(lines)} questions: {shown[-2000:]!r}")
    # Candidates for files are written with backslashes, and folders may be proposed by two ways.
    return [sorted({re.sub(r"\\(.)", r"\1", word) for word in line.split("\t") if word}) for line in given]
