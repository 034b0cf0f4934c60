"""Numbered marks on a picture: each beside what it marks, on a place where nothing is written or drawn."""

import math
from dataclasses import dataclass

from PIL import Image, ImageChops, ImageDraw, ImageFont

RADIUS = 9  # pixels, with its ring
FAR = 110  # pixels from what is marked; where there is no room the picture is not made
APART = 2 * RADIUS + 5  # between the centres of two marks
SMOOTH = 4  # drawn so many times larger, then reduced
COLOURS = 40  # of a picture
RARE = 24  # points of a colour that is only a smoothed edge
FONT = "/usr/share/fonts/truetype/dejavu/DejaVuSans-Bold.ttf"
PLAIN = 10  # levels of a colour by which an empty place may differ


@dataclass(frozen=True)
class Look:
    disc: tuple
    ring: tuple
    ink: tuple
    border: tuple


LOOKS = {
    "chiari": Look((176, 0, 80), (255, 255, 255), (255, 255, 255), (138, 148, 158)),
    "scuri": Look((255, 176, 0), (16, 20, 24), (16, 20, 24), (90, 99, 108)),
}


class NoRoom(Exception):
    pass


@dataclass(frozen=True)
class Mark:
    number: int
    target: tuple  # left, top, right, bottom in the picture
    frame: bool = False  # around a part of the window that shows no edge of its own
    side: str = ""  # one of "l", "r", "a", "b", "i" (inside) where that place explains more than the nearest


class Paper:
    """Where a picture is empty: no edge of a letter, a line or a colour within a mark's radius."""

    def __init__(self, picture):
        self.width, self.height = picture.size
        grey = picture.convert("L")
        edges = Image.new("L", grey.size)
        for move in ((1, 0), (0, 1)):
            edges = ImageChops.lighter(edges, ImageChops.difference(grey, ImageChops.offset(grey, *move)))
        edges = edges.point(lambda level: 255 if level > PLAIN else 0)
        # The border is an edge: nothing is known beyond it.
        ImageDraw.Draw(edges).rectangle((0, 0, self.width - 1, self.height - 1), outline=255)
        self.edges = edges.load()
        self.free = spread(edges, RADIUS - 1).load()  # the ring may touch a line

    def empty(self, x, y):
        return self.free[x, y] == 0

    def drawn(self, x, y):
        return any(self.edges[min(max(x + i, 0), self.width - 1), min(max(y + j, 0), self.height - 1)]
                   for i in (-1, 0, 1) for j in (-1, 0, 1))


def spread(mask, reach):
    """Each point of the mask as a square of that reach."""
    for across in (True, False):
        done = 0
        while done < reach:
            step = min(done + 1, reach - done)
            moves = ((step, 0), (-step, 0)) if across else ((0, step), (0, -step))
            wider = mask
            for move in moves:
                wider = ImageChops.lighter(wider, ImageChops.offset(mask, *move))
            mask = wider
            done += step
    return mask


def nearest(point, target):
    left, top, right, bottom = target
    return min(max(point[0], left), right - 1), min(max(point[1], top), bottom - 1)


