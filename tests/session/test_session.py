#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""A person's session with the window: real mouse and key events on a display with a window manager.

    test_session.py VELLUM SAMPLES FOLDER

After each step the library's file and the picture of the window are looked at from outside. A failure leaves the
picture of the screen in FOLDER.
"""

import pathlib
import shutil
import sqlite3
import sys
import tempfile

from display import Display, wait_until
from vellum import Vellum

MENU = {"favourite": 1, "rename": 3, "delete": -1}
MENU_PADDING, MENU_ENTRY, MENU_SEPARATORS_BEFORE = 6, 30, {1: 1, 3: 2}

# Parts of the tag manager, from its corner: x, y, width, height.
LIST = (40, 190, 900, 400)
RIGHT_HALF = (560, 216, 500, 440)
CATEGORY_HEADER = (560, 176, 300, 30)
FIRST_TILE, SECOND_TILE = (20, 291, 78, 78), (116, 291, 78, 78)


def middle(area):
    return area[0] + area[2] // 2, area[1] + area[3] // 2


class Session:
    def __init__(self, display, program, home):
        self.display, self.program = display, program
        self.library, self.pictures = home / "library.vellum", home / "pictures"
        self.home = home
        self.vellum = None
        self.expected = None  # The picture that the screen was last compared with.

    def open(self, *options):
        self.vellum = Vellum(self.display, self.program, self.library, "--library", self.library, self.pictures,
                             *options)
        self.vellum.corner()

    # Helpers

    def entry(self, menu, name):
        """The place of an entry of the tag menu on the screen."""
        x, y, width, height = menu
        separator = (height - 2 * MENU_PADDING) % MENU_ENTRY / 3
        if MENU[name] < 0:
            return x + 60, y + height - MENU_PADDING - MENU_ENTRY // 2
        above = MENU_PADDING + MENU[name] * MENU_ENTRY + MENU_SEPARATORS_BEFORE[MENU[name]] * separator
        return x + 60, round(y + above + MENU_ENTRY / 2)

    def open_menu(self, chip):
        return self.vellum.open_by(lambda: self.display.click(chip, 3))

    def choose_for_dialog(self, chip, name):
        menu = self.open_menu(chip)
        return self.vellum.open_by(lambda: self.display.click(self.entry(menu, name)))

    def changed(self, before, area):
        wait_until(lambda: self.display.picture().differs(before, area) > 20, f"a change on the screen in {area}")

    def same(self, before, area, what):
        self.expected = before
        count = self.display.picture().differs(before, area)
        assert count == 0, f"{what}: {count} pixels changed in {area}"

    # Steps, in the order in which the person takes them

    def is_asked_for_a_folder(self):
        self.vellum = Vellum(self.display, self.program, None)
        self.display.key("Escape")
        log = self.vellum.process.communicate(timeout=30)[1]
        assert self.vellum.process.returncode == 0 and not log, log

        self.vellum = vellum = Vellum(self.display, self.program, None)
        question = vellum.window
        self.display.write(str(self.pictures))
        self.display.key("Return")
        wait_until(lambda: vellum.windows() not in ([], [question]), "the window after the question")
        vellum.window = next(window for window in vellum.windows() if window != question)
        vellum.library = min((self.home / "data" / "vellum" / "libraries").iterdir())
        wait_until(lambda: vellum.listed("tags"), "the import of the folder")
        vellum.close_and_wait()

    def opens_on_all_tags(self):
        self.open("--size", "1100x700")
        wait_until(lambda: len(self.vellum.listed("tags")) > 100, "the import of the samples")
        self.folds_the_pictures_away()
        wait_until(lambda: self.vellum.first_chip(self.vellum.area(*LIST)), "chips on the page")
        page, _ = self.vellum.shown_page()
        assert page == "all", page

    def folds_the_pictures_away(self):
        left = self.vellum.geometry()[0]
        wait_until(lambda: self.vellum.corner()[0] > left + 100, "the pictures beside the tags")
        self.display.key("F9")
        wait_until(lambda: self.vellum.corner()[0] < left + 100, "the pictures to go")

    def looks_at_files(self):
        vellum = self.vellum
        before = vellum.rest()
        vellum.search("mount")
        self.changed(before, vellum.area(*LIST))
        left = vellum.corner()[0]
        self.display.key("Return")
        self.sees_files(left)
        self.display.double_click(vellum.find_tag("mount"))
        self.sees_files(left)
        vellum.search("")
        wait_until(lambda: self.display.picture().differs(before, vellum.area(*LIST)) == 0, "all tags as before")
        self.display.double_click(vellum.first_chip(vellum.area(*LIST)))
        self.sees_files(left)
        vellum.rest()
        self.same(before, vellum.area(*LIST), "the tags after the files were closed")

    def sees_files(self, left):
        """The panel opens with a thumbnail in it, and closes."""
        vellum = self.vellum
        wait_until(lambda: vellum.corner()[0] > left + 100, "the files to show beside the tags")
        x, y, _, height = vellum.geometry()
        panel = (x + 10, y + 60, vellum.corner()[0] - x - 40, height - 80)
        wait_until(lambda: self.display.picture().find_block(panel, 6, 6), "a thumbnail")
        corner = vellum.corner()
        self.display.click((corner[0] - 27, corner[1] + 43))
        wait_until(lambda: vellum.corner()[0] == left, "the files to close")

    def is_told_what_failed(self):
        vellum = self.vellum
        x, y, width, height = vellum.geometry()
        foot = (x + 20, y + height - 30, 300, 20)
        dialog = vellum.open_by(lambda: self.display.click((x + width - 83, y + 102)))
        before = self.display.picture()
        other_program = sqlite3.connect(self.library, isolation_level=None)
        other_program.execute("BEGIN IMMEDIATE")
        self.display.write("Late")
        self.display.key("Return")
        self.changed(before, foot)
        other_program.execute("ROLLBACK")
        other_program.close()
        self.display.click((dialog[0] + 152, dialog[1] + 142))
        wait_until(lambda: vellum.tag("Late"), "the tag in the library at the second try")
        vellum.wait_for_no_other_window()
        wait_until(lambda: self.display.picture().differs(before, foot) == 0, "the bar to leave")

    def renames(self):
        vellum = self.vellum
        tag = vellum.tag("Mountains")
        self.choose_for_dialog(vellum.find_tag("mount"), "rename")
        self.display.key("ctrl+a")
        self.display.write("Peaks")
        self.display.key("Return")
        wait_until(lambda: vellum.tag("Peaks"), "the new name in the library")
        vellum.wait_for_no_other_window()
        assert vellum.tag("Peaks") == {**tag, "name": "Peaks"}, vellum.tag("Peaks")
        assert not vellum.tag("Mountains")

    def favours_and_deletes(self):
        vellum = self.vellum
        tag = vellum.tag("Late")["id"]
        menu = self.open_menu(vellum.find_tag("Late"))
        self.display.click(self.entry(menu, "favourite"))
        wait_until(lambda: vellum.holds(1, tag), "the favourite in the library")
        vellum.wait_for_no_other_window()
        vellum.show_page("favorites")
        chip = wait_until(lambda: vellum.first_chip(vellum.area(*LIST)), "the favourite on its page")
        self.choose_for_dialog(chip, "delete")
        self.display.key("Left", "Return")  # From "No", which has the focus.
        wait_until(lambda: not vellum.tag("Late"), "the tag to leave the library")
        vellum.wait_for_no_other_window()
        wait_until(lambda: not vellum.first_chip(vellum.area(*LIST)), "the favourite to leave its page")
        vellum.show_page("all")
        vellum.search("")

    def creates_a_category(self):
        vellum = self.vellum
        vellum.show_page("categories")
        before = vellum.rest()
        vellum.open_by(lambda: self.display.click(middle(vellum.area(*FIRST_TILE))))
        self.display.write("Outdoors")
        self.display.key("Return")
        wait_until(lambda: vellum.category("Outdoors"), "the category in the library")
        vellum.wait_for_no_other_window()
        vellum.rest()
        self.changed(before, vellum.area(*FIRST_TILE))
        self.changed(before, vellum.area(*SECOND_TILE))
        self.same(before, vellum.area(*CATEGORY_HEADER), "the header of the category that is selected")

    def drags_a_tag_into_it(self):
        vellum = self.vellum
        category, tag = vellum.category("Outdoors")["id"], vellum.tag('"Golden hour"')["id"]
        assert not vellum.holds(category, tag)
        chip = vellum.first_chip(vellum.area(*RIGHT_HALF))
        before = vellum.rest()
        self.display.drag(chip, middle(vellum.area(*FIRST_TILE)))
        wait_until(lambda: vellum.holds(category, tag), "the tag in its category in the library")
        assert vellum.category("Outdoors")["tagCount"] == 1
        vellum.rest()
        self.changed(before, vellum.area(*FIRST_TILE))
        self.changed(before, vellum.area(*CATEGORY_HEADER))
        self.changed(before, vellum.area(*RIGHT_HALF))
        self.same(before, vellum.area(*SECOND_TILE), "the tile that adds categories")

    def resizes(self):
        vellum = self.vellum
        x, y, width, height = vellum.geometry()
        self.display.drag((x + width - 3, y + height - 3), (x + width + 117, y + height + 77))
        wait_until(lambda: vellum.geometry()[2] > width + 60 and vellum.geometry()[3] > height + 40, "a larger window")
        assert vellum.geometry()[:2] == (x, y), "the opposite corner moved"
        picture = vellum.rest()
        assert picture.pixel(x + width + 30, y + height - 30) != (0, 0, 0), "the new part is not painted"

    def maximises_and_restores(self):
        vellum = self.vellum
        before, screen = vellum.geometry(), self.display.size
        vellum.window_button("maximise")
        wait_until(lambda: vellum.geometry()[2] >= screen[0], "the window to fill the screen")
        vellum.rest()
        vellum.window_button("maximise")
        wait_until(lambda: vellum.geometry() == before, "the window to be as before")

    def minimises_and_returns(self):
        vellum = self.vellum
        before = vellum.rest()
        vellum.window_button("minimise")
        wait_until(lambda: vellum.window not in vellum.windows(), "the window to leave the screen")
        self.display.xdotool("windowactivate", vellum.window)
        wait_until(lambda: vellum.window in vellum.windows(), "the window to come back")
        vellum.corner()
        vellum.rest()
        self.same(before, vellum.area(*LIST), "the tags after the window came back")

    def closes_and_reopens(self):
        vellum = self.vellum
        vellum.show_page("categories")
        before, geometry, corner = vellum.rest(), vellum.geometry(), vellum.corner()
        tags, categories = vellum.listed("tags"), vellum.listed("categories")
        vellum.close_and_wait()
        # Both are remembered.
        self.vellum = Vellum(self.display, self.program, self.library, "--page", "categories")
        wait_until(lambda: self.vellum.geometry() == geometry, "the window where it was")
        wait_until(lambda: self.vellum.corner() == corner, "the page where it was")
        self.vellum.rest()
        for area in (FIRST_TILE, SECOND_TILE, CATEGORY_HEADER, RIGHT_HALF):
            self.same(before, self.vellum.area(*area), "the categories after the window was reopened")
        assert self.vellum.listed("tags") == tags
        assert self.vellum.listed("categories") == categories

    def leaves(self):
        log = self.vellum.close_and_wait()
        for word in ("QObject::connect", "QSqlDatabase", "QPainter", "Negative sizes", "failed"):
            assert word not in log, f"the log complains:\n{log}"

    STEPS = (is_asked_for_a_folder, opens_on_all_tags, looks_at_files, is_told_what_failed, renames, favours_and_deletes,
             creates_a_category, drags_a_tag_into_it, resizes, maximises_and_restores, minimises_and_returns,
             closes_and_reopens, leaves)


def main():
    program, samples, folder = map(pathlib.Path, sys.argv[1:])
    folder.mkdir(parents=True, exist_ok=True)
    with tempfile.TemporaryDirectory(prefix="vellum-session-") as temporary:
        home = pathlib.Path(temporary)
        shutil.copytree(samples, home / "pictures")
        with Display(home) as display:
            session = Session(display, program, home)
            try:
                for step in Session.STEPS:
                    print(step.__name__.replace("_", " "), flush=True)
                    step(session)
            except BaseException:
                display.picture().save(folder / "failure.png")
                if session.expected:
                    session.expected.save(folder / "expected.png")
                print(f"The screen is in {folder / 'failure.png'}", flush=True)
                raise
            finally:
                if session.vellum and session.vellum.process.poll() is None:
                    session.vellum.process.kill()
                    print(session.vellum.process.communicate()[1], flush=True)


if __name__ == "__main__":
    main()
