# SPDX-License-Identifier: MIT
"""The program under test, as a person sees it on the screen and as others see its library file."""

import json
import sqlite3
import subprocess

from display import wait_until

PAGES = ("all", "categories", "favorites")

# Places in the tag manager, in pixels from its top left corner.
PAGE_BUTTON = (96, 28)
FIRST_PAGE_BUTTON = (20, 30)
PAGE_BUTTON_STEP = 116


class Vellum:
    """One run of the program on a library file."""

    def __init__(self, display, program, library, *arguments):
        self.display, self.program, self.library = display, program, library
        self.process = subprocess.Popen([program, *arguments], env=display.environment, stdout=subprocess.DEVNULL,
                                        stderr=subprocess.PIPE, text=True)
        self.window = wait_until(lambda: next(iter(self.windows()), None), "the window to open")

    # What others see of the library.

    def listed(self, what):
        text = subprocess.run([self.program, "--library", self.library, "--list", what, "--json"], check=True,
                              capture_output=True, env=self.display.environment, timeout=30).stdout
        return json.loads(text)

    def tag(self, name):
        return next((tag for tag in self.listed("tags") if tag["name"] == name), None)

    def category(self, name):
        return next((category for category in self.listed("categories") if category["name"] == name), None)

    def holds(self, category, tag):
        """Whether the library's file files the tag, by id, under the category, by id."""
        connection = sqlite3.connect(f"file:{self.library}?mode=ro", uri=True)
        try:
            return connection.execute("SELECT count(*) FROM tag_categories WHERE category_id = ? AND tag_id = ?",
                                      (category, tag)).fetchone()[0] == 1
        finally:
            connection.close()

    # What is on the screen.

    def windows(self):
        return self.display.windows(self.process.pid)

    def geometry(self):
        return self.display.geometry(self.window)

    def open_by(self, action):
        """Does what opens a menu or a dialog, and gives its geometry once it is painted."""
        known = set(self.windows())
        before = self.display.steady_picture()
        action()
        window = wait_until(lambda: next((w for w in self.windows() if w not in known), None), "a menu or a dialog")

        def painted():
            area = self.display.geometry(window)
            return self.display.picture().differs(before, area) > area[2] * area[3] * 0.03

        wait_until(painted, "the menu or the dialog to be painted")
        self.display.steady_picture()
        return self.display.geometry(window)

    def wait_for_no_other_window(self):
        wait_until(lambda: self.windows() == [self.window], "menus and dialogs to close")

    def shown_page(self):
        """The page whose button is underlined, and the corner of the tag manager on the screen."""
        x, y, width, _ = self.geometry()
        picture = self.display.picture()
        button = PAGE_BUTTON[0]
        underline = FIRST_PAGE_BUTTON[1] + PAGE_BUTTON[1] - 2
        for row in range(y + underline, y + underline + 10):
            for column in range(x + FIRST_PAGE_BUTTON[0], x + width - button - 1):
                color = picture.pixel(column, row)
                # The first pixel may be a mixture.
                if max(color) - min(color) > 80 and button - 1 <= picture.run(column, row, button + 2, 12) <= button:
                    right = column + picture.run(column, row, button + 2, 12)
                    return self._page_at(picture, right - button, row - underline)
        return None

    def _page_at(self, picture, underline, top):
        """Which of the three buttons the underline belongs to: the one with which all three are in place."""
        for page in range(len(PAGES)):
            left = underline - FIRST_PAGE_BUTTON[0] - PAGE_BUTTON_STEP * page
            if all(self._has_text(picture, left, top, number) for number in range(len(PAGES))):
                return PAGES[page], (left, top)
        return None

    @staticmethod
    def _has_text(picture, left, top, page):
        """Whether there is something where the button of a page should be in a tag manager with this corner."""
        x, y = left + FIRST_PAGE_BUTTON[0] + PAGE_BUTTON_STEP * page, top + FIRST_PAGE_BUTTON[1]
        part = picture.crop((x, y + 2, PAGE_BUTTON[0], PAGE_BUTTON[1] - 8))
        colors = {part.pixel(i, j) for i in range(part.width) for j in range(part.height)}
        return part.width == PAGE_BUTTON[0] and len(colors) > 8

    def corner(self):
        """The top left corner of the tag manager on the screen."""
        return wait_until(self.shown_page, "the tag manager to be on the screen")[1]

    def at(self, x, y):
        """The place on the screen that lies at x, y in the tag manager."""
        left, top = self.corner()
        return left + x, top + y

    def area(self, x, y, width, height):
        return (*self.at(x, y), width, height)

    # What a person does.

    def show_page(self, page):
        number = PAGES.index(page)
        # At the top of the button, so that the pointer does not cover its underline.
        self.display.click(self.at(FIRST_PAGE_BUTTON[0] + PAGE_BUTTON_STEP * number + 10, FIRST_PAGE_BUTTON[1] + 3))
        wait_until(lambda: (self.shown_page() or [None])[0] == page, f"the page {page}")

    def rest(self):
        """Takes the pointer off everything that reacts to it, and gives the picture that stays then."""
        self.display.move(self.at(560, 12))
        return self.display.steady_picture()

    def search(self, text):
        """Types into the search field of the page; an empty text clears it."""
        self.display.click(self.at(220, 162))
        self.display.key("ctrl+a", "Delete")
        if text:
            self.display.write(text)

    def first_chip(self, area):
        """A place left of the name on the first chip in the area, or nothing."""
        self.rest()
        corner = self.display.picture().find_block(area)
        return corner and (corner[0] + 5, corner[1] + 5)

    def find_tag(self, text):
        """Searches on the page that is shown, and gives a place on the first result."""
        self.search(text)
        return wait_until(lambda: self.first_chip(self.area(46, 180, 300, 100)), f"a result for {text}")

    def window_button(self, name):
        x, y, width, _ = self.geometry()
        self.display.click((x + width - {"minimise": 93, "maximise": 61, "close": 29}[name], y + 30))

    def close_and_wait(self):
        """Returns what the program wrote to its log."""
        self.window_button("close")
        log = self.process.communicate(timeout=30)[1]
        assert self.process.returncode == 0, f"vellum ended with {self.process.returncode}:\n{log}"
        return log
