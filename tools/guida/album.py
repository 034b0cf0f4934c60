"""Takes the pictures of a look: each by its scene, with its marks, into its folder and into the list of marks."""

import csv
from pathlib import Path

from PIL import ImageDraw, ImageOps

import programma
import segni

# Where the pointer hides nothing and nothing lies under it.
CORNER = ("1365", "899")


def target(what, frame=False, side=""):
    """What a mark is for: a control, a rectangle of the screen, or several that are marked as one."""
    parts = what if isinstance(what, list) else [what]
    whole = programma.around(*(p if isinstance(p, tuple) else programma.rectangle(p) for p in parts))
    return whole, frame, side


def edged(picture, window, look):
    """The edge and the shadow that a window manager would give."""
    left, top, right, bottom = window
    pen = ImageDraw.Draw(picture, "RGBA")
    for far, alpha in ((5, 18), (4, 26), (3, 34), (2, 46)):
        pen.rectangle((left - far, top - far, right + far - 1, bottom + far - 1), outline=(0, 0, 0, alpha))
    pen.rectangle((left - 1, top - 1, right, bottom), outline=segni.LOOKS[look].border)


def part(what, left=0, top=0, width=None, height=None):
    """A stretch of a control, from its upper left corner."""
    x, y, right, bottom = programma.rectangle(what)
    return (x + left, y + top, right if width is None else x + left + width,
            bottom if height is None else y + top + height)


def caption(label):
    """What has its name above it: beside the name's end."""
    return target(part(label, width=7 * len(label.get_name()) + 8), side="r")


class Album:
    def __init__(self, place, folder, look):
        self.place = place
        self.folder = Path(folder) / ("scuri" if look == "scuri" else "")
        self.list = self.folder / "segni.csv"
        self.look = look
        self.folder.mkdir(exist_ok=True)

    def take(self, name, window, *targets, over=None, room=0):
        """The window as it is on the screen, with the marks 1, 2, 3 and so on; a window over it gets an edge.

        `room`: points of its background added below, for the marks of what is at its foot."""
        programma.xdotool("mousemove", *CORNER)
        self.place.program.settle()
        frame = window if isinstance(window, tuple) else programma.rectangle(window)
        picture = programma.screen().convert("RGB")
        if over is not None:
            edged(picture, programma.rectangle(over), self.look)
        picture = picture.crop(frame)
        if room:
            picture = ImageOps.expand(picture, (0, 0, 0, room), picture.getpixel((2, picture.height - 3)))
        marks = []
        for number, (where, framed, side) in enumerate(targets, 1):
            inside = (max(where[0], frame[0]) - frame[0], max(where[1], frame[1]) - frame[1],
                      min(where[2], frame[2]) - frame[0], min(where[3], frame[3]) - frame[1])
            if inside[0] >= inside[2] or inside[1] >= inside[3]:
                raise programma.Missing(f"{name}: mark {number} is not in the picture")
            marks.append(segni.Mark(number, inside, framed, side))
        controls = [tuple(v - frame[i % 2] for i, v in enumerate(each)) for each in self.place.program.controls()]
        drawn, centres = segni.draw(picture, marks, self.look, controls)
        colours = segni.LOOKS[self.look]
        # The border is one point wide: what is in the picture is one point further.
        drawn = ImageOps.expand(drawn, 1, colours.border)
        kept = (colours.disc, colours.ring, colours.ink, colours.border)
        segni.few_colours(drawn, kept).save(self.folder / f"{name}.png", optimize=True)
        self._note(name, {number: (x + 1, y + 1) for number, (x, y) in centres.items()})
        print(f"  {name}: {len(marks)} marks, {(self.folder / f'{name}.png').stat().st_size // 1024} KiB", flush=True)

    def _note(self, name, centres):
        """The list of the marks of all pictures, sorted; those of this picture are new."""
        rows = []
        if self.list.exists():
            with self.list.open(encoding="utf-8", newline="") as file:
                rows = [row for row in list(csv.reader(file, delimiter=";"))[1:] if row[0] != name]
        rows += [[name, str(number), str(x), str(y)] for number, (x, y) in centres.items()]
        rows.sort(key=lambda row: (row[0], int(row[1])))
        with self.list.open("w", encoding="utf-8", newline="") as file:
            writer = csv.writer(file, delimiter=";", lineterminator="\n")
            writer.writerow(["immagine", "numero", "x", "y"])
            writer.writerows(rows)
