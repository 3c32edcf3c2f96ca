#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Makes the pictures in docs/pictures from the sample library, on a display of its own.

    scripts/make_pictures.py [--check] [VELLUM]

With --check the pictures are made elsewhere and compared with those in docs/pictures: the exit status is 1 when one of
them does not show the program any more. VELLUM is build/bin/vellum unless given. Build first; scripts/setup.sh test
installs what this needs.
"""

import argparse
import pathlib
import shutil
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parent.parent
sys.dont_write_bytecode = True
sys.path.insert(0, str(ROOT / "tests" / "session"))

from display import Display, Timeout, wait_until  # noqa: E402
from picture import Picture  # noqa: E402
from test_session import FIRST_TILE, LIST, RIGHT_HALF, Session, middle  # noqa: E402

PICTURES = ROOT / "docs" / "pictures"
CATEGORIES = ("Seasons", "Places", "For clients")
# Pixels that may be others than before: a text cursor blinks.
BLINKING = 60


class Pictures(Session):
    def __init__(self, display, program, home, checks):
        super().__init__(display, program, home)
        self.checks = checks
        self.stale = []

    def save(self, name):
        self.display.move((4, 4))  # The pointer would be in the picture.
        picture = self.display.steady_picture().crop(self.vellum.geometry())
        path = PICTURES / f"{name}.png"
        if not self.checks:
            picture.save(path)
            print(path.relative_to(ROOT), flush=True)
        elif not path.exists() or not self.comes_to_show(Picture.load(path)):
            self.stale.append(path.name)

    def comes_to_show(self, expected):
        """Whether the window looks so, perhaps once what fades has faded."""
        def is_shown():
            picture = self.display.picture().crop(self.vellum.geometry())
            return picture.differs(expected, (0, 0, picture.width, picture.height)) <= BLINKING

        try:
            return wait_until(is_shown, "the picture", deadline=5)
        except Timeout:
            return False

    def choose(self, chip, name):
        menu = self.open_menu(chip)
        self.display.click(self.entry(menu, name))

    def make_favourites(self):
        for name in ("Sunset", "Landscape", "Typography", "Forest", "Autumn"):
            tag = self.vellum.tag(name)["id"]
            self.choose(self.vellum.find_tag(name), "favourite")
            wait_until(lambda tag=tag: self.vellum.holds(1, tag), f"the favourite {name}")
            self.vellum.wait_for_no_other_window()
        self.vellum.search("")

    def create_categories(self):
        self.vellum.show_page("categories")
        for number, name in enumerate(sorted(CATEGORIES)):
            x, y, width, height = FIRST_TILE
            add = middle(self.vellum.area(x + 96 * number, y, width, height))
            self.vellum.open_by(lambda: self.display.click(add))
            self.display.write(name)
            if number == 0:
                self.save("dialog")
            self.display.key("Return")
            wait_until(lambda name=name: self.vellum.category(name), f"the category {name}")
            self.vellum.wait_for_no_other_window()

    def fill_a_category(self):
        for _ in range(4):
            before = self.vellum.rest()
            self.display.drag(self.vellum.first_chip(self.vellum.area(*RIGHT_HALF)),
                              middle(self.vellum.area(*FIRST_TILE)))
            self.vellum.rest()
            self.changed(before, self.vellum.area(*FIRST_TILE))

    def make(self):
        self.opens_on_all_tags()
        self.save("all-tags")
        self.vellum.find_tag("ma")
        self.save("search")
        self.make_favourites()
        self.vellum.show_page("favorites")
        self.save("favorite-tags")
        self.create_categories()
        self.fill_a_category()
        self.save("tag-categories")
        self.vellum.show_page("all")
        chip = self.vellum.find_tag("forest")
        self.open_menu(chip)
        self.save("menu")
        self.display.key("Escape")
        self.vellum.wait_for_no_other_window()
        self.choose_for_dialog(chip, "delete")
        self.save("delete")
        self.display.key("Escape")
        self.vellum.wait_for_no_other_window()
        self.vellum.search("")
        self.display.double_click(self.vellum.first_chip(self.vellum.area(*LIST)))
        wait_until(lambda: self.vellum.corner()[0] > self.vellum.geometry()[0] + 100, "the files beside the tags")
        x, y, _, height = self.vellum.geometry()
        panel = (x + 10, y + 60, self.vellum.corner()[0] - x - 40, height - 80)
        wait_until(lambda: self.display.picture().find_block(panel, 6, 6), "a thumbnail")
        self.save("files")


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--check", action="store_true")
    parser.add_argument("program", nargs="?", type=pathlib.Path, default=ROOT / "build" / "bin" / "vellum")
    arguments = parser.parse_args()
    PICTURES.mkdir(parents=True, exist_ok=True)
    with tempfile.TemporaryDirectory(prefix="vellum-pictures-") as temporary:
        home = pathlib.Path(temporary)
        shutil.copytree(ROOT / "samples", home / "pictures")
        with Display(home) as display:
            pictures = Pictures(display, arguments.program.resolve(), home, arguments.check)
            try:
                pictures.make()
            except BaseException:
                display.picture().save(home.parent / "vellum-pictures-failure.png")
                raise
            finally:
                if pictures.vellum:
                    pictures.vellum.process.kill()
    if pictures.stale:
        print(f"\nThese do not show the program any more: {' '.join(pictures.stale)}\n"
              "scripts/make_pictures.py makes them anew. Look at them before you commit them.")
    return 1 if pictures.stale else 0


if __name__ == "__main__":
    sys.exit(main())
