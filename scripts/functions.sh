# SPDX-License-Identifier: GPL-3.0-or-later
# shellcheck shell=bash
# Common functions of the scripts that control the program's window. To be sourced.

say() { printf '%s\n' "$*"; }

# until_true SECONDS COMMAND...: waits for the command to succeed.
until_true() {
    local tries=$(($1 * 10))
    shift
    while ! "$@" >/dev/null 2>&1; do
        tries=$((tries - 1))
        [ $tries -gt 0 ] || return 1
        sleep 0.1
    done
}

keys() { xdotool key --clearmodifiers --delay 60 "$@"; }
write() { xdotool type --clearmodifiers --delay 20 "$1"; }

# package FOLDER NAME VERSION ARCHITECTURE SECTION DEPENDS DESCRIPTION: builds a package with one file.
package() {
    local tree
    tree=$(mktemp -d)
    mkdir -p "$tree/DEBIAN" "$tree/usr/share/$2"
    echo "$2 $3" >"$tree/usr/share/$2/about"
    {
        printf 'Package: %s\nVersion: %s\nArchitecture: %s\nSection: %s\n' "$2" "$3" "$4" "$5"
        [ -z "$6" ] || printf 'Depends: %s\n' "$6"
        printf 'Maintainer: Anna Example <anna@example.org>\nPriority: optional\nDescription: %s\n' "$7"
    } >"$tree/DEBIAN/control"
    chmod 755 "$tree"
    dpkg-deb --root-owner-group -b "$tree" "$1/${2}_${3}_${4}.deb" >/dev/null
    rm -rf -- "$tree"
}
