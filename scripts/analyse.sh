#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Runs a static analyser over every source file that the release build compiles.
#
#   scripts/analyse.sh tidy|clazy [FILE...]
#
# A file that passed is remembered by the contents of itself, of every header and of the settings, in build/analysis.
set -uo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
database=$root/build/compile_commands.json

# clazy's level 1 without: non-pod-global-static (a false alarm for constant expressions of literal types), and
# qproperty-without-notify (nothing here is bound to by QML).
clazy_checks=level1,no-non-pod-global-static,no-qproperty-without-notify

tool=${1:-}
case $tool in
tidy) version=$(clang-tidy-14 --version) ;;
clazy) version="$(clazy-standalone --version) $clazy_checks" ;;
*)
    printf 'analyse: tidy or clazy, not "%s"\n' "$tool" >&2
    exit 2
    ;;
esac
shift

[[ -r $database ]] || {
    printf 'analyse: build the release preset first: %s is not there\n' "$database" >&2
    exit 1
}

passes=$root/build/analysis/$tool
mkdir -p "$passes"

tracked() {
    git -C "$root" -c safe.directory="$root" ls-files -z --cached --others --exclude-standard -- "$@"
}

# What all verdicts depend on: the headers, the settings and the tool.
common=$({
    printf '%s\n' "$version"
    cd "$root" && tracked '*.h' .clang-tidy | sort -z | xargs -0 -r sha256sum
} | sha256sum)

analyse_file() {
    local file=$1 key output
    key=$passes/$(printf '%s %s' "$common" "$(sha256sum "$file")" | sha256sum | cut -c -64)
    [[ -e $key ]] && return 0
    if [[ $tool == tidy ]]; then
        output=$(clang-tidy-14 -quiet -p "$root/build" --header-filter="^$root/[a-z]+/([a-z]+/)*[a-z_]+\.h$" \
            --warnings-as-errors='*' "$file" 2>&1) && : >"$key" && return 0
    else
        output=$(clazy-standalone -checks="$clazy_checks" -p "$root/build" --header-filter="^$root/(?!build)" \
            --ignore-dirs="$root/build/.*" "$file" 2>&1)
        grep -qE '(warning|error):' <<<"$output" || { [[ $? -eq 1 ]] && : >"$key" && return 0; }
    fi
    grep -vE '^[0-9]+ warnings? (generated|treated)|^Suppressed |^Use -header-filter' <<<"$output"
    return 1
}

# The project's own sources that are in the compilation database, zero-terminated.
sources() {
    local file
    while IFS= read -r -d '' file; do
        if grep -qF "\"file\": \"$root/$file\"" "$database"; then
            printf '%s\0' "$root/$file"
        fi
    done < <(tracked '*.cpp')
}

mapfile -d '' -t files < <(sources)
[[ $# -eq 0 ]] || files=("$@")
[[ ${#files[@]} -gt 0 ]] || {
    printf 'analyse: %s knows no source file of the project\n' "$database" >&2
    exit 1
}

export -f analyse_file
export root tool passes common clazy_checks
# shellcheck disable=SC2016  # The inner shell expands it.
printf '%s\0' "${files[@]}" | xargs -0 -n 1 -P "$(nproc)" bash -c 'analyse_file "$1"' analyse &&
    printf '%s: %d files, no findings\n' "$tool" "${#files[@]}"
