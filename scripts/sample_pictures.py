# SPDX-License-Identifier: MIT
"""Draws small landscapes, patterns and design pieces. Everything comes from a seed, so each run draws the same."""

import math
import random

from PIL import Image, ImageDraw, ImageFilter

WIDTH, HEIGHT = 360, 240
OVERSAMPLING = 3


class Canvas:
    """A drawing in units of the finished picture, drawn larger so that edges come out smooth."""

    def __init__(self, seed, background="#ffffff", size=(WIDTH, HEIGHT)):
        self.random = random.Random(seed)
        self.size = size
        self.width, self.height = size
        self.image = Image.new("RGB", tuple(side * OVERSAMPLING for side in size), background)
        self.draw = ImageDraw.Draw(self.image)

    def gradient(self, stops, top=0, bottom=None):
        bottom = self.height if bottom is None else bottom
        rows = range(int(top * OVERSAMPLING), int(bottom * OVERSAMPLING))
        for index, row in enumerate(rows):
            self.draw.line([(0, row), (self.image.width, row)], fill=mix(stops, index / max(1, len(rows) - 1)))

    def polygon(self, points, colour):
        self.draw.polygon([(x * OVERSAMPLING, y * OVERSAMPLING) for x, y in points], fill=colour)

    def circle(self, x, y, radius, colour):
        self.ellipse(x, y, radius, radius, colour)

    def ellipse(self, x, y, across, down, colour):
        box = [x - across, y - down, x + across, y + down]
        self.draw.ellipse([side * OVERSAMPLING for side in box], fill=colour)

    def box(self, x, y, width, height, colour, radius=0):
        corners = [side * OVERSAMPLING for side in (x, y, x + width, y + height)]
        self.draw.rounded_rectangle(corners, radius * OVERSAMPLING, fill=colour)

    def arc(self, x, y, radius, start, end, colour, width):
        box = [side * OVERSAMPLING for side in (x - radius, y - radius, x + radius, y + radius)]
        self.draw.arc(box, start, end, fill=colour, width=int(width * OVERSAMPLING))

    def below(self, curve, colour):
        """Fills what lies below y = curve(x)."""
        points = [(x, curve(x)) for x in range(0, self.width + 3, 3)]
        self.polygon(points + [(self.width + 3, self.height), (0, self.height)], colour)

    def glow(self, x, y, radius, colour):
        """A soft light behind what is drawn next."""
        light = Image.new("L", (self.width, self.height), 0)
        ImageDraw.Draw(light).ellipse([x - radius, y - radius, x + radius, y + radius], fill=150)
        light = light.filter(ImageFilter.GaussianBlur(radius / 2)).resize(self.image.size)
        self.image.paste(Image.new("RGB", self.image.size, colour), mask=light)

    def finished(self):
        return self.image.resize(self.size, Image.LANCZOS)


def rgb(colour):
    return tuple(int(colour[i:i + 2], 16) for i in (1, 3, 5))


def mix(stops, position):
    """The colour at position (0 to 1) of a gradient over evenly spaced stops."""
    place = position * (len(stops) - 1)
    index = min(int(place), len(stops) - 2)
    part = place - index
    return tuple(round(a + (b - a) * part) for a, b in zip(rgb(stops[index]), rgb(stops[index + 1])))


def ridge(canvas, base, roughness):
    waves = [(canvas.random.uniform(0.01, 0.06), canvas.random.uniform(0, 6.3), canvas.random.uniform(0.3, 1))
             for _ in range(5)]
    return lambda x: base + roughness * sum(a * math.sin(f * x + p) for f, p, a in waves) / 2


def mountains(seed, sky, layers, sun):
    canvas = Canvas(seed)
    canvas.gradient(sky)
    x = canvas.random.uniform(90, 270)
    canvas.glow(x, 84, 54, sun)
    canvas.circle(x, 84, 22, sun)
    for index, colour in enumerate(layers):
        canvas.below(ridge(canvas, 118 + index * 30, 30 - index * 4), colour)
    return canvas.finished()


