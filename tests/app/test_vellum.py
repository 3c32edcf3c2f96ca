#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""The program as a user starts it, without a display.

    test_vellum.py VELLUM IMAGE_PLUGIN

IMAGE_PLUGIN is a plug-in of Qt's, which is none of the program's.
"""

import os
import pathlib
import shutil
import stat
import struct
import subprocess
import sys
import tempfile
import unittest
import zlib

VELLUM, IMAGE_PLUGIN = map(pathlib.Path, sys.argv[1:3])

SIDECAR = """<x:xmpmeta xmlns:x="adobe:ns:meta/"><rdf:RDF xmlns:rdf="http://www.w3.org/1999/02/22-rdf-syntax-ns#">
<rdf:Description rdf:about="" xmlns:dc="http://purl.org/dc/elements/1.1/"><dc:subject><rdf:Bag>{}</rdf:Bag></dc:subject>
</rdf:Description></rdf:RDF></x:xmpmeta>"""


def write_sidecar(path, *keywords):
    path.write_text(SIDECAR.format("".join(f"<rdf:li>{keyword}</rdf:li>" for keyword in keywords)))


def png():
    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))

    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">2I5B", 1, 1, 8, 0, 0, 0, 0))
            + chunk(b"IDAT", zlib.compress(b"\0\0")) + chunk(b"IEND", b""))


def size_of(picture):
    return struct.unpack(">2I", picture[16:24])


class Vellum(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="vellum-test-"))
        self.addCleanup(shutil.rmtree, self.folder)
        self.home, self.pictures = self.folder / "home", self.folder / "pictures"
        self.home.mkdir()
        self.pictures.mkdir()
        self.other = pathlib.Path(os.fsdecode(os.fsencode(self.pictures) + b"/b\xff.png"))
        for path, keywords in ((self.pictures / "a.png", ("Amber", "Zebra")), (self.other, ("Zebra",))):
            path.write_bytes(png())
            write_sidecar(path.with_name(path.name + ".xmp"), *keywords)

    def run_program(self, *arguments, output=subprocess.DEVNULL):
        environment = {name: value for name, value in os.environ.items()
                       if name not in ("DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "QT_SCALE_FACTOR")}
        for name in ("XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME"):
            environment[name] = str(self.home / name)
        return subprocess.run([VELLUM, *arguments], env=environment, stdout=output, stderr=subprocess.PIPE, text=True,
                              errors="replace", timeout=120, check=False)

    def screenshot(self, *options, target=None):
        target = target or self.home / "picture.png"
        outcome = self.run_program(self.pictures, "--screenshot", target, *options)
        self.assertEqual(outcome.returncode, 0, outcome.stderr)
        return target.read_bytes()

    def test_screenshot_shows_the_library(self):
        first = self.screenshot()
        self.assertEqual(size_of(first), (1100, 700))
        self.assertEqual(self.screenshot(), first)
        self.assertTrue((self.home / "XDG_DATA_HOME/vellum/libraries").exists(), "the library has its place")
        self.assertFalse((self.home / "XDG_CONFIG_HOME/vellum").exists(), "a screenshot leaves the settings alone")
        write_sidecar(self.other.with_name(self.other.name + ".xmp"), "Zebra", "Quince")
        self.assertNotEqual(self.screenshot(), first, "the next start finds what has changed")

    def test_screenshot_follows_its_options(self):
        size = ("--size", "900x600")
        shown = [self.screenshot(*size, *more) for more in ((), ("--search", "amb"), ("--page", "categories"),
                                                            ("--page", "favorites"))]
        self.assertEqual([size_of(picture) for picture in shown], [(900, 600)] * 4)
        self.assertEqual(len(set(shown)), 4)
        self.assertEqual(size_of(self.screenshot(*size, "--scale", "1.5")), (1350, 900))

    def test_output_goes_where_it_is_sent(self):
        file = pathlib.Path(os.fsdecode(os.fsencode(self.home) + b"/c\xff.png"))
        file.write_text("one")
        file.chmod(0o604)
        link = self.home / "link"
        link.symlink_to(file)
        self.assertEqual(size_of(self.screenshot(target=link)), (1100, 700))
        self.assertTrue(link.is_symlink())
        self.assertEqual(stat.S_IMODE(file.stat().st_mode), 0o604)
        pipe = self.home / "pipe"
        os.mkfifo(pipe)
        self.assertEqual(self.run_program(self.pictures, "--screenshot", pipe).returncode, 1, "nobody reads it")
        reader = os.open(pipe, os.O_RDONLY | os.O_NONBLOCK)
        self.assertEqual(self.run_program(self.pictures, "--screenshot", pipe).returncode, 0)
        self.assertEqual(os.read(reader, 4)[1:], b"PNG")
        os.close(reader)

    def test_misuse_is_refused(self):
        shot = "FOLDER --screenshot HOME/x.png "
        for arguments, status, complaint in (
                ("", 2, "vellum FOLDER"),
                ("/nowhere/at/all", 2, "There is no folder /nowhere/at/all"),
                ("FOLDER", 1, "There is no display"),
                ("--library HOME/none.vellum", 2, "There is no library"),
                ("--list tags --library HOME/none.vellum", 2, "There is no library"),
                ("--list tags --library FOLDER/a.png", 1, "The file is no library"),
                ("--library FOLDER/a.png --screenshot HOME/x.png", 1, "vellum: The file is no library"),
                ("--library FOLDER --screenshot HOME/x.png", 1, "vellum: The library cannot be opened: it is a folder."),
                ("--import /nowhere --library HOME/none.vellum", 2, "/nowhere"),
                (shot + "--page none", 2, "--page takes"),
                (shot + "--size 10", 2, "--size takes"),
                (shot + "--size 99999x99999", 2, "--size takes"),
                (shot + "--scale nan", 2, "--scale takes"),
                (shot + "--scale 0", 2, "--scale takes"),
                (shot + "--plugin /nowhere.so", 1, "/nowhere.so is not a plug-in"),
                (shot + "--plugin FOLDER/a.png", 1, "is not a plug-in"),
                (shot + f"--plugin {IMAGE_PLUGIN}", 1, "is not a tag manager plug-in"),
                ("FOLDER --screenshot /nowhere/x.png", 1, "The picture cannot be written"),
                ("--colour", 2, "Unknown option 'colour'. Try \"vellum --help\"."),
                ("--import FOLDER --list tags", 2, "Only one command"),
                ("--list tags", 2, "This needs --library"),
                ("--import FOLDER --scale 2", 2, "goes with a window only"),
                ("--help", 0, "")):
            with self.subTest(arguments):
                before = (self.pictures / "a.png").read_bytes()
                words = [word.replace("FOLDER", str(self.pictures)).replace("HOME", str(self.home))
                         for word in arguments.split()]
                outcome = self.run_program(*words)
                self.assertEqual(outcome.returncode, status, outcome.stderr)
                self.assertIn(complaint, outcome.stderr)
                self.assertFalse((self.home / "x.png").exists() or (self.home / "none.vellum").exists())
                self.assertEqual((self.pictures / "a.png").read_bytes(), before)

    def found(self, query):
        outcome = self.run_program("--find", query, "-0", self.pictures, output=subprocess.PIPE)
        self.assertEqual(outcome.returncode, 0, outcome.stderr)
        return {path.rsplit("/", 1)[1][0] for path in outcome.stdout.split("\0") if path}

    def change(self, *arguments, status=0):
        outcome = self.run_program(*arguments, output=subprocess.PIPE)
        self.assertEqual(outcome.returncode, status, outcome.stderr)
        return outcome.stdout + outcome.stderr

    def test_tags_are_put_on_merged_and_found(self):
        picture = self.pictures / "a.png"
        self.assertIn("No library holds", self.change("--tag", "x", "--", picture, status=2))
        self.change("--import", self.pictures)
        self.change("--tag", "one, two", "%1", "--untag", "Zebra", "--dry-run", "--", picture)
        self.assertEqual(self.found("\"one, two\""), set())
        said = self.change("--tag", "one, two", "%1", "--untag", "Zebra", "--", picture, self.other)
        self.assertIn("links added: 4, links removed: 2, tags created: 2", said)
        self.assertEqual(self.found("\"one, two\" and not zebra"), {"a", "b"})
        self.assertIn("no tag \"none\"", self.change("--untag", "none", "--", picture, status=2))
        self.assertIn("does not hold", self.change("--tag", "x", "--", self.pictures / "c.png", status=2))
        self.change("--merge", "Amber", "--into", "%1", "--", self.pictures)
        self.change("--rename", "%1", "Joined", "--", self.pictures)
        self.assertEqual(self.found("joined"), {"a", "b"})
        self.assertEqual(self.found("amber"), set())
        self.assertIn("at \")\" (character 5)", self.change("--find", "one )", self.pictures, status=2))

    def test_output_that_cannot_be_written_is_a_failure(self):
        library = self.home / "a.vellum"
        for arguments in (["--version"], ["--help"], ["--import", self.pictures, "--library", library],
                          ["--list", "tags", "--library", library]):
            with self.subTest(arguments[0]), open("/dev/full", "w", encoding="utf-8") as full:
                outcome = self.run_program(*arguments, output=full)
                self.assertEqual(outcome.returncode, 1)
                self.assertTrue(outcome.stderr.startswith("vellum: "), outcome.stderr)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
