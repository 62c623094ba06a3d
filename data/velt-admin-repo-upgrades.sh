#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
# velt-admin-repo-upgrades.sh REPOSITORY
#
# Writes what apt's sources have that is newer than in the repository to a report in the state folder, and tells the
# desktop of it where there is one. For a timer: exit code 0 means that the report is up to date, with or without
# newer versions. Otherwise the former report stays, and the exit code is that of velt-admin-repo-cli.
set -eu

repository=$1
state=${XDG_STATE_HOME:-$HOME/.local/state}/velt-admin-repo/upgrades
mkdir -p -- "$state"
report=$state/$(systemd-escape --path -- "$repository").txt
new=$(mktemp -- "$state/.new.XXXXXX")
trap 'rm -f -- "$new"' EXIT

status=0
velt-admin-repo-cli upgrade "$repository" --list --quiet --wait 3600 >"$new" || status=$?
# 1 is a finding.
[ "$status" -le 1 ] || exit "$status"
chmod 644 -- "$new"
if cmp -s -- "$new" "$report"; then
    exit 0
fi
mv -f -- "$new" "$report"
count=$(wc -l <"$report")
[ "$count" -gt 0 ] || exit 0
# Nobody is told where nobody is logged in.
if [ -n "${DISPLAY-}${WAYLAND_DISPLAY-}" ] && command -v notify-send >/dev/null; then
    notify-send --app-name=velt-admin-repo --icon=velt-admin-repo \
        "Newer versions of $count packages for $repository" || true
fi