def sea(seed, sky, water, sun):
    canvas = Canvas(seed)
    canvas.gradient(sky, bottom=140)
    canvas.glow(180, 132, 60, sun)
    canvas.circle(180, 128, 28, sun)
    canvas.gradient(water, top=140)
    for row in range(12):
        half = 30 + row * 3 - canvas.random.uniform(0, 18)
        shift = canvas.random.uniform(-8, 8)
        canvas.box(180 + shift - half, 145 + row * 8, 2 * half, 2.4, mix([sun, water[-1]], row / 14), 1)
    return canvas.finished()


def forest(seed, sky, near):
    canvas = Canvas(seed)
    canvas.gradient(sky)
    for layer in range(4):
        colour = mix([sky[-1], near], (layer + 1) / 4)
        base = 150 + layer * 30
        canvas.below(lambda x, b=base: b, colour)
        for _ in range(22 - layer * 3):
            x, tall = canvas.random.uniform(-10, WIDTH + 10), canvas.random.uniform(40, 70) + layer * 14
            wide = tall * 0.22
            for step in range(3):
                top = base - tall + step * tall * 0.25
                grow = wide * (0.5 + step * 0.25)
                canvas.polygon([(x, top), (x - grow, top + tall * 0.42), (x + grow, top + tall * 0.42)], colour)
            canvas.polygon([(x - 2, base - tall * 0.3), (x + 2, base - tall * 0.3), (x + 2, base + 2), (x - 2, base + 2)],
                           colour)
    return canvas.finished()


def skyline(seed, sky, walls, lights):
    canvas = Canvas(seed)
    canvas.gradient(sky)
    canvas.circle(288, 48, 18, lights)
    for layer, wall in enumerate(walls):
        x = -6
        while x < WIDTH:
            wide = canvas.random.randrange(24, 46)
            top = canvas.random.randrange(70, 150) + layer * 34
            canvas.box(x, top, wide, HEIGHT - top, wall)
            for row in range(top + 7, HEIGHT - 6, 11):
                for column in range(x + 5, x + wide - 7, 9):
                    if layer and canvas.random.random() < 0.35:
                        canvas.box(column, row, 4, 5, lights)
            x += wide + canvas.random.randrange(-4, 6)
    return canvas.finished()


def dunes(seed, sky, sands):
    canvas = Canvas(seed)
    canvas.gradient(sky)
    canvas.circle(80, 60, 20, "#fff4d6")
    for index, colour in enumerate(sands):
        phase = canvas.random.uniform(0, 6.3)
        canvas.below(lambda x, i=index, p=phase: 110 + i * 27 + 17 * math.sin(x * 0.016 + p + i), colour)
    return canvas.finished()


def aurora(seed, sky, lights, snow):
    canvas = Canvas(seed)
    canvas.gradient(sky)
    for _ in range(110):
        canvas.circle(canvas.random.uniform(0, WIDTH), canvas.random.uniform(0, 150), canvas.random.uniform(0.4, 1.1),
                      "#e8f0ff")
    for index, light in enumerate(lights):
        for step in range(15):
            x = 24 * step + 12
            canvas.glow(x, 66 + index * 20 + 24 * math.sin(x * 0.018 + index), 16, light)
    canvas.below(ridge(canvas, 190, 22), snow[0])
    canvas.below(ridge(canvas, 212, 12), snow[1])
    return canvas.finished()


def balloons(seed, sky, colours):
    canvas = Canvas(seed)
    canvas.gradient(sky)
    for index in range(7):
        x, y, r = 30 + index * 50, canvas.random.uniform(50, 150), canvas.random.uniform(14, 28)
        colour = colours[index % len(colours)]
        canvas.polygon([(x - r * 0.8, y + r * 0.6), (x + r * 0.8, y + r * 0.6), (x + 4, y + r * 1.5), (x - 4, y + r * 1.5)],
                       colour)
        canvas.circle(x, y, r, colour)
        canvas.ellipse(x, y, r * 0.36, r, mix([colour, "#ffffff"], 0.45))
        canvas.box(x - 4, y + r * 1.65, 8, 6, "#6b4a2f", 1)
    return canvas.finished()