def crossed(paper, one, other):
    """How much of what is drawn a line from one point to the other would hide, without its ends."""
    steps = max(1, int(math.dist(one, other)) // 2)
    return sum(paper.drawn(round(one[0] + (other[0] - one[0]) * i / steps),
                           round(one[1] + (other[1] - one[1]) * i / steps))
               for i in range(1, steps))


def cost(point, target, side):
    """How far a place is from telling what it marks; none for the wrong side."""
    left, top, right, bottom = target
    x, y = point
    if left <= x < right and top <= y < bottom:
        if side not in ("", "i"):
            return None
        # In the corner above, on the right, where boxes and panels are empty most often.
        return (0 if side else 14) + (right - x) * 0.4 + (y - top) * 0.4
    distance = math.dist(point, nearest(point, target))
    if top <= y < bottom:
        here = "l" if x < left else "r"
        away = distance + (0 if x < left else 2) + abs(y - (top + bottom) / 2) * 0.3
    elif left <= x < right:
        here = "a" if y < top else "b"
        away = distance + (5 if y < top else 7) + min(x - left, right - 1 - x) * 0.02
    else:
        here, away = "", distance + 14
    return away if side in ("", here) else None


def on(point, rectangle):
    """Whether a mark there would lie on the rectangle, or touch it."""
    left, top, right, bottom = rectangle
    return left - RADIUS <= point[0] < right + RADIUS and top - RADIUS <= point[1] < bottom + RADIUS


def place(paper, mark, taken, targets, controls):
    """The centre of a mark: near its target, hiding nothing, not on another control, not nearer to another target."""
    controls = [each for each in controls if each != mark.target]
    left, top, right, bottom = mark.target
    found = []
    for y in range(max(0, top - FAR), min(paper.height, bottom + FAR)):
        for x in range(max(0, left - FAR), min(paper.width, right + FAR)):
            if paper.empty(x, y):
                price = cost((x, y), mark.target, mark.side)
                if price is not None:
                    found.append((price, x, y))
    best = None
    for price, x, y in sorted(found):
        if best is not None and price >= best[0]:
            break
        point = (x, y)
        if any(math.dist(point, each) < APART for each in taken) or any(on(point, each) for each in controls):
            continue
        end = nearest(point, mark.target)
        distance = math.dist(point, end)
        price += 3 * crossed(paper, point, end)
        for other in targets:
            if other != mark.target and distance > 0 and math.dist(point, nearest(point, other)) <= distance:
                price += 12
        if best is None or price < best[0]:
            best = (price, point)
    if best is None:
        raise NoRoom(f"no room for mark {mark.number}")
    return best[1]


def draw(picture, marks, look, controls):
    """The picture with its marks, on none of its controls, and where they are: number -> centre."""
    colours = LOOKS[look]
    paper = Paper(picture)
    targets = [mark.target for mark in marks]
    centres = {}
    # Those with the least room about them first.
    for mark in sorted(marks, key=lambda m: (m.target[2] - m.target[0]) * (m.target[3] - m.target[1])):
        centres[mark.number] = place(paper, mark, list(centres.values()), targets, controls)
    layer = Image.new("RGBA", (picture.width * SMOOTH, picture.height * SMOOTH), colours.disc + (0,))
    pen = ImageDraw.Draw(layer)
    for mark in marks:
        if mark.frame:
            left, top, right, bottom = (v * SMOOTH for v in mark.target)
            out = 3 * SMOOTH
            left, top, right, bottom = left - out, top - out, right + out, bottom + out
            box = (left, top, right - 1, bottom - 1)
            pen.rounded_rectangle(box, 5 * SMOOTH, outline=colours.disc, width=2 * SMOOTH)
    font = ImageFont.truetype(FONT, 10 * SMOOTH)
    for mark in marks:
        x, y = centres[mark.number]
        end = nearest((x, y), mark.target)
        if math.dist((x, y), end) > RADIUS:
            pen.line((x * SMOOTH, y * SMOOTH, end[0] * SMOOTH, end[1] * SMOOTH), fill=colours.disc, width=2 * SMOOTH)
            if math.dist((x, y), end) > RADIUS + 4:
                pen.ellipse([(v + d) * SMOOTH for d in (-2.5, 2.5) for v in end], fill=colours.disc)
    for mark in marks:
        x, y = (v * SMOOTH for v in centres[mark.number])
        outer, inner = RADIUS * SMOOTH, (RADIUS - 1.5) * SMOOTH
        pen.ellipse((x - outer, y - outer, x + outer, y + outer), fill=colours.ring)
        pen.ellipse((x - inner, y - inner, x + inner, y + inner), fill=colours.disc)
        pen.text((x, y), str(mark.number), font=font, fill=colours.ink, anchor="mm")
    layer = layer.resize(picture.size, Image.BOX)
    drawn = picture.convert("RGBA")
    drawn.alpha_composite(layer)
    return drawn.convert("RGB"), centres


def few_colours(picture, kept):
    """The picture in a few of its colours: those kept, then the most used ones, above all such as differ much."""
    used = sorted(picture.getcolors(picture.width * picture.height), reverse=True)
    chosen = list(kept)
    for apart, fewest in ((40, RARE), (5, 1)):
        for count, colour in used:
            if len(chosen) == COLOURS or count < fewest:
                break
            if all(max(abs(a - b) for a, b in zip(colour, each)) > apart for each in chosen):
                chosen.append(colour)
    # Each colour as the nearest one, those kept as they are.
    index = {colour: min(range(len(chosen)), key=lambda i: sum((a - b) ** 2 for a, b in zip(colour, chosen[i])))
             for _, colour in used}
    reduced = Image.new("P", picture.size)
    reduced.putpalette([part for colour in chosen for part in colour])
    reduced.putdata([index[colour] for colour in picture.getdata()])
    return reduced
