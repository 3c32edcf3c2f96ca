#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Sets up, builds, and runs every test and check. The last line of the output is "N passed, N failed".
set -uo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
logs=$root/build/logs
all_stages=(format release asan tidy clazy)
declare -A purpose=(
    [release]='build, and every test'
    [format]='layout of the code'
    [asan]='the test programs under the address and undefined behaviour sanitizers, with leak detection'
    [tidy]='clang-tidy over every file'
    [clazy]='clazy over every file'
)
passed=0
failed=0
configuration=()
report=()

usage() {
    cat <<USAGE
Usage: scripts/test.sh [--quick] [--long] [--stage NAME]...

Installs missing packages, builds, and runs every test and check. Everything it writes
is below build/, the full output of each stage in build/logs.

  --quick       only the layout of the code and the tests of the release build
  --long        the long forms of the tests that have one (soak, random walk, damaged
                pictures), and the pictures of the documentation; hours instead of minutes
  --stage NAME  only this stage; may be given more than once
  --help        this text

Stages:
$(for name in "${all_stages[@]}"; do printf '  %-13s %s\n' "$name" "${purpose[$name]}"; done)

Exit status: 0 when everything passed, 1 when something failed, 2 when an option is wrong.
USAGE
}

wrong_usage() {
    printf 'test: %s\n' "$1" >&2
    exit 2
}

parse_arguments() {
    stages=()
    while [[ $# -gt 0 ]]; do
        case $1 in
        --quick) stages=(format release) ;;
        --long)
            export VELLUM_LONG_TESTS=1
            configuration=(-C pictures)
            ;;
        --stage)
            [[ $# -gt 1 && -n ${purpose[$2]:-} ]] || wrong_usage "--stage takes one of: ${all_stages[*]}"
            stages+=("$2")
            shift
            ;;
        -h | --help)
            usage
            exit 0
            ;;
        *) wrong_usage "unknown option '$1'" ;;
        esac
        shift
    done
    [[ ${#stages[@]} -gt 0 ]] || stages=("${all_stages[@]}")
}

# Files of the project whose names match the patterns, zero-terminated; also those not committed yet.
project_files() {
    git -C "$root" -c safe.directory="$root" ls-files -z --cached --others --exclude-standard -- "$@"
}

# Configures and builds a preset; a machine with ccache uses it.
build_preset() {
    local launcher=()
    command -v ccache >/dev/null && launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
    (cd "$root" && cmake --preset "$1" ${launcher[@]+"${launcher[@]}"} && cmake --build --preset "$1")
}

# Runs the tests of a preset and adds what ctest counted.
run_ctest() {
    local log=$logs/ctest-$1.log status=0 total missed
    (cd "$root" && ctest --preset "$1" ${configuration[@]+"${configuration[@]}"} --output-log "$log") || status=1
    read -r missed total < <(sed -nE 's/^[0-9]+% tests passed, ([0-9]+) tests? failed out of ([0-9]+)$/\1 \2/p' "$log" 2>/dev/null)
    if [[ -z ${total:-} ]]; then
        count 0 1
        return 1
    fi
    count $((total - missed)) "$missed"
    return $status
}

# Stages run in subshells so that their output can be copied to a log; counts come back through a file.
count() {
    printf '%s %s\n' "$1" "$2" >>"$logs/counts"
}

# A check that counts as one test.
count_check() {
    if "$@"; then
        count 1 0
    else
        count 0 1
        return 1
    fi
}

stage_release() {
    if ! build_preset release; then
        count 0 1
        return 1
    fi
    run_ctest release
}

stage_asan() {
    if ! build_preset asan; then
        count 0 1
        return 1
    fi
    run_ctest asan
}

check_format() {
    local output list
    if output=$(project_files '*.h' '*.cpp' | (cd "$root" && xargs -0 -r clang-format-14 --dry-run -Werror) 2>&1); then
        printf 'every file is laid out as .clang-format says\n'
        return
    fi
    list=$(sed -nE 's/^([^ :]+):[0-9]+:.*code should be clang-formatted.*/\1/p' <<<"$output" | sort -u)
    [[ -n $list ]] || printf '%s\n' "$output"
    printf 'Not laid out as .clang-format says. This lays it out:\n\n  clang-format-14 -i %s\n\n' "${list//$'\n'/ }"
    return 1
}

stage_format() {
    count_check check_format
}

stage_tidy() {
    count_check "$root/scripts/analyse.py" tidy
}

stage_clazy() {
    count_check "$root/scripts/analyse.py" clazy
}

run_stage() {
    local name=$1 started=$SECONDS verdict=passed
    printf '\n=== %s: %s\n' "$name" "${purpose[$name]}"
    : >"$logs/counts"
    "stage_$name" </dev/null 2>&1 | tee "$logs/$name.log"
    [[ ${PIPESTATUS[0]} -eq 0 ]] || verdict=FAILED
    local good=0 bad=0 a b
    while read -r a b; do
        good=$((good + a))
        bad=$((bad + b))
    done <"$logs/counts"
    [[ $verdict == passed || $bad -gt 0 ]] || bad=1
    passed=$((passed + good))
    failed=$((failed + bad))
    report+=("$(printf '%-8s %-6s %4d passed %3d failed %5d s' "$name" "$verdict" "$good" "$bad" $((SECONDS - started)))")
}

main() {
    parse_arguments "$@"
    if ! "$root/scripts/setup.sh" test </dev/null; then
        printf 'test: the set-up failed, so nothing was tested\n\n0 passed, 1 failed\n'
        exit 1
    fi
    mkdir -p "$logs"
    local name
    for name in "${stages[@]}"; do
        run_stage "$name"
        # It takes a second and is mended by one command; the rest takes long.
        [[ $name != format || $failed -eq 0 ]] || break
    done
    printf '\n=== Summary (%d s; full output in build/logs)\n' "$SECONDS"
    printf '%s\n' "${report[@]}"
    printf '\n%d passed, %d failed\n' "$passed" "$failed"
    [[ $failed -eq 0 ]]
}

main "$@"