def flowers(seed, sky, ground, petals):
    canvas = Canvas(seed)
    canvas.gradient(sky, bottom=100)
    canvas.gradient(ground, top=100)
    for row in range(9):
        size = 2 + row * 1.25
        for column in range(int(WIDTH / (size * 2.6)) + 2):
            x = column * size * 2.6 + canvas.random.uniform(-size, size)
            y = 104 + row * row * 1.75 + canvas.random.uniform(-2, 2)
            colour = petals[(row + canvas.random.randrange(2)) % len(petals)]
            canvas.box(x - size * 0.12, y, size * 0.24, size * 2, "#3f7d3a")
            canvas.ellipse(x, y, size * 0.75, size, colour)
            canvas.ellipse(x, y + size * 0.2, size * 0.3, size * 0.7, mix([colour, "#ffffff"], 0.35))
    return canvas.finished()


def scales(_seed, background, inks):
    """Overlapping fans, as on old fabrics."""
    canvas = Canvas(0, background)
    for row in range(-1, 17):
        for column in range(-1, 9):
            x, y = column * 48 + (row % 2) * 24, row * 17 + 24
            for index, ink in enumerate(inks):
                canvas.circle(x, y, 24 - index * 5.4, ink)
    return canvas.finished()


def quarter_circles(seed, colours):
    canvas = Canvas(seed, colours[0])
    for row in range(4):
        for column in range(6):
            x, y = column * 60, row * 60
            back, front = canvas.random.sample(colours, 2)
            canvas.box(x, y, 60, 60, back)
            corner = canvas.random.choice([(0, 0), (60, 0), (0, 60), (60, 60)])
            box = [(x + corner[0] - 60), (y + corner[1] - 60), (x + corner[0] + 60), (y + corner[1] + 60)]
            start = {(0, 0): 0, (60, 0): 90, (60, 60): 180, (0, 60): 270}[corner]
            canvas.draw.pieslice([side * OVERSAMPLING for side in box], start, start + 90, fill=front)
    return canvas.finished()


def rings(seed, background, colours):
    canvas = Canvas(seed, background)
    for row in range(4):
        for column in range(6):
            for index, radius in enumerate((26, 19, 12, 5)):
                canvas.circle(column * 60 + 30, row * 60 + 30, radius, colours[(row + column + index) % len(colours)])
    return canvas.finished()


def tartan(_seed, background, stripes):
    canvas = Canvas(0, background)
    for across in (False, True):
        for start in range(0, WIDTH, 72):
            for offset, width, colour in stripes:
                if across:
                    for x in range(0, WIDTH, 4):
                        canvas.box(x, start + offset, 2, width - 1, colour)
                else:
                    canvas.box(start + offset, 0, width - 1, HEIGHT, colour)
    return canvas.finished()


def poster(_seed, paper, ink, accent):
    """A tall sheet with one big letter built from a bar, a circle and a triangle."""
    canvas = Canvas(0, paper, (HEIGHT, 330))
    canvas.box(40, 50, 34, 170, ink)
    canvas.circle(126, 110, 60, accent)
    canvas.circle(126, 110, 28, paper)
    canvas.polygon([(86, 160), (128, 160), (204, 220), (150, 220)], ink)
    for index, width in enumerate((160, 130, 146, 70)):
        canvas.box(40, 248 + index * 15, width, 6, ink if index else accent, 1)
    return canvas.finished()


def swatches(_seed, rows):
    canvas = Canvas(0, "#f6f4ef")
    for row, (first, last) in enumerate(rows):
        for column in range(6):
            canvas.box(20 + column * 54, 18 + row * 70, 48, 54, mix([first, last], column / 5), 8)
            canvas.box(20 + column * 54, 76 + row * 70, 26, 4, "#c9c5bb", 1)
    return canvas.finished()


def wireframe(_seed, paper, ink, accent):
    canvas = Canvas(0, paper)
    canvas.box(16, 14, 328, 212, "#ffffff", 8)
    canvas.box(16, 14, 328, 26, ink, 8)
    for index in range(3):
        canvas.circle(32 + index * 14, 27, 4, accent if index == 0 else paper)
    for index in range(6):
        canvas.box(28, 54 + index * 26, 66, 12, accent if index == 1 else paper, 4)
    for row in range(2):
        for column in range(3):
            canvas.box(110 + column * 76, 54 + row * 82, 66, 50, paper, 5)
            canvas.box(110 + column * 76, 109 + row * 82, 44, 6, mix([paper, ink], 0.4), 2)
            canvas.box(110 + column * 76, 119 + row * 82, 28, 5, paper, 2)
    return canvas.finished()


