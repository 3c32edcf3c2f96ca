#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Runs a static analyser over every source file of the project that the release build compiles.

    scripts/analyse.py tidy|clazy [--single] [FILE...]

Most of an analyser's time goes into Qt's headers, so files are read in batches: a generated file includes two dozen of
them. Files that do not go together (equal names in unnamed namespaces) go into different batches; with --single every
file is read by itself. A batch that passed is remembered by its contents and the contents of every header, in
build/analysis.
"""

import argparse
import concurrent.futures
import hashlib
import json
import os
import pathlib
import re
import shlex
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
BUILD = ROOT / "build"
BATCH = 24

# clazy's level 1 without
# - fully-qualified-moc-types: it would change the signatures that others connect to by name;
# - non-pod-global-static: a false alarm for constants of literal types;
# - qproperty-without-notify: nothing here is bound to by QML.
CLAZY_CHECKS = "level1,no-fully-qualified-moc-types,no-non-pod-global-static,no-qproperty-without-notify"

# Our own code: not Qt's, not what the build generated.
OWN = "^" + re.escape(str(ROOT)) + r"/[a-z]+/([a-z]+/)*[a-z_]+\.(h|cpp)$"

FINDING = re.compile(r"^(?P<file>/[^:]+):(?P<line>\d+):\d+: (?:fatal error|error|warning): ")


def tracked(*patterns):
    command = ["git", "-C", ROOT, "-c", f"safe.directory={ROOT}", "ls-files", "-z", "--cached", "--others",
               "--exclude-standard", "--", *patterns]
    names = subprocess.run(command, check=True, capture_output=True).stdout.decode().split("\0")
    return sorted(ROOT / name for name in names if name and (ROOT / name).exists())


class Source:
    """A source file with the arguments that the build compiles it with, without its own name and outputs."""

    def __init__(self, entry):
        self.path = pathlib.Path(entry["file"])
        words = shlex.split(entry["command"])
        self.compiler = next(word for word in words if not word.endswith("ccache"))
        words = words[words.index(self.compiler) + 1:]
        self.options, self.includes = [], []
        while words:
            word = words.pop(0)
            if word in ("-o", "-c", "-MF", "-MT"):
                words.pop(0)
            elif word == "-isystem":
                self.includes.append((word, words.pop(0)))
            elif word.startswith("-I"):
                self.includes.append((word,))
            # The analyser decides what is an error. Names that shadow others are the compiler's to find: in a batch, they
            # would include names of other files.
            elif word not in ("-MD", "-MMD", "-Werror", "-Wshadow", "-fPIE"):
                self.options.append(word)


def sources(wanted):
    own = {path for path in tracked("*.cpp")}
    found = {}
    for entry in json.loads((BUILD / "compile_commands.json").read_text()):
        source = Source(entry)
        if source.path in own and (not wanted or source.path in wanted):
            found.setdefault(source.path, source)
    return [found[path] for path in sorted(found)]


def is_no_finding(tool, match, text):
    """What an analyser says besides its findings, and what it takes wrongly for one."""
    if not re.match(OWN, match["file"]):
        return True
    if tool == "tidy":
        return False
    # clang-tidy looks at the compiler's warnings. And clazy does not know a container that a function has just made,
    # which nothing shares, from one that a loop would copy.
    code = pathlib.Path(match["file"]).read_text().splitlines()[int(match["line"]) - 1]
    return "[-W" in text and "[-Wclazy-" not in text or (
        "[-Wclazy-range-loop-detach]" in text and re.search(r" : .*\)\)( \{)?$", code) is not None)


def joined_options(batch):
    """The options of all, and their search paths."""
    options = dict.fromkeys(option for source in batch for option in source.options)
    includes = dict.fromkeys(include for source in batch for include in source.includes)
    return [*options, *(word for include in includes for word in include)]


def joined_text(batch):
    """A file that includes the batch."""
    return "".join(f'#define main main_{number}\n#include "{source.path}"\n#undef main\n'
                   for number, source in enumerate(batch))


def misfits(batch):
    """The files of a batch that do not compile together with those before them."""
    command = [batch[0].compiler, *joined_options(batch), "-w", "-fsyntax-only", "-x", "c++", "-"]
    result = subprocess.run(command, input=joined_text(batch), cwd=BUILD, capture_output=True, text=True,
                            errors="replace")
    broken = {match["file"] for match in map(FINDING.match, result.stderr.splitlines()) if match}
    return [source for source in batch if str(source.path) in broken]


def batches(all_sources, size, pool):
    """Files that compile together; those that do not start batches of their own."""
    whole = [all_sources[start:start + size] for start in range(0, len(all_sources), size)]
    if size == 1 or not whole:
        return whole
    apart = []
    for number, strangers in enumerate(pool.map(misfits, whole)):
        apart += strangers
        whole[number] = [source for source in whole[number] if source not in strangers]
    whole = [batch for batch in whole if batch]
    return whole + (batches(apart, size if len(apart) < len(all_sources) else 1, pool))


class Analyser:
    def __init__(self, tool):
        self.tool = tool
        self.folder = BUILD / "analysis" / tool
        self.folder.mkdir(parents=True, exist_ok=True)
        self.common = self._digest_of_common()

    def _digest_of_common(self):
        digest = hashlib.sha256(pathlib.Path(__file__).read_bytes())
        program = "clang-tidy-14" if self.tool == "tidy" else "clazy-standalone"
        digest.update(subprocess.run([program, "--version"], check=True, capture_output=True).stdout)
        for path in [ROOT / ".clang-tidy", *tracked("*.h")]:
            digest.update(str(path).encode() + b"\0" + path.read_bytes())
        return digest.hexdigest()

    def _key(self, batch):
        digest = hashlib.sha256(self.common.encode())
        for source in batch:
            digest.update(json.dumps([str(source.path), source.options]).encode() + source.path.read_bytes())
        return digest.hexdigest()

    def _write_batch(self, batch, name):
        """The file that an analyser reads for a batch, and a compilation database that knows it."""
        folder = self.folder / name
        folder.mkdir(exist_ok=True)
        path = batch[0].path
        if len(batch) > 1:
            path = folder / "batch.cpp"
            path.write_text(joined_text(batch))
        command = [batch[0].compiler, *joined_options(batch), "-c", str(path)]
        entry = {"directory": str(BUILD), "file": str(path), "command": shlex.join(command)}
        (folder / "compile_commands.json").write_text(json.dumps([entry]))
        return folder, path

    def _command(self, database, path):
        if self.tool == "tidy":
            return ["clang-tidy-14", "-quiet", f"--config-file={ROOT / '.clang-tidy'}", f"--header-filter={OWN}",
                    "--checks=-bugprone-suspicious-include", "-p", database, path]
        return ["clazy-standalone", f"-checks={CLAZY_CHECKS}", f"--header-filter={OWN}", "-p", database, path]

    def _run(self, batch, name):
        """The findings as texts, each with the lines that belong to it."""
        database, path = self._write_batch(batch, name)
        result = subprocess.run(self._command(database, path), capture_output=True, text=True, errors="replace")
        findings, current = [], None
        for line in (result.stdout + result.stderr).splitlines():
            match = FINDING.match(line)
            if match:
                current = None if is_no_finding(self.tool, match, line) else [line]
                if current:
                    findings.append(current)
            elif re.match(r"^\d+ (warning|error)s? |^Suppressed |^Use -header-filter|^Error while ", line):
                current = None
            elif current is not None:
                current.append(line)
        if result.returncode != 0 and not findings:
            findings.append([f"{name}: {self.tool} ended with {result.returncode}", result.stdout, result.stderr])
        return ["\n".join(finding) for finding in findings]

    def check(self, batch):
        """The findings of a batch as texts."""
        key = self._key(batch)
        passed = self.folder / f"{key}.passed"
        if passed.exists():
            return []
        texts = self._run(batch, key[:16])
        if not texts:
            passed.touch()
        return texts


def main():
    parser = argparse.ArgumentParser(description="Runs a static analyser over the project's source files.")
    parser.add_argument("tool", choices=["tidy", "clazy"])
    parser.add_argument("--single", action="store_true", help="read every file by itself")
    parser.add_argument("files", nargs="*", type=lambda name: pathlib.Path(name).resolve())
    arguments = parser.parse_args()

    if not (BUILD / "compile_commands.json").exists():
        sys.exit("analyse: build the release preset first, for build/compile_commands.json")
    found = sources(set(arguments.files))
    if not found:
        sys.exit("analyse: build/compile_commands.json names no source file of the project")
    analyser = Analyser(arguments.tool)
    seen = set()
    with concurrent.futures.ThreadPoolExecutor(len(os.sched_getaffinity(0))) as pool:
        for texts in pool.map(analyser.check, batches(found, 1 if arguments.single else BATCH, pool)):
            for text in texts:
                if text not in seen:  # A header's finding comes once for each batch that includes it.
                    seen.add(text)
                    print(text, flush=True)
    print(f"{arguments.tool}: {len(found)} files, {len(seen) or 'no'} findings")
    sys.exit(1 if seen else 0)


if __name__ == "__main__":
    main()
