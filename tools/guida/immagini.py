"""Makes the pictures of a look: immagini.py LOOK PROGRAMS DOCUMENTS [PICTURE...]

A picture that cannot be made stays as it was; the end says so, with what the program showed instead."""

import contextlib
import subprocess
import sys

from album import Album
from gi.repository import GLib
from luogo import Place
from programma import Missing, tree
from scene_dati import SCENES as DATI
from scene_file import SCENES as FILE
from scene_procedura import SCENES as PROCEDURA
from segni import NoRoom

# What keeps a picture from being made: a control, a file or a cell that is not as the scene expects it.
UNMADE = (Missing, NoRoom, GLib.Error, StopIteration, AssertionError, subprocess.CalledProcessError)

SCENES = {scene.__name__: scene for scene in PROCEDURA + DATI + FILE}


def main(look, programs, documents, *chosen):
    unknown = [name for name in chosen if name not in SCENES]
    if unknown:
        sys.exit(f"no such picture: {', '.join(unknown)}; there are {', '.join(SCENES)}")
    place = Place(programs, documents, look)
    album = Album(place, f"{documents}/immagini", look)
    failed = []
    for name in chosen or SCENES:
        place.renew()
        try:
            SCENES[name](place, album)
        except UNMADE as problem:
            failed.append(f"{name}: {problem!r}")
            print(f"  {failed[-1]}; the program shows:", file=sys.stderr)
            with contextlib.suppress(GLib.Error):  # what is asked may just close
                for window in place.program.windows() if place.program else []:
                    print(window.get_name(), *tree(window), sep="\n", file=sys.stderr, flush=True)
        finally:
            place.stop()
    place.clear()
    if failed:
        sys.exit("not made:\n  " + "\n  ".join(failed))


if __name__ == "__main__":
    main(*sys.argv[1:])
