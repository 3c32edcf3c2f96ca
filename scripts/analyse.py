#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Runs a static analyser over every source file of the project that the release build compiles.

    scripts/analyse.py tidy|clazy [--single] [FILE...]

Most of an analyser's time goes into Qt's headers, so files are read in batches: a generated file includes a dozen of
them. Files that do not go together (equal names in unnamed namespaces) are read by themselves, as all are with --single.
A batch that passed is remembered by its contents and the contents of every header, in build/analysis.
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
BATCH = 12

# clazy's level 1 without
# - fully-qualified-moc-types: it would change the signatures that others connect to by name;
# - non-pod-global-static: a false alarm for constants of literal types;
# - qproperty-without-notify: nothing here is bound to by QML.
CLAZY_CHECKS = "level1,no-fully-qualified-moc-types,no-non-pod-global-static,no-qproperty-without-notify"

# Our own code: not Qt's, not what the build generated.
OWN = "^" + re.escape(str(ROOT)) + r"/[a-z]+/([a-z]+/)*[a-z_]+\.(h|cpp)$"

FINDING = re.compile(r"^(?P<file>/[^:]+):\d+:\d+: (?:fatal error|error|warning): ")


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
            elif word not in ("-MD", "-MMD"):
                self.options.append(word)


def sources(wanted):
    own = {path for path in tracked("*.cpp")}
    found = {}
    for entry in json.loads((BUILD / "compile_commands.json").read_text()):
        source = Source(entry)
        if source.path in own and (not wanted or source.path in wanted):
            found.setdefault(source.path, source)
    return [found[path] for path in sorted(found)]


def batches(all_sources, size):
    """Only files with the same options go together; their search paths are joined."""
    groups = {}
    for source in all_sources:
        groups.setdefault(tuple(source.options), []).append(source)
    for group in groups.values():
        for start in range(0, len(group), size):
            yield group[start:start + size]


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
        """A file that includes the batch, and a compilation database that knows it."""
        folder = self.folder / name
        folder.mkdir(exist_ok=True)
        text = ""
        for number, source in enumerate(batch):
            text += f'#define main main_{number}\n#include "{source.path}"\n#undef main\n'
        unity = folder / "batch.cpp"
        unity.write_text(text)
        includes = list(dict.fromkeys(include for source in batch for include in source.includes))
        command = [batch[0].compiler, *batch[0].options, *(word for include in includes for word in include),
                   "-c", str(unity)]
        entry = {"directory": str(BUILD), "file": str(unity), "command": shlex.join(command)}
        (folder / "compile_commands.json").write_text(json.dumps([entry]))
        return folder, unity

    def _command(self, database, path):
        if self.tool == "tidy":
            return ["clang-tidy-14", "-quiet", f"--config-file={ROOT / '.clang-tidy'}", f"--header-filter={OWN}",
                    "--checks=-bugprone-suspicious-include", "-p", database, path]
        return ["clazy-standalone", f"-checks={CLAZY_CHECKS}", f"--header-filter={OWN}", "-p", database, path]

    def _run(self, batch, name):
        """The findings, each with the lines that belong to it, and the files in which reading failed."""
        database, path = self._write_batch(batch, name) if len(batch) > 1 else (BUILD, batch[0].path)
        result = subprocess.run(self._command(database, path), capture_output=True, text=True, errors="replace")
        findings, current = [], None
        for line in (result.stdout + result.stderr).splitlines():
            match = FINDING.match(line)
            if match:
                current = [line] if re.match(OWN, match["file"]) else None
                if current:
                    findings.append(current)
            elif re.match(r"^\d+ (warning|error)s? |^Suppressed |^Use -header-filter|^Error while ", line):
                current = None
            elif current is not None:
                current.append(line)
        broken = {pathlib.Path(finding[0].split(":")[0]) for finding in findings
                  if "[clang-diagnostic-error]" in finding[0] or (self.tool == "clazy" and " error: " in finding[0])}
        if result.returncode != 0 and not findings:
            findings.append([f"{name}: {self.tool} ended with {result.returncode}", result.stdout, result.stderr])
        return findings, broken

    def check(self, batch):
        """The findings of a batch as texts."""
        key = self._key(batch)
        passed = self.folder / f"{key}.passed"
        if passed.exists():
            return []
        findings, broken = self._run(batch, key[:16])
        if len(batch) > 1 and broken:
            apart = [source for source in batch if source.path in broken] or batch
            rest = [source for source in batch if source not in apart]
            texts = [text for source in apart for text in self.check([source])]
            texts += self.check(rest) if rest else []
        else:
            texts = ["\n".join(finding) for finding in findings]
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
        for texts in pool.map(analyser.check, batches(found, 1 if arguments.single else BATCH)):
            for text in texts:
                if text not in seen:  # A header's finding comes once for each batch that includes it.
                    seen.add(text)
                    print(text, flush=True)
    print(f"{arguments.tool}: {len(found)} files, {len(seen) or 'no'} findings")
    sys.exit(1 if seen else 0)


if __name__ == "__main__":
    main()