def marks(_seed, background, ink, accent):
    """Six logo marks."""
    canvas = Canvas(0, background)
    canvas.circle(66, 66, 34, ink)
    canvas.circle(80, 66, 26, background)
    canvas.polygon([(180, 30), (216, 98), (144, 98)], accent)
    canvas.polygon([(180, 62), (198, 98), (162, 98)], background)
    for index in range(3):
        canvas.arc(294, 96, 16 + index * 16, 180, 360, ink, 7)
    for row in range(3):
        for column in range(3):
            canvas.circle(42 + column * 24, 152 + row * 24, 9, accent if row == column else ink)
    canvas.box(150, 146, 60, 60, ink, 14)
    canvas.circle(180, 176, 16, background)
    canvas.box(260, 146, 28, 60, accent, 14)
    canvas.box(300, 146, 28, 60, ink, 14)
    return canvas.finished()


def cup(_seed, table, wall, china):
    canvas = Canvas(0, wall)
    canvas.box(0, 168, WIDTH, 72, table)
    canvas.ellipse(180, 196, 96, 18, mix([table, "#000000"], 0.25))
    canvas.ellipse(180, 190, 92, 16, china)
    canvas.arc(244, 132, 26, 0, 360, china, 9)
    canvas.polygon([(112, 100), (248, 100), (226, 176), (134, 176)], china)
    canvas.ellipse(180, 177, 46, 12, china)
    canvas.ellipse(180, 100, 68, 15, mix([china, "#000000"], 0.12))
    canvas.ellipse(180, 102, 60, 11, "#5b3a24")
    for index in range(3):
        for step in range(16):
            canvas.circle(150 + index * 30 + 5 * math.sin(step / 2.4 + index), 80 - step * 3.4, 2.6 - step * 0.1,
                          mix([wall, "#ffffff"], 0.6 - step * 0.03))
    return canvas.finished()


def lemons(seed, background, skin, flesh):
    canvas = Canvas(seed, background)
    for row in range(3):
        for column in range(5):
            x, y, r = column * 80 + (row % 2) * 40, row * 84 + 36, 32
            canvas.circle(x, y, r, skin)
            canvas.circle(x, y, r - 4, "#fffbe6")
            for index in range(8):
                angle = index * math.pi / 4 + row
                ends = [(x + (r - 7) * math.cos(angle + turn), y + (r - 7) * math.sin(angle + turn))
                        for turn in (-0.3, 0, 0.3)]
                canvas.polygon([(x + 4 * math.cos(angle), y + 4 * math.sin(angle))] + ends, flesh)
    return canvas.finished()


def cat(_seed, night, moon, fur):
    canvas = Canvas(0, night)
    canvas.circle(230, 100, 74, moon)
    canvas.box(0, 196, WIDTH, 44, mix([night, "#000000"], 0.4))
    canvas.ellipse(170, 166, 38, 48, fur)
    canvas.circle(170, 106, 30, fur)
    canvas.polygon([(142, 100), (144, 62), (166, 80)], fur)
    canvas.polygon([(198, 100), (196, 62), (174, 80)], fur)
    canvas.arc(218, 176, 30, 20, 190, fur, 9)
    for x in (159, 181):
        canvas.ellipse(x, 104, 5, 6, "#ffd84d")
        canvas.ellipse(x, 104, 1.6, 5, fur)
    return canvas.finished()


def fish(seed, water, colours):
    canvas = Canvas(seed)
    canvas.gradient(water)
    for index in range(11):
        x, y, r = canvas.random.uniform(20, 340), 22 + index * 20, canvas.random.uniform(10, 18)
        colour = colours[index % len(colours)]
        canvas.polygon([(x - r * 1.3, y), (x - r * 2.3, y - r * 0.7), (x - r * 2.3, y + r * 0.7)], colour)
        canvas.ellipse(x, y, r * 1.6, r * 0.75, colour)
        canvas.circle(x + r * 0.9, y - r * 0.15, 2.4, "#ffffff")
        canvas.circle(x + r * 0.95, y - r * 0.15, 1.2, "#10202c")
    return canvas.finished()
