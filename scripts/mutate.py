#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Breaks the code in one place at a time and sees whether the tests notice.

The places are listed in tests/mutations/*.txt. The project is copied below build/mutations and built there; for each
place the changed file is compiled, what depends on it is linked, and the tests that the list names are run until one
fails. Run it by hand, before and after tests are made smaller and after a change of a place that the list names.

    scripts/mutate.py                   every place
    scripts/mutate.py WORD...           only those whose file, name or reason contains one of the words
    scripts/mutate.py --check           only look whether each place is there
    scripts/mutate.py --all-tests       after a place that survived its own tests, run the quick tests as well
    scripts/mutate.py --here            in this tree and in build/, which saves a build; nothing may be edited meanwhile

Exit status: 0 when every change was caught, 1 when one survived, does not apply or does not compile.
"""

import argparse
import json
import os
import re
import shutil
import subprocess
import sys
import time
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
TREE = ROOT / "build" / "mutations" / "tree"
BUILD = ROOT / "build" / "mutations" / "build"
LONGEST_TEST = 240  # Seconds. What hangs has been noticed.


class Mutation:
    """One place: texts to replace in one file, and the tests that have to fail then."""

    def __init__(self, name, reason):
        self.name = name
        self.reason = reason
        self.file = ""
        self.tests = []
        self.old = []
        self.new = []

    def applied(self, text):
        """The file's new text, or None unless the old text stands in it exactly once."""
        old = "\n".join(self.old)
        return text.replace(old, "\n".join(self.new)) if self.old and text.count(old) == 1 else None


def read_lists(folder):
    """Blocks of "[name] reason", "file PATH", "test NAME[:FUNCTION]...", "-" and "+" lines; "#" begins a comment."""
    mutations = []
    for path in sorted(folder.glob("*.txt")):
        for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
            header = re.match(r"\[([\w-]+)\] (.+)", line)
            if header:
                mutations.append(Mutation(*header.groups()))
            elif line.startswith("file "):
                mutations[-1].file = line[5:].strip()
            elif line.startswith("test "):
                mutations[-1].tests += line[5:].split()
            elif re.match(r"[-+]( |$)", line):
                (mutations[-1].old if line[0] == "-" else mutations[-1].new).append(line[2:])
            elif line and not line.startswith("#"):
                sys.exit(f"{path}:{number}: not understood: {line}")
    return mutations


def project_files():
    listed = subprocess.run(
        ["git", "-C", ROOT, "ls-files", "-z", "--cached", "--others", "--exclude-standard"],
        check=True, capture_output=True).stdout
    return [name for name in listed.decode().split("\0") if name and (ROOT / name).is_file()]


def copy_project():
    """Brings the copy up to date; files that are the same keep their times, so that little is built anew."""
    names = set(project_files())
    for name in names:
        source, target = ROOT / name, TREE / name
        if target.is_file() and target.read_bytes() == source.read_bytes():
            continue
        target.parent.mkdir(parents=True, exist_ok=True)
        shutil.copy(source, target)
    for target in [path for path in TREE.rglob("*") if path.is_file()]:
        if str(target.relative_to(TREE)) not in names:
            target.unlink()


def run(command, **options):
    return subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, errors="replace",
                          check=False, **options)


def configure():
    launcher = ["-DCMAKE_CXX_COMPILER_LAUNCHER=ccache"] if shutil.which("ccache") else []
    result = run(["cmake", "-S", TREE, "-B", BUILD, "-G", "Ninja", "-DCMAKE_BUILD_TYPE=Release",
                  "-DVELLUM_BUILD_BENCH=OFF", *launcher])
    if result.returncode != 0:
        sys.exit(result.stdout)


def known_tests():
    listed = subprocess.run(["ctest", "--test-dir", BUILD, "--show-only=json-v1"], check=True,
                            capture_output=True, text=True).stdout
    tests = {}
    for test in json.loads(listed)["tests"]:
        properties = {entry["name"]: entry["value"] for entry in test.get("properties", [])}
        environment = dict(line.split("=", 1) for line in properties.get("ENVIRONMENT", []))
        tests[test["name"]] = (test.get("command", []), environment, properties.get("LABELS", []))
    return tests


def targets_of(tests):
    """What has to be built: tests that are no test program of their own use the program and the plug-in."""
    programs = [name for name in tests if name.startswith("tst_")]
    return programs + (["vellum", "plg_vltagmanagerplugin"] if len(programs) < len(tests) else [])


def build(tests):
    return run(["nice", "ninja", "-C", BUILD, f"-j{os.cpu_count()}", *targets_of(tests)])


def fails(test, known):
    """Whether a test "NAME" or "NAME:FUNCTION" fails, crashes or hangs."""
    name, _, function = test.partition(":")
    command, environment, _ = known[name]
    try:
        result = run([*command, *([function] if function else [])], env={**os.environ, **environment}, cwd=BUILD,
                     timeout=LONGEST_TEST)
    except subprocess.TimeoutExpired:
        return True
    return result.returncode != 0


def verdict_on(mutation, known, fallback):
    path = TREE / mutation.file
    original = path.read_text(encoding="utf-8") if path.is_file() else ""
    changed = mutation.applied(original)
    names = [test.partition(":")[0] for test in mutation.tests]
    unknown = [name for name in names if name not in known]
    if changed is None:
        return "does not apply"
    if unknown:
        return "no such test: " + " ".join(unknown)
    path.write_text(changed, encoding="utf-8")
    try:
        built = build(names)
        if built.returncode != 0:
            print(built.stdout[-2000:])
            return "does not compile"
        for test in mutation.tests:
            if fails(test, known):
                return "caught by " + test
        if fallback:
            build(fallback)
            for test in fallback:
                if fails(test, known):
                    return "caught by " + test + " only"
        return "SURVIVED"
    finally:
        path.write_text(original, encoding="utf-8")


def main():
    global TREE, BUILD
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("words", nargs="*")
    parser.add_argument("--check", action="store_true")
    parser.add_argument("--all-tests", action="store_true")
    parser.add_argument("--here", action="store_true")
    arguments = parser.parse_args()
    mutations = [mutation for mutation in read_lists(ROOT / "tests" / "mutations")
                 if not arguments.words or
                 any(word in f"{mutation.file} {mutation.name} {mutation.reason}" for word in arguments.words)]
    if arguments.check:
        missing = [mutation.name for mutation in mutations if not (ROOT / mutation.file).is_file() or
                   mutation.applied((ROOT / mutation.file).read_text(encoding="utf-8")) is None]
        print(f"{len(mutations)} places, {len(missing)} that are not there" + "".join("\n  " + n for n in missing))
        return 1 if missing else 0

    if arguments.here:
        TREE, BUILD = ROOT, ROOT / "build"
    else:
        copy_project()
        configure()
    known = known_tests()
    needed = sorted({test.partition(":")[0] for mutation in mutations for test in mutation.tests} & known.keys())
    built = build(needed)
    if built.returncode != 0:
        sys.exit(built.stdout[-4000:])
    for test in sorted({test for mutation in mutations for test in mutation.tests
                        if test.partition(":")[0] in known}):
        if fails(test, known):
            sys.exit(f"{test} fails without any change")
    quick = [name for name, test in known.items() if "quick" in test[2]] if arguments.all_tests else []
    verdicts = []
    for mutation in mutations:
        started = time.monotonic()
        verdicts.append(verdict_on(mutation, known, quick))
        print(f"{mutation.name:34} {verdicts[-1]:60} {time.monotonic() - started:4.0f} s", flush=True)
    caught = sum(verdict.startswith("caught") for verdict in verdicts)
    survived = verdicts.count("SURVIVED")
    print(f"\n{len(verdicts)} places: {caught} caught, {survived} survived, {len(verdicts) - caught - survived} others")
    return 0 if caught == len(verdicts) else 1


if __name__ == "__main__":
    sys.exit(main())
