#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Makes the pictures in docs/pictures from the sample library, on a display of its own.

    scripts/make_pictures.py [VELLUM]

VELLUM is build/bin/vellum unless given. Build first; scripts/setup.sh test installs what this needs.
"""

import pathlib
import shutil
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parent.parent
sys.dont_write_bytecode = True
sys.path.insert(0, str(ROOT / "tests" / "session"))

from display import Display, wait_until  # noqa: E402
from test_session import FIRST_TILE, LIST, RIGHT_HALF, Session, middle  # noqa: E402

PICTURES = ROOT / "docs" / "pictures"
CATEGORIES = ("Seasons", "Places", "For clients")


class Pictures(Session):
    def save(self, name):
        self.display.move((4, 4))  # The pointer would be in the picture.
        picture = self.display.steady_picture()
        picture.crop(self.vellum.geometry()).save(PICTURES / f"{name}.png")
        print(f"docs/pictures/{name}.png", flush=True)

    def choose(self, chip, name):
        menu = self.open_menu(chip)
        self.display.click(self.entry(menu, name))

    def make_favourites(self):
        for name in ("Sunset", "Landscape", "Typography", "Forest", "Winter"):
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
        self.save("files")


def main():
    program = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else ROOT / "build" / "bin" / "vellum").resolve()
    PICTURES.mkdir(parents=True, exist_ok=True)
    with tempfile.TemporaryDirectory(prefix="vellum-pictures-") as temporary:
        home = pathlib.Path(temporary)
        shutil.copytree(ROOT / "samples", home / "pictures")
        with Display(home) as display:
            pictures = Pictures(display, program, home)
            try:
                pictures.make()
            except BaseException:
                display.picture().save(home.parent / "vellum-pictures-failure.png")
                raise
            finally:
                pictures.vellum.process.kill()


if __name__ == "__main__":
    main()
