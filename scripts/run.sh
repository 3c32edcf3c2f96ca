#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Sets up, builds what changed, and opens a folder of pictures in Vellum.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

usage() {
    cat <<'USAGE'
Usage: scripts/run.sh [FOLDER] [-- OPTIONS FOR vellum]

Installs missing packages, builds what changed since the last time, and opens the
tag manager on the pictures in FOLDER; without FOLDER, on the sample pictures that
come with the project. Without a display it renders the window to build/vellum.png.

Everything after -- goes to vellum: "scripts/run.sh -- --help" lists what it takes.

Exit status: that of vellum; 2 when FOLDER or an option is wrong, 1 when the set-up
or the build fails.
USAGE
}

wrong_usage() {
    printf 'run: %s\n' "$1" >&2
    exit 2
}

fail() {
    printf 'run: %s\n' "$1" >&2
    exit 1
}

parse_arguments() {
    folder=
    options=()
    while [[ $# -gt 0 ]]; do
        case $1 in
        --)
            shift
            options=("$@")
            return
            ;;
        -h | --help)
            usage
            exit 0
            ;;
        -*) wrong_usage "unknown option '$1'; options for vellum come after --" ;;
        *)
            [[ -z $folder ]] || wrong_usage "more than one folder: '$folder' and '$1'"
            [[ -n $1 ]] || wrong_usage "the folder's name is empty"
            folder=$1
            ;;
        esac
        shift
    done
}

check_folder() {
    [[ -n $folder ]] || return 0
    [[ -e $folder ]] || wrong_usage "there is no folder '$folder'"
    [[ -d $folder ]] || wrong_usage "'$folder' is not a folder"
    [[ -r $folder && -x $folder ]] || wrong_usage "the folder '$folder' cannot be read"
    folder=$(cd -- "$folder" && pwd)
}

build() {
    printf 'run: building\n'
    mkdir -p "$root/build"
    local log=$root/build/run.log
    if ! { cmake -S "$root" --preset release && cmake --build "$root/build" --target vellum plg_vltagmanagerplugin; } \
        >"$log" 2>&1 </dev/null; then
        tail -n 40 "$log" >&2
        fail "the build failed; all of its output is in $log"
    fi
}

# Without a folder it is the sample pictures. Their library is kept in the build folder, so that a clone stays clean.
name_what_opens() {
    what=$folder
    if [[ -z $folder ]]; then
        folder=$root/samples
        what='the sample pictures'
        options=(--library "$root/build/samples.vellum" ${options[@]+"${options[@]}"})
    fi
}

has_display() {
    [[ -n ${DISPLAY:-} || -n ${WAYLAND_DISPLAY:-} ]]
}

# True when vellum answers on the command line, so that there is no window to show.
ends_without_window() {
    local option
    for option in ${options[@]+"${options[@]}"}; do
        case $option in
        -h | --help | -v | --version | --import | --import=* | --list | --list=*) return 0 ;;
        esac
    done
    return 1
}

renders_a_picture() {
    [[ " ${options[*]-} " == *' --screenshot'[\ =]* ]]
}

main() {
    parse_arguments "$@"
    check_folder
    # Progress goes to stderr, so that what vellum prints can be piped.
    "$root/scripts/setup.sh" build >&2
    build >&2

    local vellum=$root/build/bin/vellum
    if ends_without_window; then
        exec "$vellum" "${options[@]}" ${folder:+"$folder"}
    fi
    name_what_opens
    if renders_a_picture; then
        has_display || export QT_QPA_PLATFORM=offscreen
        "$vellum" "${options[@]}" "$folder"
        printf 'run: built, and rendered the window with %s\n' "$what"
    elif has_display; then
        printf 'run: opening %s\n' "$what"
        "$vellum" ${options[@]+"${options[@]}"} "$folder"
        printf 'run: built, opened %s, and closed again\n' "$what"
    else
        QT_QPA_PLATFORM=offscreen "$vellum" --screenshot "$root/build/vellum.png" ${options[@]+"${options[@]}"} "$folder"
        printf 'run: there is no display; built, and rendered the window with %s to build/vellum.png\n' "$what"
    fi
}

main "$@"
