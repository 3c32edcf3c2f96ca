#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Installs the Debian packages that are missing, and says in one line each what and why.
#
#   scripts/setup.sh build   what building and running needs
#   scripts/setup.sh test    that, and what the tests and checks need
#
# Asks nothing itself. Nothing is installed, and no network is needed, when everything is there.
set -euo pipefail

# kind | package | why
packages() {
    sed -e '/^#/d' -e '/^$/d' <<'TABLE'
build|build-essential|C++17 compiler and linker
build|cmake|configures the build (3.21 or later)
build|ninja-build|runs the build
build|pkgconf|tells CMake where libraries without CMake files are
build|qtbase5-dev|Qt 5.15: widgets, SQL, concurrency, tests
build|libqt5svg5-dev|Qt's SVG renderer, for the icons
build|libqt5sql5-sqlite|Qt's SQLite driver, for the library file
build|libexiv2-dev|reads keywords that are embedded in pictures
build|libglib2.0-dev|knows which program of the desktop opens a picture
build|libicu-dev|compares names without regard to case, width and accents
build|libseccomp-dev|confines the processes that read pictures
build|qt5-image-formats-plugins|thumbnails of WebP, TIFF and other pictures
build|fonts-noto-core|letters of most scripts, for tag names
build|fonts-wqy-microhei|Chinese, Japanese and Korean letters; of Noto's, Qt 5 falls back to the bold face
build|fonts-noto-color-emoji|emoji
test|git|lists the files that the project holds
test|qttools5-dev-tools|qtplugininfo reads the plug-in's metadata
test|binutils|lists the symbols that the plug-in exports
test|xvfb|a display for the tests that need a window system
test|xauth|access to that display
test|openbox|a window manager on that display
test|x11-utils|asks that display about its windows
test|xdotool|moves the mouse and types on that display
test|python3|drives the session test
test|sqlite3|looks into the library file from outside
test|libsqlite3-dev|lets the tests make the disk below the library fail
test|libimage-exiftool-perl|reads keywords a second way, to compare with
test|valgrind|watches the memory of the window's life cycle
test|clang-format-14|checks the layout of the code
test|clang-tidy-14|looks for mistakes in the code
test|clazy|looks for mistakes in the use of Qt
TABLE
}

fail() {
    printf 'setup: %s\n' "$1" >&2
    exit 1
}

# Names of the packages of the given kinds that are not installed, one a line.
missing_packages() {
    local kinds=$1 installed kind package why
    installed=$(dpkg-query -W -f='${db:Status-Abbrev} ${Package}\n' 2>/dev/null | sed -n 's/^ii *//p')
    while IFS='|' read -r kind package why; do
        [[ $kinds == *"$kind"* ]] || continue
        grep -qxF -- "$package" <<<"$installed" || printf '%s|%s\n' "$package" "$why"
    done < <(packages)
}

# Puts the words before an apt-get command that give it the rights it needs into the array as_root.
find_root_rights() {
    as_root=(env DEBIAN_FRONTEND=noninteractive)
    [[ $(id -u) -eq 0 ]] && return
    command -v sudo >/dev/null || fail "no right to install packages: run as root, or install sudo. Missing: $1"
    if ! sudo -n true 2>/dev/null && [[ ! -t 0 ]]; then
        fail "sudo wants a password and there is no terminal to type it into. Run as root: apt-get install $1"
    fi
    as_root=(sudo "${as_root[@]}")
}

install_packages() {
    local names=("$@")
    command -v apt-get >/dev/null || fail "this needs apt-get, as Debian 12 has it. Missing: ${names[*]}"
    find_root_rights "${names[*]}"
    local options=(-q -y -o Dpkg::Use-Pty=0 -o DPkg::Lock::Timeout=300 -o Acquire::Retries=3)
    mkdir -p "$log_folder"
    "${as_root[@]}" apt-get "${options[@]}" update </dev/null >"$log" 2>&1 ||
        fail "apt-get update failed; is there a network? The last lines of $log:"$'\n'"$(tail -n 5 "$log")"
    "${as_root[@]}" apt-get "${options[@]}" install --no-install-recommends "${names[@]}" </dev/null >>"$log" 2>&1 ||
        fail "apt-get install failed. The last lines of $log:"$'\n'"$(tail -n 15 "$log")"
}

main() {
    case ${1:-build} in
    build) local kinds=build ;;
    test) local kinds=build,test ;;
    *) fail "unknown kind '$1': build or test" ;;
    esac
    log_folder=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)/build
    log=$log_folder/setup.log
    command -v dpkg-query >/dev/null || fail "this needs Debian 12 or a system made from it: dpkg-query is not there"

    local missing=() package why
    while IFS='|' read -r package why; do
        printf 'setup: installing %s: %s\n' "$package" "$why"
        missing+=("$package")
    done < <(missing_packages "$kinds")
    if [[ ${#missing[@]} -eq 0 ]]; then
        printf 'setup: every package is there\n'
        return
    fi
    install_packages "${missing[@]}"
    printf 'setup: installed %d packages (log: build/setup.log)\n' "${#missing[@]}"
}

main "$@"
